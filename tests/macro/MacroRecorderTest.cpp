// Recording the add-on's macro commands into the host: into the macro being recorded and into the data
// set journal, only where the host takes them, with the text built only when it goes somewhere; and the
// Animate command that a completed animation records.
#include "animation/Animate.h"
#include "animation/KeyFrameTestHelpers.h"
#include "macro/MacroManager.h"

#include <support/AddOnTest.h>
#include <support/TempFolder.h>
#include <support/ThrownMessage.h>

#include <vantix/host/Export.h>

using namespace vantix::vtxutiltools;
using Lines = std::vector<std::string>;

namespace
{

const std::string AddOnCommand = "$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = ";

class MacroRecorderTest : public testsupport::AddOnTest
{
protected:
    // A data set of one triangle, whose journal takes commands or was given up on.
    static void LoadDataSet(bool journalValid = true)
    {
        vantix::host::SurfaceZoneData triangle;
        triangle.name = "triangle";
        triangle.nodes = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
        triangle.triangles = {{0, 1, 2}};
        vantix::host::loadDataSet("one triangle", {triangle});
        vantix::host::setJournalValid(journalValid);
    }

    static long Calls(const char* function) { return vantix::host::callCount(function); }

    const AddOnMacroCommandManager m_manager{" "};
};

} // namespace

TEST_F(MacroRecorderTest, RecordsIntoTheMacroWhileRecordingAndIntoTheJournalOnlyWhenAskedAndValid)
{
    const std::string text = "OpenSettingsFile FileName=\"/data/my runs/a.keyframe\"";
    for (const bool recording : {false, true})
        for (const bool alsoJournal : {false, true})
            for (const int dataSet : {0, 1, 2}) // none, with a valid journal, with a journal given up on
            {
                SCOPED_TRACE(::testing::Message() << recording << alsoJournal << dataSet);
                vantix::host::reset();
                vantix::host::addFrame();
                if (dataSet != 0)
                    LoadDataSet(dataSet == 1);
                vantix::host::setMacroRecording(recording);

                m_manager.recordMacroCommand(Command_e::OpenSettingsFile,
                                             {{FileName, "/data/my runs/a.keyframe"}}, alsoJournal);

                const bool journalled = alsoJournal && dataSet == 1;
                EXPECT_EQ(recording ? Lines{AddOnCommand + "'" + text + "'"} : Lines{},
                          vantix::host::recordedMacroLines());
                Lines journal;
                for (const vantix::host::JournalCommand& command : vantix::host::journalCommands())
                    journal.push_back(command.addOnID + ": " + command.instructions +
                                      (command.rawData ? " +" : ""));
                EXPECT_EQ(journalled ? Lines{"Key Frame Animation: " + text} : Lines{}, journal);
                EXPECT_EQ((std::vector<long>{1, alsoJournal, recording, journalled}),
                          (std::vector<long>{Calls("VtxUtilMacroIsRecordingActive"),
                                             Calls("VtxUtilDataSetJournalIsValid"),
                                             Calls("VtxUtilMacroRecordExtCommand"),
                                             Calls("VtxUtilDataSetAddJournalCommand")}));

                // A command without a text cannot be built: building it is out of range, so a failure shows
                // that the text was built. Nothing is half-recorded, and the lock is released on the way out.
                EXPECT_THROW_MSG(m_manager.recordMacroCommand(static_cast<Command_e>(7), {}, alsoJournal),
                                 std::out_of_range,
                                 recording || journalled ? "Enumeration out of range." : "");
                EXPECT_EQ(recording ? 1u : 0u, vantix::host::recordedMacroLines().size());
                EXPECT_EQ(journalled ? 1u : 0u, vantix::host::journalCommands().size());
                EXPECT_EQ(0, vantix::host::lockDepth(AddOnID));
            }
}

TEST_F(MacroRecorderTest, TheManagerRecordsIntoTheMacroAloneWhileTheHostRecords)
{
    LoadDataSet();
    MacroManager::instance().recordCommand(Command_e::Animate, {{AnimationDestination, "ToFile"}});
    vantix::host::setMacroRecording(true);
    MacroManager::instance().recordCommand(Command_e::Animate, {{AnimationDestination, "ToFile"}});
    // Whatever the value holds comes back from the host's line unchanged; the journal, valid, is not asked.
    MacroManager::instance().recordCommand(Command_e::OpenSettingsFile, {{FileName, "/tmp/it's a \\ file"}});
    EXPECT_EQ((Lines{AddOnCommand + "'Animate AnimationDestination=ToFile'",
                     AddOnCommand + "'OpenSettingsFile FileName=\"/tmp/it\\'s a \\\\ file\"'"}),
              vantix::host::recordedMacroLines());
    EXPECT_EQ(0, Calls("VtxUtilDataSetJournalIsValid"));
    EXPECT_TRUE(vantix::host::journalCommands().empty());
}

TEST_F(MacroRecorderTest, ACompletedAnimationIsRecordedAsTheAnimateCommandWithItsDestination)
{
    const std::vector<KeyFrame_s> keyFrames =
        testhelpers::MakeKeyFrames({{testhelpers::ViewAtX(0), 2}, {testhelpers::ViewAtX(40), 1}});
    const testsupport::TempFolder folder("vantix-recorder");
    vantix::host::setExportSetupFromText("ImageWidth", "32");
    vantix::host::setExportSetupFromText("ExportFormat", "RASTERMETAFILE");
    vantix::host::setExportSetupFromText("ExportFName", "\"" + (folder.path() / "movie.rm").string() + "\"");
    Settings_s settings;
    // clang-format off
    for (const auto& [recording, option, destination] :
         std::vector<std::tuple<bool, MacroOption_e, Destination_e>>{
             {false, RecordMacro, OnScreen}, {true, DoNotRecordMacro, OnScreen},
             {true, RecordMacro, OnScreen},
             {true, RecordMacro, ToFile}})
    // clang-format on
    {
        vantix::host::setMacroRecording(recording);
        settings.destination = destination;
        Animate(keyFrames, 0, keyFrames.size(), settings, option);
    }
    // Only those asked to be recorded while the host records are.
    EXPECT_EQ((Lines{AddOnCommand + "'Animate AnimationDestination=OnScreen'",
                     AddOnCommand + "'Animate AnimationDestination=ToFile'"}),
              vantix::host::recordedMacroLines());
}
