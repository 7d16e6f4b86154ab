// The add-on as the host loads and drives it: its option in the host's "Animate" menu, usable exactly while
// the active frame is a 3D Cartesian plot with data, kept so through one update per burst of state changes;
// its commands replayed from a macro, failing as the add-on's two-line message; and a user's whole session
// recorded through the dialogs and replayed by a fresh vantix program into the same movie.
#include <support/MainDialogTest.h>
#include <support/TempFolder.h>

#include <vantix/host/Events.h>
#include <vantix/host/Export.h>
#include <vantix/host/Macro.h>
#include <vantix/host/Scene.h>

#include <cstdlib>
#include <filesystem>

using namespace vantix::host;
using namespace vantix::vtxutiltools;
namespace fs = std::filesystem;

namespace
{

class AddOnWorkflowTest : public testsupport::DialogMainTest
{
protected:
    // The add-on's option, as the host's menus show it after the host has been idle.
    static HostMenuOption Option()
    {
        runOnIdleUntilEmpty();
        for (const HostMenuOption& option : hostMenuOptions())
            if (option.label == "&Key Frame Animation...")
                return option;
        return {};
    }

    // Replays macro lines from a macro in the test's folder; answers the host's message, empty on success.
    std::string Run(const std::string& lines)
    {
        const std::string text = std::string(MacroHeader) + "\n" + lines + "\n";
        return runMacroText(text, "replay.mcr", m_folder.path().string()).message;
    }

    // One add-on command as a recorded macro holds it.
    std::string Replay(const std::string& command)
    {
        return Run("$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = '" + command + "'");
    }

    std::string File(const char* name) const { return (m_folder.path() / name).string(); }

    testsupport::TempFolder m_folder;
};

TEST_F(AddOnWorkflowTest, TheMenuOptionIsUsableOnA3DFrameWithDataAfterOneUpdatePerBurst)
{
    EXPECT_FALSE(Option().sensitive) << "no data";
    loadDemoDataSet();
    EXPECT_TRUE(Option().sensitive);
    setPlotType(PlotType_Cartesian2D);
    EXPECT_FALSE(Option().sensitive);
    setPlotType(PlotType_Cartesian3D);
    EXPECT_TRUE(Option().sensitive && !DialogMain::isVisible()) << "closed when the frame stopped being 3D";
    chooseHostMenuOption("Animate", "Key Frame Animation...");
    EXPECT_TRUE(DialogMain::isVisible());
    deleteFrame(m_frame);
    EXPECT_FALSE(Option().sensitive) << "no frame";
    addFrame();

    // Only the changes that matter queue an update, one per burst.
    runOnIdleUntilEmpty();
    for (const int code : {0, 1, 4, 10, 43, 45, 49, 52})
        raiseStateChange(static_cast<StateChange_e>(code));
    EXPECT_EQ(0u, pendingOnIdleCalls());
    for (const StateChange_e code : {StateChange_ZonesDeleted, StateChange_DataSetLoaded})
    {
        for (int i = 0; i < 10; ++i)
            raiseStateChange(code);
        EXPECT_EQ(1u, pendingOnIdleCalls()) << code;
        runOnIdleUntilEmpty();
    }
}

TEST_F(AddOnWorkflowTest, ReplayedCommandsFailAsTheAddOnsMessageAndChangeNothingOrOpenAndAnimate)
{
    const std::pair<const char*, const char*> cases[] = {
        {"Animate", "Invalid macro command: missing value for parameter \"AnimationDestination\""},
        {"Animate AnimationDestination=Movie",
         "Invalid macro command: invalid value for parameter \"AnimationDestination\""},
        {"OpenSettingsFile FileName=none.keyframe", "Unable to open file for reading."},
    };
    dialog().keyFrameModel().insertItem(0, KeyFrame_s(View(), "Kept", 5, 0.0));
    for (const auto& [command, message] : cases)
        EXPECT_EQ(std::string("replay.mcr:2: Key Frame Animation error:\n") + message, Replay(command));
    EXPECT_EQ(std::make_pair(OnScreen, 1ul),
              std::make_pair(dialog().settings().destination, dialog().keyFrameModel().size()));

    // A file found from the macro's folder, which is the working folder only meanwhile; the first
    // destination given is the one.
    fs::copy_file(EXAMPLES_FOLDER "/aircraft_flyaround.keyframe", File("a.keyframe"));
    const fs::path workingFolder = fs::current_path();
    const int redraws = redrawCount();
    std::string messages = Replay("OpenSettingsFile FileName=a.keyframe");
    messages += Replay("Animate FileName=x AnimationDestination=OnScreen AnimationDestination=ToFile");
    EXPECT_EQ("", messages);
    EXPECT_EQ(std::make_pair(workingFolder, redraws + 121),
              std::make_pair(fs::current_path(), redrawCount()));
}

// With the host recording, the user loads the demo data set, opens the add-on from the host's menu,
// captures three views turning the view between them, sets the frame counts, switches concurrent time on,
// saves the key frame file and opens it again (which records the command that brings the key frames back),
// and animates all into a raster metafile through the export options dialog.
TEST_F(AddOnWorkflowTest, ReplayingARecordedSessionWritesTheSameMovie)
{
    setMacroRecording(true);
    EXPECT_EQ("", Run("$!LOADDATA DEMO"));
    pressClose(Dialog1Manager);
    runOnIdleUntilEmpty();
    chooseHostMenuOption("Animate", "Key Frame Animation...");
    for (int view = 0; view < 3; ++view)
    {
        EXPECT_EQ("", Run("$!ROTATE3DVIEW THETA = 40"));
        pressButton(AppendKeyFrame_BTN_D1);
    }
    selectListItems(KeyFrameList_MLST_D1, {1, 2, 3});
    runOnIdleUntilEmpty();
    enterText(FrameCount_TF_D1, "4");
    chooseMenuItem(MenuEntry("Animate &Time Concurrently"));
    for (const char* entry : {"Save Animation File &As...", "&Open Animation File..."})
    {
        scriptFileName(File("session.keyframe"));
        chooseMenuItem(MenuEntry(entry));
    }
    chooseMenuItem(MenuEntry("&Save Animation File")); // to the file opened, without asking
    chooseOption(Destination_OPT_D1, 2);
    pressButton(AnimateAll_BTN_D1);
    chooseOption(Format_OPT_D2, 5); // Raster Metafile: lossless
    chooseRadioButton(Width_RADIO_D2, 2);
    enterText(Width_TF_D2, "96");
    scriptFileName(File("session.rm"));
    pressOk(Dialog2Manager);
    EXPECT_EQ(3u, userMessages().size()) << "three file dialogs, nothing else";
    writeRecordedMacro(File("session.mcr"));

    // The replay writes where the user did: keep the user's movie aside.
    fs::rename(File("session.rm"), File("user.rm"));
    const std::string replay =
        std::string("'") + VANTIX_PROGRAM_PATH + "' '" + File("session.mcr") + "' 2>/dev/null";
    ASSERT_EQ(0, std::system(replay.c_str())) << testsupport::ReadFile(File("session.mcr"));
    const RasterMetafileContents user = readRasterMetafile(File("user.rm"));
    const RasterMetafileContents replayed = readRasterMetafile(File("session.rm"));
    EXPECT_EQ(9u, replayed.frames.size()); // 1 + 4 + 4
    EXPECT_TRUE(user.width == replayed.width && user.height == replayed.height &&
                user.frames == replayed.frames);
}

} // namespace
