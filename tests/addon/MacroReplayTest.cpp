// The add-on's commands replayed from a macro as the host hands them over: opening a key frame file into
// the main dialog, animating its list, and every failure coming back to the host as the add-on's two-line
// message. (Animating into a file is replayed in the recorded session test.)
#include "addon/CommandExecuterAbstractFactory.h"
#include "document/KeyFrameFile.h"
#include "macro/MacroManager.h"

#include <support/MainDialogTest.h>
#include <support/TempFolder.h>

#include <vantix/host/Macro.h>

#include <filesystem>
#include <string>

using namespace vantix::vtxutiltools;
using namespace vantix::host;
using ::testing::ElementsAre;

namespace
{

class MacroReplayTest : public testsupport::DialogMainTest
{
protected:
    // Replays one add-on command as a recorded macro holds it; answers the host's message, empty on success.
    std::string Replay(const std::string& command)
    {
        const MacroResult result =
            runMacroText(std::string(MacroHeader) +
                             "\n$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = '" + command + "'\n",
                         "replay.mcr", m_folder.path().string());
        return result.message;
    }

    // A key frame file of three key frames, 10 frames apart, with fade in on.
    std::string WriteKeyFrameFile(const std::string& name)
    {
        ListModelKeyFrame model;
        for (int i = 0; i < 3; ++i)
            model.insertItem(model.end(),
                             KeyFrame_s(View(0, 0, 10, 10.0 * i, 0, 0, 2), "K" + std::to_string(i), 10, 0));
        Settings_s settings;
        settings.fadeIn = true;
        const std::string path = (m_folder.path() / name).string();
        KeyFrameFile().saveFile(path, settings, model);
        return path;
    }

    testsupport::TempFolder m_folder;
};

struct Failure_s
{
    const char* command;
    const char* message;
};

class MacroReplayFailureTest : public MacroReplayTest, public ::testing::WithParamInterface<Failure_s>
{
};

TEST_P(MacroReplayFailureTest, ComesBackAsTheAddOnsMessageAndChangesNothing)
{
    dialog().keyFrameModel().insertItem(0, KeyFrame_s(View(), "Kept", 5, 0.0));
    EXPECT_EQ(std::string("replay.mcr:2: Key Frame Animation error:\n") + GetParam().message,
              Replay(GetParam().command));
    EXPECT_EQ(OnScreen, dialog().settings().destination);
    EXPECT_EQ(1u, dialog().keyFrameModel().size());
}

INSTANTIATE_TEST_SUITE_P(
    Commands, MacroReplayFailureTest,
    ::testing::Values(
        Failure_s{"Animate", "Invalid macro command: missing value for parameter \"AnimationDestination\""},
        Failure_s{"Animate AnimationDestination=Movie",
                  "Invalid macro command: invalid value for parameter \"AnimationDestination\""},
        Failure_s{"Animate AnimationDestination=\" OnScreen\"",
                  "Invalid macro command: invalid value for parameter \"AnimationDestination\""},
        Failure_s{"OpenSettingsFile", "Invalid macro command: missing value for parameter \"FileName\""},
        Failure_s{"OpenSettingsFile FileName=none.keyframe", "Unable to open file for reading."},
        Failure_s{"Play", "Unknown macro command: Play"},
        Failure_s{"Animate AnimationDestination=onscreen",
                  "At least two keyFrame views must be established to perform an animation."}));

TEST_F(MacroReplayTest, OpensAFileIntoTheDialogAndRecordsTheOpening)
{
    const std::string path = WriteKeyFrameFile("my runs.keyframe");
    setMacroRecording(true);
    EXPECT_EQ("", Replay("OpenSettingsFile FileName=\"" + path + "\""));
    runOnIdleUntilEmpty();
    EXPECT_THAT(guiElement(KeyFrameList_MLST_D1).items, ElementsAre("K0", "K1", "K2"));
    EXPECT_TRUE(dialog().settings().fadeIn);
    EXPECT_TRUE(guiElement(MenuEntry("Fade &In")).on);
    EXPECT_THAT(recordedMacroLines(), ElementsAre("$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = "
                                                  "'OpenSettingsFile FileName=\"" +
                                                  path + "\"'"));
}

TEST_F(MacroReplayTest, AnimatesTheWholeListOnScreenWithTheFirstDestinationGiven)
{
    // A relative name is found from the macro's folder, which is the working folder only meanwhile.
    WriteKeyFrameFile("a.keyframe");
    const std::filesystem::path workingFolder = std::filesystem::current_path();
    EXPECT_EQ("", Replay("OpenSettingsFile FileName=a.keyframe"));
    EXPECT_EQ(workingFolder, std::filesystem::current_path());
    const int redraws = redrawCount();
    EXPECT_EQ("", Replay("Animate FileName=x AnimationDestination=OnScreen AnimationDestination=ToFile"));
    EXPECT_EQ(redraws + 21, redrawCount());
    EXPECT_EQ(OnScreen, dialog().settings().destination);
}

TEST(MacroExecuterFactoryTest, MakesNoExecuterForAValueThatIsNoCommand)
{
    EXPECT_EQ(nullptr, CommandExecuterAbstractFactory::getMacroExecuter(static_cast<Command_e>(7)));
}

} // namespace
