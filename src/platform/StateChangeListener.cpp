#include "platform/StateChangeListener.h"

#include "platform/HostGuards.h"

#include <vantix/toolbox/StateChangeEventInterface.h>

namespace vantix::vtxutiltools
{

StateChangeListener::StateChangeListener(const Callback& callback)
    : m_callback(callback), m_notifier(StateChangeMode_Immediate)
{
}

StateChangeListener::~StateChangeListener() = default;

void StateChangeListener::startListening()
{
    const HostLock lock;
    m_notifier.addListener(this);
}

void StateChangeListener::stopListening()
{
    const HostLock lock;
    m_notifier.removeListener(this);
}

void StateChangeListener::stateChanged(const vantix::toolbox::StateChangeEventInterface& event,
                                       vantix::toolbox::StateChangeNotifierInterface& notifier)
{
    const HostLock lock;
    m_callback(event, notifier);
    if (event.getStateChange() == StateChange_QuitProgram)
        stopListening();
}

} // namespace vantix::vtxutiltools
