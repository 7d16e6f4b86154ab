#pragma once

#include "core/View.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace vantix::vtxutiltools
{

// One entry of the key frame list.
struct KeyFrame_s
{
    KeyFrame_s() = default;
    KeyFrame_s(const View& view, const std::string& name, std::uint64_t frameCount, double solutionTime);
    KeyFrame_s(const KeyFrame_s&) = default;
    KeyFrame_s(KeyFrame_s&&) noexcept = default;
    ~KeyFrame_s() = default;

    // Copies into a temporary first and then exchanges every field with it, so that a copy that fails
    // (the name cannot be allocated) leaves this key frame as it was.
    KeyFrame_s& operator=(const KeyFrame_s& other);
    KeyFrame_s& operator=(KeyFrame_s&&) noexcept = default;

    View view;
    std::string name;
    // Frames from this key frame to the next one; the last key frame's count takes no part in an animation.
    std::uint64_t frameCount = 0;
    // The solution time current when the key frame was captured.
    double solutionTime = 0.0;
};

// Field by field, exactly: the view (as views compare), the name (case counts), the frame count and the
// solution time. Finding a key frame in the list by value relies on it.
bool operator==(const KeyFrame_s& a, const KeyFrame_s& b);
bool operator!=(const KeyFrame_s& a, const KeyFrame_s& b);

// The number of frames of an animation through the whole list: 1 (the last key frame's own frame) plus the
// frame counts of every key frame but the last. An empty list gives 1. A sum beyond the largest size stays
// at the largest size instead of wrapping round, so that it is refused as too large rather than taken as
// small.
std::size_t GetTotalFrameCount(const std::vector<KeyFrame_s>& keyFrames);

// Each replaces out with one column of the list, in list order.
void ExtractFrameCounts(const std::vector<KeyFrame_s>& keyFrames, std::vector<std::size_t>& out);
void ExtractViews(const std::vector<KeyFrame_s>& keyFrames, std::vector<View>& out);
void ExtractSolutionTimes(const std::vector<KeyFrame_s>& keyFrames, std::vector<double>& out);

// Replaces out with the frame counts of the key frames at indices, in the order of indices. An index outside
// the list throws std::out_of_range and leaves out as it was.
void ExtractFrameCountsForIndices(const std::vector<KeyFrame_s>& keyFrames,
                                  const std::vector<std::size_t>& indices, std::vector<std::size_t>& out);

} // namespace vantix::vtxutiltools
