#include "animation/FramePopper.h"

namespace vantix::vtxutiltools
{

FramePopper::FramePopper()
{
    m_startFrame = VtxUtilFrameGetUniqueID();
    VtxUtilFrameActivateTop();
    m_topFrame = VtxUtilFrameGetUniqueID();
    VtxUtilDrawGraphics(FALSE);
}

FramePopper::~FramePopper()
{
    popRemainingFrames();
    VtxUtilFrameActivateByUniqueID(m_startFrame);
    VtxUtilDrawGraphics(TRUE);
}

bool FramePopper::next()
{
    if (!m_more)
        return false;
    VtxUtilFramePushTop();
    m_more = VtxUtilFrameGetUniqueID() != m_topFrame;
    return m_more;
}

} // namespace vantix::vtxutiltools
