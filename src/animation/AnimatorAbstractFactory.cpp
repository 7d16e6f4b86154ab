#include "animation/AnimatorAbstractFactory.h"

#include "animation/AnimatorFade.h"
#include "animation/AnimatorKeyFrame.h"
#include "animation/AnimatorOnScreen.h"
#include "animation/AnimatorStreams.h"
#include "animation/AnimatorTime.h"
#include "animation/AnimatorToFile.h"
#include "core/KeyFrame.h"
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
        return std::make_unique<AnimatorToFile>(keyFrames);
    return std::make_unique<AnimatorOnScreen>(keyFrames);
}

} // namespace

std::unique_ptr<AnimatorInterface>
AnimatorAbstractFactory::createAnimator(const std::vector<KeyFrame_s>& keyFrames, const Settings_s& settings)
{
    // Built from the inside out, each new animator taking the chain built so far as its inner animator: a
    // frame then runs view, lights, streamtraces, solution time, and output last. An animator that cannot be
    // built has already taken the chain over and deletes it; one whose memory cannot be had leaves it in
    // chain, which deletes it. Either way what the chain changed in the host is put back.
    std::unique_ptr<AnimatorAbstract> chain = CreateOutputAnimator(keyFrames, settings.destination);

    if (settings.timeOptions.animateTime)
        chain = std::make_unique<AnimatorTime>(keyFrames, settings.timeOptions, std::move(chain));

    if (settings.animateStreamtraces)
        chain = std::make_unique<AnimatorStreams>(keyFrames, std::move(chain));

    if (settings.fadeIn || settings.fadeOut)
        chain = std::make_unique<AnimatorFade>(keyFrames, settings, std::move(chain));

    return std::make_unique<AnimatorKeyFrame>(keyFrames, std::move(chain));
}

} // namespace vantix::vtxutiltools
