// The fade animator: the lights scaled from black over the first frames and to black over the last ones,
// the frame axis hidden while it lives, and the lights and the axis put back as they were.
#include "animation/AnimatorFade.h"
#include "animation/ChainTestHelpers.h"

using namespace testhelpers;

// Lights that are not the host's defaults, so that a restore to the defaults would show.
const double SavedIntensity = 80.0;
const double SavedBackgroundLight = 40.0;
// What DrawAndReadFactor answers for a frame that left the lights alone.
const double Unchanged = -1.0;

class AnimatorFadeTest : public AnimationTest
{
protected:
    void SetUp() override
    {
        AnimationTest::SetUp();
        vantix::host::setStyle(IntensityPath, SavedIntensity);
        vantix::host::setStyle(BackgroundLightPath, SavedBackgroundLight);
        vantix::host::setTracing(true);
    }

    // The factor the frame set both lights to, or Unchanged.
    static double DrawAndReadFactor(AnimatorFade& animator, std::size_t frame)
    {
        const std::size_t start = vantix::host::trace().size();
        animator.drawFrame(frame);
        if (TraceSince(start).empty())
            return Unchanged;
        EXPECT_EQ(2u, TraceSince(start).size()) << frame;
        const double factor = StyleNumber(IntensityPath) / SavedIntensity;
        EXPECT_DOUBLE_EQ(factor, StyleNumber(BackgroundLightPath) / SavedBackgroundLight) << frame;
        return factor;
    }
};

TEST_F(AnimatorFadeTest, TheLightsAreScaledOverTheFirstAndLastFramesAndPutBackWithTheFrameAxis)
{
    const double U = Unchanged;
    // The frames of the animation, the fades, whether the frame axis is shown, and the factor of the lights
    // that drawing a frame leaves.
    using Factors = std::vector<std::pair<std::size_t, double>>; // frame, factor
    // clang-format off
    const std::tuple<const char*, std::uint64_t, bool, bool, bool, Factors> cases[] = {
        {"100 frames, fade in", 100, true, false, true,
         {{0, 0.0}, {1, 1.0 / 30}, {15, 0.5}, {29, 29.0 / 30}, {30, 1.0}, {31, U}, {70, U}, {99, U}}},
        {"100 frames, fade out", 100, false, true, false,
         {{0, U}, {30, U}, {69, U}, {70, 29.0 / 30}, {85, 14.0 / 30}, {98, 1.0 / 30}, {99, 0.0}}},
        {"50 frames, both", 50, true, true, true,
         {{0, 0.0}, {1, 0.2}, {5, 1.0}, {6, U}, {44, U}, {45, 0.8}, {49, 0.0}}},
        {"91 frames fade over 30", 91, true, true, false, {{30, 1.0}, {31, U}, {60, U}, {61, 29.0 / 30}}},
        {"90 frames fade over 9", 90, true, true, true, {{9, 1.0}, {10, U}, {80, U}, {81, 8.0 / 9}}},
        {"10 frames fade over 1", 10, true, true, false, {{0, 0.0}, {1, 1.0}, {2, U}, {8, U}, {9, 0.0}}},
        // Fewer than ten frames leave no frame to fade over: the lights are never touched.
        {"9 frames, fade out", 9, false, true, true, {{0, U}, {4, U}, {8, U}}},
        {"9 frames, fade in", 9, true, false, false, {{0, U}, {1, U}, {8, U}}},
    };
    // clang-format on
    for (const auto& [what, totalFrames, fadeIn, fadeOut, axisShown, factors] : cases)
    {
        vantix::host::setStyle(FrameAxisShownPath, axisShown);
        std::size_t start = vantix::host::trace().size();
        {
            AnimatorFade animator(KeyFramesOver(totalFrames), Animation(false, false, fadeIn, fadeOut),
                                  nullptr);
            // Building hides the frame axis and leaves the lights alone.
            EXPECT_EQ("axis", ChainSteps(TraceSince(start))) << what;
            EXPECT_FALSE(StyleSwitch(FrameAxisShownPath)) << what;
            for (const auto& [frame, expected] : factors)
                EXPECT_NEAR(expected, DrawAndReadFactor(animator, frame), 1e-12)
                    << what << ", frame " << frame;
            start = vantix::host::trace().size();
        }
        // The lights are put back first, then the axis, from whatever the last frame left.
        EXPECT_EQ("lights axis", ChainSteps(TraceSince(start))) << what;
        EXPECT_EQ(SavedIntensity, StyleNumber(IntensityPath)) << what;
        EXPECT_EQ(SavedBackgroundLight, StyleNumber(BackgroundLightPath)) << what;
        EXPECT_EQ(axisShown, StyleSwitch(FrameAxisShownPath)) << what;
    }
}
