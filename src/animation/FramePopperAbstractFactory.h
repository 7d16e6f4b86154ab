#pragma once

#include "animation/FramePopperAbstract.h"

#include <memory>

namespace vantix::vtxutiltools
{

// Chooses how the frames of the work area are walked.
class FramePopperAbstractFactory
{
public:
    // A FramePopper, which really brings each frame to the top, when full is true; otherwise a
    // FramePopperLightweight, which uses the host's own walk.
    static std::unique_ptr<FramePopperAbstract> getFramePopper(bool full);
};

} // namespace vantix::vtxutiltools
