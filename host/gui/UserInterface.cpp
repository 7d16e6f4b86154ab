#include "gui/UserInterface.h"

#include "core/Application.h"

namespace vantix::host::detail
{

void UserInterface::reset()
{
    gui.dropAll();
    prompts.reset();
    help.reset();
    arrays.forgetCounts();
}

UserInterface& UserInterfaceOf(Application& app)
{
    return app.part<UserInterface>();
}

} // namespace vantix::host::detail
