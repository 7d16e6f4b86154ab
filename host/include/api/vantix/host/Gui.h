// The host's own API over its user interface: the dialogs, controls and menus the add-ons built (VtxGUI.h)
// and the options they added to the host's menus, the user's actions on them, the messages, questions and
// file dialogs the host showed with their scripted answers, the help pages asked for, and host arrays.
//
// A user action works as the toolkit would: it changes what the control shows first, then calls the
// control's callback, on this thread. What the user could not do throws and changes nothing:
// std::invalid_argument for an identifier the host never gave out or one of the wrong kind,
// std::logic_error for a control of a dialog that is not up, one that is greyed out, one behind a modal
// dialog, or a dialog button the dialog does not have. An exception an add-on's callback lets out is
// reported as a protocol error (hostErrors()), not passed on.
#pragma once

#include <VtxGUI.h>
#include <VtxUtil.h>

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace vantix::host
{

// ---- The model -----------------------------------------------------------------------------------------
enum class GuiKind
{
    Dialog,
    Button,
    TextField,
    SpinTextField,
    List,
    OptionMenu,
    Toggle,
    RadioBox,
    Frame,
    Label,
    MenuBar,
    Menu,
    MenuItem,
    MenuToggle,
    MenuSeparator
};

// One dialog, control or menu element as it stands. Fields that do not apply to a kind keep their defaults.
struct GuiElement
{
    int id = GuiId_None;
    GuiKind kind = GuiKind::Dialog;
    // Dialogs: the parent dialog, or GuiId_MainWindow. Controls and menu bars: their dialog. Menus: the menu
    // bar or menu they hang from. Menu entries: their menu.
    int parent = GuiId_MainWindow;
    // The dialog the element belongs to; a dialog's is its own identifier.
    int dialog = GuiId_None;
    // Controls of a dialog, menus and entries of a menu bar or menu, in the order they were added.
    std::vector<int> children;
    // Dialog units: a control's top left corner and size (a label has a position only); a dialog's size.
    int x = 0, y = 0, width = 0, height = 0;
    // A dialog's title; the text of a button, toggle, frame, label, menu or menu entry, as given.
    std::string label;
    std::string helpText; // menu items and menu toggles
    std::string toolTip;
    bool sensitive = true;
    bool hasCallback = false; // controls and menu entries
    std::string text;         // text fields and spin fields
    // A list's or option menu's entries; a radio box's button labels.
    std::vector<std::string> items;
    std::vector<int> selected; // a list's selected positions, ascending
    bool multiSelection = false;
    int choice = 0;  // an option menu's shown entry, a radio box's chosen button; 0 for none
    bool on = false; // toggles and menu toggles

    // Dialogs
    bool modal = false;
    bool up = false;
    int launchCount = 0; // how often it came up
    // Its own buttons, in this order, those it has callbacks for: "OK", "Apply", "Cancel", "Close", "Help".
    std::vector<std::string> buttons;
    int menuBar = GuiId_None;
};

// Every dialog, in the order made. Dialogs, controls and menus last for the whole process: add-ons keep
// their identifiers. A reset takes every dialog down, without calling any callback, and keeps the rest.
std::vector<int> dialogs();
// Throws std::invalid_argument for an identifier the host never gave out.
GuiElement guiElement(int id);
// A label as the user reads it: mnemonic marks ('&') gone ("&&" is a plain '&'), blanks and line breaks
// between words as one blank, none at the ends. "  Animate \n&Selected" reads "Animate Selected".
std::string readableLabel(const std::string& label);
// The dialog with that title (as given, or as readableLabel reads it).
int findDialog(const std::string& title);
// The control, menu or menu entry of a dialog with that label (as given, or as readableLabel reads it).
// Both throw std::invalid_argument when there is none or more than one.
int findControl(int dialog, const std::string& label);

// ---- What the user does --------------------------------------------------------------------------------
void pressButton(int button);
// Types text into a text field or spin field and confirms it: the field shows the text, then its callback
// is called with it. Answers what the callback answered (true without a callback).
bool enterText(int field, const std::string& text);
void spinUp(int spinField);
void spinDown(int spinField);
// A click on an entry: it alone is selected, and the callback gets its position.
void selectListItem(int list, int position);
// The selection of a multi-selection list becomes exactly these entries, as after clicks with Ctrl and
// Shift; the callback is called once, with the last position given (0 when none is).
void selectListItems(int list, const std::vector<int>& positions);
// The callback is called also when the entry or button chosen is the one shown already.
void chooseOption(int optionMenu, int position);
void chooseRadioButton(int radioBox, int position);
// Turns the toggle over; the callback gets the new state.
void clickToggle(int toggle);
// A menu item, or a menu toggle, which turns over first. The menus above it must be usable too.
void chooseMenuItem(int entry);
// A dialog's own buttons.
void pressOk(int dialog);
void pressApply(int dialog);
void pressCancel(int dialog);
void pressClose(int dialog);
void pressHelp(int dialog);
// The window's close box: the close callback of a modeless dialog, the cancel callback of a modal one, or
// without that callback the host takes the dialog down.
void closeDialog(int dialog);

// ---- Options added to the host's menus (VtxUtilMenuAddOption) ------------------------------------------
struct HostMenuOption
{
    std::string menu;
    std::string label; // as given
    bool sensitive = true;
};
// In the order added; they last for the whole process.
std::vector<HostMenuOption> hostMenuOptions();
// The label as given or as readableLabel reads it. Throws std::invalid_argument for an option that does not
// exist and std::logic_error for one that is greyed out or while a modal dialog is up.
void chooseHostMenuOption(const std::string& menu, const std::string& label);

// ---- Messages, questions and file dialogs --------------------------------------------------------------
// Every message and question is logged and written to standard error. Questions and file dialogs take
// their answers from the script, in order; with nothing scripted the host answers for the absent user:
// No (or Cancel) to a question, and a cancel to a file dialog.
struct UserMessage
{
    enum class Kind
    {
        ErrorMessage, // VtxUtilDialogErrMsg
        MessageBox,   // VtxUtilDialogMessageBox
        FileDialog    // VtxUtilDialogGetFileName
    };
    Kind kind = Kind::ErrorMessage;
    std::string text;                                // messages and questions
    MessageBoxType_e boxType = MessageBoxType_Error; // message boxes
    bool answer = true;                              // Yes or OK; for a file dialog, a name was chosen
    bool scripted = false;                           // the answer came from the script
    SelectFileOption_e fileOption = SelectFileOption_ReadSingleFile; // file dialogs
    std::string fileTypeName, defaultFileName, filter;
    std::string fileName; // the name chosen; empty after a cancel
};
std::vector<UserMessage> userMessages();
// The texts of the error messages (VtxUtilDialogErrMsg) alone, in order.
std::vector<std::string> errorMessages();
void clearUserMessages();
// The user's answer to the next question: true for Yes or OK, false for No or Cancel.
void scriptAnswer(bool yes);
// The user's next file dialog: the name typed or picked, as given (a write dialog's own overwrite
// confirmation is taken as given), or a cancel.
void scriptFileName(const std::string& name);
void scriptFileCancel();
// Scripted answers and file dialogs not used yet. A reset forgets them.
std::size_t pendingScriptedAnswers();

// The person at the desktop: shown every message and asked every question and file dialog that the script
// does not answer. Without one (batch, tests) the host answers for the absent user as above.
class UserPrompter
{
public:
    virtual ~UserPrompter() = default;
    // Error messages come as MessageBoxType_Error.
    virtual void showMessage(const std::string& text, MessageBoxType_e type) = 0;
    virtual bool askQuestion(const std::string& text, MessageBoxType_e type) = 0;
    // The name chosen; nothing after a cancel.
    virtual std::optional<std::string> askFileName(SelectFileOption_e option, const std::string& fileTypeName,
                                                   const std::string& defaultFileName,
                                                   const std::string& filter) = 0;
};
// Null for none. The prompter is the program's, so a reset keeps it.
void setUserPrompter(UserPrompter* prompter);

// ---- Help pages (VtxUtilHelp) --------------------------------------------------------------------------
struct HelpRequest
{
    std::string page;     // as asked for
    bool isURL = false;   // a web address rather than a page of the help folder
    std::string location; // the page's file, or the address
    bool found = false;   // the help folder has the page (always true for an address)
    bool opened = false;  // a browser was started on it
};
std::vector<HelpRequest> helpRequests();
// The folder of the help pages: docs/help of the source tree, until set. A reset sets it back.
void setHelpFolder(const std::string& folder);
std::string helpFolder();
// Whether help may start a browser: the program $BROWSER names, or xdg-open when there is a display
// ($DISPLAY or $WAYLAND_DISPLAY); otherwise standard error tells where the page is. Allowed in a fresh
// process; a reset forbids it, so that tests never start one.
void setHelpBrowserAllowed(bool allowed);
// The desktop's own help window: shown every page found and every address, in place of a browser. Answers
// whether it showed it. Null for none; a reset keeps it.
using HelpViewer = std::function<bool(const HelpRequest& request)>;
void setHelpViewer(HelpViewer viewer);

// ---- Host arrays ---------------------------------------------------------------------------------------
// Arrays handed to add-ons (VtxGUIListGetSelectedItems) not yet released with VtxUtilArrayDealloc. After
// a reset the count starts again; arrays handed out before stay valid and can still be released.
long outstandingHostArrays();

} // namespace vantix::host
