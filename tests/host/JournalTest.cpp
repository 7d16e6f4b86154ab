// The data set journal: valid while the active frame has a data set whose journal the host has not given
// up on, one journal per data set, commands kept in order as given.
#include "support/HostTest.h"

#include <VtxUtil.h>
#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>

#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testsupport::HostTest;
using vantix::host::JournalCommand;

class JournalTest : public HostTest
{
protected:
    static void LoadDataSet(const std::string& name)
    {
        vantix::host::SurfaceZoneData triangle;
        triangle.name = name;
        triangle.nodes = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
        triangle.triangles = {{0, 1, 2}};
        vantix::host::loadDataSet(name, {triangle});
    }

    // The instructions in the active frame's journal.
    static std::vector<std::string> Instructions()
    {
        std::vector<std::string> texts;
        for (const JournalCommand& command : vantix::host::journalCommands())
            texts.push_back(command.instructions);
        return texts;
    }

    static bool Add(const char* instructions)
    {
        return VtxUtilDataSetAddJournalCommand("Some Add-on", instructions, nullptr) == TRUE;
    }
};

} // namespace

TEST_F(JournalTest, WithoutADataSetThereIsNoJournal)
{
    EXPECT_EQ(FALSE, VtxUtilDataSetJournalIsValid());
    EXPECT_FALSE(vantix::host::journalIsValid());
    EXPECT_FALSE(Add("Animate"));
    EXPECT_THAT(vantix::host::journalCommands(), IsEmpty());
    EXPECT_THROW(vantix::host::setJournalValid(true), std::logic_error);
    EXPECT_EQ(FALSE, VtxUtilDataSetJournalIsValid());

    // Nor without a frame.
    vantix::host::reset();
    EXPECT_EQ(FALSE, VtxUtilDataSetJournalIsValid());
    EXPECT_FALSE(Add("Animate"));
    EXPECT_THAT(vantix::host::journalCommands(), IsEmpty());
}

TEST_F(JournalTest, ALoadedDataSetKeepsTheCommandsInOrderAsGiven)
{
    LoadDataSet("first");
    EXPECT_EQ(TRUE, VtxUtilDataSetJournalIsValid());
    EXPECT_TRUE(vantix::host::journalIsValid());
    EXPECT_THAT(vantix::host::journalCommands(), IsEmpty());

    const std::string awkward = "a 'b' \"c\"\n\\ =$!";
    EXPECT_EQ(TRUE, VtxUtilDataSetAddJournalCommand("Key Frame Animation",
                                                    "Animate AnimationDestination=ToFile", nullptr));
    EXPECT_EQ(TRUE, VtxUtilDataSetAddJournalCommand("Other", awkward.c_str(), "raw\tdata"));
    EXPECT_EQ(TRUE, VtxUtilDataSetAddJournalCommand("Other", "", ""));

    const std::vector<JournalCommand> commands = vantix::host::journalCommands();
    ASSERT_EQ(3u, commands.size());
    EXPECT_EQ("Key Frame Animation", commands[0].addOnID);
    EXPECT_EQ("Animate AnimationDestination=ToFile", commands[0].instructions);
    EXPECT_EQ(std::nullopt, commands[0].rawData);
    EXPECT_EQ("Other", commands[1].addOnID);
    EXPECT_EQ(awkward, commands[1].instructions);
    EXPECT_EQ(std::optional<std::string>("raw\tdata"), commands[1].rawData);
    EXPECT_EQ("", commands[2].instructions);
    EXPECT_EQ(std::optional<std::string>(""), commands[2].rawData);
}

TEST_F(JournalTest, AJournalGivenUpOnKeepsWhatItHasAndTakesNothingMore)
{
    LoadDataSet("data");
    EXPECT_TRUE(Add("one"));
    vantix::host::setJournalValid(false);
    EXPECT_EQ(FALSE, VtxUtilDataSetJournalIsValid());
    EXPECT_FALSE(vantix::host::journalIsValid());
    EXPECT_FALSE(Add("two"));
    EXPECT_THAT(Instructions(), ElementsAre("one"));

    vantix::host::setJournalValid(true);
    EXPECT_EQ(TRUE, VtxUtilDataSetJournalIsValid());
    EXPECT_TRUE(Add("three"));
    EXPECT_THAT(Instructions(), ElementsAre("one", "three"));
}

TEST_F(JournalTest, EachDataSetHasItsOwnJournalAndANewlyLoadedOneStartsAfresh)
{
    LoadDataSet("first");
    EXPECT_TRUE(Add("for the first"));
    vantix::host::setJournalValid(false);

    const UniqueID_t second = vantix::host::addFrame(PlotType_Cartesian3D);
    EXPECT_EQ(FALSE, VtxUtilDataSetJournalIsValid()); // the new frame has no data set yet
    LoadDataSet("second");
    EXPECT_EQ(TRUE, VtxUtilDataSetJournalIsValid());
    EXPECT_THAT(vantix::host::journalCommands(), IsEmpty());
    EXPECT_TRUE(Add("for the second"));

    ASSERT_TRUE(vantix::host::activateFrame(m_frame));
    EXPECT_EQ(FALSE, VtxUtilDataSetJournalIsValid());
    EXPECT_THAT(Instructions(), ElementsAre("for the first"));
    ASSERT_TRUE(vantix::host::activateFrame(second));
    EXPECT_THAT(Instructions(), ElementsAre("for the second"));

    // Loading again replaces the data set and, with it, the journal, even one given up on.
    ASSERT_TRUE(vantix::host::activateFrame(m_frame));
    LoadDataSet("third");
    EXPECT_EQ(TRUE, VtxUtilDataSetJournalIsValid());
    EXPECT_THAT(vantix::host::journalCommands(), IsEmpty());
}

TEST_F(JournalTest, ACommandWithoutAnAddOnOrInstructionsIsAProtocolError)
{
    LoadDataSet("data");
    const struct
    {
        const char* addOnID;
        const char* instructions;
    } cases[] = {{nullptr, "Animate"}, {"", "Animate"}, {"Some Add-on", nullptr}};
    for (const auto& c : cases)
    {
        EXPECT_EQ(FALSE, VtxUtilDataSetAddJournalCommand(c.addOnID, c.instructions, nullptr));
        EXPECT_THAT(vantix::host::hostErrors(),
                    ElementsAre("VtxUtilDataSetAddJournalCommand was given no add-on id or no instructions"));
        vantix::host::clearHostErrors();
    }
    EXPECT_THAT(vantix::host::journalCommands(), IsEmpty());
}

TEST_F(JournalTest, TheJournalFunctionsAreCountedAndTraced)
{
    LoadDataSet("data");
    vantix::host::setTracing(true);
    VtxUtilDataSetJournalIsValid();
    Add("one");
    Add("two");
    EXPECT_EQ(1, vantix::host::callCount("VtxUtilDataSetJournalIsValid"));
    EXPECT_EQ(2, vantix::host::callCount("VtxUtilDataSetAddJournalCommand"));
    EXPECT_THAT(vantix::host::trace(),
                ElementsAre("VtxUtilDataSetJournalIsValid", "VtxUtilDataSetAddJournalCommand",
                            "VtxUtilDataSetAddJournalCommand"));
}
