#include "animation/AnimatorFade.h"

#include "core/Settings.h"

#include <utility>

namespace vantix::vtxutiltools
{

namespace
{

// Long animations fade over a second or so of frames; short ones over a tenth of their frames, so that
// most of the animation is seen in full light.
const std::uint64_t LongestFadeLength = 30;
const std::uint64_t FramesForTheLongestFade = 90;

std::uint64_t FadeLength(std::uint64_t totalFrames)
{
    return totalFrames > FramesForTheLongestFade ? LongestFadeLength : totalFrames / 10;
}

// "ThreeDAxis" "FrameAxis" "Show". The frame axis helps while a view is set up; in a faded presentation it
// would be the one drawing that is not part of the scene, so it stays out of the animation.
void SetFrameAxisShown(Boolean shown)
{
    vantix::toolbox::StyleValue axis("ThreeDAxis", "FrameAxis", "Show");
    axis.setValue(shown, nullptr, -1, -1, axis.initMacroIDsfromStyleValueNames());
}

} // namespace

AnimatorFade::AnimatorFade(const std::vector<KeyFrame_s>& keyFrames, const Settings_s& settings,
                           InnerAnimator innerAnimator)
    : AnimatorAbstract(keyFrames, std::move(innerAnimator)), m_lightStyle("GlobalThreeD", "LightSource"),
      m_intensityIDs(m_lightStyle.initMacroIDsfromStyleValueNames("Intensity")),
      m_backgroundLightIDs(m_lightStyle.initMacroIDsfromStyleValueNames("BackgroundLight"))
{
    const std::uint64_t length = FadeLength(numTotalFrames());
    // A fade in needs at least one frame to get from black to full light. With fewer than ten frames in all
    // there is none, and frame 0 would be lit by 0/0; the scene is then shown unfaded from its first frame,
    // and the lights are left alone.
    if (settings.fadeIn && length > 0)
    {
        m_fadeIn = true;
        m_fadeInLength = length;
    }
    if (settings.fadeOut)
        m_fadeOutLength = length;

    m_lightStyle.getValue(&m_savedIntensity, -1, -1, m_intensityIDs);
    m_lightStyle.getValue(&m_savedBackgroundLight, -1, -1, m_backgroundLightIDs);

    const vantix::toolbox::StyleValue axis("ThreeDAxis", "FrameAxis", "Show");
    axis.getValue(&m_savedAxisShown, -1, -1, axis.initMacroIDsfromStyleValueNames());
    SetFrameAxisShown(FALSE);
}

AnimatorFade::~AnimatorFade()
{
    m_lightStyle.setValue(m_savedIntensity, nullptr, -1, -1, m_intensityIDs);
    m_lightStyle.setValue(m_savedBackgroundLight, nullptr, -1, -1, m_backgroundLightIDs);
    SetFrameAxisShown(m_savedAxisShown);
}

void AnimatorFade::drawFrameAtIndex(std::size_t frame)
{
    const std::uint64_t totalFrames = numTotalFrames();
    if (m_fadeIn && frame <= m_fadeInLength)
        setLights(static_cast<double>(frame) / static_cast<double>(m_fadeInLength));
    else if (m_fadeOutLength > 0 && frame >= totalFrames - m_fadeOutLength)
        setLights(static_cast<double>(totalFrames - 1 - frame) / static_cast<double>(m_fadeOutLength));
}

void AnimatorFade::setLights(double factor)
{
    m_lightStyle.setValue(m_savedIntensity * factor, nullptr, -1, -1, m_intensityIDs);
    m_lightStyle.setValue(m_savedBackgroundLight * factor, nullptr, -1, -1, m_backgroundLightIDs);
}

} // namespace vantix::vtxutiltools
