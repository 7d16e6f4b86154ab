#include "animation/AnimatorOnScreen.h"

#include <VtxUtil.h>

namespace vantix::vtxutiltools
{

AnimatorOnScreen::AnimatorOnScreen(const std::vector<KeyFrame_s>& keyFrames)
    : AnimatorAbstract(keyFrames, nullptr)
{
}

void AnimatorOnScreen::drawFrameAtIndex(std::size_t /*frame*/)
{
    VtxUtilRedraw(TRUE);
}

} // namespace vantix::vtxutiltools
