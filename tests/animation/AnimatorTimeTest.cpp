// The solution time animator: the time of every frame run forward, looped, bounced or as captured with the
// key frames, over the range of solution times of the enabled zones; time standing still without them;
// and the data set's time range and transience as the enabled zones give them.
#include "animation/AnimatorTime.h"
#include "animation/ChainTestHelpers.h"

#include <stdexcept>

using namespace testhelpers;

class AnimatorTimeTest : public AnimationTest
{
protected:
    static AnimatorTime Build(const std::vector<KeyFrame_s>& keyFrames, TimeAnimationOperation_e operation,
                              std::uint64_t cycles = 1)
    {
        return AnimatorTime(keyFrames, {true, operation, cycles}, nullptr);
    }

    // The solution time each frame of the whole list leaves in the host, to a millionth. The host's time is
    // moved far from every time the data sets have first, so that only what the frames set is read.
    static std::string DrawnTimes(AnimatorTime&& animator)
    {
        vantix::host::setSolutionTime(-1000.0);
        std::vector<double> times;
        for (std::size_t frame = 0; frame < animator.numTotalFrames(); ++frame)
        {
            animator.drawFrame(frame);
            times.push_back(vantix::host::solutionTime());
        }
        EXPECT_THROW(animator.drawFrame(times.size()), std::out_of_range);
        return Rounded(times);
    }

    static std::string Rounded(const std::vector<double>& times)
    {
        std::string text;
        for (const double time : times)
            text += std::to_string(time + 0.0) + " "; // + 0.0: no minus sign for a zero
        return text;
    }
};

TEST_F(AnimatorTimeTest, EachOperationGivesEveryFrameItsTime)
{
    const double third = 1.0 / 3.0;
    // The strand's first and last time steps, the operation, its cycles, the frames and the time of each.
    // clang-format off
    const std::tuple<const char*, int, int, TimeAnimationOperation_e, std::uint64_t, std::uint64_t,
                     std::vector<double>> cases[] = {
        {"forward over 10 frames, times 0 to 9", 0, 9, Forward, 1, 10, {0, 1, 2, 3, 4, 5, 6, 7, 8, 9}},
        {"forward takes one cycle whatever the count", 0, 3, Forward, 5, 4, {0, 1, 2, 3}},
        {"loop of 3 cycles over 10 frames", 0, 1, Loop, 3, 10, {0, 0.5, 1, 0, 0.5, 1, 0, 0.5, 1, 1}},
        {"bounce of 1 cycle", 0, 1, Bounce, 1, 9, {0, third, 2 * third, 1, 1, 2 * third, third, 0, 1}},
        {"bounce of 2 cycles over 9 frames", 0, 1, Bounce, 2, 9, {0, 1, 1, 0, 0, 1, 1, 0, 1}},
        {"loop with more cycles than frames", 0, 1, Loop, 20, 10, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1}},
        {"bounce with more cycles than frames", 0, 1, Bounce, 20, 10, {1, 1, 1, 1, 1, 1, 1, 1, 1, 1}},
        // One frame per cycle: each cycle shows its start.
        {"loop of one-frame cycles", 2, 6, Loop, 3, 5, {2, 2, 2, 6, 6}},
        {"bounce of one-frame halves", 2, 6, Bounce, 1, 3, {2, 2, 6}},
        // Zero cycles are one cycle.
        {"loop of 0 cycles", 0, 3, Loop, 0, 4, {0, 1, 2, 3}},
    };
    // clang-format on
    for (const auto& [what, firstTime, lastTime, operation, cycles, frames, expected] : cases)
    {
        FreshHost();
        LoadTimeSteps(firstTime, lastTime);
        EXPECT_EQ(Rounded(expected), DrawnTimes(Build(KeyFramesOver(frames), operation, cycles))) << what;
    }
}

TEST_F(AnimatorTimeTest, AsCapturedRunsThroughTheTimesCapturedWithTheKeyFrames)
{
    // The frame counts and the times of the key frames, and the time of each frame.
    const std::tuple<std::vector<std::uint64_t>, std::vector<double>, std::vector<double>> cases[] = {
        {{2, 3, 1}, {0, 10, 40}, {0, 5, 10, 20, 30, 40}},
        {{1, 1}, {7, 3}, {7, 3}},
        {{4, 1}, {8, 0}, {8, 6, 4, 2, 0}},
        // A key frame without frames of its own: the frames before it run towards its time, and the next key
        // frame takes its frame, as the views do.
        {{2, 0, 2, 1}, {0, 99, 4, 8}, {0, 49.5, 4, 6, 8}},
    };
    LoadTimeSteps(100, 101); // not used: the captured times rule
    for (const auto& [counts, times, expected] : cases)
    {
        std::vector<KeyFrame_s> keyFrames;
        for (std::size_t i = 0; i < counts.size(); ++i)
            keyFrames.emplace_back(ViewAtX(double(i)), "Key", counts[i], times[i]);
        EXPECT_EQ(Rounded(expected), DrawnTimes(Build(keyFrames, AsCaptured)));
    }
}

TEST_F(AnimatorTimeTest, WithoutAnEnabledZoneTimeStandsStillAndAnUnknownOperationFailsEveryFrame)
{
    for (const TimeAnimationOperation_e operation : {Forward, Bounce})
        for (const std::vector<TestZone>& zones : {std::vector<TestZone>{{0, 1, false}, {9, 1, false}}, {}})
        {
            FreshHost(PlotType_Cartesian3D, zones); // every zone disabled, or no data set at all
            vantix::host::setSolutionTime(4.5);
            EXPECT_EQ(Rounded({4.5, 4.5, 4.5, 4.5}), DrawnTimes(Build(KeyFramesOver(4), operation)))
                << operation;
            EXPECT_EQ(0, vantix::host::outstandingSets());
        }

    LoadTimeSteps(0, 9);
    AnimatorTime unknown = Build(KeyFramesOver(10), static_cast<TimeAnimationOperation_e>(7));
    vantix::host::setSolutionTime(3.0);
    for (const std::size_t frame : {0, 5, 9})
        EXPECT_THROW(unknown.drawFrame(frame), std::out_of_range) << frame;
    EXPECT_EQ(3.0, vantix::host::solutionTime());
}

TEST_F(AnimatorTimeTest, TheRangeOfSolutionTimesAndTransienceAreThoseOfTheEnabledZones)
{
    // The zones (none: no data set), the range of their times and whether the data set is transient.
    // clang-format off
    const std::tuple<const char*, std::vector<TestZone>, double, double, bool> cases[] = {
        {"times 3, 1, 2", {{3, 1}, {1, 1}, {2, 1}}, 1, 3, true},
        {"extremes disabled, static first", {{-4, 1, false}, {2, 0}, {1, 1}, {50, 1, false}}, 1, 2, true},
        {"static zones only", {{0, 0}, {1, 0}}, 0, 1, false},
        {"the strand's zones disabled", {{0, 0}, {1, 1, false}, {2, 1, false}}, 0, 0, false},
        // Left as they were: the caller's values.
        {"no enabled zone", {{3, 1, false}}, -11, 11, false},
        {"no data set", {}, -11, 11, false},
    };
    // clang-format on
    for (const auto& [what, zones, min, max, transient] : cases)
    {
        FreshHost(PlotType_Cartesian3D, zones);
        std::pair<double, double> range = {-11, 11};
        GetSolutionTimeMinMax(range.first, range.second);
        EXPECT_EQ(std::make_pair(min, max), range) << what;
        EXPECT_EQ(transient, DataSetIsTransient()) << what;
        EXPECT_EQ(0, vantix::host::outstandingSets()) << what;
    }
}
