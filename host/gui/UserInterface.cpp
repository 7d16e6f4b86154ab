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
    argLists.forgetCounts();
    stateChanges.clearRaised();
}

std::shared_ptr<UserInterface> SharedUserInterface(Application& app)
{
    if (!app.m_userInterface)
        app.m_userInterface = std::make_shared<UserInterface>();
    return app.m_userInterface;
}

UserInterface& UserInterfaceOf(Application& app)
{
    return *SharedUserInterface(app);
}

void RaiseStateChange(Application& app, StateChange_e change)
{
    UserInterfaceOf(app).stateChanges.raise(app, change);
}

} // namespace vantix::host::detail
