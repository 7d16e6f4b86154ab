// The chain of animators that the factory builds from the settings: each frame sets view, lights,
// streamtrace anchor and solution time before the frame is drawn or exported, and tearing the chain down
// puts back what each animator changed from the outside in. A chain canceled or failing while it is built
// is checked through Animate (AnimateTest, AnimateToFileEndToEndTest).
#include "animation/AnimatorAbstractFactory.h"
#include "animation/ChainTestHelpers.h"

#include <memory>

using namespace testhelpers;

// Twenty frames that fade over two; the time steps 0 to 19 give frame f the time f. Exports go to a raster
// metafile.
class AnimatorChainTest : public AnimationTest
{
protected:
    void SetUp() override
    {
        AnimationTest::SetUp();
        LoadTimeSteps(0, 19);
        vantix::host::setStyle(TimeAnchorPath, 1.0);
        vantix::host::setStyle(DeltaTimePath, 1.0);
        m_file = ExportTo("RASTERMETAFILE", "movie.rm");
        vantix::host::setTracing(true);
        m_before = SceneSettings();
    }

    fs::path m_file;
    std::string m_before;
};

TEST_F(AnimatorChainTest, EachFrameSetsViewLightsAnchorAndTimeBeforeTheOutputAndTheChainRestoresOutsideIn)
{
    // The settings, the frame drawn, and the steps of drawing it and of tearing the chain down.
    // clang-format off
    const std::tuple<const char*, Settings_s, std::size_t, const char*, const char*> cases[] = {
        {"all, on screen", Everything(), 0, "view lights anchor time redraw", "lights axis anchor"},
        {"all, to file", Everything(ToFile), 1, "view lights anchor time export",
         "lights axis anchor finish"},
        {"time, fade out", Animation(true, false, false, true), 19, "view lights time redraw", "lights axis"},
        {"streamtraces", Animation(false, true, false, false), 7, "view anchor redraw", "anchor"},
        {"time, to file", Animation(true, false, false, false, ToFile), 3, "view time export", "finish"},
        {"nothing but the view", Settings_s(), 7, "view redraw", ""},
    };
    // clang-format on
    for (const auto& [what, settings, frame, frameSteps, teardownSteps] : cases)
    {
        SCOPED_TRACE(what);
        std::unique_ptr<AnimatorInterface> chain =
            AnimatorAbstractFactory::createAnimator(KeyFramesOver(20), settings);
        // Building hides the frame axis when there is a fade, and changes nothing else the frames show.
        EXPECT_EQ(!settings.fadeIn && !settings.fadeOut, StyleSwitch(FrameAxisShownPath));

        vantix::host::setSolutionTime(-5.0);
        std::size_t start = vantix::host::trace().size();
        chain->drawFrame(frame);
        EXPECT_EQ(frameSteps, ChainSteps(TraceSince(start)));
        EXPECT_NEAR(10.0 * double(frame), HostView().x(), 1e-9);
        EXPECT_EQ(settings.timeOptions.animateTime ? double(frame) : -5.0, vantix::host::solutionTime());

        start = vantix::host::trace().size();
        chain.reset();
        EXPECT_EQ(teardownSteps, ChainSteps(TraceSince(start)));
        EXPECT_EQ(m_before, SceneSettings());
        EXPECT_FALSE(VtxUtilExportIsRecording());
        // The frame counts of finished files: AnimateToFileEndToEndTest.
        EXPECT_EQ(settings.destination == ToFile, fs::exists(m_file));
        fs::remove(m_file);
    }
}
