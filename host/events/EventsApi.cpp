// The host's own API over its events (vantix/host/Events.h) and the protocol errors it noticed.
#include "events/HostEvents.h"
#include "events/StateChanges.h"

#include <vantix/host/Events.h>
#include <vantix/host/Host.h>

#include <stdexcept>

namespace vantix::host
{

using detail::Events;

int runOnIdle()
{
    return Events().onIdle.runOnce();
}

int runOnIdleUntilEmpty(int maxRounds)
{
    if (maxRounds < 1)
        throw std::invalid_argument("the on-idle queue runs for at least one round");
    return Events().onIdle.runUntilEmpty(maxRounds);
}

std::size_t pendingOnIdleCalls()
{
    return Events().onIdle.pending();
}

void raiseStateChange(StateChange_e change)
{
    detail::RaiseStateChange(change);
}

std::vector<StateChange_e> raisedStateChanges()
{
    return Events().stateChanges.raised();
}

void clearRaisedStateChanges()
{
    Events().stateChanges.clearRaised();
}

std::size_t stateChangeCallbackCount()
{
    return Events().stateChanges.callbackCount();
}

std::size_t stateChangeListenerCount()
{
    return Events().stateChanges.listenerCount();
}

std::vector<std::string> hostErrors()
{
    return Events().protocolErrors;
}

void clearHostErrors()
{
    Events().protocolErrors.clear();
}

} // namespace vantix::host
