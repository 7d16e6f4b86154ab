// The main dialog's commands as a user gives them: capturing, inserting, updating, applying, deleting,
// clearing and renaming key frames, animating all or a selection with the notices on the way.
// Saving, opening, frame counts, Animate All to a file and the whole round trip are in the recorded session
// test; no exception a callback throws reaches the host.
#include "core/KeyFrameError.h"
#include "gui/CallbackShield.h"

#include <support/MainDialogTest.h>

#include <cmath>
#include <exception>
#include <new>
#include <stdexcept>
#include <tuple>

using namespace vantix::vtxutiltools;
using namespace vantix::host;
using ::testing::ElementsAre;

namespace
{

class DialogMainCommandsTest : public testsupport::DialogMainTest
{
protected:
    static std::vector<std::string> Names() { return guiElement(KeyFrameList_MLST_D1).items; }

    // Presses a button, with these key frames selected first when some are given.
    static void Press(int button, const std::vector<int>& selection = {})
    {
        if (!selection.empty())
            selectListItems(KeyFrameList_MLST_D1, selection);
        runOnIdleUntilEmpty();
        pressButton(button);
        runOnIdleUntilEmpty();
    }

    // Appends key frames "View 1" ... "View n" as the user captures them, View k looking from Psi 10 k.
    static void Capture(int count)
    {
        for (int i = 0; i < count; ++i)
        {
            ViewState view = vantix::host::view();
            view.psi = 10.0 * (dialog().keyFrameModel().size() + 1);
            setView(view);
            Press(AppendKeyFrame_BTN_D1);
        }
    }
};

TEST_F(DialogMainCommandsTest, EditsTheListAsTheUserCapturesAndChangesViews)
{
    Capture(1);
    dialog().keyFrameModel().setFrameCount(0, 12);
    Capture(4);
    EXPECT_EQ(12u, dialog().keyFrameModel().dataList().back().frameCount) << "the last key frame's count";
    // Inserted before the first selected key frame, which moves down.
    Press(InsertKeyFrame_BTN_D1, {2});
    EXPECT_THAT(Names(), ElementsAre("View 1", "View 6", "View 2", "View 3", "View 4", "View 5"));

    ViewState now = view();
    now.psi = 25.0;
    setView(now);
    setSolutionTime(0.5);
    pressButton(Update_BTN_D1); // View 6 takes the view and time of now
    for (const auto& [position, psi, time] : {std::make_tuple(6, 50.0, 0.0), std::make_tuple(2, 25.0, 0.5)})
    {
        Press(Apply_BTN_D1, {position});
        EXPECT_EQ(std::make_pair(psi, time), std::make_pair(std::round(view().psi), solutionTime()));
    }

    // One run of key frames at once, or one key frame at a time; the key frame after the deleted ones is
    // selected and shown.
    const std::tuple<std::vector<int>, std::vector<std::string>, std::string> deletions[] = {
        {{3, 4}, {"View 1", "View 6", "View 4", "View 5"}, "View 4"},
        {{1, 3}, {"View 6", "View 5"}, "View 6"},
    };
    for (const auto& [selected, left, shown] : deletions)
    {
        Press(Delete_BTN_D1, selected);
        EXPECT_EQ(std::make_pair(left, shown), std::make_pair(Names(), guiElement(ViewName_TF_D1).text));
    }
    EXPECT_TRUE(enterText(ViewName_TF_D1, "Wing tip"));
    EXPECT_TRUE(enterText(ViewName_TF_D1, ""));
    EXPECT_THAT(Names(), ElementsAre("Wing tip", "View 5"));

    Press(Clear_BTN_D1);
    EXPECT_THAT(Names(), ElementsAre("No Key Frames established."));
    chooseMenuItem(MenuEntry("&Save Animation File")); // refused before any file dialog
    setPlotType(PlotType_Cartesian2D);
    pressButton(AppendKeyFrame_BTN_D1);
    EXPECT_EQ(std::make_pair(0ul, 3ul),
              std::make_pair(dialog().keyFrameModel().size(), userMessages().size()));
    EXPECT_THAT(errorMessages(),
                ElementsAre("The view name must be at least one character.", "No Key Frames established.",
                            "The current frame must be in 3D Cartesian mode."));
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

    Press(AnimateSelected_BTN_D1, {1, 3});
    chooseOption(Destination_OPT_D1, 2);
    redraws = redrawCount();
    Press(AnimateSelected_BTN_D1, {2, 3});
    EXPECT_EQ(redraws + 31, redrawCount()); // on screen, from View 2 to View 3
    EXPECT_EQ(1, guiElement(Destination_OPT_D1).choice);
    std::string messages;
    for (const UserMessage& message : userMessages())
        messages += message.text + "|";
    EXPECT_EQ("The current data set is not transient.\nConcurrent time animation will be disabled.|"
              "Neither streamtrace markers nor dashes are enabled.\nConcurrent streamtrace animation will be "
              "disabled.|Selected items must be a continuous range.|\"Animate Selected\" does not support "
              "output to file.\nThe destination has been reset to \"On Screen\".|",
              messages);
}

// Whatever a dialog callback throws stays in the add-on: the user reads the add-on's own message as it
// stands, and any other failure as one line naming the callback; the host gets the callback's fallback.
TEST_F(DialogMainCommandsTest, ShowsEveryFailureOfACallbackAsOneMessageAndAnswersTheFallback)
{
    const std::string internal = "Internal error of the Key Frame Animation add-on in open_CB";
    const std::pair<std::exception_ptr, std::string> cases[] = {
        {std::make_exception_ptr(KeyFrameError("Animation canceled.")), "Animation canceled."},
        {std::make_exception_ptr(std::out_of_range("No such entry.")), internal + ": No such entry."},
        {std::make_exception_ptr(std::bad_alloc()), internal + ": not enough memory."},
        {std::make_exception_ptr(42), internal + "."},
    };
    for (const auto& [failure, message] : cases)
    {
        clearUserMessages();
        EXPECT_EQ(7, RunShielded("open_CB", 7, [&failure]() -> int { std::rethrow_exception(failure); }));
        EXPECT_THAT(errorMessages(), ElementsAre(message));
    }
}

} // namespace
