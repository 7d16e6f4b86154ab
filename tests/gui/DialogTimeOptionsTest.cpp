// The time animation options dialog opened from the main dialog's menu: its layout, what it shows of the
// settings, OK and Cancel, the cycle count's sensitivity and arrows, and the lock it holds while it is up.
#include "gui/DialogTimeOptions.h"

#include <support/MainDialogTest.h>

#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using namespace vantix::host;
using ::testing::ElementsAre;

namespace
{

class DialogTimeOptionsTest : public testsupport::DialogMainTest
{
protected:
    void Open(const TimeAnimationOptions_s& options)
    {
        Settings_s settings;
        settings.timeOptions = options;
        dialog().applySettings(settings);
        chooseMenuItem(MenuEntry("Time &Animation Options..."));
        ASSERT_TRUE(guiElement(Dialog3Manager).up);
    }

    static bool CyclesSensitive()
    {
        return guiElement(numCycles_TFS_D3).sensitive && guiElement(numCycles_LBL_D3).sensitive;
    }
};

TEST_F(DialogTimeOptionsTest, IsLaidOutAsAModalDialogOfTheHostWindow)
{
    Open({});
    const GuiElement dialog3 = guiElement(Dialog3Manager);
    EXPECT_EQ("Time Animation Options", dialog3.label);
    EXPECT_EQ(GuiId_MainWindow, dialog3.parent);
    EXPECT_TRUE(dialog3.modal);
    EXPECT_EQ((std::vector<int>{5357, 878}), (std::vector<int>{dialog3.width, dialog3.height}));
    EXPECT_THAT(dialog3.buttons, ElementsAre("OK", "Cancel", "Help"));

    ASSERT_EQ(4u, dialog3.children.size());
    const GuiElement label = guiElement(dialog3.children[0]);
    const GuiElement frame = guiElement(dialog3.children[1]);
    const GuiElement radio = guiElement(dialog3.children[2]);
    const GuiElement spin = guiElement(dialog3.children[3]);
    EXPECT_EQ(numCycles_LBL_D3, label.id);
    EXPECT_EQ((std::vector<int>{2901, 159}), (std::vector<int>{label.x, label.y}));
    EXPECT_EQ("Num Cycles:", label.label);
    EXPECT_EQ(GuiKind::Frame, frame.kind);
    EXPECT_EQ("Animation Operation", frame.label);
    EXPECT_EQ((std::vector<int>{207, 79, 4956, 732}),
              (std::vector<int>{frame.x, frame.y, frame.width, frame.height}));
    EXPECT_EQ(animationOperation_RADIO_D3, radio.id);
    EXPECT_THAT(radio.items, ElementsAre("&Forward", "&Loop", "&Bounce", "&As Captured"));
    EXPECT_EQ((std::vector<int>{587, 166, 2003, 573}),
              (std::vector<int>{radio.x, radio.y, radio.width, radio.height}));
    EXPECT_EQ(numCycles_TFS_D3, spin.id);
    EXPECT_EQ(GuiKind::SpinTextField, spin.kind);
    EXPECT_EQ((std::vector<int>{2918, 333, 1329, 145}),
              (std::vector<int>{spin.x, spin.y, spin.width, spin.height}));
    pressCancel(Dialog3Manager);

    // Opened again, it is the same dialog.
    Open({});
    EXPECT_EQ(dialog3.children, guiElement(Dialog3Manager).children);
    pressCancel(Dialog3Manager);
}

struct Edit_s
{
    TimeAnimationOptions_s before;
    int radioButton; // 0: left as shown
    std::string cycles;
    bool ok;
    TimeAnimationOptions_s after;
};

class DialogTimeOptionsEditTest : public DialogTimeOptionsTest, public ::testing::WithParamInterface<Edit_s>
{
};

TEST_P(DialogTimeOptionsEditTest, ChangesTheSettingsOnOkOnly)
{
    const Edit_s& edit = GetParam();
    Open(edit.before);
    EXPECT_EQ(1, lockDepth(AddOnID));
    EXPECT_EQ(static_cast<int>(edit.before.timeAnimationOperation) + 1,
              guiElement(animationOperation_RADIO_D3).choice);
    if (edit.radioButton != 0)
        chooseRadioButton(animationOperation_RADIO_D3, edit.radioButton);
    if (!edit.cycles.empty())
    {
        EXPECT_TRUE(enterText(numCycles_TFS_D3, edit.cycles));
    }
    EXPECT_EQ(1, lockDepth(AddOnID));
    edit.ok ? pressOk(Dialog3Manager) : pressCancel(Dialog3Manager);

    EXPECT_FALSE(guiElement(Dialog3Manager).up);
    EXPECT_EQ(0, lockDepth(AddOnID));
    const TimeAnimationOptions_s& after = dialog().settings().timeOptions;
    EXPECT_EQ(edit.after.animateTime, after.animateTime);
    EXPECT_EQ(edit.after.timeAnimationOperation, after.timeAnimationOperation);
    EXPECT_EQ(edit.after.numCycles, after.numCycles);
    EXPECT_EQ(edit.after.animateTime, guiElement(MenuEntry("Animate &Time Concurrently")).on);
}

INSTANTIATE_TEST_SUITE_P(Edits, DialogTimeOptionsEditTest,
                         ::testing::Values(Edit_s{{false, Forward, 1}, 3, "3", true, {true, Bounce, 3}},
                                           Edit_s{{false, Forward, 1}, 2, "7", false, {false, Forward, 1}},
                                           Edit_s{{true, Bounce, 4}, 1, "", false, {true, Bounce, 4}},
                                           Edit_s{{false, AsCaptured, 5}, 1, "", true, {true, Forward, 5}},
                                           // A count of 0 is shown, and stored, as the least there is.
                                           Edit_s{{true, Loop, 0}, 0, "", true, {true, Loop, 1}}));

TEST_F(DialogTimeOptionsTest, OffersTheCycleCountForLoopAndBounceOnly)
{
    Open({false, Forward, 1});
    EXPECT_FALSE(CyclesSensitive());
    const bool expected[] = {false, true, true, false};
    for (int button = 1; button <= 4; ++button)
    {
        chooseRadioButton(animationOperation_RADIO_D3, button);
        EXPECT_EQ(expected[button - 1], CyclesSensitive()) << button;
    }
    closeDialog(Dialog3Manager);
    EXPECT_EQ(0, lockDepth(AddOnID));
    EXPECT_FALSE(dialog().settings().timeOptions.animateTime);
}

TEST_F(DialogTimeOptionsTest, ArrowsStepTheCycleCountByOneAndNeverBelowOne)
{
    Open({false, Loop, 1});
    spinDown(numCycles_TFS_D3);
    EXPECT_EQ("1", guiElement(numCycles_TFS_D3).text);
    spinUp(numCycles_TFS_D3);
    spinUp(numCycles_TFS_D3);
    EXPECT_EQ("3", guiElement(numCycles_TFS_D3).text);
    EXPECT_TRUE(enterText(numCycles_TFS_D3, "2147483647"));
    spinUp(numCycles_TFS_D3);
    EXPECT_EQ("2147483647", guiElement(numCycles_TFS_D3).text);
    // A count below one is refused and the field shows the last good one.
    EXPECT_FALSE(enterText(numCycles_TFS_D3, "0"));
    EXPECT_EQ("2147483647", guiElement(numCycles_TFS_D3).text);
    EXPECT_EQ(1u, errorMessages().size());
    pressHelp(Dialog3Manager);
    pressOk(Dialog3Manager);
    EXPECT_EQ(2147483647u, dialog().settings().timeOptions.numCycles);
    ASSERT_EQ(1u, helpRequests().size());
    EXPECT_EQ("time_animation_options.html", helpRequests()[0].page);
}

} // namespace
