// Recording the add-on's macro commands into the host: into the macro being recorded and into the data
// set journal, only where the host takes them, with the text built only when it goes somewhere; and the
// Animate command that a completed animation records.
#include "animation/Animate.h"
#include "animation/KeyFrameTestHelpers.h"
#include "core/Settings.h"
#include "macro/MacroManager.h"

#include <support/AddOnTest.h>
#include <support/TempFolder.h>

#include <VtxUtil.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>

#include <filesystem>
#include <optional>
#include <stdexcept>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

const std::string AddOnCommand = "$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = ";

enum class Journal
{
    None,    // the active frame has no data set
    Valid,   // a data set whose journal takes commands
    GivenUp, // a data set whose journal the host gave up on
};

class MacroRecorderTest : public testsupport::AddOnTest
{
protected:
    static void LoadDataSet()
    {
        vantix::host::SurfaceZoneData triangle;
        triangle.name = "triangle";
        triangle.nodes = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
        triangle.triangles = {{0, 1, 2}};
        vantix::host::loadDataSet("one triangle", {triangle});
    }

    static void SetJournal(Journal journal)
    {
        if (journal == Journal::None)
            return;
        LoadDataSet();
        vantix::host::setJournalValid(journal == Journal::Valid);
    }

    static std::vector<std::string> JournalTexts()
    {
        std::vector<std::string> texts;
        for (const vantix::host::JournalCommand& command : vantix::host::journalCommands())
        {
            EXPECT_EQ("Key Frame Animation", command.addOnID);
            EXPECT_EQ(std::nullopt, command.rawData);
            texts.push_back(command.instructions);
        }
        return texts;
    }

    static long Calls(const char* function) { return vantix::host::callCount(function); }

    const AddOnMacroCommandManager m_manager{" "};
};

} // namespace

TEST_F(MacroRecorderTest, RecordsIntoTheMacroWhileRecordingAndIntoTheJournalOnlyWhenAskedAndValid)
{
    const std::string text = "OpenSettingsFile FileName=\"/data/my runs/a.keyframe\"";
    const MacroParameterList parameters = {{FileName, "/data/my runs/a.keyframe"}};
    for (const bool recording : {false, true})
        for (const bool alsoJournal : {false, true})
            for (const Journal journal : {Journal::None, Journal::Valid, Journal::GivenUp})
            {
                const std::string which = std::string(recording ? "recording" : "not recording") +
                                          (alsoJournal ? ", also the journal, " : ", not the journal, ") +
                                          std::to_string(static_cast<int>(journal));
                vantix::host::reset();
                vantix::host::addFrame();
                SetJournal(journal);
                vantix::host::setMacroRecording(recording);

                m_manager.recordMacroCommand(Command_e::OpenSettingsFile, parameters, alsoJournal);

                const bool journalled = alsoJournal && journal == Journal::Valid;
                EXPECT_EQ(recording ? std::vector<std::string>{AddOnCommand + "'" + text + "'"}
                                    : std::vector<std::string>{},
                          vantix::host::recordedMacroLines())
                    << which;
                EXPECT_EQ(journalled ? std::vector<std::string>{text} : std::vector<std::string>{},
                          JournalTexts())
                    << which;
                EXPECT_EQ(1, Calls("VtxUtilMacroIsRecordingActive")) << which;
                EXPECT_EQ(alsoJournal ? 1 : 0, Calls("VtxUtilDataSetJournalIsValid")) << which;
                EXPECT_EQ(recording ? 1 : 0, Calls("VtxUtilMacroRecordExtCommand")) << which;
                EXPECT_EQ(journalled ? 1 : 0, Calls("VtxUtilDataSetAddJournalCommand")) << which;
            }
}

TEST_F(MacroRecorderTest, HoldsTheHostLockAroundEverythingItAsksAndRecords)
{
    LoadDataSet();
    vantix::host::setMacroRecording(true);
    vantix::host::setTracing(true);
    m_manager.recordMacroCommand(Command_e::Animate, {{AnimationDestination, "OnScreen"}}, true);
    EXPECT_THAT(vantix::host::trace(),
                ElementsAre("VtxUtilLockStart", "VtxUtilMacroIsRecordingActive",
                            "VtxUtilDataSetJournalIsValid", "VtxUtilMacroRecordExtCommand",
                            "VtxUtilDataSetAddJournalCommand", "VtxUtilLockFinish"));
}

TEST_F(MacroRecorderTest, BuildsTheTextOnlyWhenItGoesSomewhere)
{
    // A command without a text cannot be built: building it is out of range, so the failure shows
    // whether the text was built.
    const auto unknown = static_cast<Command_e>(7);
    const struct
    {
        bool recording;
        bool alsoJournal;
        Journal journal;
        bool built;
    } cases[] = {
        {false, false, Journal::Valid, false},  {false, true, Journal::None, false},
        {false, true, Journal::GivenUp, false}, {true, false, Journal::None, true},
        {false, true, Journal::Valid, true},    {true, true, Journal::Valid, true},
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        vantix::host::addFrame();
        SetJournal(c.journal);
        vantix::host::setMacroRecording(c.recording);
        if (c.built)
        {
            EXPECT_THROW(m_manager.recordMacroCommand(unknown, {}, c.alsoJournal), std::out_of_range);
        }
        else
        {
            EXPECT_NO_THROW(m_manager.recordMacroCommand(unknown, {}, c.alsoJournal));
        }
        // Nothing half-recorded, and the lock released on the way out.
        EXPECT_THAT(vantix::host::recordedMacroLines(), IsEmpty());
        EXPECT_THAT(vantix::host::journalCommands(), IsEmpty());
        EXPECT_EQ(0, vantix::host::lockDepth(AddOnID));
    }
}

TEST_F(MacroRecorderTest, TheManagerRecordsIntoTheMacroAloneUnderItsOwnLock)
{
    LoadDataSet();
    vantix::host::setMacroRecording(true);
    vantix::host::setTracing(true);
    MacroManager::instance().recordCommand(Command_e::Animate, {{AnimationDestination, "ToFile"}});
    EXPECT_THAT(vantix::host::recordedMacroLines(),
                ElementsAre(AddOnCommand + "'Animate AnimationDestination=ToFile'"));
    // The journal is valid but never asked.
    EXPECT_THAT(vantix::host::journalCommands(), IsEmpty());
    EXPECT_THAT(vantix::host::trace(),
                ElementsAre("VtxUtilLockStart", "VtxUtilLockStart", "VtxUtilMacroIsRecordingActive",
                            "VtxUtilMacroRecordExtCommand", "VtxUtilLockFinish", "VtxUtilLockFinish"));

    // Whatever the value holds comes back from the host's line unchanged.
    MacroManager::instance().recordCommand(Command_e::OpenSettingsFile, {{FileName, "/tmp/it's a \\ file"}});
    EXPECT_EQ(AddOnCommand + "'OpenSettingsFile FileName=\"/tmp/it\\'s a \\\\ file\"'",
              vantix::host::recordedMacroLines().back());
}

TEST_F(MacroRecorderTest, TheManagerRecordsNothingWhileTheHostDoesNotRecord)
{
    LoadDataSet();
    MacroManager::instance().recordCommand(Command_e::Animate, {{AnimationDestination, "ToFile"}});
    MacroManager::instance().recordCommand(Command_e::OpenSettingsFile, {{FileName, "a"}});
    EXPECT_THAT(vantix::host::recordedMacroLines(), IsEmpty());
    EXPECT_THAT(vantix::host::journalCommands(), IsEmpty());
    EXPECT_EQ(0, Calls("VtxUtilMacroRecordExtCommand"));
    EXPECT_EQ(0, Calls("VtxUtilDataSetJournalIsValid"));
}

TEST_F(MacroRecorderTest, ACompletedAnimationOnScreenIsRecordedAsTheAnimateCommand)
{
    using testhelpers::MakeKeyFrames;
    using testhelpers::ViewAtX;
    const std::vector<KeyFrame_s> keyFrames =
        MakeKeyFrames({{ViewAtX(0), 4}, {ViewAtX(40), 2}, {ViewAtX(60), 1}});
    Settings_s settings;
    settings.destination = OnScreen;
    const struct
    {
        bool recording;
        MacroOption_e option;
        std::vector<std::string> lines;
    } cases[] = {
        {true, RecordMacro, {AddOnCommand + "'Animate AnimationDestination=OnScreen'"}},
        {false, RecordMacro, {}},
        {true, DoNotRecordMacro, {}},
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        vantix::host::addFrame();
        vantix::host::setMacroRecording(c.recording);
        Animate(keyFrames, 0, keyFrames.size(), settings, c.option);
        EXPECT_EQ(7, vantix::host::redrawCount());
        EXPECT_EQ(c.lines, vantix::host::recordedMacroLines()) << c.recording << ' ' << c.option;
    }
}

TEST_F(MacroRecorderTest, ACompletedAnimationToFileIsRecordedWithItsDestination)
{
    const testsupport::TempFolder folder("vantix-recorder");
    const std::filesystem::path movie = folder.path() / "movie.rm";
    vantix::host::setExportSetupFromText("ImageWidth", "32");
    vantix::host::setExportSetupFromText("ExportFormat", "RASTERMETAFILE");
    vantix::host::setExportSetupFromText("ExportFName", "\"" + movie.string() + "\"");
    vantix::host::setMacroRecording(true);
    Settings_s settings;
    settings.destination = ToFile;
    const std::vector<KeyFrame_s> keyFrames =
        testhelpers::MakeKeyFrames({{testhelpers::ViewAtX(0), 2}, {testhelpers::ViewAtX(20), 1}});

    Animate(keyFrames, 0, keyFrames.size(), settings, RecordMacro);

    EXPECT_EQ(3u, vantix::host::readRasterMetafile(movie.string()).frames.size());
    EXPECT_THAT(vantix::host::recordedMacroLines(),
                ElementsAre(AddOnCommand + "'Animate AnimationDestination=ToFile'"));
}
