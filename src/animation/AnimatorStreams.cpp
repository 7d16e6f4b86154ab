#include "animation/AnimatorStreams.h"

#include <VtxUtil.h>

#include <utility>

namespace vantix::vtxutiltools
{

namespace
{

// A fifth of the delta time per frame moves the markers slowly enough for the eye to follow them from one
// frame to the next.
const double AnchorStepsPerDeltaTime = 5.0;

} // namespace

AnimatorStreams::AnimatorStreams(const std::vector<KeyFrame_s>& keyFrames, InnerAnimator innerAnimator)
    : AnimatorAbstract(keyFrames, std::move(innerAnimator)),
      m_timingStyle("StreamAttributes", "StreamTiming"),
      m_timeAnchorIDs(m_timingStyle.initMacroIDsfromStyleValueNames("TimeAnchor"))
{
    m_timingStyle.getValue(&m_savedAnchor, -1, -1, m_timeAnchorIDs);
    m_currentAnchor = m_savedAnchor;
    double deltaTime = 0.0;
    m_timingStyle.getValue(&deltaTime, -1, -1, m_timingStyle.initMacroIDsfromStyleValueNames("DeltaTime"));
    m_anchorStep = deltaTime / AnchorStepsPerDeltaTime;
}

AnimatorStreams::~AnimatorStreams()
{
    m_timingStyle.setValue(m_savedAnchor, nullptr, -1, -1, m_timeAnchorIDs);
}

void AnimatorStreams::drawFrameAtIndex(std::size_t /*frame*/)
{
    m_currentAnchor += m_anchorStep;
    m_timingStyle.setValue(m_currentAnchor, nullptr, -1, -1, m_timeAnchorIDs);
}

bool StreamtraceTimingIsEnabled()
{
    const vantix::toolbox::StyleValue timing("StreamAttributes", "StreamTiming");
    Boolean showMarkers = FALSE;
    timing.getValue(&showMarkers, -1, -1, timing.initMacroIDsfromStyleValueNames("ShowMarkers"));
    Boolean showDashes = FALSE;
    timing.getValue(&showDashes, -1, -1, timing.initMacroIDsfromStyleValueNames("ShowDashes"));
    return showMarkers || showDashes;
}

} // namespace vantix::vtxutiltools
