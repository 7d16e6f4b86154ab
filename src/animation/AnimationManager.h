#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace vantix::vtxutiltools
{

class AnimatorInterface;
struct KeyFrame_s;
struct Settings_s;

// One animation: the animator chain built over the whole key frame list, and the range of frames to draw,
// drawn one after the other in increasing order. Frames are numbered over the whole list; key frame k sits
// at frame F(k), the sum of the frame counts of the key frames before it.
class AnimationManager
{
public:
    // Builds the chain (which computes every frame of the whole list) and chooses the frames: the whole list
    // when keyFrameSpan is the number of key frames, otherwise key frame firstKeyFrame to key frame
    // firstKeyFrame + keyFrameSpan, both included. A range reaching past the list throws std::out_of_range,
    // here or when the first frame past the list is drawn.
    AnimationManager(const std::vector<KeyFrame_s>& keyFrames, std::size_t firstKeyFrame,
                     std::size_t keyFrameSpan, const Settings_s& settings);
    virtual ~AnimationManager();

    AnimationManager(const AnimationManager&) = delete;
    AnimationManager& operator=(const AnimationManager&) = delete;

    bool hasNextFrame() const;
    // Draws the next frame; the frame counts as drawn only when drawing it succeeded.
    void drawNextFrame();
    std::size_t numFrames() const;
    void cancelAnimation();

private:
    std::unique_ptr<AnimatorInterface> m_animator; // owned: the outermost animator of the chain
    std::uint64_t m_firstFrame = 0;
    std::uint64_t m_endFrame = 0; // one past the last frame to draw
    std::uint64_t m_currentFrame = 0;
};

} // namespace vantix::vtxutiltools
