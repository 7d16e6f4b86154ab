// The listener side of the toolbox's state-change notifier.
#pragma once

#include <VtxUtil.h>

namespace vantix::toolbox
{

class StateChangeListenerInterface;

class VTX_SDK_API StateChangeNotifierInterface
{
public:
    virtual ~StateChangeNotifierInterface() = default;
    // Adding a listener that is added already, or removing one that is not, changes nothing. Both may be
    // called from a listener while it is being told of a change: a listener removed then is not told of
    // that change any more; one added then is told from the next change on. The notifier does not own its
    // listeners, which must be removed before they are destroyed.
    virtual void addListener(StateChangeListenerInterface* listener) = 0;
    virtual void removeListener(StateChangeListenerInterface* listener) = 0;
};

} // namespace vantix::toolbox
