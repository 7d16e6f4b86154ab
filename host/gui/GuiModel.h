// The dialogs, controls and menus add-ons build through VtxGUI, as the host keeps them: one element per
// identifier handed out, with what it shows, what the add-on attached to it, and for dialogs whether they
// are up and which one takes the user's input.
#pragma once

#include "core/CallContext.h"

#include <VtxGUI.h>
#include <vantix/host/Gui.h>

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace vantix::host::detail
{

using vantix::host::GuiElement;
using vantix::host::GuiKind;

// The callbacks an add-on attached to an element; null where it gave none.
struct GuiCallbacks
{
    GuiActionCallback_pf action = nullptr; // buttons, menu items, menu toggles
    GuiTextCallback_pf text = nullptr;     // text fields; a spin field's value
    GuiValueCallback_pf value = nullptr;   // lists, option menus, toggles, radio boxes
    GuiActionCallback_pf up = nullptr;     // a spin field's arrows
    GuiActionCallback_pf down = nullptr;
    // Dialogs
    GuiActionCallback_pf init = nullptr;
    GuiActionCallback_pf close = nullptr;
    GuiActionCallback_pf ok = nullptr;
    GuiActionCallback_pf apply = nullptr;
    GuiActionCallback_pf cancel = nullptr;
    GuiActionCallback_pf help = nullptr;
};

struct GuiNode
{
    GuiElement state;
    GuiCallbacks callbacks;
    long launchOrder = 0; // dialogs: when the dialog last came up
};

// Where a control goes in its dialog; a label has no size of its own.
struct GuiPlacement
{
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;
    bool sized = true;
};

// "a button", "an option menu", ... for messages.
const char* DescribeKind(GuiKind kind);

class GuiModel
{
public:
    // Each answers the new element, or null after reporting why it was refused.
    GuiNode* createDialog(const CallContext& call, int parent, int width, int height, const char* title,
                          bool modal, const GuiCallbacks& callbacks);
    GuiNode* addControl(const CallContext& call, int dialog, GuiKind kind, const GuiPlacement& placement,
                        const char* label);
    GuiNode* addMenuBar(const CallContext& call, int dialog);
    GuiNode* addMenu(const CallContext& call, int parent, const char* label);
    GuiNode* addMenuEntry(const CallContext& call, int menu, GuiKind kind, const char* label,
                          const char* helpText);

    // The element with that identifier when it is of one of the kinds; otherwise null, after reporting
    // the misuse.
    GuiNode* require(const CallContext& call, int id, std::initializer_list<GuiKind> kinds);
    // Null for an identifier the host never gave out.
    GuiNode* find(int id);
    std::vector<int> dialogs() const;
    std::vector<int> elementsOf(int dialog) const;

    // Answers whether the dialog came up now; one that is up already stays as it is.
    bool launch(GuiNode& dialog);
    static void drop(GuiNode& dialog) { dialog.state.up = false; }
    void dropAll();
    // A dialog takes the user's input when it is up and no modal dialog came up after it.
    bool takesInput(const GuiNode& dialog) const;
    bool modalDialogUp() const;
    // The user can act on an element: its dialog takes input, and it and every menu above it are sensitive.
    bool usable(const GuiNode& element) const;

private:
    GuiNode& make(GuiKind kind, int parent, int dialog);
    GuiNode* requireDialog(const CallContext& call, int id);

    std::map<int, std::unique_ptr<GuiNode>> m_nodes;
    int m_lastId = 0;
    long m_lastLaunch = 0;
};

} // namespace vantix::host::detail
