#include "events/HostEvents.h"

#include "events/ProtocolErrors.h"
#include "events/StateChanges.h"

#include <cstdio>

namespace vantix::host::detail
{

void HostEvents::reset()
{
    stateChanges.clearRaised();
    protocolErrors.clear();
}

const std::shared_ptr<HostEvents>& SharedHostEvents()
{
    static const std::shared_ptr<HostEvents> events = std::make_shared<HostEvents>();
    return events;
}

void RaiseStateChange(StateChange_e change)
{
    Events().stateChanges.raise(change);
}

void ReportProtocolError(std::string error)
{
    std::fprintf(stderr, "vantix: %s\n", error.c_str());
    Events().protocolErrors.push_back(std::move(error));
}

} // namespace vantix::host::detail
