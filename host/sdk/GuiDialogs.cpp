// VtxGUI: dialogs, up and down.
#include "core/Application.h"
#include "core/CallContext.h"
#include "events/AddOnCallback.h"
#include "gui/UserInterface.h"

#include <VtxGUI.h>

using vantix::host::detail::Application;
using vantix::host::detail::Call;
using vantix::host::detail::CallAddOn;
using vantix::host::detail::CallContext;
using vantix::host::detail::GuiCallbacks;
using vantix::host::detail::GuiKind;
using vantix::host::detail::GuiModel;
using vantix::host::detail::GuiNode;
using vantix::host::detail::UserInterfaceOf;

namespace
{

int CreateDialog(Call function, int parent, int width, int height, const char* title, bool modal,
                 const GuiCallbacks& callbacks)
{
    const CallContext call(function);
    Application& app = call.app();
    const GuiNode* dialog =
        UserInterfaceOf(app).gui.createDialog(call, parent, width, height, title, modal, callbacks);
    return dialog ? dialog->state.id : GuiId_None;
}

} // namespace

extern "C"
{

    int VtxGUIDialogCreateModeless(int parentDialog, int width, int height, const char* title,
                                   GuiActionCallback_pf initCallback, GuiActionCallback_pf closeCallback,
                                   GuiActionCallback_pf helpCallback)
    {
        GuiCallbacks callbacks;
        callbacks.init = initCallback;
        callbacks.close = closeCallback;
        callbacks.help = helpCallback;
        return CreateDialog(Call::GuiDialogCreateModeless, parentDialog, width, height, title, false,
                            callbacks);
    }

    int VtxGUIDialogCreateModal(int parentDialog, int width, int height, const char* title,
                                GuiActionCallback_pf initCallback, GuiActionCallback_pf okCallback,
                                GuiActionCallback_pf applyCallback, GuiActionCallback_pf cancelCallback,
                                GuiActionCallback_pf helpCallback)
    {
        GuiCallbacks callbacks;
        callbacks.init = initCallback;
        callbacks.ok = okCallback;
        callbacks.apply = applyCallback;
        callbacks.cancel = cancelCallback;
        callbacks.help = helpCallback;
        return CreateDialog(Call::GuiDialogCreateModal, parentDialog, width, height, title, true, callbacks);
    }

    void VtxGUIDialogLaunch(int dialog)
    {
        const CallContext call(Call::GuiDialogLaunch);
        Application& app = call.app();
        GuiModel& gui = UserInterfaceOf(app).gui;
        GuiNode* node = gui.require(call, dialog, {GuiKind::Dialog});
        if (!node || !gui.launch(*node) || !node->callbacks.init)
            return;
        const GuiActionCallback_pf init = node->callbacks.init;
        CallAddOn("the init callback of dialog \"" + node->state.label + "\"", [init] { init(); });
    }

    void VtxGUIDialogDrop(int dialog)
    {
        const CallContext call(Call::GuiDialogDrop);
        Application& app = call.app();
        if (GuiNode* node = UserInterfaceOf(app).gui.require(call, dialog, {GuiKind::Dialog}))
            GuiModel::drop(*node);
    }

    Boolean VtxGUIDialogIsUp(int dialog)
    {
        const CallContext call(Call::GuiDialogIsUp);
        Application& app = call.app();
        const GuiNode* node = UserInterfaceOf(app).gui.require(call, dialog, {GuiKind::Dialog});
        return node && node->state.up ? TRUE : FALSE;
    }

} // extern "C"
