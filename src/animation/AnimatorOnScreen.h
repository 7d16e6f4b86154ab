#pragma once

#include "animation/AnimatorAbstract.h"

namespace vantix::vtxutiltools
{

// The innermost animator of an animation shown on screen: once the outer animators have set up the host
// for a frame, it redraws the view in full.
class AnimatorOnScreen : public AnimatorAbstract
{
public:
    explicit AnimatorOnScreen(const std::vector<KeyFrame_s>& keyFrames);

protected:
    // The frame number plays no part: everything that differs between frames is already in the host.
    void drawFrameAtIndex(std::size_t frame) override;
};

} // namespace vantix::vtxutiltools
