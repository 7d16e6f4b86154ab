// The data set journal: valid while the active frame has a data set whose journal the host has not given
// up on, one journal per data set, commands kept in order as given.
#include "support/HostTest.h"

#include <optional>
#include <stdexcept>

namespace
{

namespace host = vantix::host;
using namespace ::testing;

class JournalTest : public testsupport::HostTest
{
protected:
    static void LoadDataSet(const std::string& name)
    {
        host::SurfaceZoneData triangle;
        triangle.name = name;
        triangle.nodes = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
        triangle.triangles = {{0, 1, 2}};
        host::loadDataSet(name, {triangle});
    }

    // Whether the journal is valid, through the SDK and the host's API alike.
    static bool Valid()
    {
        EXPECT_EQ(host::journalIsValid(), VtxUtilDataSetJournalIsValid() == TRUE);
        return host::journalIsValid();
    }

    // The active frame's journal as (add-on, instructions, raw data) triples.
    static std::vector<std::tuple<std::string, std::string, std::optional<std::string>>> Journal()
    {
        std::vector<std::tuple<std::string, std::string, std::optional<std::string>>> commands;
        for (const host::JournalCommand& c : host::journalCommands())
            commands.emplace_back(c.addOnID, c.instructions, c.rawData);
        return commands;
    }

    static bool Add(const char* instructions)
    {
        return VtxUtilDataSetAddJournalCommand("Some Add-on", instructions, nullptr) == TRUE;
    }
};

TEST_F(JournalTest, WithoutADataSetOrAFrameThereIsNoJournal)
{
    EXPECT_FALSE(Valid());
    EXPECT_FALSE(Add("Animate"));
    EXPECT_THAT(host::journalCommands(), IsEmpty());
    EXPECT_THROW(host::setJournalValid(true), std::logic_error);
    EXPECT_FALSE(Valid());
    host::reset();
    EXPECT_FALSE(Valid());
    EXPECT_FALSE(Add("Animate"));
    EXPECT_THAT(host::journalCommands(), IsEmpty());
}

TEST_F(JournalTest, ALoadedDataSetKeepsTheCommandsInOrderAsGiven)
{
    LoadDataSet("first");
    EXPECT_TRUE(Valid());
    EXPECT_THAT(host::journalCommands(), IsEmpty());
    const std::string awkward = "a 'b' \"c\"\n\\ =$!";
    EXPECT_EQ(TRUE, VtxUtilDataSetAddJournalCommand("Key Frame Animation",
                                                    "Animate AnimationDestination=ToFile", nullptr));
    EXPECT_EQ(TRUE, VtxUtilDataSetAddJournalCommand("Other", awkward.c_str(), "raw\tdata"));
    EXPECT_EQ(TRUE, VtxUtilDataSetAddJournalCommand("Other", "", ""));
    EXPECT_THAT(Journal(), ElementsAre(std::make_tuple("Key Frame Animation",
                                                       "Animate AnimationDestination=ToFile", std::nullopt),
                                       std::make_tuple("Other", awkward, "raw\tdata"),
                                       std::make_tuple("Other", "", "")));
}

TEST_F(JournalTest, EachDataSetHasItsOwnJournalAndANewlyLoadedOneStartsAfresh)
{
    LoadDataSet("first");
    EXPECT_TRUE(Add("for the first"));
    host::setJournalValid(false);
    const UniqueID_t second = host::addFrame(PlotType_Cartesian3D);
    EXPECT_FALSE(Valid()) << "the new frame has no data set yet";
    LoadDataSet("second");
    EXPECT_TRUE(Valid());
    EXPECT_THAT(host::journalCommands(), IsEmpty());
    EXPECT_TRUE(Add("for the second"));

    ASSERT_TRUE(host::activateFrame(m_frame));
    EXPECT_FALSE(Valid());
    EXPECT_THAT(Journal(), ElementsAre(std::make_tuple("Some Add-on", "for the first", std::nullopt)));
    ASSERT_TRUE(host::activateFrame(second));
    EXPECT_THAT(Journal(), ElementsAre(std::make_tuple("Some Add-on", "for the second", std::nullopt)));

    // Loading again replaces the data set and, with it, the journal, even one given up on.
    ASSERT_TRUE(host::activateFrame(m_frame));
    LoadDataSet("third");
    EXPECT_TRUE(Valid());
    EXPECT_THAT(host::journalCommands(), IsEmpty());
}

TEST_F(JournalTest, ACommandWithoutAnAddOnOrInstructionsIsAProtocolError)
{
    LoadDataSet("data");
    const std::pair<const char*, const char*> cases[] = {
        {nullptr, "Animate"}, {"", "Animate"}, {"Some Add-on", nullptr}};
    for (const auto& [addOnID, instructions] : cases)
    {
        EXPECT_EQ(FALSE, VtxUtilDataSetAddJournalCommand(addOnID, instructions, nullptr))
            << (addOnID ? addOnID : "no add-on") << ", " << (instructions ? instructions : "no instructions");
        EXPECT_THAT(host::hostErrors(),
                    ElementsAre("VtxUtilDataSetAddJournalCommand was given no add-on id or no instructions"));
        host::clearHostErrors();
    }
    EXPECT_THAT(host::journalCommands(), IsEmpty());
}

} // namespace
