#include "animation/AnimatorFade.h"
#include "animation/ChainTestHelpers.h"
#include "core/Settings.h"

#include <support/AddOnTest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::BackgroundLightPath;
using testhelpers::FrameAxisShownPath;
using testhelpers::IntensityPath;
using testhelpers::KeyFramesOver;
using testhelpers::StyleNumber;
using testhelpers::StyleSwitch;
using testhelpers::TraceSince;

namespace
{

// Lights that are not the host's defaults, so that a restore to the defaults would show.
const double SavedIntensity = 80.0;
const double SavedBackgroundLight = 40.0;

class AnimatorFadeTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        vantix::host::setStyle(IntensityPath, SavedIntensity);
        vantix::host::setStyle(BackgroundLightPath, SavedBackgroundLight);
        vantix::host::setTracing(true);
    }

    static Settings_s Fades(bool fadeIn, bool fadeOut)
    {
        Settings_s settings;
        settings.fadeIn = fadeIn;
        settings.fadeOut = fadeOut;
        return settings;
    }

    // The factor the frame set the lights to, or nothing when it left them alone.
    static std::optional<double> DrawAndReadFactor(AnimatorFade& animator, std::size_t frame)
    {
        const std::size_t start = vantix::host::trace().size();
        animator.drawFrame(frame);
        const std::vector<std::string> trace = TraceSince(start);
        if (trace.empty())
            return std::nullopt;
        EXPECT_EQ((std::vector<std::string>{"StyleValue.set GlobalThreeD/LightSource/Intensity",
                                            "StyleValue.set GlobalThreeD/LightSource/BackgroundLight"}),
                  trace);
        const double factor = StyleNumber(IntensityPath) / SavedIntensity;
        EXPECT_DOUBLE_EQ(factor, StyleNumber(BackgroundLightPath) / SavedBackgroundLight) << frame;
        return factor;
    }
};

} // namespace

TEST_F(AnimatorFadeTest, TheLightsAreScaledOverTheFirstAndLastFramesOfTheList)
{
    const std::optional<double> unchanged;
    const struct
    {
        const char* what;
        std::uint64_t totalFrames;
        bool fadeIn, fadeOut;
        std::vector<std::pair<std::size_t, std::optional<double>>> factors;
    } cases[] = {
        {"100 frames, fade in",
         100,
         true,
         false,
         {{0, 0.0},
          {1, 1.0 / 30},
          {15, 0.5},
          {29, 29.0 / 30},
          {30, 1.0},
          {31, unchanged},
          {70, unchanged},
          {99, unchanged}}},
        {"100 frames, fade out",
         100,
         false,
         true,
         {{0, unchanged},
          {30, unchanged},
          {69, unchanged},
          {70, 29.0 / 30},
          {85, 14.0 / 30},
          {98, 1.0 / 30},
          {99, 0.0}}},
        {"50 frames, both",
         50,
         true,
         true,
         {{0, 0.0}, {1, 0.2}, {5, 1.0}, {6, unchanged}, {44, unchanged}, {45, 0.8}, {49, 0.0}}},
        {"91 frames fade over 30",
         91,
         true,
         true,
         {{30, 1.0}, {31, unchanged}, {60, unchanged}, {61, 29.0 / 30}}},
        {"90 frames fade over 9",
         90,
         true,
         true,
         {{9, 1.0}, {10, unchanged}, {80, unchanged}, {81, 8.0 / 9}}},
        {"10 frames fade over 1",
         10,
         true,
         true,
         {{0, 0.0}, {1, 1.0}, {2, unchanged}, {8, unchanged}, {9, 0.0}}},
        // Fewer than ten frames leave no frame to fade over: the lights are never touched.
        {"9 frames, fade out", 9, false, true, {{0, unchanged}, {4, unchanged}, {8, unchanged}}},
        {"9 frames, fade in", 9, true, false, {{0, unchanged}, {1, unchanged}, {8, unchanged}}},
        {"2 frames, both", 2, true, true, {{0, unchanged}, {1, unchanged}}},
    };
    for (const auto& c : cases)
    {
        {
            AnimatorFade animator(KeyFramesOver(c.totalFrames), Fades(c.fadeIn, c.fadeOut), nullptr);
            for (const auto& [frame, expected] : c.factors)
            {
                const std::optional<double> factor = DrawAndReadFactor(animator, frame);
                ASSERT_EQ(expected.has_value(), factor.has_value()) << c.what << ", frame " << frame;
                EXPECT_NEAR(expected.value_or(-1.0), factor.value_or(-1.0), 1e-12)
                    << c.what << ", frame " << frame;
            }
            EXPECT_FALSE(StyleSwitch(FrameAxisShownPath)) << c.what;
        }
        EXPECT_EQ(SavedIntensity, StyleNumber(IntensityPath)) << c.what;
        EXPECT_EQ(SavedBackgroundLight, StyleNumber(BackgroundLightPath)) << c.what;
        EXPECT_TRUE(StyleSwitch(FrameAxisShownPath)) << c.what;
    }
}

TEST_F(AnimatorFadeTest, TheFrameAxisIsHiddenFromTheStartAndPutBackAsItWas)
{
    for (const bool shown : {true, false})
    {
        vantix::host::setStyle(FrameAxisShownPath, shown);
        const std::size_t start = vantix::host::trace().size();
        {
            AnimatorFade animator(KeyFramesOver(5), Fades(false, true), nullptr);
            EXPECT_EQ((std::vector<std::string>{"StyleValue.set ThreeDAxis/FrameAxis/Show"}),
                      TraceSince(start));
            EXPECT_FALSE(StyleSwitch(FrameAxisShownPath));
        }
        EXPECT_EQ(shown, StyleSwitch(FrameAxisShownPath));
        // The lights are put back first, then the axis.
        EXPECT_EQ((std::vector<std::string>{"StyleValue.set ThreeDAxis/FrameAxis/Show",
                                            "StyleValue.set GlobalThreeD/LightSource/Intensity",
                                            "StyleValue.set GlobalThreeD/LightSource/BackgroundLight",
                                            "StyleValue.set ThreeDAxis/FrameAxis/Show"}),
                  TraceSince(start));
    }
}

TEST_F(AnimatorFadeTest, TheLightsComeBackFromTheMiddleOfAFade)
{
    {
        AnimatorFade animator(KeyFramesOver(100), Fades(true, true), nullptr);
        animator.drawFrame(0);
        animator.drawFrame(12);
        EXPECT_NEAR(SavedIntensity * 12 / 30, StyleNumber(IntensityPath), 1e-9);
    }
    EXPECT_EQ(SavedIntensity, StyleNumber(IntensityPath));
    EXPECT_EQ(SavedBackgroundLight, StyleNumber(BackgroundLightPath));
}
