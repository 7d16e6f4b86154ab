#include "platform/HostGuards.h"

#include "platform/AddOnID.h"

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

void StartHostLock()
{
    VtxUtilLockStart(AddOnID);
}

void FinishHostLock()
{
    VtxUtilLockFinish(AddOnID);
}

void SuspendDrawing()
{
    VtxUtilDrawGraphics(FALSE);
}

void ResumeDrawing()
{
    VtxUtilDrawGraphics(TRUE);
}

} // namespace vantix::vtxutiltools
