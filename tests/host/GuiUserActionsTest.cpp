// What the user does, where the add-on's dialog tests do not reach: a dialog's own buttons, a field without
// a callback, a callback's exception, what the user could not do refused, and the options add-ons put into
// the host's menus.
#include "support/HostTest.h"
#include "support/ThrownMessage.h"

#include <functional>
#include <stdexcept>

namespace
{

namespace host = vantix::host;
using namespace ::testing;
using testsupport::ThrownMessage;

// What the callbacks saw, each entry written while the callback ran.
std::vector<std::string> seen;
// The controls the callbacks and the tests look at.
int theDialog = GuiId_None, theField = GuiId_None, theList = GuiId_None, theMenu = GuiId_None,
    theRadio = GuiId_None, theToggle = GuiId_None;

// What OK, Cancel and Close do: they take the dialog down.
void Dropped(const char* what)
{
    seen.push_back(what);
    VtxGUIDialogDrop(theDialog);
}
const auto Pressed = [] { seen.push_back("pressed"); };
const auto Chosen = [](const int*) { seen.push_back("chosen"); };
const auto Ok = [] { Dropped("ok"); };
const auto Apply = [] { seen.push_back("apply"); };
const auto Cancel = [] { Dropped("cancel"); };
const auto Close = [] { Dropped("close"); };
const auto Help = [] { seen.push_back("help"); };
const auto Throws = [] { throw std::runtime_error("out of the callback"); };
const auto HostOption = [] { seen.push_back("host option"); };

class GuiUserActionsTest : public testsupport::HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        seen.clear();
        theDialog = VtxGUIDialogCreateModeless(GuiId_MainWindow, 5000, 3000, "Actions", nullptr, Close, Help);
        theField = VtxGUITextFieldAdd(theDialog, 10, 10, 500, 100, nullptr);
        theList = VtxGUIListAdd(theDialog, 10, 400, 500, 1000, TRUE, Chosen);
        for (const char* item : {"View 1", "View 2", "View 3", "View 4"})
            VtxGUIListAppendItem(theList, item);
        m_single = VtxGUIListAdd(theDialog, 600, 400, 500, 1000, FALSE, Chosen);
        VtxGUIListAppendItem(m_single, "only");
        theMenu = VtxGUIOptionMenuAdd(theDialog, 10, 1500, 500, 100, "On Screen\nTo File", Chosen);
        theRadio = VtxGUIRadioBoxAdd(theDialog, 10, 1700, 500, 300, "&Forward", "&Loop", "&Bounce", nullptr,
                                     nullptr, Chosen);
        theToggle = VtxGUIToggleAdd(theDialog, 10, 2100, 500, 100, "&Antialiasing", Chosen);
        m_button = VtxGUIButtonAdd(theDialog, 10, 2300, 500, 100, "&Append     ", Pressed);
        m_options = VtxGUIMenuAdd(VtxGUIMenuBarAdd(theDialog), "&Options");
        m_menuItem = VtxGUIMenuAddItem(m_options, "Time &Animation Options...", nullptr, Pressed);
        VtxGUIDialogLaunch(theDialog);
    }

    int m_single = GuiId_None, m_button = GuiId_None, m_options = GuiId_None, m_menuItem = GuiId_None;
};

// What a field's callback answers, and the text it leaves there: the validator tests.
TEST_F(GuiUserActionsTest, AFieldWithoutACallbackTakesAnyTextAndAnExceptionOutOfACallbackIsReported)
{
    EXPECT_TRUE(host::enterText(theField, "anything"));
    EXPECT_EQ("anything", host::guiElement(theField).text);
    EXPECT_NO_THROW(host::pressButton(VtxGUIButtonAdd(theDialog, 2000, 400, 500, 100, "Throw", Throws)));
    EXPECT_THAT(host::hostErrors(),
                ElementsAre("the callback of a button \"Throw\" let an exception out: out of the callback"));
    host::clearHostErrors();
}

TEST_F(GuiUserActionsTest, TheDialogsOwnButtonsCallTheirCallbacksWhichDecideWhetherItGoesDown)
{
    host::pressClose(theDialog);
    EXPECT_FALSE(VtxGUIDialogIsUp(theDialog));
    EXPECT_THROW(host::pressOk(theDialog), std::logic_error);
    VtxGUIDialogLaunch(theDialog);
    host::closeDialog(theDialog);
    EXPECT_THAT(seen, ElementsAre("close", "close")) << "the close box calls the close callback";

    theDialog = VtxGUIDialogCreateModal(GuiId_MainWindow, 100, 100, "Modal Actions", nullptr, Ok, Apply,
                                        Cancel, Help);
    const std::tuple<void (*)(int), const char*, bool> cases[] = {
        {host::pressOk, "ok", false},         {host::pressApply, "apply", true},
        {host::pressCancel, "cancel", false}, {host::pressHelp, "help", true},
        {host::closeDialog, "cancel", false}, // the close box of a modal dialog cancels it
    };
    for (const auto& [press, callback, staysUp] : cases)
    {
        seen.clear();
        VtxGUIDialogLaunch(theDialog);
        press(theDialog);
        EXPECT_EQ(std::make_pair(std::vector<std::string>{callback}, staysUp),
                  std::make_pair(seen, bool(VtxGUIDialogIsUp(theDialog))));
        VtxGUIDialogDrop(theDialog);
    }
    EXPECT_THROW(host::pressClose(theDialog), std::logic_error) << "a modal dialog has no Close button";

    const int bare =
        VtxGUIDialogCreateModeless(GuiId_MainWindow, 100, 100, "Bare Actions", nullptr, nullptr, nullptr);
    VtxGUIDialogLaunch(bare);
    EXPECT_THROW(host::pressHelp(bare), std::logic_error);
    host::closeDialog(bare);
    EXPECT_FALSE(VtxGUIDialogIsUp(bare)) << "without a close callback the close box takes the dialog down";
}

// Unknown elements and positions are invalid arguments; what the user cannot reach is refused.
TEST_F(GuiUserActionsTest, WhatTheUserCannotReachIsRefusedAndCallsNothing)
{
    // clang-format off
    const std::pair<const char*, std::function<void()>> invalid[] = {
        {"unknown", [] { host::pressButton(987654); }},
        {"not built", [] { host::clickToggle(GuiId_None); }},
        {"a list pressed", [] { host::pressButton(theList); }},
        {"a button typed into", [&] { host::enterText(m_button, "x"); }},
        {"a text field spun", [] { host::spinUp(theField); }},
        {"entry 0", [] { host::selectListItem(theList, 0); }},
        {"entry 5 of 4", [] { host::selectListItems(theList, {1, 5}); }},
        {"option 3 of 2", [] { host::chooseOption(theMenu, 3); }},
        {"radio button 4 of 3", [] { host::chooseRadioButton(theRadio, 4); }},
        {"a menu chosen", [&] { host::chooseMenuItem(m_options); }},
        {"a button as a dialog", [&] { host::pressOk(m_button); }},
    };
    // clang-format on
    for (const auto& [what, act] : invalid)
        EXPECT_THROW(act(), std::invalid_argument) << what;
    EXPECT_THAT(host::guiElement(theList).selected, IsEmpty());
    const auto refused = [&](const std::function<void()>& act, const char* why)
    {
        EXPECT_THAT(ThrownMessage<std::logic_error>(act), HasSubstr(why));
        EXPECT_THAT(seen, IsEmpty());
    };
    VtxGUISetSensitivity(m_button, FALSE);
    refused([&] { host::pressButton(m_button); }, "it is greyed out");
    VtxGUISetSensitivity(m_button, TRUE);
    VtxGUISetSensitivity(m_options, FALSE);
    refused([&] { host::chooseMenuItem(m_menuItem); }, "it is greyed out");
    VtxGUISetSensitivity(m_options, TRUE);
    refused([&] { host::selectListItems(m_single, {1, 1, 1}); }, "single-selection list");
    VtxGUISetSensitivity(theToggle, FALSE);
    refused([&] { host::clickToggle(theToggle); }, "greyed out");
    EXPECT_FALSE(VtxGUIToggleGet(theToggle));
    VtxGUISetSensitivity(theToggle, TRUE);

    // A modal dialog takes the input from every dialog that came up before it.
    const int modal =
        VtxGUIDialogCreateModal(theDialog, 100, 100, "Blocking", nullptr, Pressed, nullptr, nullptr, nullptr);
    VtxGUIDialogLaunch(modal);
    refused([&] { host::pressButton(m_button); }, "a modal dialog holds the input");
    refused([&] { host::enterText(theField, "x"); }, "a modal dialog holds the input");
    EXPECT_EQ("", host::guiElement(theField).text);
    const int later = VtxGUIDialogCreateModeless(modal, 100, 100, "Later", nullptr, Pressed, nullptr);
    VtxGUIDialogLaunch(later);
    host::pressClose(later);
    host::pressOk(modal);
    EXPECT_THAT(seen, ElementsAre("pressed", "pressed")) << "the modal dialog and what came up after it work";
    VtxGUIDialogDrop(modal);
    VtxGUIDialogDrop(later);
    host::pressButton(m_button);
    seen.clear();

    VtxGUIDialogDrop(theDialog);
    refused([&] { host::pressButton(m_button); }, "its dialog is not up");
    refused([&] { host::closeDialog(theDialog); }, "its dialog is not up");
}

TEST_F(GuiUserActionsTest, HostMenuOptionsAreChosenByTheirReadableLabelWhileSensitive)
{
    // Host menu options last for the whole process, so this test's labels are its own.
    EXPECT_TRUE(VtxUtilMenuAddOption("Animate", "&User Actions Option...", TRUE, HostOption));
    EXPECT_TRUE(VtxUtilMenuAddOption("Tools", "User Actions &Other", FALSE, Pressed));
    host::chooseHostMenuOption("Animate", "User Actions Option...");
    EXPECT_THROW(host::chooseHostMenuOption("Tools", "User Actions Other"), std::logic_error);
    EXPECT_TRUE(VtxUtilMenuSetSensitivity("Tools", "User Actions &Other", TRUE));
    host::chooseHostMenuOption("Tools", "User Actions Other");
    EXPECT_THROW(host::chooseHostMenuOption("Animate", "User Actions Other"), std::invalid_argument);
    const int modal = VtxGUIDialogCreateModal(GuiId_MainWindow, 100, 100, "Host Menu Blocker", nullptr, Ok,
                                              nullptr, nullptr, nullptr);
    VtxGUIDialogLaunch(modal);
    EXPECT_THROW(host::chooseHostMenuOption("Animate", "User Actions Option..."), std::logic_error);
    EXPECT_THAT(seen, ElementsAre("host option", "pressed"));

    const std::pair<std::function<Boolean()>, std::string> cases[] = {
        {[] { return VtxUtilMenuAddOption("Animation", "x", TRUE, HostOption); },
         "VtxUtilMenuAddOption was given the menu \"Animation\", which the host does not have"},
        {[] { return VtxUtilMenuAddOption("Animate", "&User Actions Option...", TRUE, HostOption); },
         "was given the option \"&User Actions Option...\", which menu \"Animate\" has already"},
        {[] { return VtxUtilMenuAddOption("Animate", "Nothing", TRUE, nullptr); },
         "was given no callback for an option of menu \"Animate\""},
        {[] { return VtxUtilMenuSetSensitivity("Animate", "User Actions Option...", FALSE); },
         "was given the option \"User Actions Option...\" of menu \"Animate\", which no add-on added"},
    };
    for (const auto& [misuse, error] : cases)
    {
        EXPECT_FALSE(misuse());
        EXPECT_THAT(host::hostErrors(), ElementsAre(HasSubstr(error)));
        host::clearHostErrors();
    }
}

} // namespace
