#include "platform/HostLock.h"

#include "platform/AddOnID.h"

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

HostLock::HostLock()
{
    VtxUtilLockStart(AddOnID);
}

HostLock::~HostLock()
{
    VtxUtilLockFinish(AddOnID);
}

} // namespace vantix::vtxutiltools
