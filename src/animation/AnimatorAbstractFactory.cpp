#include "animation/AnimatorAbstractFactory.h"

#include "animation/AnimatorKeyFrame.h"
#include "animation/AnimatorOnScreen.h"
#include "core/KeyFrame.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"

#include <utility>

namespace vantix::vtxutiltools
{

namespace
{

// The innermost animator, which draws or exports each frame once the others have set the host up for it.
std::unique_ptr<AnimatorAbstract> CreateOutputAnimator(const std::vector<KeyFrame_s>& keyFrames,
                                                       Destination_e destination)
{
    if (destination != OnScreen)
    {
        // The to-file animator goes here. Until it exists, an export must not quietly turn into an animation
        // on screen.
        throw KeyFrameError("Export of an animation to a file is not available yet.");
    }
    return std::make_unique<AnimatorOnScreen>(keyFrames);
}

} // namespace

std::unique_ptr<AnimatorInterface>
AnimatorAbstractFactory::createAnimator(const std::vector<KeyFrame_s>& keyFrames, const Settings_s& settings)
{
    // Built from the inside out, each new animator taking the chain built so far as its inner animator: a
    // frame then runs view, lights, streamtraces, solution time, and output last.
    std::unique_ptr<AnimatorAbstract> chain = CreateOutputAnimator(keyFrames, settings.destination);

    // The solution time animator goes here, when settings.timeOptions.animateTime asks for it.

    // The streamtrace animator goes here, when settings.animateStreamtraces asks for it.

    // The fade animator goes here, when settings.fadeIn or settings.fadeOut asks for it.

    return std::make_unique<AnimatorKeyFrame>(keyFrames, std::move(chain));
}

} // namespace vantix::vtxutiltools
