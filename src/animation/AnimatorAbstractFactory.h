#pragma once

#include "animation/AnimatorInterface.h"

#include <memory>
#include <vector>

namespace vantix::vtxutiltools
{

struct KeyFrame_s;
struct Settings_s;

// Builds the animator chain that the settings ask for.
class AnimatorAbstractFactory
{
public:
    virtual ~AnimatorAbstractFactory() = default;

    // A new chain over the whole list, the view animator outermost and the on-screen (or to-file) output
    // innermost. If an animator cannot be built, the part of the chain already built is deleted (putting back
    // what it changed in the host) and the exception passes on.
    static std::unique_ptr<AnimatorInterface> createAnimator(const std::vector<KeyFrame_s>& keyFrames,
                                                             const Settings_s& settings);
};

} // namespace vantix::vtxutiltools
