#pragma once

#include "animation/AnimatorInterface.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace vantix::vtxutiltools
{

struct KeyFrame_s;
class AnimatorAbstract;

// The next animator of the chain, owned by the animator that hands it each frame; null for the innermost.
using InnerAnimator = std::unique_ptr<AnimatorAbstract>;

// The common part of every animator: it owns the next animator of the chain and hands every frame on to it
// after doing its own work, so that the innermost animator (which draws or exports) runs last, once the
// outer ones have set up the host for that frame.
//
// Deleting an animator runs its own destructor body (which puts back what it changed in the host) before
// its inner animator is deleted, so a chain is torn down from the outside in.
class AnimatorAbstract : public virtual AnimatorInterface
{
public:
    // Takes the inner animator over at once, so that it is deleted even when this throws. Refuses a list
    // of fewer than two key frames with a KeyFrameError.
    AnimatorAbstract(const std::vector<KeyFrame_s>& keyFrames, InnerAnimator innerAnimator);
    ~AnimatorAbstract() override;

    AnimatorAbstract(const AnimatorAbstract&) = delete;
    AnimatorAbstract& operator=(const AnimatorAbstract&) = delete;

    // This animator's work, then the inner animator's. An exception stops the frame where it arises.
    void drawFrame(std::size_t frame) final;
    void cancelAnimation() override;

    // The number of frames of an animation through the whole key frame list.
    std::uint64_t numTotalFrames() const { return m_totalFrames; }

protected:
    // This animator's own work for one frame.
    virtual void drawFrameAtIndex(std::size_t frame) = 0;

private:
    InnerAnimator m_innerAnimator; // owned; null for the innermost animator
    std::uint64_t m_totalFrames = 0;
};

} // namespace vantix::vtxutiltools
