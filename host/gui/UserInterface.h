// Everything of the host's state that its users and add-ons meet outside the page: dialogs, controls and
// menus, the host menus' add-on options, messages and file dialogs, help pages, host arrays, argument
// lists, the on-idle queue and the state-change listeners.
#pragma once

#include "gui/ArgLists.h"
#include "gui/GuiModel.h"
#include "gui/HelpPages.h"
#include "gui/HostArrays.h"
#include "gui/HostMenus.h"
#include "gui/OnIdleQueue.h"
#include "gui/Prompts.h"
#include "gui/StateChangeHub.h"

#include <VtxUtil.h>

#include <memory>

namespace vantix::host::detail
{

class Application;

struct UserInterface
{
    GuiModel gui;
    HostMenus hostMenus;
    Prompts prompts;
    HelpPages help;
    HostArrays arrays;
    ArgLists argLists;
    OnIdleQueue onIdle;
    StateChangeHub stateChanges;

    // For a reset of the host. What add-ons hold or registered stays: dialogs, controls and menus with their
    // identifiers and contents (every dialog is taken down, without callbacks), host menu options, arrays
    // and argument lists (counted afresh), queued on-idle calls, state-change callbacks and listeners.
    // Scripts, logs and help settings start afresh.
    void reset();
};

// The application's user interface, made on first use.
UserInterface& UserInterfaceOf(Application& app);
std::shared_ptr<UserInterface> SharedUserInterface(Application& app);

// Raises a state change: logged and delivered at once to every callback and listener.
void RaiseStateChange(Application& app, StateChange_e change);

} // namespace vantix::host::detail
