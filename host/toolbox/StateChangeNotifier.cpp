#include "events/AddOnCallback.h"
#include "events/HostEvents.h"
#include "events/ProtocolErrors.h"

#include <vantix/toolbox/StateChangeEventInterface.h>
#include <vantix/toolbox/StateChangeListenerInterface.h>
#include <vantix/toolbox/StateChangeNotifier.h>

#include <algorithm>
#include <string>
#include <vector>

namespace vantix::toolbox
{

namespace
{

using host::detail::HostEvents;
using host::detail::ReportProtocolError;

class Event : public StateChangeEventInterface
{
public:
    explicit Event(StateChange_e change) : m_change(change) {}
    StateChange_e getStateChange() const override { return m_change; }

private:
    StateChange_e m_change;
};

} // namespace

// The notifier's side towards the host: its listeners, told of each change the host delivers. It outlives
// the notifier while it tells its listeners, so that a listener may destroy the notifier meanwhile.
class StateChangeNotifier::Delivery : public host::detail::StateChangeSink,
                                      public std::enable_shared_from_this<StateChangeNotifier::Delivery>
{
public:
    explicit Delivery(StateChangeNotifier& owner) : m_owner(&owner) {}

    void deliver(StateChange_e change) override
    {
        const std::shared_ptr<Delivery> keepAlive = shared_from_this();
        const Event event(change);
        const std::vector<StateChangeListenerInterface*> listeners = m_listeners;
        for (StateChangeListenerInterface* listener : listeners)
        {
            if (!m_owner)
                return; // a listener destroyed the notifier
            if (std::find(m_listeners.begin(), m_listeners.end(), listener) == m_listeners.end())
                continue; // removed by an earlier listener
            StateChangeNotifier& notifier = *m_owner;
            host::detail::CallAddOn("a state-change listener", [listener, &event, &notifier]
                                    { listener->stateChanged(event, notifier); });
        }
    }

    std::size_t listenerCount() const override { return m_listeners.size(); }

    void add(StateChangeListenerInterface* listener)
    {
        if (std::find(m_listeners.begin(), m_listeners.end(), listener) == m_listeners.end())
            m_listeners.push_back(listener);
    }

    void remove(StateChangeListenerInterface* listener)
    {
        m_listeners.erase(std::remove(m_listeners.begin(), m_listeners.end(), listener), m_listeners.end());
    }

    // The notifier is going: no one is told anything more.
    void detach()
    {
        m_owner = nullptr;
        m_listeners.clear();
    }

    // The host's events, while the delivery is registered with them; they may end before a notifier that
    // lives in a static object.
    std::weak_ptr<HostEvents> m_events;

private:
    StateChangeNotifier* m_owner;                           // not owned; null once the notifier is destroyed
    std::vector<StateChangeListenerInterface*> m_listeners; // not owned
};

StateChangeNotifier::StateChangeNotifier(StateChangeMode_e mode)
    : m_delivery(std::make_shared<Delivery>(*this))
{
    if (mode != StateChangeMode_Immediate)
    {
        ReportProtocolError("vantix::toolbox::StateChangeNotifier was given the state-change mode " +
                            std::to_string(mode) + "; the host offers 2");
        return;
    }
    const std::shared_ptr<HostEvents>& events = host::detail::SharedHostEvents();
    events->stateChanges.addSink(m_delivery.get());
    m_delivery->m_events = events;
}

StateChangeNotifier::~StateChangeNotifier()
{
    m_delivery->detach();
    if (const std::shared_ptr<HostEvents> events = m_delivery->m_events.lock())
        events->stateChanges.removeSink(m_delivery.get());
}

void StateChangeNotifier::addListener(StateChangeListenerInterface* listener)
{
    if (!listener)
    {
        ReportProtocolError("vantix::toolbox::StateChangeNotifier::addListener was given no listener");
        return;
    }
    m_delivery->add(listener);
}

void StateChangeNotifier::removeListener(StateChangeListenerInterface* listener)
{
    m_delivery->remove(listener);
}

} // namespace vantix::toolbox
