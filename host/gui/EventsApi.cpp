// The host's own API over the on-idle queue, state changes and argument lists.
#include "core/Application.h"
#include "gui/UserInterface.h"

#include <vantix/host/Events.h>

#include <stdexcept>

namespace vantix::host
{

namespace
{

detail::Application& App()
{
    return detail::Application::instance();
}

detail::UserInterface& Ui()
{
    return detail::UserInterfaceOf(App());
}

} // namespace

int runOnIdle()
{
    return Ui().onIdle.runOnce(App());
}

int runOnIdleUntilEmpty(int maxRounds)
{
    if (maxRounds < 1)
        throw std::invalid_argument("the on-idle queue runs for at least one round");
    return Ui().onIdle.runUntilEmpty(App(), maxRounds);
}

std::size_t pendingOnIdleCalls()
{
    return Ui().onIdle.pending();
}

void raiseStateChange(StateChange_e change)
{
    detail::RaiseStateChange(App(), change);
}

std::vector<StateChange_e> raisedStateChanges()
{
    return Ui().stateChanges.raised();
}

void clearRaisedStateChanges()
{
    Ui().stateChanges.clearRaised();
}

std::size_t stateChangeCallbackCount()
{
    return Ui().stateChanges.callbackCount();
}

std::size_t stateChangeListenerCount()
{
    return Ui().stateChanges.listenerCount();
}

long outstandingArgLists()
{
    return Ui().argLists.outstanding();
}

} // namespace vantix::host
