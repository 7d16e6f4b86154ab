// The data set journal: valid while the active frame has a data set (one given up on: the add-on's recorder
// tests), commands kept in order as given.
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
        host::loadDataSet(
            name, {host::SurfaceZoneData{name, 0.0, 0, {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}}, {{0, 1, 2}}, {}}});
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
