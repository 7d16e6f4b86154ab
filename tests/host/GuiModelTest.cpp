// The GUI model: dialogs, controls and menus built through VtxGUI, what the host reports back through VtxGUI
// and through its own API, host arrays, and every misuse reported as a protocol error.
#include "support/HostTest.h"

#include <VtxGUI.h>
#include <VtxUtil.h>
#include <vantix/host/Gui.h>
#include <vantix/host/Host.h>

#include <functional>
#include <set>
#include <string>
#include <vector>

namespace
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using testsupport::HostTest;
using vantix::host::GuiElement;
using vantix::host::GuiKind;

std::vector<std::string> initLog;
int initDialog = GuiId_None; // the dialog whose init callback is InitOfDialog

void NoAction() {}
int AcceptText(const char*)
{
    return TRUE;
}
void NoValue(const int*) {}
void InitOfDialog()
{
    initLog.push_back(std::string("up=") + (VtxGUIDialogIsUp(initDialog) ? "yes" : "no"));
}

class GuiModelTest : public HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        initLog.clear();
    }

    static int Dialog(const char* title = "Test", int width = 1000, int height = 800)
    {
        return VtxGUIDialogCreateModeless(GuiId_MainWindow, width, height, title, nullptr, NoAction, nullptr);
    }

    // The selection through the SDK, with the host's array released.
    static std::vector<int> Selected(int list)
    {
        int* positions = nullptr;
        int count = -1;
        VtxGUIListGetSelectedItems(list, &positions, &count);
        std::vector<int> selected(positions, positions + count);
        VtxUtilArrayDealloc(reinterpret_cast<void**>(&positions));
        return selected;
    }

    static std::vector<std::string> Items(int control) { return vantix::host::guiElement(control).items; }
};

TEST_F(GuiModelTest, DialogsAreMadeDownWithTheirTitleSizeParentAndButtons)
{
    const int parent = Dialog("Model Parent");
    const struct
    {
        const char* title;
        bool modal;
        int parent;
        GuiActionCallback_pf init, close, ok, apply, cancel, help;
        std::vector<std::string> buttons;
    } cases[] = {
        {"Model Modeless",
         false,
         GuiId_MainWindow,
         NoAction,
         NoAction,
         nullptr,
         nullptr,
         nullptr,
         NoAction,
         {"Close", "Help"}},
        {"Model Bare", false, parent, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, {}},
        {"Model Modal",
         true,
         parent,
         NoAction,
         nullptr,
         NoAction,
         nullptr,
         NoAction,
         NoAction,
         {"OK", "Cancel", "Help"}},
        {"Model Full",
         true,
         GuiId_MainWindow,
         nullptr,
         nullptr,
         NoAction,
         NoAction,
         NoAction,
         nullptr,
         {"OK", "Apply", "Cancel"}},
    };
    std::set<int> ids = {parent};
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.title);
        const int id =
            c.modal ? VtxGUIDialogCreateModal(c.parent, 5844, 2503, c.title, c.init, c.ok, c.apply, c.cancel,
                                              c.help)
                    : VtxGUIDialogCreateModeless(c.parent, 4870, 2620, c.title, c.init, c.close, c.help);
        EXPECT_GT(id, 0);
        EXPECT_TRUE(ids.insert(id).second) << "identifiers are not reused";
        const GuiElement dialog = vantix::host::guiElement(id);
        EXPECT_EQ(GuiKind::Dialog, dialog.kind);
        EXPECT_EQ(c.title, dialog.label);
        EXPECT_EQ(c.parent, dialog.parent);
        EXPECT_EQ(id, dialog.dialog);
        EXPECT_EQ(c.modal ? 5844 : 4870, dialog.width);
        EXPECT_EQ(c.modal ? 2503 : 2620, dialog.height);
        EXPECT_EQ(c.modal, dialog.modal);
        EXPECT_FALSE(dialog.up);
        EXPECT_FALSE(VtxGUIDialogIsUp(id));
        EXPECT_EQ(0, dialog.launchCount);
        EXPECT_EQ(c.buttons, dialog.buttons);
        EXPECT_EQ(GuiId_None, dialog.menuBar);
        EXPECT_EQ(id, vantix::host::findDialog(c.title));
    }
    EXPECT_THAT(vantix::host::guiElement(parent).children, IsEmpty())
        << "dialogs are not their parent's controls";
}

TEST_F(GuiModelTest, ControlsKeepTheirKindPlaceLabelAndOrder)
{
    const int dialog = Dialog("Controls", 6000, 3000);
    const struct
    {
        GuiKind kind;
        std::function<int()> add;
        int x, y, width, height;
        std::string label;
        std::vector<std::string> items;
        int choice;
        bool hasCallback;
    } cases[] = {
        {GuiKind::Button,
         [&] { return VtxGUIButtonAdd(dialog, 3160, 65, 1433, 145, "&Append     ", NoAction); },
         3160,
         65,
         1433,
         145,
         "&Append     ",
         {},
         0,
         true},
        {GuiKind::Label,
         [&] { return VtxGUILabelAdd(dialog, 207, 2016, "Destination:"); },
         207,
         2016,
         0,
         0,
         "Destination:",
         {},
         0,
         false},
        {GuiKind::Frame,
         [&] { return VtxGUIFrameAdd(dialog, 207, 79, 4956, 732, "Animation Operation"); },
         207,
         79,
         4956,
         732,
         "Animation Operation",
         {},
         0,
         false},
        {GuiKind::TextField,
         [&] { return VtxGUITextFieldAdd(dialog, 1847, 1645, 2711, 145, AcceptText); },
         1847,
         1645,
         2711,
         145,
         "",
         {},
         0,
         true},
        {GuiKind::SpinTextField,
         [&] { return VtxGUISpinTextFieldAdd(dialog, 2918, 333, 1329, 145, nullptr, NoAction, NoAction); },
         2918,
         333,
         1329,
         145,
         "",
         {},
         0,
         true},
        {GuiKind::List,
         [&] { return VtxGUIListAdd(dialog, 224, 65, 2745, 1414, TRUE, NoValue); },
         224,
         65,
         2745,
         1414,
         "",
         {},
         0,
         true},
        {GuiKind::OptionMenu,
         [&] { return VtxGUIOptionMenuAdd(dialog, 1847, 2066, 2711, 145, " ", NoValue); },
         1847,
         2066,
         2711,
         145,
         "",
         {" "},
         1,
         true},
        {GuiKind::Toggle,
         [&] { return VtxGUIToggleAdd(dialog, 293, 1334, 2055, 123, "&Antialiasing", nullptr); },
         293,
         1334,
         2055,
         123,
         "&Antialiasing",
         {},
         0,
         false},
        {GuiKind::RadioBox,
         [&]
         {
             return VtxGUIRadioBoxAdd(dialog, 587, 166, 2003, 573, "&Forward", "&Loop", "&Bounce",
                                      "&As Captured", nullptr, NoValue);
         },
         587,
         166,
         2003,
         573,
         "",
         {"&Forward", "&Loop", "&Bounce", "&As Captured"},
         1,
         true},
    };
    std::vector<int> made;
    for (const auto& c : cases)
    {
        const int id = c.add();
        SCOPED_TRACE(c.label + " " + std::to_string(id));
        ASSERT_GT(id, 0);
        made.push_back(id);
        const GuiElement control = vantix::host::guiElement(id);
        EXPECT_EQ(c.kind, control.kind);
        EXPECT_EQ(dialog, control.parent);
        EXPECT_EQ(dialog, control.dialog);
        EXPECT_EQ(c.x, control.x);
        EXPECT_EQ(c.y, control.y);
        EXPECT_EQ(c.width, control.width);
        EXPECT_EQ(c.height, control.height);
        EXPECT_EQ(c.label, control.label);
        EXPECT_EQ(c.items, control.items);
        EXPECT_EQ(c.choice, control.choice);
        EXPECT_EQ(c.hasCallback, control.hasCallback);
        EXPECT_TRUE(control.sensitive);
        EXPECT_EQ("", control.text);
        EXPECT_THAT(control.selected, IsEmpty());
        EXPECT_FALSE(control.on);
    }
    EXPECT_EQ(made, vantix::host::guiElement(dialog).children);
    EXPECT_TRUE(vantix::host::guiElement(made[5]).multiSelection);
}

TEST_F(GuiModelTest, ADialogComesUpOnceAndCallsItsInitEachTimeItComesUp)
{
    const int a =
        VtxGUIDialogCreateModeless(GuiId_MainWindow, 100, 100, "A", InitOfDialog, NoAction, nullptr);
    initDialog = a;
    VtxGUIDialogLaunch(a);
    EXPECT_TRUE(VtxGUIDialogIsUp(a));
    VtxGUIDialogLaunch(a); // up already: comes to the front only
    EXPECT_THAT(initLog, ElementsAre("up=yes"));
    VtxGUIDialogDrop(a);
    EXPECT_FALSE(VtxGUIDialogIsUp(a));
    VtxGUIDialogDrop(a); // down already: nothing happens
    EXPECT_THAT(initLog, SizeIs(1)) << "dropping calls no callback";
    VtxGUIDialogLaunch(a);
    EXPECT_THAT(initLog, ElementsAre("up=yes", "up=yes"));
    EXPECT_EQ(2, vantix::host::guiElement(a).launchCount);
    EXPECT_EQ(1, vantix::host::callCount("VtxGUIDialogCreateModeless"));
    EXPECT_EQ(3, vantix::host::callCount("VtxGUIDialogLaunch"));
}

TEST_F(GuiModelTest, ATextFieldsTextComesBackInAHostString)
{
    const int dialog = Dialog();
    const int field = VtxGUITextFieldAdd(dialog, 10, 10, 100, 20, AcceptText);
    const int spin = VtxGUISpinTextFieldAdd(dialog, 10, 40, 100, 20, AcceptText, NoAction, NoAction);
    for (const std::string& text :
         std::vector<std::string>{"", "30", "View 1", "two\nlines", std::string(5000, 'x')})
    {
        for (const int id : {field, spin})
        {
            VtxGUITextFieldSetString(id, text.c_str());
            EXPECT_EQ(text, vantix::host::guiElement(id).text);
            char* copy = VtxGUITextFieldGetString(id);
            ASSERT_NE(nullptr, copy);
            EXPECT_EQ(text, copy);
            EXPECT_EQ(1, vantix::host::outstandingHostStrings());
            VtxUtilStringDealloc(&copy);
            EXPECT_EQ(0, vantix::host::outstandingHostStrings());
        }
    }
}

TEST_F(GuiModelTest, ListEntriesCountFromOneAndTheSelectionFollowsItsEntries)
{
    const int list = VtxGUIListAdd(Dialog(), 10, 10, 200, 300, TRUE, NoValue);
    EXPECT_EQ(0, VtxGUIListGetItemCount(list));
    for (const char* name : {"View 1", "View 2", "View 3", "View 4", "View 5"})
        VtxGUIListAppendItem(list, name);
    EXPECT_EQ(5, VtxGUIListGetItemCount(list));

    const int selection[] = {5, 2, 4, 2};
    VtxGUIListSetSelectedItems(list, selection, 4);
    EXPECT_THAT(Selected(list), ElementsAre(2, 4, 5)) << "ascending, each once";

    VtxGUIListReplaceItem(list, "Renamed", 4);
    EXPECT_THAT(Items(list), ElementsAre("View 1", "View 2", "View 3", "Renamed", "View 5"));
    EXPECT_THAT(Selected(list), ElementsAre(2, 4, 5)) << "a replaced entry keeps its selection";

    const struct
    {
        int deleted;
        std::vector<std::string> items;
        std::vector<int> selected;
    } steps[] = {
        {3, {"View 1", "View 2", "Renamed", "View 5"}, {2, 3, 4}},
        {3, {"View 1", "View 2", "View 5"}, {2, 3}},
        {1, {"View 2", "View 5"}, {1, 2}},
        {2, {"View 2"}, {1}},
    };
    for (const auto& step : steps)
    {
        SCOPED_TRACE(step.deleted);
        VtxGUIListDeleteItemAtPos(list, step.deleted);
        EXPECT_EQ(step.items, Items(list));
        EXPECT_EQ(step.selected, Selected(list));
    }

    VtxGUIListAppendItem(list, "View 6");
    VtxGUIListSetSelectedItem(list, 2);
    EXPECT_THAT(Selected(list), ElementsAre(2)) << "one entry becomes the whole selection";
    VtxGUIListDeselectAllItems(list);
    EXPECT_THAT(Selected(list), IsEmpty());
    VtxGUIListSetSelectedItem(list, 1);
    VtxGUIListDeleteAllItems(list);
    EXPECT_EQ(0, VtxGUIListGetItemCount(list));
    EXPECT_THAT(vantix::host::guiElement(list).selected, IsEmpty());
}

TEST_F(GuiModelTest, ASelectionComesInAHostArrayThatIsCountedUntilReleased)
{
    const int list = VtxGUIListAdd(Dialog(), 10, 10, 200, 300, TRUE, NoValue);
    for (const char* name : {"a", "b", "c"})
        VtxGUIListAppendItem(list, name);

    int unrelated = 0;
    int* positions = &unrelated; // must be overwritten
    int count = -1;
    VtxGUIListGetSelectedItems(list, &positions, &count);
    EXPECT_EQ(nullptr, positions) << "nothing selected: nothing to release";
    EXPECT_EQ(0, count);
    EXPECT_EQ(0, vantix::host::outstandingHostArrays());

    const int all[] = {3, 1, 2};
    VtxGUIListSetSelectedItems(list, all, 3);
    int* first = nullptr;
    int* second = nullptr;
    VtxGUIListGetSelectedItems(list, &first, &count);
    VtxGUIListGetSelectedItems(list, &second, &count);
    ASSERT_EQ(3, count);
    EXPECT_EQ((std::vector<int>{1, 2, 3}), std::vector<int>(first, first + 3));
    EXPECT_NE(first, second);
    EXPECT_EQ(2, vantix::host::outstandingHostArrays());
    VtxUtilArrayDealloc(reinterpret_cast<void**>(&first));
    EXPECT_EQ(nullptr, first);
    EXPECT_EQ(1, vantix::host::outstandingHostArrays());

    // After a reset the count starts again, but the array handed out before can still be released.
    vantix::host::reset();
    EXPECT_EQ(0, vantix::host::outstandingHostArrays());
    VtxUtilArrayDealloc(reinterpret_cast<void**>(&second));
    EXPECT_EQ(nullptr, second);
    EXPECT_EQ(0, vantix::host::outstandingHostArrays());
    void* none = nullptr;
    VtxUtilArrayDealloc(&none);
    VtxUtilArrayDealloc(nullptr);
    EXPECT_EQ(3, vantix::host::callCount("VtxUtilArrayDealloc"));
}

TEST_F(GuiModelTest, AnOptionMenuShowsItsFirstEntryUntilAnotherIsSet)
{
    const int dialog = Dialog();
    const struct
    {
        const char* itemText;
        std::vector<std::string> items;
        int shown;
    } cases[] = {
        {" ", {" "}, 1},
        {"On Screen\nTo File", {"On Screen", "To File"}, 1},
        {"", {}, 0},
        {nullptr, {}, 0},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.itemText ? c.itemText : "null");
        const int menu = VtxGUIOptionMenuAdd(dialog, 10, 10, 100, 20, c.itemText, NoValue);
        EXPECT_EQ(c.items, Items(menu));
        EXPECT_EQ(c.shown, VtxGUIOptionMenuGet(menu));
    }

    const int menu = VtxGUIOptionMenuAdd(dialog, 10, 10, 100, 20, " ", NoValue);
    VtxGUIOptionMenuDeleteAllItems(menu);
    EXPECT_EQ(0, VtxGUIOptionMenuGet(menu));
    VtxGUIOptionMenuAppendItem(menu, "On Screen");
    EXPECT_EQ(1, VtxGUIOptionMenuGet(menu)) << "the first entry of an empty menu is shown";
    VtxGUIOptionMenuAppendItem(menu, "To File");
    EXPECT_EQ(1, VtxGUIOptionMenuGet(menu));
    VtxGUIOptionMenuSet(menu, 2);
    EXPECT_EQ(2, VtxGUIOptionMenuGet(menu));
    EXPECT_THAT(Items(menu), ElementsAre("On Screen", "To File"));
}

TEST_F(GuiModelTest, TogglesRadioBoxesSensitivityAndTooltips)
{
    const int dialog = Dialog();
    const int toggle = VtxGUIToggleAdd(dialog, 10, 10, 100, 20, "&Antialiasing", NoValue);
    EXPECT_FALSE(VtxGUIToggleGet(toggle));
    VtxGUIToggleSet(toggle, TRUE);
    EXPECT_TRUE(VtxGUIToggleGet(toggle));
    VtxGUIToggleSet(toggle, FALSE);
    EXPECT_FALSE(VtxGUIToggleGet(toggle));

    const int radio = VtxGUIRadioBoxAdd(dialog, 10, 40, 300, 60, "Optimize for &Speed",
                                        "Optimize for &File Size", nullptr, nullptr, nullptr, NoValue);
    EXPECT_THAT(Items(radio), ElementsAre("Optimize for &Speed", "Optimize for &File Size"));
    EXPECT_EQ(1, VtxGUIRadioBoxGetToggle(radio));
    VtxGUIRadioBoxSetToggle(radio, 2);
    EXPECT_EQ(2, VtxGUIRadioBoxGetToggle(radio));

    const int label = VtxGUILabelAdd(dialog, 10, 120, "Dimensions: 0 x 0");
    VtxGUILabelSetText(label, "Dimensions: 640 x 426");
    EXPECT_EQ("Dimensions: 640 x 426", vantix::host::guiElement(label).label);

    for (const int id : {toggle, radio, label})
    {
        VtxGUISetSensitivity(id, FALSE);
        EXPECT_FALSE(vantix::host::guiElement(id).sensitive);
        VtxGUISetSensitivity(id, TRUE);
        EXPECT_TRUE(vantix::host::guiElement(id).sensitive);
        VtxGUISetToolTip(id, "Explains it");
        EXPECT_EQ("Explains it", vantix::host::guiElement(id).toolTip);
    }
}

TEST_F(GuiModelTest, MenusHangFromTheDialogsMenuBarInTheOrderAdded)
{
    const int dialog = Dialog("Key Frame Animation");
    const int bar = VtxGUIMenuBarAdd(dialog);
    const int file = VtxGUIMenuAdd(bar, "&File");
    const int open = VtxGUIMenuAddItem(file, "&Open Animation File...",
                                       "Open a saved key frame animation file.", NoAction);
    const int separator = VtxGUIMenuAddSeparator(file);
    const int options = VtxGUIMenuAdd(bar, "&Options");
    const int fadeIn = VtxGUIMenuAddToggle(options, "Fade &In", nullptr, NoAction);
    const int more = VtxGUIMenuAdd(options, "&More");

    EXPECT_EQ(bar, vantix::host::guiElement(dialog).menuBar);
    EXPECT_THAT(vantix::host::guiElement(dialog).children, ElementsAre(bar));
    EXPECT_THAT(vantix::host::guiElement(bar).children, ElementsAre(file, options));
    EXPECT_THAT(vantix::host::guiElement(file).children, ElementsAre(open, separator));
    EXPECT_THAT(vantix::host::guiElement(options).children, ElementsAre(fadeIn, more));
    const GuiElement item = vantix::host::guiElement(open);
    EXPECT_EQ(GuiKind::MenuItem, item.kind);
    EXPECT_EQ(file, item.parent);
    EXPECT_EQ(dialog, item.dialog);
    EXPECT_EQ("Open a saved key frame animation file.", item.helpText);
    EXPECT_TRUE(item.hasCallback);
    EXPECT_EQ(GuiKind::MenuSeparator, vantix::host::guiElement(separator).kind);
    EXPECT_EQ(GuiKind::Menu, vantix::host::guiElement(more).kind);
    EXPECT_EQ(dialog, vantix::host::guiElement(more).dialog);

    EXPECT_FALSE(vantix::host::guiElement(fadeIn).on);
    VtxGUIMenuSetToggle(fadeIn, TRUE);
    EXPECT_TRUE(vantix::host::guiElement(fadeIn).on);
    VtxGUIMenuSetToggle(fadeIn, FALSE);
    EXPECT_FALSE(vantix::host::guiElement(fadeIn).on);

    EXPECT_EQ(fadeIn, vantix::host::findControl(dialog, "Fade In"));
    EXPECT_EQ(open, vantix::host::findControl(dialog, "&Open Animation File..."));
}

TEST_F(GuiModelTest, ALabelReadsAsTheUserSeesIt)
{
    const struct
    {
        std::string given, readable;
    } cases[] = {
        {"&Append     ", "Append"},
        {"A&nimate\nAll", "Animate All"},
        {"  Animate \n&Selected", "Animate Selected"},
        {"Save Animation File &As...", "Save Animation File As..."},
        {"Fish && Chips", "Fish & Chips"},
        {"&&&Both", "&Both"},
        {"", ""},
        {"   ", ""},
        {"Ends&", "Ends"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.readable, vantix::host::readableLabel(c.given)) << c.given;
}

TEST_F(GuiModelTest, FindingAControlNeedsExactlyOneMatch)
{
    const int dialog = Dialog("Finder");
    const int append = VtxGUIButtonAdd(dialog, 10, 10, 100, 20, "&Append     ", NoAction);
    const int all = VtxGUIButtonAdd(dialog, 10, 40, 100, 40, "A&nimate\nAll", NoAction);
    VtxGUILabelAdd(dialog, 10, 90, "Twice");
    VtxGUILabelAdd(dialog, 10, 120, "Tw&ice");
    const int other = Dialog("Other");
    VtxGUIButtonAdd(other, 10, 10, 100, 20, "Elsewhere", NoAction);

    EXPECT_EQ(append, vantix::host::findControl(dialog, "Append"));
    EXPECT_EQ(append, vantix::host::findControl(dialog, "&Append     "));
    EXPECT_EQ(all, vantix::host::findControl(dialog, "Animate All"));
    EXPECT_THROW(vantix::host::findControl(dialog, "Twice"), std::invalid_argument);
    EXPECT_THROW(vantix::host::findControl(dialog, "Elsewhere"), std::invalid_argument);
    EXPECT_THROW(vantix::host::findControl(dialog, "Missing"), std::invalid_argument);
    EXPECT_THROW(vantix::host::findControl(append, "Append"), std::invalid_argument);
    EXPECT_THROW(vantix::host::findDialog("No Such Dialog"), std::invalid_argument);
    EXPECT_THROW(vantix::host::guiElement(GuiId_None), std::invalid_argument);
}

TEST_F(GuiModelTest, AResetTakesEveryDialogDownButKeepsTheModel)
{
    const int a = VtxGUIDialogCreateModeless(GuiId_MainWindow, 100, 100, "Kept Over A Reset", InitOfDialog,
                                             NoAction, nullptr);
    initDialog = a;
    const int modal = VtxGUIDialogCreateModal(GuiId_MainWindow, 100, 100, "M", nullptr, NoAction, nullptr,
                                              NoAction, nullptr);
    const int list = VtxGUIListAdd(a, 10, 10, 50, 50, FALSE, NoValue);
    VtxGUIListAppendItem(list, "kept");
    VtxGUIDialogLaunch(a);
    VtxGUIDialogLaunch(modal);

    vantix::host::reset();
    EXPECT_FALSE(VtxGUIDialogIsUp(a));
    EXPECT_FALSE(VtxGUIDialogIsUp(modal));
    EXPECT_THAT(Items(list), ElementsAre("kept"));
    EXPECT_EQ(a, vantix::host::findDialog("Kept Over A Reset"));
    EXPECT_THAT(initLog, SizeIs(1)) << "no callback runs on a reset";
    VtxGUIDialogLaunch(a);
    EXPECT_THAT(initLog, SizeIs(2));
}

TEST_F(GuiModelTest, MisuseIsReportedAndChangesNothing)
{
    const int dialog = Dialog("Misused", 1000, 500);
    const int single = VtxGUIListAdd(dialog, 10, 10, 100, 100, FALSE, NoValue);
    VtxGUIListAppendItem(single, "one");
    VtxGUIListAppendItem(single, "two");
    VtxGUIListSetSelectedItem(single, 1);
    const int menu = VtxGUIOptionMenuAdd(dialog, 10, 200, 100, 20, "a\nb", NoValue);
    const int radio =
        VtxGUIRadioBoxAdd(dialog, 10, 250, 100, 50, "x", "y", nullptr, nullptr, nullptr, NoValue);
    const int button = VtxGUIButtonAdd(dialog, 10, 320, 100, 20, "Press", NoAction);
    const int field = VtxGUITextFieldAdd(dialog, 10, 350, 100, 20, AcceptText);
    VtxGUITextFieldSetString(field, "kept");
    VtxGUIMenuBarAdd(dialog);
    const int notAFunctionsArray[] = {1, 2};
    int outside = 0;

    const struct
    {
        const char* what;
        std::function<void()> misuse;
        std::string error;
    } cases[] = {
        {"unknown identifier", [&] { VtxGUIListAppendItem(12345, "x"); },
         "VtxGUIListAppendItem was given the identifier 12345, which the host never gave out"},
        {"not built", [&] { VtxGUISetSensitivity(GuiId_None, FALSE); },
         "VtxGUISetSensitivity was given GuiId_None (-2), which stands for no element"},
        {"wrong kind", [&] { VtxGUIToggleSet(button, TRUE); },
         "VtxGUIToggleSet was given " + std::to_string(button) + ", which is a button, not a toggle"},
        {"text of a button", [&] { VtxGUITextFieldSetString(button, "x"); },
         "which is a button, not a text field or a spin field"},
        {"position 0", [&] { VtxGUIListSetSelectedItem(single, 0); },
         "was given position 0 of a list of 2 entries"},
        {"position past the end", [&] { VtxGUIListDeleteItemAtPos(single, 3); }, "position 3 of a list of 2"},
        {"replace past the end", [&] { VtxGUIListReplaceItem(single, "x", 3); }, "position 3 of a list of 2"},
        {"two in a single-selection list", [&] { VtxGUIListSetSelectedItems(single, notAFunctionsArray, 2); },
         "was given 2 entries to select in a single-selection list"},
        {"negative count", [&] { VtxGUIListSetSelectedItems(single, notAFunctionsArray, -1); },
         "was given -1 positions"},
        {"option past the end", [&] { VtxGUIOptionMenuSet(menu, 3); }, "position 3 of an option menu of 2"},
        {"radio button past the end", [&] { VtxGUIRadioBoxSetToggle(radio, 3); },
         "was given button 3 of a radio box of 2"},
        {"null text", [&] { VtxGUITextFieldSetString(field, nullptr); }, "was given no text (null)"},
        {"null list entry", [&] { VtxGUIListAppendItem(single, nullptr); }, "was given no text (null)"},
        {"second menu bar", [&] { VtxGUIMenuBarAdd(dialog); }, "was asked for a second menu bar"},
        {"menu in a dialog", [&] { VtxGUIMenuAdd(dialog, "&File"); },
         "which is a dialog, not a menu bar or a menu"},
        {"item in a menu bar",
         [&] { VtxGUIMenuAddItem(vantix::host::guiElement(dialog).menuBar, "x", "", NoAction); },
         "which is a menu bar, not a menu"},
        {"parent not a dialog",
         [&] { VtxGUIDialogCreateModeless(button, 100, 100, "Child", nullptr, nullptr, nullptr); },
         "which is a button, not a dialog"},
        {"dialog without a size",
         [&] {
             VtxGUIDialogCreateModal(GuiId_MainWindow, 0, 100, "Flat", nullptr, NoAction, nullptr, NoAction,
                                     nullptr);
         },
         "was given the size 0 x 100 for dialog \"Flat\""},
        {"control without a size", [&] { VtxGUIButtonAdd(dialog, 10, 10, 0, 20, "Thin", NoAction); },
         "for a button \"Thin\""},
        {"control in a button", [&] { VtxGUIButtonAdd(button, 10, 10, 10, 20, "In", NoAction); },
         "which is a button, not a dialog"},
        {"radio label after a missing one",
         [&] { VtxGUIRadioBoxAdd(dialog, 10, 10, 50, 50, "a", nullptr, "c", nullptr, nullptr, NoValue); },
         "was given a radio button label after a missing one"},
        {"radio box without labels",
         [&]
         { VtxGUIRadioBoxAdd(dialog, 10, 10, 50, 50, nullptr, nullptr, nullptr, nullptr, nullptr, NoValue); },
         "was given no radio button label"},
        {"selection to nowhere", [&] { VtxGUIListGetSelectedItems(single, nullptr, &outside); },
         "was given nowhere to put the selection"},
        {"tooltip of a menu bar", [&] { VtxGUISetToolTip(vantix::host::guiElement(dialog).menuBar, "x"); },
         "which is a menu bar, not a button"},
        {"array never handed out",
         [&]
         {
             void* mine = &outside;
             VtxUtilArrayDealloc(&mine);
         },
         "VtxUtilArrayDealloc was given an array the host never gave out (or released already)"},
    };
    const auto countBefore = vantix::host::guiElement(dialog).children.size();
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        c.misuse();
        const std::vector<std::string> errors = vantix::host::hostErrors();
        ASSERT_THAT(errors, SizeIs(1));
        EXPECT_THAT(errors.front(), HasSubstr(c.error));
        vantix::host::clearHostErrors();
    }
    EXPECT_EQ(countBefore, vantix::host::guiElement(dialog).children.size()) << "nothing refused was made";
    EXPECT_THAT(Items(single), ElementsAre("one", "two"));
    EXPECT_THAT(Selected(single), ElementsAre(1));
    EXPECT_EQ(1, VtxGUIOptionMenuGet(menu));
    EXPECT_EQ(1, VtxGUIRadioBoxGetToggle(radio));
    EXPECT_EQ("kept", vantix::host::guiElement(field).text);
    EXPECT_EQ(0, vantix::host::outstandingHostArrays());
}

TEST_F(GuiModelTest, QuestionsAboutUnknownElementsAnswerNothing)
{
    const int dialog = Dialog();
    const int button = VtxGUIButtonAdd(dialog, 10, 10, 100, 20, "Press", NoAction);
    const struct
    {
        const char* what;
        std::function<long()> ask;
    } cases[] = {
        {"is up", [] { return long(VtxGUIDialogIsUp(777777)); }},
        {"item count", [&] { return long(VtxGUIListGetItemCount(button)); }},
        {"option", [&] { return long(VtxGUIOptionMenuGet(dialog)); }},
        {"radio", [] { return long(VtxGUIRadioBoxGetToggle(GuiId_None)); }},
        {"toggle", [&] { return long(VtxGUIToggleGet(button)); }},
        {"text", [&] { return long(VtxGUITextFieldGetString(button) != nullptr); }},
        {"new control", [] { return long(VtxGUIButtonAdd(777777, 1, 1, 1, 1, "x", nullptr) != GuiId_None); }},
        {"new menu", [&] { return long(VtxGUIMenuAddToggle(button, "x", nullptr, NoAction) != GuiId_None); }},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        EXPECT_EQ(0, c.ask());
        EXPECT_THAT(vantix::host::hostErrors(), SizeIs(1));
        vantix::host::clearHostErrors();
    }
}

TEST_F(GuiModelTest, AControlReachingOutOfItsDialogIsMadeButReported)
{
    const int dialog = Dialog("Small", 100, 50);
    const int button = VtxGUIButtonAdd(dialog, 60, 10, 50, 20, "Wide", NoAction);
    EXPECT_GT(button, 0);
    EXPECT_THAT(vantix::host::hostErrors(),
                ElementsAre("VtxGUIButtonAdd puts a button \"Wide\" partly outside dialog \"Small\""));
    vantix::host::clearHostErrors();
    VtxGUIButtonAdd(dialog, 50, 30, 50, 20, "Fits", NoAction);
    VtxGUILabelAdd(dialog, 99, 49, "A label has no size to check");
    EXPECT_THAT(vantix::host::hostErrors(), IsEmpty());
}

} // namespace
