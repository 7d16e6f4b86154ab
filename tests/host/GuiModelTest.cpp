// The GUI model: dialogs, controls and menus built through VtxGUI, what the host reports back through VtxGUI
// and through its own API, host arrays, and every misuse reported as a protocol error.
#include "support/GuiDescription.h"
#include "support/HostTest.h"

#include <functional>

namespace
{

namespace host = vantix::host;
using namespace ::testing;
using testsupport::DescribeTree;

std::vector<std::string> initLog;
int initDialog = GuiId_None; // the dialog whose init callback is InitOfDialog
void NoAction() {}
void NoValue(const int*) {}
const auto AcceptText = [](const char*) { return int(TRUE); };
const auto InitOfDialog = [] { initLog.push_back(VtxGUIDialogIsUp(initDialog) ? "up=yes" : "up=no"); };

const auto Dialog = [](const char* title = "Test", int width = 1000, int height = 800)
{ return VtxGUIDialogCreateModeless(GuiId_MainWindow, width, height, title, nullptr, NoAction, nullptr); };

// The selection through the SDK, with the host's array released.
std::vector<int> Selected(int list)
{
    int* positions = nullptr;
    int count = -1;
    VtxGUIListGetSelectedItems(list, &positions, &count);
    std::vector<int> selected(positions, positions + count);
    VtxUtilArrayDealloc(reinterpret_cast<void**>(&positions));
    return selected;
}

// The entries, each after a '|'.
std::string Items(int control)
{
    std::string items;
    for (const std::string& item : host::guiElement(control).items)
        items += "|" + item;
    return items;
}

using GuiModelTest = testsupport::HostTest;

// Every kind of control, as the add-on builds them, shows in the dialogs' layout reference (the main dialog
// tests); here what is set on them, and their places checked against their dialog's size.
TEST_F(GuiModelTest, ControlsKeepWhatIsSetOnThemAndOneReachingOutOfItsDialogIsReported)
{
    const int d = Dialog("Controls", 6000, 3000);
    const int label = VtxGUILabelAdd(d, 207, 2016, "Destination:");
    const int field = VtxGUITextFieldAdd(d, 1847, 1645, 2711, 145, AcceptText);
    const int spin = VtxGUISpinTextFieldAdd(d, 2918, 333, 1329, 145, nullptr, NoAction, NoAction);
    const int toggle = VtxGUIToggleAdd(d, 293, 1334, 2055, 123, "&Antialiasing", nullptr);
    const int radio = VtxGUIRadioBoxAdd(d, 587, 166, 2003, 573, "&Forward", "&Loop", "&Bounce",
                                        "&As Captured", nullptr, NoValue);
    const auto state = [&]
    { return std::make_pair(bool(VtxGUIToggleGet(toggle)), VtxGUIRadioBoxGetToggle(radio)); };
    EXPECT_EQ(std::make_pair(false, 1), state());
    VtxGUIToggleSet(toggle, TRUE);
    VtxGUIRadioBoxSetToggle(radio, 4);
    EXPECT_EQ(std::make_pair(true, 4), state());
    VtxGUILabelSetText(label, "Destination: 640 x 426");
    VtxGUISetSensitivity(label, FALSE);
    EXPECT_FALSE(host::guiElement(label).sensitive);
    VtxGUISetSensitivity(label, TRUE);
    VtxGUISetToolTip(label, "Explains it");
    VtxGUISetToolTip(toggle, "Explains it");
    EXPECT_EQ("dialog Controls @0,0,6000,3000 modeless [Close] in the main window\n"
              "  label Destination: 640 x 426 @207,2016,0,0 ~Explains it\n"
              "  field  @1847,1645,2711,145 *\n"
              "  spin  @2918,333,1329,145 *\n"
              "  toggle &Antialiasing @293,1334,2055,123 ~Explains it\n"
              "  radio |&Forward|&Loop|&Bounce|&As Captured @587,166,2003,573 *\n",
              DescribeTree(d));
    EXPECT_TRUE(host::guiElement(label).sensitive);
    EXPECT_GT(VtxGUIButtonAdd(d, 5000, 10, 1500, 20, "Wide", NoAction), 0);
    VtxGUIButtonAdd(d, 4500, 2980, 1500, 20, "Fits", NoAction);
    VtxGUILabelAdd(d, 5999, 2999, "A label has no size to check");
    EXPECT_THAT(host::hostErrors(),
                ElementsAre("VtxGUIButtonAdd puts a button \"Wide\" partly outside dialog \"Controls\""));
    host::clearHostErrors();
    // A field's text comes back in a host string, whatever it holds.
    for (const std::string& text : {std::string(), std::string("two\nlines"), std::string(5000, 'x')})
        for (const int id : {field, spin})
        {
            VtxGUITextFieldSetString(id, text.c_str());
            char* copy = VtxGUITextFieldGetString(id);
            ASSERT_NE(nullptr, copy);
            EXPECT_EQ(std::make_tuple(text, text, 1L),
                      std::make_tuple(host::guiElement(id).text, std::string(copy),
                                      host::outstandingHostStrings()));
            VtxUtilStringDealloc(&copy);
        }
}

TEST_F(GuiModelTest, ADialogComesUpOnceCallingItsInitAndAResetTakesItDownButKeepsTheModel)
{
    initLog.clear();
    const int a = initDialog = VtxGUIDialogCreateModeless(GuiId_MainWindow, 100, 100, "Kept Over A Reset",
                                                          InitOfDialog, NoAction, nullptr);
    const int list = VtxGUIListAdd(a, 10, 10, 50, 50, FALSE, NoValue);
    VtxGUIListAppendItem(list, "kept");
    VtxGUIDialogLaunch(a);
    VtxGUIDialogLaunch(a); // up already: comes to the front only
    VtxGUIDialogDrop(a);
    VtxGUIDialogDrop(a); // down already: nothing happens
    EXPECT_FALSE(VtxGUIDialogIsUp(a));
    EXPECT_THAT(initLog, ElementsAre("up=yes")) << "the init callback runs once, dropping calls none";
    VtxGUIDialogLaunch(a);
    EXPECT_EQ(std::make_pair(true, 2),
              std::make_pair(bool(VtxGUIDialogIsUp(a)), host::guiElement(a).launchCount))
        << "launched while up, it only came to the front";
    host::reset();
    EXPECT_FALSE(VtxGUIDialogIsUp(a));
    EXPECT_EQ("|kept", Items(list));
    EXPECT_EQ(a, host::findDialog("Kept Over A Reset"));
    EXPECT_THAT(initLog, SizeIs(2)) << "no callback runs on a reset";
}

TEST_F(GuiModelTest, ListEntriesCountFromOneAndTheSelectionFollowsThem)
{
    const int list = VtxGUIListAdd(Dialog(), 10, 10, 200, 300, TRUE, NoValue);
    for (const char* name : {"1", "2", "3", "4", "5"})
        VtxGUIListAppendItem(list, name);
    EXPECT_EQ(5, VtxGUIListGetItemCount(list));
    const int selection[] = {5, 2, 4, 2};
    // The entries and the selection (through the SDK, in a host array: ascending, each once) after each step.
    const std::tuple<std::function<void()>, std::string, std::vector<int>> steps[] = {
        {[&] { VtxGUIListSetSelectedItems(list, selection, 4); }, "|1|2|3|4|5", {2, 4, 5}},
        {[&] { VtxGUIListReplaceItem(list, "R", 4); }, "|1|2|3|R|5", {2, 4, 5}},
        {[&] { VtxGUIListDeleteItemAtPos(list, 3); }, "|1|2|R|5", {2, 3, 4}},
        {[&] { VtxGUIListDeleteItemAtPos(list, 4); }, "|1|2|R", {2, 3}},
        {[&] { VtxGUIListAppendItem(list, "6"), VtxGUIListSetSelectedItem(list, 2); }, "|1|2|R|6", {2}},
        {[&] { VtxGUIListDeselectAllItems(list); }, "|1|2|R|6", {}},
        {[&] { VtxGUIListSetSelectedItem(list, 1), VtxGUIListDeleteAllItems(list); }, "", {}},
    };
    for (const auto& [step, items, selected] : steps)
    {
        step();
        EXPECT_EQ(std::make_pair(items, selected), std::make_pair(Items(list), Selected(list)));
    }
    EXPECT_EQ(0, VtxGUIListGetItemCount(list));

    // Releasing no array is fine, as with free(NULL) (no protocol error: the fixture's check on the way out);
    // an array handed out is counted until released: the selection models' tests.
    void* none = nullptr;
    VtxUtilArrayDealloc(&none);
    VtxUtilArrayDealloc(nullptr);
}

TEST_F(GuiModelTest, FindingAControlByItsReadableLabelNeedsExactlyOneMatch)
{
    // A label reads as the user sees it, and a control is found by the label read so.
    const std::pair<std::string, std::string> cases[] = {
        {"&Append     ", "Append"},
        {"A&nimate\nAll", "Animate All"},
        {"  Animate \n&Selected", "Animate Selected"},
        {"Fish && Chips", "Fish & Chips"},
        {"&&&Both", "&Both"},
        {"", ""},
        {"   ", ""},
        {"Ends&", "Ends"},
    };
    for (const auto& [given, readable] : cases)
        EXPECT_EQ(readable, host::readableLabel(given)) << given;
    const int dialog = Dialog("Finder");
    const int append = VtxGUIButtonAdd(dialog, 10, 10, 100, 20, "&Append     ", NoAction);
    const int all = VtxGUIButtonAdd(dialog, 10, 40, 100, 40, "A&nimate\nAll", NoAction);
    VtxGUILabelAdd(dialog, 10, 90, "Twice");
    VtxGUILabelAdd(dialog, 10, 120, "Tw&ice");
    VtxGUIButtonAdd(Dialog("Other"), 10, 10, 100, 20, "Elsewhere", NoAction);

    EXPECT_EQ(std::make_pair(append, all), std::make_pair(host::findControl(dialog, "&Append     "),
                                                          host::findControl(dialog, "Animate All")));
    for (const char* label : {"Twice", "Elsewhere", "Missing"})
        EXPECT_THROW(host::findControl(dialog, label), std::invalid_argument) << label;
    EXPECT_THROW(host::findControl(append, "Append"), std::invalid_argument);
    EXPECT_THROW(host::findDialog("No Such Dialog"), std::invalid_argument);
    EXPECT_THROW(host::guiElement(GuiId_None), std::invalid_argument);
}

TEST_F(GuiModelTest, MisuseIsReportedAndChangesNothing)
{
    const int d = Dialog("Misused", 1000, 500);
    const int single = VtxGUIListAdd(d, 10, 10, 100, 100, FALSE, NoValue);
    VtxGUIListAppendItem(single, "one");
    VtxGUIListAppendItem(single, "two");
    VtxGUIListSetSelectedItem(single, 1);
    const int menu = VtxGUIOptionMenuAdd(d, 10, 200, 100, 20, "a\nb", NoValue);
    const int radio = VtxGUIRadioBoxAdd(d, 10, 250, 100, 50, "x", "y", nullptr, nullptr, nullptr, NoValue);
    const int b = VtxGUIButtonAdd(d, 10, 320, 100, 20, "Press", NoAction); // a button
    const int field = VtxGUITextFieldAdd(d, 10, 350, 100, 20, AcceptText);
    VtxGUITextFieldSetString(field, "kept");
    const int bar = VtxGUIMenuBarAdd(d);
    const int two[] = {1, 2};
    int outside = 0;
    void* mine = &outside;
    const char* const no = nullptr;
    const GuiActionCallback_pf f = NoAction, o = nullptr;
    const GuiValueCallback_pf v = NoValue;

    const std::pair<std::function<void()>, std::string> cases[] = {
        {[&] { VtxGUIListAppendItem(12345, "x"); }, "the identifier 12345, which the host never gave out"},
        {[&] { VtxGUISetSensitivity(GuiId_None, FALSE); }, "GuiId_None (-2), which stands for no element"},
        {[&] { VtxGUIToggleSet(b, TRUE); }, std::to_string(b) + ", which is a button, not a toggle"},
        {[&] { VtxGUITextFieldSetString(b, "x"); }, "which is a button, not a text field or a spin field"},
        {[&] { VtxGUIListSetSelectedItem(single, 0); }, "was given position 0 of a list of 2 entries"},
        {[&] { VtxGUIListDeleteItemAtPos(single, 3); }, "position 3 of a list of 2"},
        {[&] { VtxGUIListReplaceItem(single, "x", 3); }, "position 3 of a list of 2"},
        {[&] { VtxGUIListSetSelectedItems(single, two, 2); }, "2 entries to select in a single-selection"},
        {[&] { VtxGUIListSetSelectedItems(single, two, -1); }, "was given -1 positions"},
        {[&] { VtxGUIOptionMenuSet(menu, 3); }, "position 3 of an option menu of 2"},
        {[&] { VtxGUIRadioBoxSetToggle(radio, 3); }, "was given button 3 of a radio box of 2"},
        {[&] { VtxGUITextFieldSetString(field, nullptr); }, "was given no text (null)"},
        {[&] { VtxGUIListAppendItem(single, nullptr); }, "was given no text (null)"},
        {[&] { VtxGUIMenuBarAdd(d); }, "was asked for a second menu bar"},
        {[&] { VtxGUIMenuAdd(d, "&File"); }, "which is a dialog, not a menu bar or a menu"},
        {[&] { VtxGUIMenuAddItem(bar, "x", "", f); }, "which is a menu bar, not a menu"},
        {[&] { VtxGUIDialogCreateModeless(b, 100, 100, "C", o, o, o); }, "which is a button, not a dialog"},
        {[&] { VtxGUIDialogCreateModal(d, 0, 100, "F", o, f, o, f, o); }, "size 0 x 100 for dialog \"F\""},
        {[&] { VtxGUIButtonAdd(d, 10, 10, 0, 20, "Thin", f); }, "and size 0 x 20 for a button \"Thin\""},
        {[&] { VtxGUIButtonAdd(b, 10, 10, 10, 20, "In", f); }, "which is a button, not a dialog"},
        {[&] { VtxGUIRadioBoxAdd(d, 1, 1, 5, 5, "a", no, "c", no, no, v); }, "label after a missing one"},
        {[&] { VtxGUIRadioBoxAdd(d, 1, 1, 5, 5, no, no, no, no, no, v); }, "no radio button label"},
        {[&] { VtxGUIListGetSelectedItems(single, nullptr, &outside); }, "nowhere to put the selection"},
        {[&] { VtxGUISetToolTip(bar, "x"); }, "which is a menu bar, not a button"},
        // Questions answer nothing.
        {[&] { EXPECT_FALSE(VtxGUIDialogIsUp(777777)); }, "VtxGUIDialogIsUp was given the identifier 777777"},
        {[&] { EXPECT_EQ(0, VtxGUIListGetItemCount(b)); }, "which is a button, not a list"},
        {[&] { EXPECT_EQ(0, VtxGUIOptionMenuGet(d)); }, "which is a dialog, not an option menu"},
        {[&] { EXPECT_EQ(0, VtxGUIRadioBoxGetToggle(GuiId_None)); }, "GetToggle was given GuiId_None"},
        {[&] { EXPECT_FALSE(VtxGUIToggleGet(b)); }, "VtxGUIToggleGet was given"},
        {[&] { EXPECT_EQ(nullptr, VtxGUITextFieldGetString(b)); }, "VtxGUITextFieldGetString was given"},
        {[&] { EXPECT_EQ(GuiId_None, VtxGUIButtonAdd(777777, 1, 1, 1, 1, "x", o)); }, "777777"},
        {[&] { EXPECT_EQ(GuiId_None, VtxGUIMenuAddToggle(b, "x", no, f)); }, "which is a button, not a menu"},
        {[&] { VtxUtilArrayDealloc(&mine); },
         "VtxUtilArrayDealloc was given an array the host never gave out (or released already)"},
    };
    const auto countBefore = host::guiElement(d).children.size();
    for (const auto& [misuse, error] : cases)
    {
        misuse();
        EXPECT_THAT(host::hostErrors(), ElementsAre(HasSubstr(error)));
        host::clearHostErrors();
    }
    EXPECT_EQ(countBefore, host::guiElement(d).children.size()) << "nothing refused was made";
    EXPECT_EQ("|one|two", Items(single));
    EXPECT_THAT(Selected(single), ElementsAre(1));
    EXPECT_EQ(std::make_tuple(1, 1, std::string("kept"), 0L),
              std::make_tuple(VtxGUIOptionMenuGet(menu), VtxGUIRadioBoxGetToggle(radio),
                              host::guiElement(field).text, host::outstandingHostArrays()));
}

} // namespace
