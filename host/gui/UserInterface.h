// What the host's users and add-ons meet outside the page: dialogs, controls and menus, the host menus'
// add-on options, messages and file dialogs, help pages, and the arrays handed out with list selections.
#pragma once

#include "core/HostPart.h"
#include "gui/GuiModel.h"
#include "gui/HelpPages.h"
#include "gui/HostArrays.h"
#include "gui/HostMenus.h"
#include "gui/Prompts.h"

namespace vantix::host::detail
{

class Application;

struct UserInterface : HostPart
{
    GuiModel gui;
    HostMenus hostMenus;
    Prompts prompts;
    HelpPages help;
    HostArrays arrays;

    // For a reset of the host. What add-ons hold or added stays: dialogs, controls and menus with their
    // identifiers and contents (every dialog is taken down, without callbacks), host menu options, and
    // arrays (counted afresh). Scripts, logs and help settings start afresh, so that the help of a reset
    // host never starts a browser.
    void reset() override;
};

// The application's user interface.
UserInterface& UserInterfaceOf(Application& app);

} // namespace vantix::host::detail
