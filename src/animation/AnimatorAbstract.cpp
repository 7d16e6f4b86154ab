#include "animation/AnimatorAbstract.h"

#include "core/KeyFrame.h"
#include "core/KeyFrameError.h"

#include <utility>

namespace vantix::vtxutiltools
{

AnimatorAbstract::AnimatorAbstract(const std::vector<KeyFrame_s>& keyFrames, InnerAnimator innerAnimator)
    : m_innerAnimator(std::move(innerAnimator))
{
    if (keyFrames.size() < 2)
        throw KeyFrameError("At least two keyFrame views must be established to perform an animation.");
    m_totalFrames = GetTotalFrameCount(keyFrames);
}

AnimatorAbstract::~AnimatorAbstract() = default;

void AnimatorAbstract::drawFrame(std::size_t frame)
{
    drawFrameAtIndex(frame);
    if (m_innerAnimator)
        m_innerAnimator->drawFrame(frame);
}

void AnimatorAbstract::cancelAnimation()
{
    if (m_innerAnimator)
        m_innerAnimator->cancelAnimation();
}

} // namespace vantix::vtxutiltools
