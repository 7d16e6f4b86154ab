#include "platform/DrawingSuspension.h"

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

DrawingSuspension::DrawingSuspension()
{
    VtxUtilDrawGraphics(FALSE);
}

DrawingSuspension::~DrawingSuspension()
{
    VtxUtilDrawGraphics(TRUE);
}

} // namespace vantix::vtxutiltools
