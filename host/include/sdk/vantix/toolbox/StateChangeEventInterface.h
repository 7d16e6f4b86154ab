// One state change as the toolbox's notifier hands it to its listeners.
#pragma once

#include <VtxUtil.h>

namespace vantix::toolbox
{

class VTX_SDK_API StateChangeEventInterface
{
public:
    virtual StateChange_e getStateChange() const = 0;
    virtual ~StateChangeEventInterface() = default;
};

} // namespace vantix::toolbox
