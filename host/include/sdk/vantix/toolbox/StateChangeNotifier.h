// Tells its listeners of the host's state changes, from its construction until it is destroyed.
//
//     class DropWhenNo3D : public StateChangeListenerInterface { ... };
//     StateChangeNotifier notifier(StateChangeMode_Immediate);
//     notifier.addListener(&listener);
//
// Listeners are told in the order they were added. A notifier may be destroyed by one of its own listeners
// while it tells them: the listeners after it are then not told.
#pragma once

#include <VtxUtil.h>
#include <vantix/toolbox/StateChangeNotifierInterface.h>

#include <memory>

namespace vantix::toolbox
{

class VTX_SDK_API StateChangeNotifier : public StateChangeNotifierInterface
{
public:
    // A mode the host does not offer is reported as a protocol error, and such a notifier tells nothing.
    explicit StateChangeNotifier(StateChangeMode_e mode = StateChangeMode_Immediate);
    ~StateChangeNotifier() override;
    StateChangeNotifier(const StateChangeNotifier&) = delete;
    StateChangeNotifier& operator=(const StateChangeNotifier&) = delete;

    // A null listener is a protocol error the host reports.
    void addListener(StateChangeListenerInterface* listener) override;
    void removeListener(StateChangeListenerInterface* listener) override;

private:
    class Delivery;
    // Shared with a delivery in progress, which keeps it alive should a listener destroy this notifier.
    std::shared_ptr<Delivery> m_delivery;
};

} // namespace vantix::toolbox
