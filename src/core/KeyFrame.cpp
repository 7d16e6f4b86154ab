#include "core/KeyFrame.h"

#include <limits>
#include <utility>

namespace vantix::vtxutiltools
{

namespace
{

// One field of every key frame, in list order. Built aside and swapped in, so that out is left as it was
// when memory runs out.
template <typename Column, typename Field>
void ExtractColumn(const std::vector<KeyFrame_s>& keyFrames, Field KeyFrame_s::*field,
                   std::vector<Column>& out)
{
    std::vector<Column> column;
    column.reserve(keyFrames.size());
    for (const KeyFrame_s& keyFrame : keyFrames)
        column.push_back(keyFrame.*field);
    out.swap(column);
}

} // namespace

KeyFrame_s::KeyFrame_s(const View& view, const std::string& name, std::uint64_t frameCount,
                       double solutionTime)
    : view(view), name(name), frameCount(frameCount), solutionTime(solutionTime)
{
}

KeyFrame_s& KeyFrame_s::operator=(const KeyFrame_s& other)
{
    KeyFrame_s copy(other);
    std::swap(view, copy.view);
    name.swap(copy.name);
    std::swap(frameCount, copy.frameCount);
    std::swap(solutionTime, copy.solutionTime);
    return *this;
}

bool operator==(const KeyFrame_s& a, const KeyFrame_s& b)
{
    return a.view == b.view && a.name == b.name && a.frameCount == b.frameCount &&
           a.solutionTime == b.solutionTime;
}

bool operator!=(const KeyFrame_s& a, const KeyFrame_s& b)
{
    return !(a == b);
}

std::size_t GetTotalFrameCount(const std::vector<KeyFrame_s>& keyFrames)
{
    const std::size_t largest = std::numeric_limits<std::size_t>::max();
    std::size_t total = 1;
    for (std::size_t i = 0; i + 1 < keyFrames.size(); ++i)
    {
        const std::size_t count = keyFrames[i].frameCount;
        if (count > largest - total)
            return largest;
        total += count;
    }
    return total;
}

void ExtractFrameCounts(const std::vector<KeyFrame_s>& keyFrames, std::vector<std::size_t>& out)
{
    ExtractColumn(keyFrames, &KeyFrame_s::frameCount, out);
}

void ExtractViews(const std::vector<KeyFrame_s>& keyFrames, std::vector<View>& out)
{
    ExtractColumn(keyFrames, &KeyFrame_s::view, out);
}

void ExtractSolutionTimes(const std::vector<KeyFrame_s>& keyFrames, std::vector<double>& out)
{
    ExtractColumn(keyFrames, &KeyFrame_s::solutionTime, out);
}

void ExtractFrameCountsForIndices(const std::vector<KeyFrame_s>& keyFrames,
                                  const std::vector<std::size_t>& indices, std::vector<std::size_t>& out)
{
    std::vector<std::size_t> counts;
    counts.reserve(indices.size());
    for (const std::size_t index : indices)
        counts.push_back(keyFrames.at(index).frameCount);
    out.swap(counts);
}

} // namespace vantix::vtxutiltools
