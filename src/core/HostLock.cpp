#include "core/HostLock.h"

#include "addon/AddOnID.h"

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
