// VtxGUI: a dialog's menu bar, menus and entries; and the options add-ons add to the host's own menus.
#include "core/Application.h"
#include "core/CallContext.h"
#include "gui/UserInterface.h"

#include <VtxGUI.h>

using vantix::host::detail::Call;
using vantix::host::detail::CallContext;
using vantix::host::detail::GuiKind;
using vantix::host::detail::GuiModel;
using vantix::host::detail::GuiNode;
using vantix::host::detail::UserInterfaceOf;

namespace
{

GuiModel& Gui(const CallContext& call)
{
    return UserInterfaceOf(call.app()).gui;
}

int IdOf(const GuiNode* node)
{
    return node ? node->state.id : GuiId_None;
}

int AddEntry(Call function, int menu, GuiKind kind, const char* label, const char* helpText,
             GuiActionCallback_pf callback)
{
    const CallContext call(function);
    if (kind != GuiKind::MenuSeparator && !label)
    {
        call.refuse("was given no label (null)");
        return GuiId_None;
    }
    GuiNode* entry = Gui(call).addMenuEntry(call, menu, kind, label, helpText);
    if (entry)
        entry->callbacks.action = callback;
    return IdOf(entry);
}

} // namespace

extern "C"
{

    int VtxGUIMenuBarAdd(int dialog)
    {
        const CallContext call(Call::GuiMenuBarAdd);
        return IdOf(Gui(call).addMenuBar(call, dialog));
    }

    int VtxGUIMenuAdd(int parent, const char* label)
    {
        const CallContext call(Call::GuiMenuAdd);
        if (!label)
        {
            call.refuse("was given no label (null)");
            return GuiId_None;
        }
        return IdOf(Gui(call).addMenu(call, parent, label));
    }

    int VtxGUIMenuAddItem(int menu, const char* label, const char* helpText, GuiActionCallback_pf callback)
    {
        return AddEntry(Call::GuiMenuAddItem, menu, GuiKind::MenuItem, label, helpText, callback);
    }

    int VtxGUIMenuAddToggle(int menu, const char* label, const char* helpText, GuiActionCallback_pf callback)
    {
        return AddEntry(Call::GuiMenuAddToggle, menu, GuiKind::MenuToggle, label, helpText, callback);
    }

    int VtxGUIMenuAddSeparator(int menu)
    {
        return AddEntry(Call::GuiMenuAddSeparator, menu, GuiKind::MenuSeparator, nullptr, nullptr, nullptr);
    }

    void VtxGUIMenuSetToggle(int menuToggle, Boolean on)
    {
        const CallContext call(Call::GuiMenuSetToggle);
        if (GuiNode* toggle = Gui(call).require(call, menuToggle, {GuiKind::MenuToggle}))
            toggle->state.on = on != FALSE;
    }

    Boolean VtxUtilMenuAddOption(const char* menuPath, const char* label, Boolean sensitive,
                                 MenuOptionCallback_pf callback)
    {
        const CallContext call(Call::MenuAddOption);
        return UserInterfaceOf(call.app()).hostMenus.add(call, menuPath, label, sensitive != FALSE, callback)
                   ? TRUE
                   : FALSE;
    }

    Boolean VtxUtilMenuSetSensitivity(const char* menuPath, const char* label, Boolean sensitive)
    {
        const CallContext call(Call::MenuSetSensitivity);
        return UserInterfaceOf(call.app()).hostMenus.setSensitivity(call, menuPath, label, sensitive != FALSE)
                   ? TRUE
                   : FALSE;
    }

} // extern "C"
