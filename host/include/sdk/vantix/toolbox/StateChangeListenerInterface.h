// What a listener of the toolbox's state-change notifier implements.
#pragma once

#include <VtxUtil.h>

namespace vantix::toolbox
{

class StateChangeEventInterface;
class StateChangeNotifierInterface;

class VTX_SDK_API StateChangeListenerInterface
{
public:
    // Called for every state change while the listener is added to the notifier, the moment the change
    // happens. The listener may remove itself (or others) from the notifier while it is being told.
    virtual void stateChanged(const StateChangeEventInterface& event,
                              StateChangeNotifierInterface& notifier) = 0;
    virtual ~StateChangeListenerInterface() = default;
};

} // namespace vantix::toolbox
