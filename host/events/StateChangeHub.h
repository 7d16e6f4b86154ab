// Delivers the host's state changes, the moment they are raised, to the callbacks registered with
// VtxUtilStateChangeAddCallbackX (in the order registered) and then to the toolbox's notifiers (in the order
// made), and keeps a log of the latest of them for the tests.
#pragma once

#include "events/RecentLog.h"

#include <VtxUtil.h>

#include <cstddef>
#include <vector>

namespace vantix::host::detail
{

// A toolbox notifier as the hub sees it.
class StateChangeSink
{
public:
    virtual void deliver(StateChange_e change) = 0;
    virtual std::size_t listenerCount() const = 0;

protected:
    ~StateChangeSink() = default;
};

class StateChangeHub
{
public:
    // False when the callback is registered already. Callbacks stay registered for the whole process.
    bool addCallback(StateChangeCallback_pf callback);
    // A sink may be added or removed while a change is delivered: one removed then is not told of it, one
    // added then is told from the next change on.
    void addSink(StateChangeSink* sink) { m_sinks.push_back(sink); }
    void removeSink(StateChangeSink* sink);

    // A change raised while another is delivered is delivered at once, inside that delivery.
    void raise(StateChange_e change);

    const std::vector<StateChange_e>& raised() const { return m_raised.entries(); }
    void clearRaised() { m_raised.clear(); }
    std::size_t callbackCount() const { return m_callbacks.size(); }
    std::size_t listenerCount() const;

private:
    std::vector<StateChangeCallback_pf> m_callbacks;
    std::vector<StateChangeSink*> m_sinks; // not owned
    RecentLog<StateChange_e> m_raised;
};

} // namespace vantix::host::detail
