#include "events/StateChangeHub.h"

#include "events/AddOnCallback.h"

#include <algorithm>

namespace vantix::host::detail
{

bool StateChangeHub::addCallback(StateChangeCallback_pf callback)
{
    if (std::find(m_callbacks.begin(), m_callbacks.end(), callback) != m_callbacks.end())
        return false;
    m_callbacks.push_back(callback);
    return true;
}

void StateChangeHub::removeSink(StateChangeSink* sink)
{
    m_sinks.erase(std::remove(m_sinks.begin(), m_sinks.end(), sink), m_sinks.end());
}

void StateChangeHub::raise(StateChange_e change)
{
    m_raised.add(change);
    // Callbacks are only ever added, so counting up to the number there now serves exactly those.
    const std::size_t callbacks = m_callbacks.size();
    for (std::size_t i = 0; i < callbacks; ++i)
    {
        const StateChangeCallback_pf callback = m_callbacks[i];
        CallAddOn("a state-change callback", [callback, change] { callback(change); });
    }
    const std::vector<StateChangeSink*> sinks = m_sinks;
    for (StateChangeSink* sink : sinks)
        if (std::find(m_sinks.begin(), m_sinks.end(), sink) != m_sinks.end())
            CallAddOn("a state-change listener", [sink, change] { sink->deliver(change); });
}

std::size_t StateChangeHub::listenerCount() const
{
    std::size_t count = 0;
    for (const StateChangeSink* sink : m_sinks)
        count += sink->listenerCount();
    return count;
}

} // namespace vantix::host::detail
