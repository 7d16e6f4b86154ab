#include "animation/FramePopperAbstractFactory.h"

#include "animation/FramePopper.h"
#include "animation/FramePopperLightweight.h"

namespace vantix::vtxutiltools
{

std::unique_ptr<FramePopperAbstract> FramePopperAbstractFactory::getFramePopper(bool full)
{
    if (full)
        return std::make_unique<FramePopper>();
    return std::make_unique<FramePopperLightweight>();
}

} // namespace vantix::vtxutiltools
