// The time animation options dialog opened from the main dialog's menu: what it shows of the settings, OK
// and Cancel, the cycle count's sensitivity, arrows and bounds, help, and the lock it holds while it is up.
// Its layout is in the main dialog's reference layouts.
#include "gui/DialogTimeOptions.h"

#include <support/MainDialogTest.h>

using namespace vantix::vtxutiltools;
using namespace vantix::host;
using ::testing::ElementsAre;

namespace
{

using DialogTimeOptionsTest = testsupport::DialogMainTest;

TEST_F(DialogTimeOptionsTest, ChangesTheSettingsOnOkOnlyAndOffersTheCycleCountForLoopAndBounce)
{
    // The options shown, the radio button chosen (0: left as shown), the cycles typed, OK or Cancel, and the
    // options afterwards.
    const std::tuple<TimeAnimationOptions_s, int, std::string, bool, TimeAnimationOptions_s> cases[] = {
        {{false, Forward, 1}, 3, "3", true, {true, Bounce, 3}},
        {{false, Forward, 1}, 2, "7", false, {false, Forward, 1}},
        {{false, AsCaptured, 5}, 1, "", true, {true, Forward, 5}},
        // 0 cycles are shown, and stored, as the least there is.
        {{true, Loop, 0}, 0, "", true, {true, Loop, 1}},
    };
    std::vector<int> controls; // the same every time
    for (const auto& [before, radioButton, cycles, ok, after] : cases)
    {
        Settings_s settings;
        settings.timeOptions = before;
        dialog().applySettings(settings);
        chooseMenuItem(MenuEntry("Time &Animation Options..."));
        controls = controls.empty() ? guiElement(Dialog3Manager).children : controls;
        EXPECT_EQ(std::make_tuple(controls, static_cast<int>(before.timeAnimationOperation) + 1, true, 1),
                  std::make_tuple(guiElement(Dialog3Manager).children,
                                  guiElement(animationOperation_RADIO_D3).choice,
                                  guiElement(Dialog3Manager).up, lockDepth(AddOnID)));
        if (radioButton != 0)
            chooseRadioButton(animationOperation_RADIO_D3, radioButton);
        if (!cycles.empty())
            enterText(numCycles_TFS_D3, cycles);
        ok ? pressOk(Dialog3Manager) : pressCancel(Dialog3Manager);
        const TimeAnimationOptions_s& now = dialog().settings().timeOptions;
        EXPECT_EQ(std::make_tuple(false, 0, after.animateTime, after.timeAnimationOperation, after.numCycles,
                                  after.animateTime),
                  std::make_tuple(guiElement(Dialog3Manager).up, lockDepth(AddOnID), now.animateTime,
                                  now.timeAnimationOperation, now.numCycles,
                                  guiElement(MenuEntry("Animate &Time Concurrently")).on));
    }

    // Opened on Loop with one cycle: the count is offered for Loop and Bounce only, and steps by one.
    chooseMenuItem(MenuEntry("Time &Animation Options..."));
    EXPECT_EQ("1", Sensitivities({{numCycles_TFS_D3, numCycles_LBL_D3}}));
    for (const int button : {1, 4, 3, 2})
    {
        chooseRadioButton(animationOperation_RADIO_D3, button);
        EXPECT_EQ(button == 2 || button == 3 ? "1" : "0",
                  Sensitivities({{numCycles_TFS_D3, numCycles_LBL_D3}}));
    }
    spinDown(numCycles_TFS_D3); // stays at 1
    spinUp(numCycles_TFS_D3);
    spinUp(numCycles_TFS_D3);
    EXPECT_EQ("3", guiElement(numCycles_TFS_D3).text);
    EXPECT_TRUE(enterText(numCycles_TFS_D3, "2147483647"));
    spinUp(numCycles_TFS_D3);
    // A count below one is refused and the field shows the last good one.
    EXPECT_FALSE(enterText(numCycles_TFS_D3, "0"));
    EXPECT_EQ("2147483647", guiElement(numCycles_TFS_D3).text);
    EXPECT_THAT(errorMessages(),
                ElementsAre("Invalid input. Input must be a number greater than or equal to 1."));
    pressHelp(Dialog3Manager);
    EXPECT_EQ("time_animation_options.html", helpRequests().at(0).page);
    pressOk(Dialog3Manager);
    EXPECT_EQ(2147483647u, dialog().settings().timeOptions.numCycles);
}

} // namespace
