#include "animation/AnimatorStreams.h"
#include "animation/ChainTestHelpers.h"

#include <support/AddOnTest.h>

#include <algorithm>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::DeltaTimePath;
using testhelpers::KeyFramesOver;
using testhelpers::ShowDashesPath;
using testhelpers::ShowMarkersPath;
using testhelpers::StyleNumber;
using testhelpers::TimeAnchorPath;
using testhelpers::TraceSince;

namespace
{

class AnimatorStreamsTest : public testsupport::AddOnTest
{
protected:
    static long AnchorWrites(const std::vector<std::string>& trace)
    {
        return long(std::count(trace.begin(), trace.end(),
                               "StyleValue.set StreamAttributes/StreamTiming/TimeAnchor"));
    }
};

} // namespace

TEST_F(AnimatorStreamsTest, EachDrawnFrameMovesTheAnchorByAFifthOfTheDeltaTimeAndTheAnchorComesBack)
{
    const struct
    {
        double anchor, deltaTime;
        std::vector<std::size_t> framesDrawn;
        std::vector<double> expected;
    } cases[] = {
        {2.0, 1.0, {0, 1, 2}, {2.2, 2.4, 2.6}},
        // Counted from the anchor the scene had, whatever frames are drawn.
        {2.0, 1.0, {7, 8, 9}, {2.2, 2.4, 2.6}},
        {2.0, 1.0, {5}, {2.2}},
        {-1.0, 2.5, {0, 1, 2, 3}, {-0.5, 0.0, 0.5, 1.0}},
        {0.0, 0.25, {3, 4}, {0.05, 0.1}},
    };
    for (const auto& c : cases)
    {
        vantix::host::setStyle(TimeAnchorPath, c.anchor);
        vantix::host::setStyle(DeltaTimePath, c.deltaTime);
        vantix::host::setTracing(true);
        const std::size_t start = vantix::host::trace().size();
        {
            AnimatorStreams animator(KeyFramesOver(10), nullptr);
            EXPECT_TRUE(TraceSince(start).empty()) << "the animator changed the host when built";
            for (std::size_t i = 0; i < c.framesDrawn.size(); ++i)
            {
                animator.drawFrame(c.framesDrawn[i]);
                EXPECT_NEAR(c.expected[i], StyleNumber(TimeAnchorPath), 1e-12) << "drawn frame " << i;
            }
        }
        EXPECT_EQ(c.anchor, StyleNumber(TimeAnchorPath));
        EXPECT_EQ(c.deltaTime, StyleNumber(DeltaTimePath));
        EXPECT_EQ(long(c.framesDrawn.size()) + 1, AnchorWrites(TraceSince(start)));
    }
}

TEST_F(AnimatorStreamsTest, WithoutADeltaTimeTheAnchorIsRewrittenWithItsOwnValue)
{
    vantix::host::setStyle(TimeAnchorPath, 3.5);
    vantix::host::setStyle(DeltaTimePath, 0.0);
    vantix::host::setTracing(true);
    AnimatorStreams animator(KeyFramesOver(10), nullptr);
    for (std::size_t frame = 0; frame < 4; ++frame)
    {
        animator.drawFrame(frame);
        EXPECT_EQ(3.5, StyleNumber(TimeAnchorPath));
    }
    EXPECT_EQ(4, AnchorWrites(vantix::host::trace()));
}

TEST_F(AnimatorStreamsTest, TimingIsEnabledWhenMarkersOrDashesAreShown)
{
    const struct
    {
        bool markers, dashes, enabled;
    } cases[] = {
        {true, false, true},
        {false, true, true},
        {true, true, true},
        {false, false, false},
    };
    for (const auto& c : cases)
    {
        vantix::host::setStyle(ShowMarkersPath, c.markers);
        vantix::host::setStyle(ShowDashesPath, c.dashes);
        EXPECT_EQ(c.enabled, StreamtraceTimingIsEnabled()) << c.markers << " " << c.dashes;
    }
}
