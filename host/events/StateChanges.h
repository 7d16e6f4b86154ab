// What the rest of the host needs of the event plumbing to tell add-ons that its state changed.
#pragma once

#include <VtxUtil.h>

namespace vantix::host::detail
{

// Logged, and delivered at once to every callback and listener.
void RaiseStateChange(StateChange_e change);

} // namespace vantix::host::detail
