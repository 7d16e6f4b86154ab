#include "gui/GuiModel.h"

#include <algorithm>

namespace vantix::host::detail
{

namespace
{

std::string Text(const char* text)
{
    return text ? text : "";
}

std::string Identifier(int id)
{
    return id == GuiId_None ? std::string("GuiId_None (-2), which stands for no element")
                            : "the identifier " + std::to_string(id) + ", which the host never gave out";
}

} // namespace

const char* DescribeKind(GuiKind kind)
{
    switch (kind)
    {
    case GuiKind::Dialog:
        return "a dialog";
    case GuiKind::Button:
        return "a button";
    case GuiKind::TextField:
        return "a text field";
    case GuiKind::SpinTextField:
        return "a spin field";
    case GuiKind::List:
        return "a list";
    case GuiKind::OptionMenu:
        return "an option menu";
    case GuiKind::Toggle:
        return "a toggle";
    case GuiKind::RadioBox:
        return "a radio box";
    case GuiKind::Frame:
        return "a frame";
    case GuiKind::Label:
        return "a label";
    case GuiKind::MenuBar:
        return "a menu bar";
    case GuiKind::Menu:
        return "a menu";
    case GuiKind::MenuItem:
        return "a menu item";
    case GuiKind::MenuToggle:
        return "a menu toggle";
    case GuiKind::MenuSeparator:
        return "a menu separator";
    }
    return "an element";
}

GuiNode& GuiModel::make(GuiKind kind, int parent, int dialog)
{
    auto node = std::make_unique<GuiNode>();
    node->state.id = ++m_lastId;
    node->state.kind = kind;
    node->state.parent = parent;
    node->state.dialog = kind == GuiKind::Dialog ? node->state.id : dialog;
    // A dialog is not among its parent's children: those are what the parent shows.
    if (GuiNode* above = kind == GuiKind::Dialog ? nullptr : find(parent))
        above->state.children.push_back(node->state.id);
    GuiNode& made = *node;
    m_nodes.emplace(made.state.id, std::move(node));
    return made;
}

GuiNode* GuiModel::find(int id)
{
    const auto found = m_nodes.find(id);
    return found == m_nodes.end() ? nullptr : found->second.get();
}

GuiNode* GuiModel::require(const CallContext& call, int id, std::initializer_list<GuiKind> kinds)
{
    GuiNode* node = find(id);
    if (!node)
    {
        call.refuse("was given " + Identifier(id));
        return nullptr;
    }
    if (std::find(kinds.begin(), kinds.end(), node->state.kind) != kinds.end())
        return node;
    std::string wanted;
    for (const GuiKind kind : kinds)
        wanted += (wanted.empty() ? "" : " or ") + std::string(DescribeKind(kind));
    call.refuse("was given " + std::to_string(id) + ", which is " + DescribeKind(node->state.kind) +
                ", not " + wanted);
    return nullptr;
}

GuiNode* GuiModel::requireDialog(const CallContext& call, int id)
{
    return require(call, id, {GuiKind::Dialog});
}

GuiNode* GuiModel::createDialog(const CallContext& call, int parent, int width, int height, const char* title,
                                bool modal, const GuiCallbacks& callbacks)
{
    if (parent != GuiId_MainWindow && !requireDialog(call, parent))
        return nullptr;
    if (width <= 0 || height <= 0)
    {
        call.refuse("was given the size " + std::to_string(width) + " x " + std::to_string(height) +
                    " for dialog \"" + Text(title) + "\"");
        return nullptr;
    }
    GuiNode& dialog = make(GuiKind::Dialog, parent, GuiId_None);
    dialog.state.width = width;
    dialog.state.height = height;
    dialog.state.label = Text(title);
    dialog.state.modal = modal;
    dialog.callbacks = callbacks;
    const std::pair<GuiActionCallback_pf, const char*> buttons[] = {
        {callbacks.ok, "OK"},
        {callbacks.apply, "Apply"},
        {callbacks.cancel, "Cancel"},
        {modal ? nullptr : callbacks.close, "Close"},
        {callbacks.help, "Help"}};
    for (const auto& [callback, name] : buttons)
        if (callback)
            dialog.state.buttons.emplace_back(name);
    return &dialog;
}

GuiNode* GuiModel::addControl(const CallContext& call, int dialogId, GuiKind kind,
                              const GuiPlacement& placement, const char* label)
{
    GuiNode* dialog = requireDialog(call, dialogId);
    if (!dialog)
        return nullptr;
    const std::string what =
        std::string(DescribeKind(kind)) + (label ? " \"" + std::string(label) + "\"" : "");
    if (placement.x < 0 || placement.y < 0 ||
        (placement.sized && (placement.width <= 0 || placement.height <= 0)))
    {
        call.refuse(
            "was given the place " + std::to_string(placement.x) + ", " + std::to_string(placement.y) +
            (placement.sized
                 ? " and size " + std::to_string(placement.width) + " x " + std::to_string(placement.height)
                 : "") +
            " for " + what);
        return nullptr;
    }
    // A toolkit would cut such a control off; it is made, but the layout is told as the mistake it is.
    if (placement.sized && (placement.x + placement.width > dialog->state.width ||
                            placement.y + placement.height > dialog->state.height))
        call.refuse("puts " + what + " partly outside dialog \"" + dialog->state.label + "\"");
    GuiNode& control = make(kind, dialogId, dialogId);
    control.state.x = placement.x;
    control.state.y = placement.y;
    control.state.width = placement.sized ? placement.width : 0;
    control.state.height = placement.sized ? placement.height : 0;
    control.state.label = Text(label);
    return &control;
}

GuiNode* GuiModel::addMenuBar(const CallContext& call, int dialogId)
{
    GuiNode* dialog = requireDialog(call, dialogId);
    if (!dialog)
        return nullptr;
    if (dialog->state.menuBar != GuiId_None)
    {
        call.refuse("was asked for a second menu bar of dialog \"" + dialog->state.label + "\"");
        return nullptr;
    }
    GuiNode& bar = make(GuiKind::MenuBar, dialogId, dialogId);
    dialog->state.menuBar = bar.state.id;
    return &bar;
}

GuiNode* GuiModel::addMenu(const CallContext& call, int parent, const char* label)
{
    GuiNode* above = require(call, parent, {GuiKind::MenuBar, GuiKind::Menu});
    if (!above)
        return nullptr;
    GuiNode& menu = make(GuiKind::Menu, parent, above->state.dialog);
    menu.state.label = Text(label);
    return &menu;
}

GuiNode* GuiModel::addMenuEntry(const CallContext& call, int menuId, GuiKind kind, const char* label,
                                const char* helpText)
{
    GuiNode* menu = require(call, menuId, {GuiKind::Menu});
    if (!menu)
        return nullptr;
    GuiNode& entry = make(kind, menuId, menu->state.dialog);
    entry.state.label = Text(label);
    entry.state.helpText = Text(helpText);
    return &entry;
}

std::vector<int> GuiModel::dialogs() const
{
    std::vector<int> ids;
    for (const auto& [id, node] : m_nodes)
        if (node->state.kind == GuiKind::Dialog)
            ids.push_back(id);
    return ids;
}

std::vector<int> GuiModel::elementsOf(int dialog) const
{
    std::vector<int> ids;
    for (const auto& [id, node] : m_nodes)
        if (node->state.dialog == dialog && id != dialog)
            ids.push_back(id);
    return ids;
}

bool GuiModel::launch(GuiNode& dialog)
{
    if (dialog.state.up)
        return false;
    dialog.state.up = true;
    ++dialog.state.launchCount;
    dialog.launchOrder = ++m_lastLaunch;
    return true;
}

void GuiModel::dropAll()
{
    for (auto& entry : m_nodes)
        if (entry.second->state.kind == GuiKind::Dialog)
            drop(*entry.second);
}

bool GuiModel::takesInput(const GuiNode& dialog) const
{
    if (!dialog.state.up)
        return false;
    for (const auto& entry : m_nodes)
    {
        const GuiNode& other = *entry.second;
        if (other.state.kind == GuiKind::Dialog && other.state.modal && other.state.up &&
            other.launchOrder > dialog.launchOrder)
            return false;
    }
    return true;
}

bool GuiModel::modalDialogUp() const
{
    return std::any_of(m_nodes.begin(), m_nodes.end(),
                       [](const auto& entry)
                       {
                           const GuiElement& state = entry.second->state;
                           return state.kind == GuiKind::Dialog && state.modal && state.up;
                       });
}

bool GuiModel::usable(const GuiNode& element) const
{
    const auto dialog = m_nodes.find(element.state.dialog);
    if (dialog == m_nodes.end() || !takesInput(*dialog->second))
        return false;
    for (const GuiNode* node = &element; node && node->state.kind != GuiKind::Dialog;)
    {
        if (!node->state.sensitive)
            return false;
        const auto above = m_nodes.find(node->state.parent);
        node = above == m_nodes.end() ? nullptr : above->second.get();
    }
    return true;
}

} // namespace vantix::host::detail
