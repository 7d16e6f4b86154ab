#pragma once

#include "animation/AnimatorAbstract.h"

#include <VtxUtil.h>
#include <vantix/toolbox/StyleValue.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace vantix::vtxutiltools
{

struct Settings_s;

// Fades the scene in from black over the first frames of the whole list and out to black over its last
// frames, by scaling the host's light source intensity and background light, and hides the 3D frame axis for
// as long as it exists. Both fades take L frames: 30 for more than 90 frames, otherwise a tenth of the
// frames. The lights and the axis are put back when the animator goes.
class AnimatorFade : public AnimatorAbstract
{
public:
    // Keeps the lights and hides the frame axis at once.
    AnimatorFade(const std::vector<KeyFrame_s>& keyFrames, const Settings_s& settings,
                 InnerAnimator innerAnimator);
    ~AnimatorFade() override;

protected:
    // Frames 0 to L of a fade in get the factors 0, 1/L, ..., 1; the last L frames of a fade out the factors
    // (L - 1)/L down to 0; where both would apply the fade in wins. Other frames leave the lights as the last
    // frame set them.
    void drawFrameAtIndex(std::size_t frame) override;

private:
    void setLights(double factor);

    vantix::toolbox::StyleValue m_lightStyle; // "GlobalThreeD" "LightSource", open for the whole life
    vantix::toolbox::StyleValue::MacroIDs m_intensityIDs;
    vantix::toolbox::StyleValue::MacroIDs m_backgroundLightIDs;
    std::uint64_t m_fadeInLength = 0;
    std::uint64_t m_fadeOutLength = 0;
    double m_savedIntensity = 0.0;
    double m_savedBackgroundLight = 0.0;
    bool m_fadeIn = false;
    Boolean m_savedAxisShown = FALSE;
};

} // namespace vantix::vtxutiltools
