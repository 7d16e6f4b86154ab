// The main dialog's commands as a user gives them: capturing, inserting, updating, applying, deleting,
// clearing, renaming and recounting key frames, animating all or a selection with the notices on the way,
// and saving. (Opening, Animate All to a file and the whole round trip are in the recorded session test.)
#include <support/MainDialogTest.h>
#include <support/TempFolder.h>

#include <cmath>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using namespace vantix::host;
using ::testing::ElementsAre;

namespace
{

class DialogMainCommandsTest : public testsupport::DialogMainTest
{
protected:
    static std::vector<std::string> Names() { return guiElement(KeyFrameList_MLST_D1).items; }

    static void Select(const std::vector<int>& positions)
    {
        selectListItems(KeyFrameList_MLST_D1, positions);
        runOnIdleUntilEmpty();
    }

    static std::vector<unsigned long> FrameCounts()
    {
        std::vector<unsigned long> counts;
        for (const KeyFrame_s& keyFrame : dialog().keyFrameModel().dataList())
            counts.push_back(keyFrame.frameCount);
        return counts;
    }

    // Appends key frames "View 1" ... "View n" as the user captures them, View k looking from Psi 10 k.
    static void Capture(int count)
    {
        for (int i = 0; i < count; ++i)
        {
            ViewState view = vantix::host::view();
            view.psi = 10.0 * (dialog().keyFrameModel().size() + 1);
            setView(view);
            pressButton(AppendKeyFrame_BTN_D1);
        }
        runOnIdleUntilEmpty();
    }
};

TEST_F(DialogMainCommandsTest, CapturesInsertsUpdatesAndAppliesViews)
{
    Capture(1);
    dialog().keyFrameModel().setFrameCount(0, 12);
    Capture(2);
    EXPECT_EQ((std::vector<unsigned long>{12, 12, 12}), FrameCounts());
    // Inserted before the first selected key frame, which moves down; the selection stays in its place.
    Select({2});
    pressButton(InsertKeyFrame_BTN_D1);
    runOnIdleUntilEmpty();
    EXPECT_THAT(Names(), ElementsAre("View 1", "View 4", "View 2", "View 3"));
    EXPECT_EQ("View 4", guiElement(ViewName_TF_D1).text);

    ViewState now = view();
    now.psi = 25.0;
    setView(now);
    setSolutionTime(0.5);
    pressButton(Update_BTN_D1); // View 4 takes the view and time of now
    const auto shown = [] { return std::make_pair(std::round(view().psi), solutionTime()); };
    Select({4});
    pressButton(Apply_BTN_D1);
    EXPECT_EQ(std::make_pair(30.0, 0.0), shown());
    Select({2});
    pressButton(Apply_BTN_D1);
    EXPECT_EQ(std::make_pair(25.0, 0.5), shown());

    // Not a 3D frame: nothing is captured, and the user reads why.
    setPlotType(PlotType_Cartesian2D);
    pressButton(AppendKeyFrame_BTN_D1);
    EXPECT_EQ(4u, dialog().keyFrameModel().size());
    EXPECT_THAT(errorMessages(), ElementsAre("The current frame must be in 3D Cartesian mode."));
}

TEST_F(DialogMainCommandsTest, DeletesTheSelectionAndClearsTheList)
{
    const std::pair<std::vector<int>, std::vector<std::string>> cases[] = {
        {{2, 3, 4}, {"View 1", "View 5"}},
        {{1, 3, 5}, {"View 2", "View 4"}},
        {{5}, {"View 1", "View 2", "View 3", "View 4"}},
    };
    for (const auto& [selected, left] : cases)
    {
        dialog().applyDataModel(ListModelKeyFrame());
        Capture(5);
        Select(selected);
        pressButton(Delete_BTN_D1);
        runOnIdleUntilEmpty();
        EXPECT_EQ(left, Names());
    }
    // The selection stays in its place: the key frame after the deleted one is selected and shown.
    Select({2});
    pressButton(Delete_BTN_D1);
    runOnIdleUntilEmpty();
    EXPECT_EQ(std::make_pair(std::string("View 3"), std::vector<int>{2}),
              std::make_pair(guiElement(ViewName_TF_D1).text, guiElement(KeyFrameList_MLST_D1).selected));

    pressButton(Clear_BTN_D1);
    runOnIdleUntilEmpty();
    EXPECT_THAT(Names(), ElementsAre("No Key Frames established."));
    EXPECT_FALSE(guiElement(Delete_BTN_D1).sensitive || guiElement(KeyFrameList_MLST_D1).sensitive);
}

TEST_F(DialogMainCommandsTest, RenamesOneKeyFrameAndSetsTheFrameCountOfEverySelectedOne)
{
    Capture(3);
    Select({2});
    EXPECT_TRUE(enterText(ViewName_TF_D1, "Wing tip"));
    EXPECT_TRUE(enterText(ViewName_TF_D1, ""));
    EXPECT_THAT(errorMessages(), ElementsAre("The view name must be at least one character."));
    EXPECT_EQ("Wing tip", guiElement(ViewName_TF_D1).text);
    Select({1, 2, 3});
    EXPECT_TRUE(enterText(FrameCount_TF_D1, "45"));
    EXPECT_FALSE(enterText(FrameCount_TF_D1, "0"));
    EXPECT_EQ((std::vector<unsigned long>{45, 45, 45}), FrameCounts());
    EXPECT_THAT(Names(), ElementsAre("View 1", "Wing tip", "View 3"));
}

TEST_F(DialogMainCommandsTest, AnimatesAllOrARunWithTheNoticesOnTheWay)
{
    Capture(3);
    chooseMenuItem(MenuEntry("Animate &Time Concurrently"));
    chooseMenuItem(MenuEntry("Animate &Streamtraces Concurrently"));
    int redraws = redrawCount();
    pressButton(AnimateAll_BTN_D1); // the frame holds no data set
    EXPECT_EQ(redraws + 61, redrawCount());
    EXPECT_FALSE(dialog().settings().timeOptions.animateTime || dialog().settings().animateStreamtraces);

    Select({1, 3});
    pressButton(AnimateSelected_BTN_D1);
    chooseOption(Destination_OPT_D1, 2);
    Select({2, 3});
    redraws = redrawCount();
    pressButton(AnimateSelected_BTN_D1);
    EXPECT_EQ(redraws + 31, redrawCount()); // on screen, from View 2 to View 3
    runOnIdleUntilEmpty();
    EXPECT_EQ(1, guiElement(Destination_OPT_D1).choice);
    std::vector<std::string> messages;
    for (const UserMessage& message : userMessages())
        messages.push_back(message.text);
    EXPECT_THAT(
        messages,
        ElementsAre("The current data set is not transient.\nConcurrent time animation will be disabled.",
                    "Neither streamtrace markers nor dashes are enabled.\n"
                    "Concurrent streamtrace animation will be disabled.",
                    "Selected items must be a continuous range.",
                    "\"Animate Selected\" does not support output to file.\n"
                    "The destination has been reset to \"On Screen\"."));
}

TEST_F(DialogMainCommandsTest, SavesOnlyKeyFramesAndSaveAfterSaveAsDoesNotAsk)
{
    chooseMenuItem(MenuEntry("&Save Animation File"));
    EXPECT_THAT(errorMessages(), ElementsAre("No Key Frames established."));
    EXPECT_EQ(1u, userMessages().size()) << "no file dialog";

    const testsupport::TempFolder folder;
    Capture(2);
    scriptFileName((folder.path() / "flight.keyframe").string());
    chooseMenuItem(MenuEntry("Save Animation File &As..."));
    dialog().keyFrameModel().setName(0, "Renamed");
    chooseMenuItem(MenuEntry("&Save Animation File")); // to the same file, without asking
    EXPECT_EQ(2u, userMessages().size());
    EXPECT_NE(std::string::npos,
              testsupport::ReadFile(folder.path() / "flight.keyframe").find("\"Renamed\""));
}

} // namespace
