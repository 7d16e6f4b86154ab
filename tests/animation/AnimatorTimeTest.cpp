#include "animation/AnimatorTime.h"
#include "animation/ChainTestHelpers.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"

#include <support/AddOnTest.h>

#include <cmath>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::KeyFramesOver;
using testhelpers::LoadTimeSteps;
using testhelpers::LoadZones;
using testhelpers::TestZone;
using testhelpers::ViewAtX;

namespace
{

// Far from every time the data sets below have, so that a frame that does not set a time shows.
const double TimeBeforeDrawing = -1000.0;

class AnimatorTimeTest : public testsupport::AddOnTest
{
protected:
    // The solution time each frame of the whole list leaves in the host. The host's time is moved away
    // first, so that only what the frames set is read.
    static std::vector<double> DrawnTimes(AnimatorTime& animator)
    {
        vantix::host::setSolutionTime(TimeBeforeDrawing);
        std::vector<double> times;
        for (std::size_t frame = 0; frame < animator.numTotalFrames(); ++frame)
        {
            animator.drawFrame(frame);
            times.push_back(vantix::host::solutionTime());
        }
        return times;
    }

    static TimeAnimationOptions_s Options(TimeAnimationOperation_e operation, std::uint64_t cycles)
    {
        TimeAnimationOptions_s options;
        options.animateTime = true;
        options.timeAnimationOperation = operation;
        options.numCycles = cycles;
        return options;
    }
};

void ExpectTimes(const std::vector<double>& expected, const std::vector<double>& actual,
                 const std::string& what)
{
    ASSERT_EQ(expected.size(), actual.size()) << what;
    for (std::size_t i = 0; i < expected.size(); ++i)
        EXPECT_NEAR(expected[i], actual[i], 1e-12) << what << ", frame " << i;
}

} // namespace

TEST_F(AnimatorTimeTest, EachOperationGivesEveryFrameItsTime)
{
    const double third = 1.0 / 3.0;
    const struct
    {
        const char* what;
        int firstTime, lastTime; // the strand's time steps
        TimeAnimationOperation_e operation;
        std::uint64_t cycles;
        std::uint64_t frames;
        std::vector<double> expected;
    } cases[] = {
        {"forward over 10 frames, times 0 to 9", 0, 9, Forward, 1, 10, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}},
        {"forward takes one cycle whatever the count", 0, 3, Forward, 5, 4, {0, 1, 2, 3}},
        {"loop of 3 cycles over 10 frames", 0, 1, Loop, 3, 10, {0, 0.5, 1, 0, 0.5, 1, 0, 0.5, 1, 1}},
        {"bounce of 1 cycle over 9 frames",
         0,
         1,
         Bounce,
         1,
         9,
         {0, third, 2 * third, 1, 1, 2 * third, third, 0, 1}},
        {"bounce of 2 cycles over 9 frames", 0, 1, Bounce, 2, 9, {0, 1, 1, 0, 0, 1, 1, 0, 1}},
        {"loop with more cycles than frames", 0, 1, Loop, 20, 10, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1}},
        {"bounce with more cycles than frames", 0, 1, Bounce, 20, 10, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1}},
        // One frame per cycle: each cycle shows its start.
        {"loop of one-frame cycles", 2, 6, Loop, 3, 5, {2, 2, 2, 6, 6}},
        {"loop of two one-frame cycles", 2, 6, Loop, 2, 2, {2, 2}},
        {"bounce of one-frame halves", 2, 6, Bounce, 1, 3, {2, 2, 6}},
        // Zero cycles are one cycle.
        {"loop of 0 cycles", 0, 3, Loop, 0, 4, {0, 1, 2, 3}},
        {"bounce of 0 cycles", 0, 1, Bounce, 0, 4, {0, 1, 1, 0}},
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        vantix::host::addFrame();
        LoadTimeSteps(c.firstTime, c.lastTime);
        AnimatorTime animator(KeyFramesOver(c.frames), Options(c.operation, c.cycles), nullptr);
        ExpectTimes(c.expected, DrawnTimes(animator), c.what);
        EXPECT_THROW(animator.drawFrame(c.frames), std::out_of_range) << c.what;
    }
}

TEST_F(AnimatorTimeTest, AsCapturedRunsThroughTheTimesCapturedWithTheKeyFrames)
{
    const struct
    {
        std::vector<std::uint64_t> counts;
        std::vector<double> times;
        std::vector<double> expected;
    } cases[] = {
        {{2, 3, 1}, {0, 10, 40}, {0, 5, 10, 20, 30, 40}},
        {{1, 1}, {7, 3}, {7, 3}},
        {{4, 1}, {8, 0}, {8, 6, 4, 2, 0}},
        // A key frame without frames of its own: the frames before it run towards its time, and the next key
        // frame takes its frame, as the views do.
        {{2, 0, 2, 1}, {0, 99, 4, 8}, {0, 49.5, 4, 6, 8}},
    };
    LoadTimeSteps(100, 101); // not used: the captured times rule
    for (const auto& c : cases)
    {
        std::vector<KeyFrame_s> keyFrames;
        for (std::size_t i = 0; i < c.counts.size(); ++i)
            keyFrames.emplace_back(ViewAtX(double(i)), "Key", c.counts[i], c.times[i]);
        AnimatorTime animator(keyFrames, Options(AsCaptured, 1), nullptr);
        ExpectTimes(c.expected, DrawnTimes(animator), ::testing::PrintToString(c.times));
    }
}

TEST_F(AnimatorTimeTest, OnlyTheEnabledZonesSetTheRangeAndWithoutThemTimeStandsStill)
{
    const struct
    {
        const char* what;
        bool dataSet;
        std::vector<TestZone> zones;
        double currentTime; // when the animator is built
        TimeAnimationOperation_e operation;
        std::vector<double> expected;
    } cases[] = {
        {"a disabled zone is left out", true, {{5, 1, false}, {0, 1}, {3, 1}}, 0, Forward, {0, 1, 2, 3}},
        {"a disabled zone is left out of a bounce",
         true,
         {{5, 1, false}, {0, 1}, {3, 1}},
         0,
         Bounce,
         {0, 3, 3, 0}},
        {"a static zone counts", true, {{6, 0}, {0, 1}}, 0, Forward, {0, 2, 4, 6}},
        {"no enabled zone, forward",
         true,
         {{0, 1, false}, {9, 1, false}},
         4.5,
         Forward,
         {4.5, 4.5, 4.5, 4.5}},
        {"no enabled zone, loop", true, {{0, 1, false}, {9, 1, false}}, 4.5, Loop, {4.5, 4.5, 4.5, 4.5}},
        {"no enabled zone, bounce", true, {{0, 1, false}, {9, 1, false}}, 4.5, Bounce, {4.5, 4.5, 4.5, 4.5}},
        {"no data set, forward", false, {}, 2.5, Forward, {2.5, 2.5, 2.5, 2.5}},
        {"no data set, bounce", false, {}, 2.5, Bounce, {2.5, 2.5, 2.5, 2.5}},
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        vantix::host::addFrame();
        if (c.dataSet)
            LoadZones(c.zones);
        vantix::host::setSolutionTime(c.currentTime);
        AnimatorTime animator(KeyFramesOver(4), Options(c.operation, 1), nullptr);
        ExpectTimes(c.expected, DrawnTimes(animator), c.what);
        EXPECT_EQ(0, vantix::host::outstandingSets()) << c.what;
    }
}

TEST_F(AnimatorTimeTest, TheTimeStaysAtTheLastFrameDrawnAfterTheAnimator)
{
    LoadTimeSteps(0, 9);
    {
        AnimatorTime animator(KeyFramesOver(10), Options(Forward, 1), nullptr);
        animator.drawFrame(0);
        animator.drawFrame(6);
    }
    EXPECT_EQ(6.0, vantix::host::solutionTime());
}

TEST_F(AnimatorTimeTest, AnUnknownOperationFailsEveryFrame)
{
    LoadTimeSteps(0, 9);
    AnimatorTime animator(KeyFramesOver(10), Options(static_cast<TimeAnimationOperation_e>(7), 1), nullptr);
    vantix::host::setSolutionTime(3.0);
    for (const std::size_t frame : {0, 5, 9})
        EXPECT_THROW(animator.drawFrame(frame), std::out_of_range) << frame;
    EXPECT_EQ(3.0, vantix::host::solutionTime());
}

TEST_F(AnimatorTimeTest, TooFewKeyFramesAreRefused)
{
    try
    {
        AnimatorTime animator(testhelpers::MakeKeyFrames({{ViewAtX(0), 10}}), Options(Forward, 1), nullptr);
        ADD_FAILURE() << "a single key frame was taken";
    }
    catch (const KeyFrameError& error)
    {
        EXPECT_STREQ("At least two keyFrame views must be established to perform an animation.",
                     error.what());
    }
}

TEST(AnimatorTimeInterpolationTest, TimesAreSpreadEvenlyFromStartToEnd)
{
    const struct
    {
        double start, end;
        std::size_t count;
        std::vector<double> expected;
    } cases[] = {
        {0, 1, 0, {}},
        {3, 9, 1, {3}},
        {3, 9, 2, {3, 9}},
        {0, 1, 5, {0, 0.25, 0.5, 0.75, 1}},
        {10, 4, 4, {10, 8, 6, 4}},
        {2, 2, 3, {2, 2, 2}},
    };
    for (const auto& c : cases)
    {
        std::vector<double> out = {42, 43}; // replaced, not appended to
        AnimatorTime::createInterpolatedTimes(c.start, c.end, c.count, out);
        ExpectTimes(c.expected, out,
                    std::to_string(c.start) + " to " + std::to_string(c.end) + " in " +
                        std::to_string(c.count));
    }
}

TEST_F(AnimatorTimeTest, TheRangeOfSolutionTimesIsThatOfTheEnabledZones)
{
    const struct
    {
        const char* what;
        bool dataSet;
        std::vector<TestZone> zones;
        double expectedMin, expectedMax;
    } cases[] = {
        {"times 3, 1, 2", true, {{3, 1}, {1, 1}, {2, 1}}, 1, 3},
        {"one zone", true, {{7.5, 0}}, 7.5, 7.5},
        {"the extremes disabled", true, {{-4, 1, false}, {1, 1}, {2, 0}, {50, 1, false}}, 1, 2},
        // Left as they were: the caller's values.
        {"no enabled zone", true, {{3, 1, false}}, -11, 11},
        {"no data set", false, {}, -11, 11},
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        vantix::host::addFrame();
        if (c.dataSet)
            LoadZones(c.zones);
        double minTime = -11;
        double maxTime = 11;
        GetSolutionTimeMinMax(minTime, maxTime);
        EXPECT_EQ(c.expectedMin, minTime) << c.what;
        EXPECT_EQ(c.expectedMax, maxTime) << c.what;
        EXPECT_EQ(0, vantix::host::outstandingSets()) << c.what;
    }
}

TEST_F(AnimatorTimeTest, ADataSetIsTransientWhenAnEnabledZoneBelongsToAStrand)
{
    const struct
    {
        const char* what;
        bool dataSet;
        std::vector<TestZone> zones;
        bool transient;
    } cases[] = {
        {"no data set", false, {}, false},
        {"static zones only", true, {{0, 0}, {1, 0}}, false},
        {"one zone of strand 1", true, {{0, 0}, {1, 1}}, true},
        {"the strand's zones disabled", true, {{0, 0}, {1, 1, false}, {2, 1, false}}, false},
        {"every zone disabled", true, {{1, 1, false}}, false},
        {"one strand zone enabled among disabled ones", true, {{1, 1, false}, {2, 2, true}}, true},
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        vantix::host::addFrame();
        if (c.dataSet)
            LoadZones(c.zones);
        EXPECT_EQ(c.transient, DataSetIsTransient()) << c.what;
        EXPECT_EQ(0, vantix::host::outstandingSets()) << c.what;
    }
}
