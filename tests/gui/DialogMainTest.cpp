// The main dialog as a user meets it: its layout and menu bar, the sensitivity of its controls for every
// kind of selection, the selected key frame's fields, the options and destination it shows, closing and
// relaunching, help, and closing itself when the active frame stops being 3D.
#include "gui/DialogMain.h"
#include "gui/DialogLayouts.h"

#include <support/MainDialogTest.h>

#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using namespace vantix::host;
using ::testing::ElementsAre;
using testsupport::DialogMainTest;

namespace
{

struct Control_s
{
    const int* id;
    GuiKind kind;
    const char* label;
    int x, y, width, height;
    const char* toolTip;
};

TEST_F(DialogMainTest, IsLaidOutOnceWithEveryControlWhereItBelongs)
{
    const GuiElement main = guiElement(Dialog1Manager);
    EXPECT_EQ("Key Frame Animation", main.label);
    EXPECT_EQ(GuiId_MainWindow, main.parent);
    EXPECT_EQ(4870, main.width);
    EXPECT_EQ(2620, main.height);
    EXPECT_FALSE(main.modal);
    EXPECT_THAT(main.buttons, ElementsAre("Close", "Help"));

    const Control_s controls[] = {
        {&AppendKeyFrame_BTN_D1, GuiKind::Button, "&Append     ", 3160, 65, 1433, 145,
         "Append the current Vantix view as a key frame to the end of the list"},
        {&Destination_OPT_D1, GuiKind::OptionMenu, "", 1847, 2066, 2711, 145, ""},
        {&LBL3_LBL_D1, GuiKind::Label, "Destination:", 207, 2016, 0, 0, ""},
        {&AnimateAll_BTN_D1, GuiKind::Button, "A&nimate\nAll", 518, 2299, 1208, 278,
         "Animate through the list of all key frames"},
        {&Clear_BTN_D1, GuiKind::Button, "&Clear         ", 3160, 1341, 1433, 145,
         "Delete all key frame views from the list"},
        {&Apply_BTN_D1, GuiKind::Button, "A&pply        ", 3160, 783, 1416, 145,
         "Apply the selected key frame as the view in Vantix"},
        {&KeyFrameList_MLST_D1, GuiKind::List, "", 224, 65, 2745, 1414, ""},
        {&Delete_BTN_D1, GuiKind::Button, "&Delete       ", 3160, 1138, 1416, 145,
         "Delete the selected key frame"},
        {&AnimateSelected_BTN_D1, GuiKind::Button, "  Animate \n&Selected", 2884, 2299, 1243, 278,
         "Animate between the selected and next key frames"},
        {&Update_BTN_D1, GuiKind::Button, "&Update      ", 3160, 580, 1433, 145,
         "Update the selected key frame with the current view in Vantix"},
        {&ViewName_LBL_D1, GuiKind::Label, "View Name:", 207, 1595, 0, 0, ""},
        {&ViewName_TF_D1, GuiKind::TextField, "", 1847, 1645, 2711, 145,
         "Enter the name of the selected view"},
        {&FrameCount_LBL_D1, GuiKind::Label, "Frame Count:", 189, 1806, 0, 0, ""},
        {&FrameCount_TF_D1, GuiKind::TextField, "", 1847, 1856, 2711, 145,
         "Enter the number of frames between the selected and next key frame views"},
        {&InsertKeyFrame_BTN_D1, GuiKind::Button, "&Insert         ", 3160, 261, 1467, 145,
         "Add the current Vantix view as a key frame below the selected item(s) in the list"},
    };
    std::vector<int> madeInOrder;
    for (const Control_s& control : controls)
    {
        const GuiElement element = guiElement(*control.id);
        SCOPED_TRACE(control.label);
        EXPECT_EQ(control.kind, element.kind);
        EXPECT_EQ(control.label, element.label);
        EXPECT_EQ(control.toolTip, element.toolTip);
        EXPECT_EQ((std::vector<int>{control.x, control.y, control.width, control.height}),
                  (std::vector<int>{element.x, element.y, element.width, element.height}));
        EXPECT_EQ(element.kind != GuiKind::Label, element.hasCallback);
        madeInOrder.push_back(*control.id);
    }
    EXPECT_TRUE(guiElement(KeyFrameList_MLST_D1).multiSelection);
    EXPECT_THAT(guiElement(Destination_OPT_D1).items, ElementsAre("On Screen", "To File"));
    // The menu bar comes after the controls.
    std::vector<int> children = main.children;
    children.pop_back();
    EXPECT_EQ(madeInOrder, children);

    // Launching again shows the same dialog; nothing is made anew.
    const std::size_t dialogCount = dialogs().size();
    pressClose(Dialog1Manager);
    DialogMain::launch();
    EXPECT_EQ(dialogCount, dialogs().size());
    EXPECT_EQ(main.children, guiElement(Dialog1Manager).children);
    EXPECT_EQ(main.launchCount + 1, guiElement(Dialog1Manager).launchCount);
}

TEST_F(DialogMainTest, HasTheFileAndOptionsMenus)
{
    struct Entry_s
    {
        GuiKind kind;
        const char* label;
        const char* helpText;
    };
    const std::vector<std::vector<Entry_s>> menus = {
        {{GuiKind::MenuItem, "&Open Animation File...", "Open a saved key frame animation file."},
         {GuiKind::MenuSeparator, "", ""},
         {GuiKind::MenuItem, "&Save Animation File", "Save the key frame animation state to a file."},
         {GuiKind::MenuItem, "Save Animation File &As...", "Save the key frame animation state to a file."}},
        {{GuiKind::MenuToggle, "Animate &Time Concurrently",
          "Enable this option to animate time during the key frame animation."},
         {GuiKind::MenuItem, "Time &Animation Options...", ""},
         {GuiKind::MenuSeparator, "", ""},
         {GuiKind::MenuToggle, "Animate &Streamtraces Concurrently",
          "Enable this option to animate streamtrace markers during the key frame animation."},
         {GuiKind::MenuSeparator, "", ""},
         {GuiKind::MenuToggle, "Fade &In", ""},
         {GuiKind::MenuToggle, "Fade &Out", ""}}};
    const GuiElement menuBar = guiElement(guiElement(Dialog1Manager).menuBar);
    ASSERT_EQ(2u, menuBar.children.size());
    const char* const titles[] = {"&File", "&Options"};
    for (std::size_t m = 0; m < menus.size(); ++m)
    {
        const GuiElement menu = guiElement(menuBar.children[m]);
        EXPECT_EQ(titles[m], menu.label);
        ASSERT_EQ(menus[m].size(), menu.children.size());
        for (std::size_t e = 0; e < menus[m].size(); ++e)
        {
            const GuiElement entry = guiElement(menu.children[e]);
            EXPECT_EQ(menus[m][e].kind, entry.kind) << menus[m][e].label;
            EXPECT_EQ(menus[m][e].label, entry.label);
            EXPECT_EQ(menus[m][e].helpText, entry.helpText);
        }
    }
}

struct SensitivityCase_s
{
    std::vector<unsigned long> frameCounts;
    std::vector<int> selected;
    // Apply, Update, the name and its label; Delete, Insert, the frame count and its label; Animate
    // Selected; Clear; Animate All.
    bool single, some, range, clear, all;
};

class DialogMainSensitivityTest : public DialogMainTest,
                                  public ::testing::WithParamInterface<SensitivityCase_s>
{
};

TEST_P(DialogMainSensitivityTest, FollowsTheListAndTheSelection)
{
    const SensitivityCase_s& expected = GetParam();
    ShowKeyFrames(expected.frameCounts, expected.selected);
    const auto sensitive = [](int control) { return guiElement(control).sensitive; };
    for (const int control : {Apply_BTN_D1, Update_BTN_D1, ViewName_TF_D1, ViewName_LBL_D1})
        EXPECT_EQ(expected.single, sensitive(control)) << guiElement(control).label;
    for (const int control : {Delete_BTN_D1, InsertKeyFrame_BTN_D1, FrameCount_LBL_D1, FrameCount_TF_D1})
        EXPECT_EQ(expected.some, sensitive(control)) << guiElement(control).label;
    EXPECT_EQ(expected.range, sensitive(AnimateSelected_BTN_D1));
    EXPECT_EQ(expected.clear, sensitive(Clear_BTN_D1));
    EXPECT_EQ(expected.all, sensitive(AnimateAll_BTN_D1));
    for (const int control : {AppendKeyFrame_BTN_D1, Destination_OPT_D1, LBL3_LBL_D1})
        EXPECT_TRUE(sensitive(control));
}

INSTANTIATE_TEST_SUITE_P(
    Selections, DialogMainSensitivityTest,
    ::testing::Values(SensitivityCase_s{{}, {}, false, false, false, false, false},
                      SensitivityCase_s{{5}, {}, false, false, false, true, false},
                      SensitivityCase_s{{5}, {0}, true, true, false, true, false},
                      SensitivityCase_s{{5, 5, 5}, {}, false, false, false, true, true},
                      SensitivityCase_s{{5, 5, 5}, {1}, true, true, false, true, true},
                      SensitivityCase_s{{5, 5, 5}, {0, 2}, false, true, true, true, true},
                      SensitivityCase_s{{5, 5, 5}, {0, 1, 2}, false, true, true, true, true}));

TEST_F(DialogMainTest, ShowsTheFirstSelectedNameAndTheFrameCountTheSelectionShares)
{
    EXPECT_THAT(guiElement(KeyFrameList_MLST_D1).items, ElementsAre("No Key Frames established."));
    ShowKeyFrames({10, 20, 10, 0}, {0, 1});
    EXPECT_EQ("K0", guiElement(ViewName_TF_D1).text);
    EXPECT_EQ("", guiElement(FrameCount_TF_D1).text);

    selectListItems(KeyFrameList_MLST_D1, {1, 3});
    runOnIdleUntilEmpty();
    EXPECT_EQ("10", guiElement(FrameCount_TF_D1).text);

    // A count the field cannot hold is shown as the nearest one it can.
    selectListItem(KeyFrameList_MLST_D1, 4);
    runOnIdleUntilEmpty();
    EXPECT_EQ("K3", guiElement(ViewName_TF_D1).text);
    EXPECT_EQ("1", guiElement(FrameCount_TF_D1).text);

    // Nothing selected: the fields keep what they show.
    selectListItems(KeyFrameList_MLST_D1, {});
    runOnIdleUntilEmpty();
    EXPECT_EQ("K3", guiElement(ViewName_TF_D1).text);
}

TEST_F(DialogMainTest, OptionsMenuTogglesShowTheSettings)
{
    const std::pair<const char*, bool Settings_s::*> switches[] = {
        {"Animate &Streamtraces Concurrently", &Settings_s::animateStreamtraces},
        {"Fade &In", &Settings_s::fadeIn},
        {"Fade &Out", &Settings_s::fadeOut}};
    for (const auto& [label, setting] : switches)
    {
        Settings_s settings;
        settings.*setting = true;
        dialog().applySettings(settings);
        EXPECT_TRUE(guiElement(MenuEntry(label)).on) << label;
        chooseMenuItem(MenuEntry(label));
        EXPECT_FALSE(dialog().settings().*setting) << label;
        EXPECT_FALSE(guiElement(MenuEntry(label)).on) << label;
    }
    chooseMenuItem(MenuEntry("Animate &Time Concurrently"));
    EXPECT_TRUE(dialog().settings().timeOptions.animateTime);
    EXPECT_TRUE(guiElement(MenuEntry("Animate &Time Concurrently")).on);
}

TEST_F(DialogMainTest, KeepsKeyFramesSettingsAndDestinationAcrossCloseAndRelaunch)
{
    ShowKeyFrames({10, 20}, {1});
    chooseOption(Destination_OPT_D1, 2);
    EXPECT_EQ(ToFile, dialog().settings().destination);
    chooseMenuItem(MenuEntry("Fade &In"));
    pressClose(Dialog1Manager);
    EXPECT_FALSE(DialogMain::isVisible());

    // While the dialog is down, its list is left alone; it is rebuilt when the dialog comes up.
    dialog().keyFrameModel().setName(0, "Renamed");
    EXPECT_EQ("K0", guiElement(KeyFrameList_MLST_D1).items[0]);
    DialogMain::launch();
    runOnIdleUntilEmpty();
    EXPECT_THAT(guiElement(KeyFrameList_MLST_D1).items, ElementsAre("Renamed", "K1"));
    EXPECT_EQ(2, guiElement(Destination_OPT_D1).choice);
    EXPECT_TRUE(guiElement(MenuEntry("Fade &In")).on);
}

TEST_F(DialogMainTest, HelpOpensTheAddOnsPage)
{
    pressHelp(Dialog1Manager);
    ASSERT_EQ(1u, helpRequests().size());
    EXPECT_EQ("key_frame_animation.html", helpRequests()[0].page);
    EXPECT_TRUE(helpRequests()[0].found);
}

TEST_F(DialogMainTest, ClosesOnceTheActiveFrameIsNo3DPlot)
{
    setPlotType(PlotType_Cartesian2D);
    EXPECT_FALSE(DialogMain::okToLaunch());
    runOnIdleUntilEmpty();
    EXPECT_FALSE(DialogMain::isVisible());
    setPlotType(PlotType_Cartesian3D);
    EXPECT_TRUE(DialogMain::okToLaunch());
}

} // namespace
