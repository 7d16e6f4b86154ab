// What the user does in the add-ons' dialogs and the host's menus. Each action checks that the user could
// do it, changes what the control shows, then calls the control's callback, as the toolkit would.
#include "core/Application.h"
#include "events/AddOnCallback.h"
#include "gui/ListEditing.h"
#include "gui/UserInterface.h"

#include <vantix/host/Gui.h>

#include <algorithm>
#include <stdexcept>

namespace vantix::host
{

namespace
{

using detail::GuiNode;

detail::Application& App()
{
    return detail::Application::instance();
}

detail::GuiModel& Model()
{
    return detail::UserInterfaceOf(App()).gui;
}

std::string Describe(const GuiNode& node)
{
    return std::string(detail::DescribeKind(node.state.kind)) + " \"" + node.state.label + "\"";
}

std::string WhyUnusable(const GuiNode& node)
{
    const GuiNode* dialog = Model().find(node.state.dialog);
    if (!dialog || !dialog->state.up)
        return "its dialog is not up";
    if (!Model().takesInput(*dialog))
        return "a modal dialog holds the input";
    return "it is greyed out";
}

// The element of a user action: one the host gave out, of the kind, and one the user can reach now.
GuiNode& Usable(int id, std::initializer_list<GuiKind> kinds, const char* action)
{
    GuiNode* node = Model().find(id);
    if (!node)
        throw std::invalid_argument(std::string("cannot ") + action +
                                    ": the host never gave out the identifier " + std::to_string(id));
    if (std::find(kinds.begin(), kinds.end(), node->state.kind) == kinds.end())
        throw std::invalid_argument(std::string("cannot ") + action + " " + Describe(*node));
    if (!Model().usable(*node))
        throw std::logic_error(std::string("cannot ") + action + " " + Describe(*node) + ": " +
                               WhyUnusable(*node));
    return *node;
}

void RequirePosition(const GuiNode& node, int position)
{
    if (!detail::IsPosition(node.state, position))
        throw std::invalid_argument(Describe(node) + " has no entry " + std::to_string(position) +
                                    " (it has " + std::to_string(node.state.items.size()) + ")");
}

std::string CallbackOf(const GuiNode& node)
{
    return "the callback of " + Describe(node);
}

void RunCallback(const GuiNode& node, GuiActionCallback_pf callback)
{
    if (callback)
        detail::CallAddOn(CallbackOf(node), [callback] { callback(); });
}

void RunCallback(const GuiNode& node, GuiValueCallback_pf callback, int value)
{
    if (callback)
        detail::CallAddOn(CallbackOf(node), [callback, value] { callback(&value); });
}

// A dialog's own button, which the dialog has only with its callback.
void PressDialogButton(int dialog, GuiActionCallback_pf detail::GuiCallbacks::*button, const char* name)
{
    const GuiNode& node = Usable(dialog, {GuiKind::Dialog}, "press a button of");
    const GuiActionCallback_pf callback = node.callbacks.*button;
    if (!callback)
        throw std::logic_error(Describe(node) + " has no " + name + " button");
    RunCallback(node, callback);
}

} // namespace

void pressButton(int button)
{
    const GuiNode& node = Usable(button, {GuiKind::Button}, "press");
    RunCallback(node, node.callbacks.action);
}

bool enterText(int field, const std::string& text)
{
    GuiNode& node = Usable(field, {GuiKind::TextField, GuiKind::SpinTextField}, "type into");
    node.state.text = text;
    const GuiTextCallback_pf callback = node.callbacks.text;
    if (!callback)
        return true;
    // The callback gets its own copy: it may well set the field's text while it reads this one.
    return detail::CallAddOn(CallbackOf(node), false,
                             [callback, typed = text] { return callback(typed.c_str()) != 0; });
}

void spinUp(int spinField)
{
    const GuiNode& node = Usable(spinField, {GuiKind::SpinTextField}, "spin up");
    RunCallback(node, node.callbacks.up);
}

void spinDown(int spinField)
{
    const GuiNode& node = Usable(spinField, {GuiKind::SpinTextField}, "spin down");
    RunCallback(node, node.callbacks.down);
}

void selectListItem(int list, int position)
{
    GuiNode& node = Usable(list, {GuiKind::List}, "select in");
    RequirePosition(node, position);
    detail::SelectExactly(node.state, {position});
    RunCallback(node, node.callbacks.value, position);
}

void selectListItems(int list, const std::vector<int>& positions)
{
    GuiNode& node = Usable(list, {GuiKind::List}, "select in");
    if (!node.state.multiSelection)
        throw std::logic_error("cannot select several entries of " + Describe(node) +
                               ": it is a single-selection list");
    for (const int position : positions)
        RequirePosition(node, position);
    detail::SelectExactly(node.state, positions);
    RunCallback(node, node.callbacks.value, positions.empty() ? 0 : positions.back());
}

void chooseOption(int optionMenu, int position)
{
    GuiNode& node = Usable(optionMenu, {GuiKind::OptionMenu}, "choose in");
    RequirePosition(node, position);
    node.state.choice = position;
    RunCallback(node, node.callbacks.value, position);
}

void chooseRadioButton(int radioBox, int position)
{
    GuiNode& node = Usable(radioBox, {GuiKind::RadioBox}, "choose in");
    RequirePosition(node, position);
    node.state.choice = position;
    RunCallback(node, node.callbacks.value, position);
}

void clickToggle(int toggle)
{
    GuiNode& node = Usable(toggle, {GuiKind::Toggle}, "click");
    node.state.on = !node.state.on;
    RunCallback(node, node.callbacks.value, node.state.on ? 1 : 0);
}

void chooseMenuItem(int entry)
{
    GuiNode& node = Usable(entry, {GuiKind::MenuItem, GuiKind::MenuToggle}, "choose");
    if (node.state.kind == GuiKind::MenuToggle)
        node.state.on = !node.state.on;
    RunCallback(node, node.callbacks.action);
}

void pressOk(int dialog)
{
    PressDialogButton(dialog, &detail::GuiCallbacks::ok, "OK");
}

void pressApply(int dialog)
{
    PressDialogButton(dialog, &detail::GuiCallbacks::apply, "Apply");
}

void pressCancel(int dialog)
{
    PressDialogButton(dialog, &detail::GuiCallbacks::cancel, "Cancel");
}

void pressClose(int dialog)
{
    PressDialogButton(dialog, &detail::GuiCallbacks::close, "Close");
}

void pressHelp(int dialog)
{
    PressDialogButton(dialog, &detail::GuiCallbacks::help, "Help");
}

void closeDialog(int dialog)
{
    GuiNode& node = Usable(dialog, {GuiKind::Dialog}, "close");
    const GuiActionCallback_pf callback = node.state.modal ? node.callbacks.cancel : node.callbacks.close;
    if (callback)
        RunCallback(node, callback);
    else
        detail::GuiModel::drop(node);
}

void chooseHostMenuOption(const std::string& menu, const std::string& label)
{
    detail::UserInterface& ui = detail::UserInterfaceOf(App());
    const detail::HostMenuEntry* entry = ui.hostMenus.find(menu, label);
    if (!entry)
        throw std::invalid_argument("the host's menu \"" + menu + "\" has no option \"" + label + "\"");
    if (!entry->option.sensitive)
        throw std::logic_error("cannot choose \"" + label + "\" in menu \"" + menu + "\": it is greyed out");
    if (ui.gui.modalDialogUp())
        throw std::logic_error("cannot choose \"" + label + "\" in menu \"" + menu +
                               "\": a modal dialog holds the input");
    const MenuOptionCallback_pf callback = entry->callback;
    detail::CallAddOn("the callback of option \"" + entry->option.label + "\" of menu \"" + menu + "\"",
                      [callback] { callback(); });
}

} // namespace vantix::host
