// What the user does: every entry point changes what the control shows first and then calls the control's
// callback once, with the value a toolkit would pass; what the user could not do is refused; the options
// add-ons put into the host's menus.
#include "support/HostTest.h"

#include <VtxGUI.h>
#include <VtxUtil.h>
#include <vantix/host/Gui.h>
#include <vantix/host/Host.h>

#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using testsupport::HostTest;

// What the callbacks saw, each entry written while the callback ran.
std::vector<std::string> seen;
// The controls the callbacks look at.
int theDialog = GuiId_None, theField = GuiId_None, theList = GuiId_None, theMenu = GuiId_None,
    theRadio = GuiId_None, theToggle = GuiId_None, theMenuToggle = GuiId_None;

std::string Selection(int list)
{
    int* positions = nullptr;
    int count = 0;
    VtxGUIListGetSelectedItems(list, &positions, &count);
    std::string text;
    for (int i = 0; i < count; ++i)
        text += (i ? "," : "") + std::to_string(positions[i]);
    VtxUtilArrayDealloc(reinterpret_cast<void**>(&positions));
    return text;
}

std::string FieldText(int field)
{
    char* text = VtxGUITextFieldGetString(field);
    const std::string copy = text ? text : "(null)";
    VtxUtilStringDealloc(&text);
    return copy;
}

void Pressed()
{
    seen.push_back("pressed");
}
int Typed(const char* text)
{
    seen.push_back(std::string("typed '") + text + "', field shows '" + FieldText(theField) + "'");
    return std::string(text) != "refused";
}
// A validator's way: the field is set back to the value it accepts.
int Corrected(const char* text)
{
    seen.push_back(std::string("corrected '") + text + "'");
    VtxGUITextFieldSetString(theField, "30");
    return FALSE;
}
void SpunUp()
{
    seen.push_back("up");
}
void SpunDown()
{
    seen.push_back("down");
}
void ListClicked(const int* position)
{
    seen.push_back("list " + std::to_string(*position) + ", selected " + Selection(theList));
}
void OptionChosen(const int* position)
{
    seen.push_back("option " + std::to_string(*position) + ", shows " +
                   std::to_string(VtxGUIOptionMenuGet(theMenu)));
}
void RadioChosen(const int* position)
{
    seen.push_back("radio " + std::to_string(*position) + ", shows " +
                   std::to_string(VtxGUIRadioBoxGetToggle(theRadio)));
}
void ToggleClicked(const int* on)
{
    seen.push_back("toggle " + std::to_string(*on) + ", shows " +
                   std::to_string(int(VtxGUIToggleGet(theToggle))));
}
void MenuToggled()
{
    seen.push_back(std::string("menu toggle, shows ") +
                   (vantix::host::guiElement(theMenuToggle).on ? "on" : "off"));
}
void MenuChosen()
{
    seen.push_back("menu item");
}
void Ok()
{
    seen.push_back("ok");
    VtxGUIDialogDrop(theDialog);
}
void Apply()
{
    seen.push_back("apply");
}
void Cancel()
{
    seen.push_back("cancel");
    VtxGUIDialogDrop(theDialog);
}
void Close()
{
    seen.push_back("close");
    VtxGUIDialogDrop(theDialog);
}
void Help()
{
    seen.push_back("help");
}
void Throws()
{
    throw std::runtime_error("out of the callback");
}
void HostOption()
{
    seen.push_back("host option");
}
void OtherHostOption()
{
    seen.push_back("other host option");
}

class GuiUserActionsTest : public HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        seen.clear();
        theDialog = VtxGUIDialogCreateModeless(GuiId_MainWindow, 5000, 3000, "Actions", nullptr, Close, Help);
        theField = VtxGUITextFieldAdd(theDialog, 10, 10, 500, 100, Typed);
        m_spin = VtxGUISpinTextFieldAdd(theDialog, 10, 200, 500, 100, Typed, SpunUp, SpunDown);
        theList = VtxGUIListAdd(theDialog, 10, 400, 500, 1000, TRUE, ListClicked);
        for (const char* item : {"View 1", "View 2", "View 3", "View 4"})
            VtxGUIListAppendItem(theList, item);
        m_single = VtxGUIListAdd(theDialog, 600, 400, 500, 1000, FALSE, ListClicked);
        VtxGUIListAppendItem(m_single, "only");
        theMenu = VtxGUIOptionMenuAdd(theDialog, 10, 1500, 500, 100, "On Screen\nTo File", OptionChosen);
        theRadio = VtxGUIRadioBoxAdd(theDialog, 10, 1700, 500, 300, "&Forward", "&Loop", "&Bounce", nullptr,
                                     nullptr, RadioChosen);
        theToggle = VtxGUIToggleAdd(theDialog, 10, 2100, 500, 100, "&Antialiasing", ToggleClicked);
        m_button = VtxGUIButtonAdd(theDialog, 10, 2300, 500, 100, "&Append     ", Pressed);
        const int bar = VtxGUIMenuBarAdd(theDialog);
        m_options = VtxGUIMenuAdd(bar, "&Options");
        theMenuToggle = VtxGUIMenuAddToggle(m_options, "Fade &In", nullptr, MenuToggled);
        m_menuItem = VtxGUIMenuAddItem(m_options, "Time &Animation Options...", nullptr, MenuChosen);
        VtxGUIDialogLaunch(theDialog);
    }

    void TearDown() override
    {
        VtxGUIDialogDrop(theDialog);
        HostTest::TearDown();
    }

    int m_spin = GuiId_None, m_single = GuiId_None, m_button = GuiId_None, m_options = GuiId_None,
        m_menuItem = GuiId_None;
};

TEST_F(GuiUserActionsTest, EachActionUpdatesTheControlThenCallsItsCallbackOnce)
{
    const struct
    {
        const char* what;
        std::function<void()> act;
        std::vector<std::string> seen;
    } cases[] = {
        {"press", [&] { vantix::host::pressButton(m_button); }, {"pressed"}},
        {"type",
         [&] { EXPECT_TRUE(vantix::host::enterText(theField, "View 9")); },
         {"typed 'View 9', field shows 'View 9'"}},
        {"spin up", [&] { vantix::host::spinUp(m_spin); }, {"up"}},
        {"spin down", [&] { vantix::host::spinDown(m_spin); }, {"down"}},
        {"click an entry", [&] { vantix::host::selectListItem(theList, 3); }, {"list 3, selected 3"}},
        {"click another", [&] { vantix::host::selectListItem(theList, 1); }, {"list 1, selected 1"}},
        {"select several",
         [&] {
             vantix::host::selectListItems(theList, {4, 2});
         },
         {"list 2, selected 2,4"}},
        {"select none", [&] { vantix::host::selectListItems(theList, {}); }, {"list 0, selected "}},
        {"choose an option", [&] { vantix::host::chooseOption(theMenu, 2); }, {"option 2, shows 2"}},
        {"choose it again", [&] { vantix::host::chooseOption(theMenu, 2); }, {"option 2, shows 2"}},
        {"choose a radio button",
         [&] { vantix::host::chooseRadioButton(theRadio, 3); },
         {"radio 3, shows 3"}},
        {"click a toggle", [&] { vantix::host::clickToggle(theToggle); }, {"toggle 1, shows 1"}},
        {"click it again", [&] { vantix::host::clickToggle(theToggle); }, {"toggle 0, shows 0"}},
        {"choose a menu toggle",
         [&] { vantix::host::chooseMenuItem(theMenuToggle); },
         {"menu toggle, shows on"}},
        {"and again", [&] { vantix::host::chooseMenuItem(theMenuToggle); }, {"menu toggle, shows off"}},
        {"choose a menu item", [&] { vantix::host::chooseMenuItem(m_menuItem); }, {"menu item"}},
        {"help", [&] { vantix::host::pressHelp(theDialog); }, {"help"}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        seen.clear();
        c.act();
        EXPECT_EQ(c.seen, seen);
    }
    EXPECT_EQ("View 9", vantix::host::guiElement(theField).text);
    EXPECT_EQ(2, VtxGUIOptionMenuGet(theMenu));
    EXPECT_EQ(3, VtxGUIRadioBoxGetToggle(theRadio));
    EXPECT_FALSE(VtxGUIToggleGet(theToggle));
}

TEST_F(GuiUserActionsTest, ATextFieldAnswersWhatItsCallbackAnswersAndShowsWhatTheCallbackLeft)
{
    EXPECT_FALSE(vantix::host::enterText(m_spin, "refused"));
    EXPECT_TRUE(vantix::host::enterText(m_spin, "12"));
    EXPECT_THAT(seen, SizeIs(2));
    EXPECT_EQ("12", vantix::host::guiElement(m_spin).text);

    const int plain = VtxGUITextFieldAdd(theDialog, 2000, 200, 500, 100, nullptr);
    EXPECT_TRUE(vantix::host::enterText(plain, "anything")) << "a field without a callback takes any text";
    EXPECT_EQ("anything", vantix::host::guiElement(plain).text);

    const int field = theField;
    theField = VtxGUITextFieldAdd(theDialog, 2000, 10, 500, 100, Corrected);
    EXPECT_FALSE(vantix::host::enterText(theField, "0"));
    EXPECT_EQ("30", vantix::host::guiElement(theField).text) << "the callback set the text back";
    EXPECT_THAT(seen, ElementsAre(testing::_, testing::_, "corrected '0'"));
    theField = field;
}

TEST_F(GuiUserActionsTest, TheDialogsOwnButtonsCallTheirCallbacksWhichDecideWhetherItGoesDown)
{
    vantix::host::pressClose(theDialog);
    EXPECT_THAT(seen, ElementsAre("close"));
    EXPECT_FALSE(VtxGUIDialogIsUp(theDialog));
    EXPECT_THROW(vantix::host::pressOk(theDialog), std::logic_error);

    VtxGUIDialogLaunch(theDialog);
    vantix::host::closeDialog(theDialog);
    EXPECT_THAT(seen, ElementsAre("close", "close")) << "the close box calls the close callback";

    const int modeless = theDialog;
    theDialog = VtxGUIDialogCreateModal(GuiId_MainWindow, 100, 100, "Modal Actions", nullptr, Ok, Apply,
                                        Cancel, Help);
    const struct
    {
        const char* what;
        std::function<void(int)> press;
        const char* seen;
        bool staysUp;
    } cases[] = {
        {"OK", vantix::host::pressOk, "ok", false},
        {"Apply", vantix::host::pressApply, "apply", true},
        {"Cancel", vantix::host::pressCancel, "cancel", false},
        {"Help", vantix::host::pressHelp, "help", true},
        {"close box", vantix::host::closeDialog, "cancel", false},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        seen.clear();
        VtxGUIDialogLaunch(theDialog);
        c.press(theDialog);
        EXPECT_THAT(seen, ElementsAre(c.seen));
        EXPECT_EQ(c.staysUp, bool(VtxGUIDialogIsUp(theDialog)));
        VtxGUIDialogDrop(theDialog);
    }
    EXPECT_THROW(vantix::host::pressClose(theDialog), std::logic_error)
        << "a modal dialog has no Close button";

    const int bare =
        VtxGUIDialogCreateModeless(GuiId_MainWindow, 100, 100, "Bare Actions", nullptr, nullptr, nullptr);
    VtxGUIDialogLaunch(bare);
    EXPECT_THROW(vantix::host::pressHelp(bare), std::logic_error);
    vantix::host::closeDialog(bare);
    EXPECT_FALSE(VtxGUIDialogIsUp(bare)) << "without a close callback the close box takes the dialog down";
    theDialog = modeless;
}

TEST_F(GuiUserActionsTest, WhatTheUserCannotReachIsRefusedAndCallsNothing)
{
    const auto refused = [&](const std::function<void()>& act, const char* why)
    {
        seen.clear();
        try
        {
            act();
            ADD_FAILURE() << "not refused";
        }
        catch (const std::logic_error& error)
        {
            EXPECT_THAT(error.what(), HasSubstr(why));
        }
        EXPECT_THAT(seen, IsEmpty());
    };

    VtxGUISetSensitivity(m_button, FALSE);
    refused([&] { vantix::host::pressButton(m_button); }, "it is greyed out");
    VtxGUISetSensitivity(m_button, TRUE);
    VtxGUISetSensitivity(m_options, FALSE);
    refused([&] { vantix::host::chooseMenuItem(m_menuItem); }, "it is greyed out");
    EXPECT_FALSE(vantix::host::guiElement(theMenuToggle).on);
    refused([&] { vantix::host::chooseMenuItem(theMenuToggle); }, "it is greyed out");
    EXPECT_FALSE(vantix::host::guiElement(theMenuToggle).on) << "a refused toggle does not turn over";
    VtxGUISetSensitivity(m_options, TRUE);
    refused([&] { vantix::host::selectListItems(m_single, {1, 1, 1}); }, "single-selection list");
    VtxGUISetSensitivity(theToggle, FALSE);
    refused([&] { vantix::host::clickToggle(theToggle); }, "greyed out");
    EXPECT_FALSE(VtxGUIToggleGet(theToggle));
    VtxGUISetSensitivity(theToggle, TRUE);

    // A modal dialog takes the input from every dialog that came up before it.
    const int modal =
        VtxGUIDialogCreateModal(theDialog, 100, 100, "Blocking", nullptr, Pressed, nullptr, nullptr, nullptr);
    VtxGUIDialogLaunch(modal);
    refused([&] { vantix::host::pressButton(m_button); }, "a modal dialog holds the input");
    refused([&] { vantix::host::enterText(theField, "x"); }, "a modal dialog holds the input");
    EXPECT_EQ("", vantix::host::guiElement(theField).text);
    const int later = VtxGUIDialogCreateModeless(modal, 100, 100, "Later", nullptr, Pressed, nullptr);
    VtxGUIDialogLaunch(later);
    vantix::host::pressClose(later);
    vantix::host::pressOk(modal);
    EXPECT_THAT(seen, ElementsAre("pressed", "pressed")) << "the modal dialog and what came up after it work";
    VtxGUIDialogDrop(modal);
    VtxGUIDialogDrop(later);
    vantix::host::pressButton(m_button);

    VtxGUIDialogDrop(theDialog);
    refused([&] { vantix::host::pressButton(m_button); }, "its dialog is not up");
    refused([&] { vantix::host::closeDialog(theDialog); }, "its dialog is not up");
}

TEST_F(GuiUserActionsTest, UnknownElementsAndPositionsAreInvalidArguments)
{
    const struct
    {
        const char* what;
        std::function<void()> act;
    } cases[] = {
        {"unknown", [] { vantix::host::pressButton(987654); }},
        {"not built", [] { vantix::host::clickToggle(GuiId_None); }},
        {"a list pressed", [] { vantix::host::pressButton(theList); }},
        {"a button typed into", [&] { vantix::host::enterText(m_button, "x"); }},
        {"a text field spun", [] { vantix::host::spinUp(theField); }},
        {"entry 0", [] { vantix::host::selectListItem(theList, 0); }},
        {"entry 5 of 4",
         [] {
             vantix::host::selectListItems(theList, {1, 5});
         }},
        {"option 3 of 2", [] { vantix::host::chooseOption(theMenu, 3); }},
        {"radio button 4 of 3", [] { vantix::host::chooseRadioButton(theRadio, 4); }},
        {"a menu chosen", [&] { vantix::host::chooseMenuItem(m_options); }},
        {"a button as a dialog", [&] { vantix::host::pressOk(m_button); }},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        EXPECT_THROW(c.act(), std::invalid_argument);
    }
    EXPECT_THAT(seen, IsEmpty());
    EXPECT_EQ("", Selection(theList));
}

TEST_F(GuiUserActionsTest, AnExceptionOutOfACallbackIsReportedNotPassedOn)
{
    const int throwing = VtxGUIButtonAdd(theDialog, 2000, 10, 500, 100, "Throw", Throws);
    EXPECT_NO_THROW(vantix::host::pressButton(throwing));
    EXPECT_THAT(vantix::host::hostErrors(),
                ElementsAre("the callback of a button \"Throw\" let an exception out: out of the callback"));
    vantix::host::clearHostErrors();
}

TEST_F(GuiUserActionsTest, HostMenuOptionsAreChosenByTheirReadableLabelWhileSensitive)
{
    // Host menu options last for the whole process, so this test's labels are its own.
    EXPECT_TRUE(VtxUtilMenuAddOption("Animate", "&User Actions Option...", TRUE, HostOption));
    EXPECT_TRUE(VtxUtilMenuAddOption("Tools", "User Actions &Other", FALSE, OtherHostOption));
    const auto options = vantix::host::hostMenuOptions();
    ASSERT_THAT(options, testing::Contains(testing::Field(&vantix::host::HostMenuOption::label,
                                                          "&User Actions Option...")));
    vantix::host::chooseHostMenuOption("Animate", "User Actions Option...");
    vantix::host::chooseHostMenuOption("Animate", "&User Actions Option...");
    EXPECT_THAT(seen, ElementsAre("host option", "host option"));

    EXPECT_THROW(vantix::host::chooseHostMenuOption("Tools", "User Actions Other"), std::logic_error);
    EXPECT_TRUE(VtxUtilMenuSetSensitivity("Tools", "User Actions &Other", TRUE));
    vantix::host::chooseHostMenuOption("Tools", "User Actions Other");
    EXPECT_THAT(seen, ElementsAre("host option", "host option", "other host option"));
    EXPECT_THROW(vantix::host::chooseHostMenuOption("Animate", "User Actions Other"), std::invalid_argument);

    const int modal = VtxGUIDialogCreateModal(GuiId_MainWindow, 100, 100, "Host Menu Blocker", nullptr, Ok,
                                              nullptr, nullptr, nullptr);
    VtxGUIDialogLaunch(modal);
    EXPECT_THROW(vantix::host::chooseHostMenuOption("Animate", "User Actions Option..."), std::logic_error);
    VtxGUIDialogDrop(modal);
    EXPECT_EQ(3u, seen.size());

    const struct
    {
        const char* what;
        std::function<Boolean()> misuse;
        std::string error;
    } cases[] = {
        {"unknown menu", [] { return VtxUtilMenuAddOption("Animation", "x", TRUE, HostOption); },
         "VtxUtilMenuAddOption was given the menu \"Animation\", which the host does not have"},
        {"twice", [] { return VtxUtilMenuAddOption("Animate", "&User Actions Option...", TRUE, HostOption); },
         "was given the option \"&User Actions Option...\", which menu \"Animate\" has already"},
        {"no callback", [] { return VtxUtilMenuAddOption("Animate", "Nothing", TRUE, nullptr); },
         "was given no callback for an option of menu \"Animate\""},
        {"unknown option",
         [] { return VtxUtilMenuSetSensitivity("Animate", "User Actions Option...", FALSE); },
         "was given the option \"User Actions Option...\" of menu \"Animate\", which no add-on added"},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        EXPECT_FALSE(c.misuse());
        EXPECT_THAT(vantix::host::hostErrors(), ElementsAre(HasSubstr(c.error)));
        vantix::host::clearHostErrors();
    }
}

} // namespace
