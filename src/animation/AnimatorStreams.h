#pragma once

#include "animation/AnimatorAbstract.h"

#include <vantix/toolbox/StyleValue.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace vantix::vtxutiltools
{

// Moves the host's streamtrace markers and dashes along their streamtraces while the view moves: every
// drawn frame advances the streamtrace time anchor by a fifth of the host's streamtrace delta time, counted
// from the anchor the scene had before the animation, whatever range of frames is drawn. The anchor is put
// back when the animator goes.
class AnimatorStreams : public AnimatorAbstract
{
public:
    // Reads the anchor and the delta time; changes nothing in the host.
    AnimatorStreams(const std::vector<KeyFrame_s>& keyFrames, InnerAnimator innerAnimator);
    ~AnimatorStreams() override;

protected:
    // The frame number plays no part: each drawn frame is one step further.
    void drawFrameAtIndex(std::size_t frame) override;

private:
    vantix::toolbox::StyleValue m_timingStyle; // "StreamAttributes" "StreamTiming", open for the whole life
    vantix::toolbox::StyleValue::MacroIDs m_timeAnchorIDs;
    double m_savedAnchor = 0.0;
    double m_currentAnchor = 0.0;
    double m_anchorStep = 0.0;
};

// True when the host shows streamtrace markers or dashes, so that moving the time anchor shows something.
bool StreamtraceTimingIsEnabled();

} // namespace vantix::vtxutiltools
