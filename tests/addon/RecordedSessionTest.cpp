// A user's whole session recorded and replayed: with the host recording, the user loads the demo data set,
// opens the add-on from the host's menu, captures three views turning the view between them, sets the frame
// counts, switches concurrent time on, saves the key frame file and opens it again (which records the
// command that brings the key frames back), and animates all into a raster metafile through the export
// options dialog. The recorded macro, replayed by a fresh vantix program, writes the same movie.
#include <support/MainDialogTest.h>
#include <support/TempFolder.h>

#include <vantix/host/Export.h>
#include <vantix/host/Macro.h>
#include <vantix/host/Scene.h>

#include <cstdlib>
#include <filesystem>

using namespace vantix::host;

namespace
{

using RecordedSessionTest = testsupport::DialogMainTest;

TEST_F(RecordedSessionTest, ReplayingTheRecordedMacroWritesTheSameMovie)
{
    const testsupport::TempFolder folder;
    const auto file = [&folder](const char* name) { return (folder.path() / name).string(); };
    const auto host = [](const std::string& command)
    { ASSERT_TRUE(runMacroText(std::string(MacroHeader) + "\n" + command + "\n", "user").ok()) << command; };
    setMacroRecording(true);
    host("$!LOADDATA DEMO");
    pressClose(Dialog1Manager);
    runOnIdleUntilEmpty();
    chooseHostMenuOption("Animate", "Key Frame Animation...");
    for (int view = 0; view < 3; ++view)
    {
        host("$!ROTATE3DVIEW THETA = 40");
        pressButton(AppendKeyFrame_BTN_D1);
    }
    runOnIdleUntilEmpty();
    selectListItems(KeyFrameList_MLST_D1, {1, 2, 3});
    runOnIdleUntilEmpty();
    enterText(FrameCount_TF_D1, "4");
    chooseMenuItem(MenuEntry("Animate &Time Concurrently"));
    scriptFileName(file("session.keyframe"));
    chooseMenuItem(MenuEntry("Save Animation File &As..."));
    scriptFileName(file("session.keyframe"));
    chooseMenuItem(MenuEntry("&Open Animation File..."));
    chooseOption(Destination_OPT_D1, 2);
    pressButton(AnimateAll_BTN_D1);
    chooseOption(Format_OPT_D2, 5); // Raster Metafile: lossless
    chooseRadioButton(Width_RADIO_D2, 2);
    enterText(Width_TF_D2, "96");
    scriptFileName(file("session.rm"));
    pressOk(Dialog2Manager);
    EXPECT_THAT(errorMessages(), ::testing::IsEmpty());
    writeRecordedMacro(file("session.mcr"));

    // The replay writes where the user did: keep the user's movie aside.
    std::filesystem::rename(file("session.rm"), file("user.rm"));
    const std::string replay =
        std::string("'") + VANTIX_PROGRAM_PATH + "' '" + file("session.mcr") + "' 2>/dev/null";
    ASSERT_EQ(0, std::system(replay.c_str())) << testsupport::ReadFile(file("session.mcr"));
    const RasterMetafileContents user = readRasterMetafile(file("user.rm"));
    const RasterMetafileContents replayed = readRasterMetafile(file("session.rm"));
    EXPECT_EQ(9u, user.frames.size()); // 1 + 4 + 4
    EXPECT_EQ(std::make_tuple(user.width, user.height, user.frames.size()),
              std::make_tuple(replayed.width, replayed.height, replayed.frames.size()));
    EXPECT_TRUE(user.frames == replayed.frames);
}

} // namespace
