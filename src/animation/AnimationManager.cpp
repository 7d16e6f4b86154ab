#include "animation/AnimationManager.h"

#include "animation/AnimatorAbstractFactory.h"
#include "animation/AnimatorInterface.h"
#include "core/KeyFrame.h"

namespace vantix::vtxutiltools
{

namespace
{

// The sum of the frame counts of the key frames first to end - 1; an index outside the list throws
// std::out_of_range.
std::uint64_t SumOfFrameCounts(const std::vector<KeyFrame_s>& keyFrames, std::size_t first, std::size_t end)
{
    std::uint64_t sum = 0;
    for (std::size_t i = first; i < end; ++i)
        sum += keyFrames.at(i).frameCount;
    return sum;
}

} // namespace

AnimationManager::AnimationManager(const std::vector<KeyFrame_s>& keyFrames, std::size_t firstKeyFrame,
                                   std::size_t keyFrameSpan, const Settings_s& settings)
    : m_animator(AnimatorAbstractFactory::createAnimator(keyFrames, settings))
{
    if (keyFrameSpan == keyFrames.size())
    {
        m_firstFrame = 0;
        m_endFrame = GetTotalFrameCount(keyFrames);
    }
    else
    {
        m_firstFrame = SumOfFrameCounts(keyFrames, 0, firstKeyFrame);
        m_endFrame =
            m_firstFrame + 1 + SumOfFrameCounts(keyFrames, firstKeyFrame, firstKeyFrame + keyFrameSpan);
    }
    m_currentFrame = m_firstFrame;
}

AnimationManager::~AnimationManager() = default;

bool AnimationManager::hasNextFrame() const
{
    return m_currentFrame != m_endFrame;
}

void AnimationManager::drawNextFrame()
{
    m_animator->drawFrame(m_currentFrame);
    ++m_currentFrame;
}

std::size_t AnimationManager::numFrames() const
{
    return m_endFrame - m_firstFrame;
}

void AnimationManager::cancelAnimation()
{
    if (m_animator)
        m_animator->cancelAnimation();
}

} // namespace vantix::vtxutiltools
