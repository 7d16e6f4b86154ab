#pragma once

#include <cstddef>

namespace vantix::vtxutiltools
{

// One link of the chain of animators that produces the frames of an animation. Frames are numbered over
// the whole key frame list.
class AnimatorInterface
{
public:
    virtual void drawFrame(std::size_t frame) = 0;
    // The user stopped the animation; whatever is in progress (an export) is abandoned.
    virtual void cancelAnimation() = 0;
    virtual ~AnimatorInterface() = default;
};

} // namespace vantix::vtxutiltools
