#include "core/KeyFrame.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <vector>

using namespace vantix::vtxutiltools;

namespace
{

std::vector<KeyFrame_s> WithFrameCounts(const std::vector<std::uint64_t>& counts)
{
    std::vector<KeyFrame_s> keyFrames;
    for (std::size_t i = 0; i < counts.size(); ++i)
        keyFrames.emplace_back(View(double(i), 0, 0, 0, 0, 0, 1), "Key " + std::to_string(i), counts[i],
                               0.5 * double(i));
    return keyFrames;
}

} // namespace

TEST(KeyFrameTest, TotalFrameCountIsOnePlusEveryCountButTheLast)
{
    const std::size_t largest = std::numeric_limits<std::size_t>::max();
    const struct
    {
        std::vector<std::uint64_t> counts;
        std::size_t expected;
    } cases[] = {
        {{10, 5, 99}, 16},
        {{7}, 1},
        {{}, 1},
        {{1, 1}, 2},
        {{1, 123456}, 2},
        {{0, 0, 3}, 1},
        {{4, 0, 2, 9}, 7},
        // A sum beyond the largest size stays there instead of wrapping round to a small total.
        {{largest, 1}, largest},
        {{largest / 2 + 1, largest / 2 + 1, 5}, largest},
        {{largest - 1, 1}, largest},
    };
    for (const auto& c : cases)
        EXPECT_EQ(c.expected, GetTotalFrameCount(WithFrameCounts(c.counts)))
            << ::testing::PrintToString(c.counts);
}

TEST(KeyFrameTest, ExtractorsReplaceTheOutputWithOneColumnInListOrder)
{
    const std::vector<KeyFrame_s> keyFrames = WithFrameCounts({4, 5, 6});

    std::vector<std::size_t> counts{99, 98, 97, 96};
    ExtractFrameCounts(keyFrames, counts);
    EXPECT_EQ((std::vector<std::size_t>{4, 5, 6}), counts);

    std::vector<View> views(5);
    ExtractViews(keyFrames, views);
    ASSERT_EQ(3u, views.size());
    for (std::size_t i = 0; i < 3; ++i)
        EXPECT_TRUE(views[i] == keyFrames[i].view) << i;

    std::vector<double> times{1, 2};
    ExtractSolutionTimes(keyFrames, times);
    EXPECT_EQ((std::vector<double>{0.0, 0.5, 1.0}), times);

    ExtractFrameCounts({}, counts);
    ExtractViews({}, views);
    ExtractSolutionTimes({}, times);
    EXPECT_TRUE(counts.empty());
    EXPECT_TRUE(views.empty());
    EXPECT_TRUE(times.empty());
}

TEST(KeyFrameTest, FrameCountsForIndicesFollowTheIndicesAndFailWithoutTouchingTheOutput)
{
    const std::vector<KeyFrame_s> keyFrames = WithFrameCounts({4, 5, 6});
    std::vector<std::size_t> out{1};
    ExtractFrameCountsForIndices(keyFrames, {2, 0}, out);
    EXPECT_EQ((std::vector<std::size_t>{6, 4}), out);
    ExtractFrameCountsForIndices(keyFrames, {1, 1}, out);
    EXPECT_EQ((std::vector<std::size_t>{5, 5}), out);

    EXPECT_THROW(ExtractFrameCountsForIndices(keyFrames, {0, 3}, out), std::out_of_range);
    EXPECT_EQ((std::vector<std::size_t>{5, 5}), out);

    ExtractFrameCountsForIndices(keyFrames, {}, out);
    EXPECT_TRUE(out.empty());
}

TEST(KeyFrameTest, CopiesAreIndependentOfTheirSource)
{
    KeyFrame_s source(View(1, 2, 3, 4, 5, 6, 7), "Front", 12, 3.5);
    KeyFrame_s target(View(), "A much longer name that needs its own allocation", 1, 0.0);
    target = source;
    EXPECT_TRUE(target.view == source.view);
    EXPECT_EQ("Front", target.name);
    EXPECT_EQ(12u, target.frameCount);
    EXPECT_EQ(3.5, target.solutionTime);

    source.name = "Changed";
    source.view.setX(-1);
    EXPECT_EQ("Front", target.name);
    EXPECT_EQ(1.0, target.view.x());

    const KeyFrame_s& self = target;
    target = self;
    EXPECT_EQ("Front", target.name);
    EXPECT_EQ(12u, target.frameCount);
}
