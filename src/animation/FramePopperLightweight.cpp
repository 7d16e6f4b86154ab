#include "animation/FramePopperLightweight.h"

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

FramePopperLightweight::FramePopperLightweight()
{
    m_walkOpen = VtxUtilFrameLightweightPopStart() == TRUE;
}

FramePopperLightweight::~FramePopperLightweight()
{
    if (!m_walkOpen)
        return;
    popRemainingFrames();
    VtxUtilFrameLightweightPopEnd();
}

bool FramePopperLightweight::next()
{
    return m_walkOpen && VtxUtilFrameLightweightPopNext() == TRUE;
}

} // namespace vantix::vtxutiltools
