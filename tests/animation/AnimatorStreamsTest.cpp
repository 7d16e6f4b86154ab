// The streamtrace animator: each frame moves the time anchor of the streamtrace markers on by a fifth of
// the delta time, and the anchor comes back afterwards; streamtrace timing is on when markers or dashes
// are shown.
#include "animation/AnimatorStreams.h"
#include "animation/ChainTestHelpers.h"

using namespace testhelpers;
using AnimatorStreamsTest = AnimationTest;

TEST_F(AnimatorStreamsTest, EachDrawnFrameMovesTheAnchorByAFifthOfTheDeltaTimeAndTheAnchorComesBack)
{
    // The anchor and the delta time of the scene, the frames drawn, and the anchor each of them leaves.
    const std::tuple<double, double, std::vector<std::size_t>, std::vector<double>> cases[] = {
        {2.0, 1.0, {0, 1, 2}, {2.2, 2.4, 2.6}},
        // Counted from the anchor the scene had, whatever frames are drawn.
        {2.0, 1.0, {7, 8, 9}, {2.2, 2.4, 2.6}},
        {-1.0, 2.5, {0, 1, 2, 3}, {-0.5, 0.0, 0.5, 1.0}},
        // Without a delta time the anchor is rewritten with its own value.
        {3.5, 0.0, {0, 1, 2, 3}, {3.5, 3.5, 3.5, 3.5}},
    };
    vantix::host::setTracing(true);
    for (const auto& [anchor, deltaTime, framesDrawn, expected] : cases)
    {
        vantix::host::setStyle(TimeAnchorPath, anchor);
        vantix::host::setStyle(DeltaTimePath, deltaTime);
        const std::size_t start = vantix::host::trace().size();
        {
            AnimatorStreams animator(KeyFramesOver(10), nullptr);
            EXPECT_TRUE(TraceSince(start).empty()) << "the animator changed the host when built";
            for (std::size_t i = 0; i < framesDrawn.size(); ++i)
            {
                animator.drawFrame(framesDrawn[i]);
                EXPECT_NEAR(expected[i], StyleNumber(TimeAnchorPath), 1e-12) << "drawn frame " << i;
            }
        }
        EXPECT_EQ(std::make_pair(anchor, deltaTime),
                  std::make_pair(StyleNumber(TimeAnchorPath), StyleNumber(DeltaTimePath)));
        const Strings trace = TraceSince(start);
        EXPECT_EQ(long(framesDrawn.size()) + 1,
                  std::count(trace.begin(), trace.end(),
                             "StyleValue.set StreamAttributes/StreamTiming/TimeAnchor"));
    }
}

TEST_F(AnimatorStreamsTest, TimingIsEnabledWhenMarkersOrDashesAreShown)
{
    const bool cases[][3] = {{true, false, true}, {false, true, true}, {false, false, false}};
    for (const auto& [markers, dashes, enabled] : cases)
    {
        vantix::host::setStyle(ShowMarkersPath, markers);
        vantix::host::setStyle(ShowDashesPath, dashes);
        EXPECT_EQ(enabled, StreamtraceTimingIsEnabled()) << markers << " " << dashes;
    }
}
