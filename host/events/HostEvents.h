// How the host meets add-ons outside their calls into it: the state changes it tells them of, the calls
// they asked for when it is next idle, and the protocol errors it noticed in what they did. One per
// process, below the rest of the host state, which raises state changes and reports errors through it.
#pragma once

#include "events/OnIdleQueue.h"
#include "events/StateChangeHub.h"

#include <memory>
#include <string>
#include <vector>

namespace vantix::host::detail
{

struct HostEvents
{
    StateChangeHub stateChanges;
    OnIdleQueue onIdle;
    std::vector<std::string> protocolErrors;

    // For a reset of the host: the logs start afresh; registrations, listeners and queued calls stay, as
    // the add-ons that made them count on them.
    void reset();
};

// The process's events. Shared, so that a toolbox notifier in a static object, which may outlive them at
// the end of the process, can tell whether they are still there.
const std::shared_ptr<HostEvents>& SharedHostEvents();
inline HostEvents& Events()
{
    return *SharedHostEvents();
}

} // namespace vantix::host::detail
