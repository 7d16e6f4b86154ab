// The key frame record and the columns taken from a list of them: the total frame count, the extractors
// and copying.
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
    // clang-format off
    const std::vector<std::pair<std::vector<std::uint64_t>, std::size_t>> cases = {
        {{10, 5, 99}, 16}, {{7}, 1}, {{}, 1}, {{1, 123456}, 2}, {{4, 0, 2, 9}, 7},
        // A sum beyond the largest size stays there instead of wrapping round to a small total.
        {{largest, 1}, largest}, {{largest - 1, 1}, largest},
        {{largest / 2 + 1, largest / 2 + 1, 5}, largest}};
    // clang-format on
    for (const auto& [counts, total] : cases)
        EXPECT_EQ(total, GetTotalFrameCount(WithFrameCounts(counts))) << ::testing::PrintToString(counts);
}

TEST(KeyFrameTest, ExtractorsReplaceTheOutputWithOneColumnInListOrderOrFailWithoutTouchingIt)
{
    const std::vector<KeyFrame_s> keyFrames = WithFrameCounts({4, 5, 6});
    std::vector<std::size_t> counts{99, 98, 97, 96}, some{1};
    std::vector<View> views(5);
    std::vector<double> times{1, 2};
    ExtractFrameCounts(keyFrames, counts);
    ExtractViews(keyFrames, views);
    ExtractSolutionTimes(keyFrames, times);
    EXPECT_EQ((std::vector<std::size_t>{4, 5, 6}), counts);
    EXPECT_EQ((std::vector<View>{keyFrames[0].view, keyFrames[1].view, keyFrames[2].view}), views);
    EXPECT_EQ((std::vector<double>{0.0, 0.5, 1.0}), times);
    ExtractFrameCountsForIndices(keyFrames, {2, 0}, some);
    EXPECT_EQ((std::vector<std::size_t>{6, 4}), some);
    ExtractFrameCountsForIndices(keyFrames, {1, 1}, some);
    EXPECT_THROW(ExtractFrameCountsForIndices(keyFrames, {0, 3}, some), std::out_of_range);
    EXPECT_EQ((std::vector<std::size_t>{5, 5}), some);
}

TEST(KeyFrameTest, CopyAssignmentTakesEveryFieldAndSurvivesAssigningItself)
{
    const KeyFrame_s source(View(1, 2, 3, 4, 5, 6, 7), "Front", 12, 3.5);
    KeyFrame_s target(View(), "A much longer name that needs its own allocation", 1, 0.0);
    target = source;
    const KeyFrame_s& self = target;
    target = self;
    EXPECT_EQ(source, target);
}
