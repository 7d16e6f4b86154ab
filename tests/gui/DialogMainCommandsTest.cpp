// The main dialog's commands as a user gives them: capturing, inserting, updating, applying, deleting,
// clearing, renaming and recounting key frames, animating all or a selection with the notices on the way,
// and saving and opening key frame files.
#include <support/MainDialogTest.h>

#include <support/TempFolder.h>

#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using namespace vantix::host;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

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

    // Appends key frames "View 1" ... "View n" as the user captures them, each from its own view.
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

    static std::vector<std::string> Messages()
    {
        std::vector<std::string> texts;
        for (const UserMessage& message : userMessages())
            texts.push_back(message.text);
        return texts;
    }
};

TEST_F(DialogMainCommandsTest, CapturesViewsNamedAfterTheListLengthWithTheLastFrameCount)
{
    setSolutionTime(0.0);
    Capture(1);
    EXPECT_THAT(Names(), ElementsAre("View 1"));
    EXPECT_EQ(30u, dialog().keyFrameModel().frameCount(0));
    EXPECT_EQ(10.0, dialog().keyFrameModel().data(0).view.psi());

    dialog().keyFrameModel().setFrameCount(0, 12);
    Capture(2);
    EXPECT_EQ(12u, dialog().keyFrameModel().frameCount(2));

    // Inserted before the first selected key frame, which moves down and stays selected by its place.
    Select({2});
    pressButton(InsertKeyFrame_BTN_D1);
    runOnIdleUntilEmpty();
    EXPECT_THAT(Names(), ElementsAre("View 1", "View 4", "View 2", "View 3"));
    EXPECT_EQ("View 4", guiElement(ViewName_TF_D1).text);

    // Not a 3D frame: nothing is captured, and the user reads why.
    setPlotType(PlotType_Cartesian2D);
    pressButton(AppendKeyFrame_BTN_D1);
    EXPECT_EQ(4u, dialog().keyFrameModel().size());
    EXPECT_THAT(errorMessages(), ElementsAre("The current frame must be in 3D Cartesian mode."));
}

TEST_F(DialogMainCommandsTest, UpdatesAndAppliesTheSelectedKeyFrame)
{
    Capture(2);
    Select({1});
    ViewState changed = view();
    changed.theta = 33.0;
    setView(changed);
    setSolutionTime(0.5);
    pressButton(Update_BTN_D1);
    EXPECT_EQ(33.0, dialog().keyFrameModel().data(0).view.theta());
    EXPECT_EQ(0.5, dialog().keyFrameModel().solutionTime(0));

    Select({2});
    pressButton(Apply_BTN_D1);
    EXPECT_EQ(20.0, view().psi);
    EXPECT_EQ(0.0, solutionTime());
}

struct Deletion_s
{
    std::vector<int> selected;
    std::vector<std::string> left;
};

class DialogMainDeleteTest : public DialogMainCommandsTest, public ::testing::WithParamInterface<Deletion_s>
{
};

TEST_P(DialogMainDeleteTest, RemovesTheSelectedKeyFrames)
{
    Capture(5);
    Select(GetParam().selected);
    pressButton(Delete_BTN_D1);
    runOnIdleUntilEmpty();
    EXPECT_THAT(Names(), ElementsAreArray(GetParam().left));
}

INSTANTIATE_TEST_SUITE_P(Selections, DialogMainDeleteTest,
                         ::testing::Values(Deletion_s{{2, 3, 4}, {"View 1", "View 5"}},
                                           Deletion_s{{1, 3}, {"View 2", "View 4", "View 5"}},
                                           Deletion_s{{1, 3, 5}, {"View 2", "View 4"}},
                                           Deletion_s{{5}, {"View 1", "View 2", "View 3", "View 4"}}));

TEST_F(DialogMainCommandsTest, DeletingKeepsTheSelectionInPlaceAndClearingEmptiesTheList)
{
    Capture(4);
    Select({2});
    pressButton(Delete_BTN_D1);
    runOnIdleUntilEmpty();
    EXPECT_EQ("View 3", guiElement(ViewName_TF_D1).text);
    EXPECT_THAT(guiElement(KeyFrameList_MLST_D1).selected, ElementsAre(2));

    pressButton(Clear_BTN_D1);
    runOnIdleUntilEmpty();
    EXPECT_THAT(Names(), ElementsAre("No Key Frames established."));
    EXPECT_FALSE(guiElement(KeyFrameList_MLST_D1).sensitive);
    EXPECT_FALSE(guiElement(Delete_BTN_D1).sensitive);
    EXPECT_TRUE(guiElement(AppendKeyFrame_BTN_D1).sensitive);
}

TEST_F(DialogMainCommandsTest, RenamesOneKeyFrameAndSetsTheFrameCountOfEverySelectedOne)
{
    Capture(3);
    Select({2});
    EXPECT_TRUE(enterText(ViewName_TF_D1, "Wing tip"));
    EXPECT_THAT(Names(), ElementsAre("View 1", "Wing tip", "View 3"));
    EXPECT_TRUE(enterText(ViewName_TF_D1, ""));
    EXPECT_THAT(errorMessages(), ElementsAre("The view name must be at least one character."));
    EXPECT_EQ("Wing tip", guiElement(ViewName_TF_D1).text);

    Select({1, 2, 3});
    EXPECT_TRUE(enterText(FrameCount_TF_D1, "45"));
    EXPECT_FALSE(enterText(FrameCount_TF_D1, "0"));
    for (unsigned long index = 0; index < 3; ++index)
        EXPECT_EQ(45u, dialog().keyFrameModel().frameCount(index));
}

TEST_F(DialogMainCommandsTest, AnimateAllSwitchesOffWhatTheDataSetCannotShowAndAnimates)
{
    Capture(2);
    chooseMenuItem(MenuEntry("Animate &Time Concurrently"));
    chooseMenuItem(MenuEntry("Animate &Streamtraces Concurrently"));
    const int redraws = redrawCount();
    pressButton(AnimateAll_BTN_D1);
    EXPECT_THAT(
        Messages(),
        ElementsAre("The current data set is not transient.\nConcurrent time animation will be disabled.",
                    "Neither streamtrace markers nor dashes are enabled.\n"
                    "Concurrent streamtrace animation will be disabled."));
    EXPECT_FALSE(dialog().settings().timeOptions.animateTime);
    EXPECT_FALSE(dialog().settings().animateStreamtraces);
    EXPECT_EQ(redraws + 31, redrawCount());
}

TEST_F(DialogMainCommandsTest, AnimateAllToFileAsksForTheExportOptionsFirst)
{
    Capture(2);
    chooseOption(Destination_OPT_D1, 2);
    const int redraws = redrawCount();
    pressButton(AnimateAll_BTN_D1);
    EXPECT_TRUE(guiElement(Dialog2Manager).up);
    pressCancel(Dialog2Manager);
    EXPECT_EQ(redraws, redrawCount());
}

TEST_F(DialogMainCommandsTest, AnimateSelectedNeedsARunAndAnimatesItOnScreen)
{
    Capture(3);
    Select({1, 3});
    pressButton(AnimateSelected_BTN_D1);
    EXPECT_THAT(errorMessages(), ElementsAre("Selected items must be a continuous range."));

    chooseOption(Destination_OPT_D1, 2);
    Select({2, 3});
    const int redraws = redrawCount();
    pressButton(AnimateSelected_BTN_D1);
    EXPECT_EQ(Messages().back(), "\"Animate Selected\" does not support output to file.\n"
                                 "The destination has been reset to \"On Screen\".");
    EXPECT_EQ(redraws + 31, redrawCount());
    runOnIdleUntilEmpty();
    EXPECT_EQ(1, guiElement(Destination_OPT_D1).choice);
}

TEST_F(DialogMainCommandsTest, SavesAndOpensKeyFrameFiles)
{
    chooseMenuItem(MenuEntry("&Save Animation File"));
    EXPECT_THAT(errorMessages(), ElementsAre("No Key Frames established."));
    EXPECT_EQ(1u, userMessages().size()) << "no file dialog";

    testsupport::TempFolder folder;
    const std::string file = (folder.path() / "flight.keyframe").string();
    Capture(2);
    scriptFileName(file);
    chooseMenuItem(MenuEntry("Save Animation File &As..."));
    dialog().keyFrameModel().setName(0, "Renamed");
    chooseMenuItem(MenuEntry("&Save Animation File")); // to the same file, without asking
    EXPECT_EQ(0u, pendingScriptedAnswers());

    pressButton(Clear_BTN_D1);
    scriptFileName(file);
    chooseMenuItem(MenuEntry("&Open Animation File..."));
    runOnIdleUntilEmpty();
    EXPECT_THAT(Names(), ElementsAre("Renamed", "View 2"));
}

} // namespace
