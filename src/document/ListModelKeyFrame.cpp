#include "document/ListModelKeyFrame.h"

#include <VtxUtil.h>

#include <iterator>
#include <numeric>
#include <stdexcept>

namespace vantix::vtxutiltools
{

namespace
{

std::vector<unsigned long> ConsecutiveIndices(unsigned long first, unsigned long count)
{
    std::vector<unsigned long> indices(count);
    std::iota(indices.begin(), indices.end(), first);
    return indices;
}

} // namespace

ListModelKeyFrame::~ListModelKeyFrame() = default;

unsigned long ListModelKeyFrame::size() const
{
    return m_keyFrames.size();
}

std::string ListModelKeyFrame::displayString(unsigned long index) const
{
    return row(index).name;
}

std::string ListModelKeyFrame::emptyModelMessage() const
{
    return "No Key Frames established.";
}

const KeyFrame_s& ListModelKeyFrame::data(unsigned long index) const
{
    return row(index);
}

const std::string& ListModelKeyFrame::name(unsigned long index) const
{
    return row(index).name;
}

unsigned long ListModelKeyFrame::frameCount(unsigned long index) const
{
    return row(index).frameCount;
}

double ListModelKeyFrame::solutionTime(unsigned long index) const
{
    return row(index).solutionTime;
}

void ListModelKeyFrame::setData(unsigned long index, const KeyFrame_s& keyFrame)
{
    row(index) = keyFrame;
    queueChange(ChangeInfo_s::ItemsUpdated, {index});
}

void ListModelKeyFrame::setName(unsigned long index, const std::string& name)
{
    row(index).name = name;
    queueChange(ChangeInfo_s::ItemsUpdated, {index});
}

void ListModelKeyFrame::setFrameCount(unsigned long index, unsigned long frameCount)
{
    row(index).frameCount = frameCount;
}

void ListModelKeyFrame::setSolutionTime(unsigned long index, double solutionTime)
{
    row(index).solutionTime = solutionTime;
}

void ListModelKeyFrame::update(unsigned long index, const View& view)
{
    KeyFrame_s& keyFrame = row(index);
    const double solutionTime = VtxUtilSolutionTimeGetCurrent();
    keyFrame.view = view;
    keyFrame.solutionTime = solutionTime;
}

void ListModelKeyFrame::insertItem(unsigned long index, const KeyFrame_s& keyFrame)
{
    insertItems(index, std::vector<KeyFrame_s>{keyFrame});
}

void ListModelKeyFrame::insertItems(unsigned long index, const std::vector<KeyFrame_s>& keyFrames)
{
    // end() is one past size(): anything beyond the last row appends, reported from the old size on.
    const bool append = index > m_keyFrames.size();
    const unsigned long firstReported = append ? index - 1 : index;
    const auto insertionPoint = append ? m_keyFrames.end() : m_keyFrames.begin() + static_cast<long>(index);
    m_keyFrames.insert(insertionPoint, keyFrames.begin(), keyFrames.end());
    queueChange(ChangeInfo_s::ItemsAdded, ConsecutiveIndices(firstReported, keyFrames.size()));
}

void ListModelKeyFrame::removeItem(unsigned long index)
{
    removeItems(index, 1);
}

void ListModelKeyFrame::removeItems(unsigned long first, unsigned long count)
{
    const auto begin = m_keyFrames.begin() + static_cast<long>(first);
    m_keyFrames.erase(begin, begin + static_cast<long>(count));
    queueChange(ChangeInfo_s::ItemsDeleted, ConsecutiveIndices(first, count));
}

void ListModelKeyFrame::setDataList(const std::vector<KeyFrame_s>& keyFrames)
{
    std::vector<KeyFrame_s> replaced(keyFrames);
    m_keyFrames.swap(replaced);
    modelReset();
}

void ListModelKeyFrame::rebuildModel() {}

KeyFrame_s& ListModelKeyFrame::row(unsigned long index)
{
    return const_cast<KeyFrame_s&>(static_cast<const ListModelKeyFrame&>(*this).row(index));
}

const KeyFrame_s& ListModelKeyFrame::row(unsigned long index) const
{
    if (index >= m_keyFrames.size())
        throw std::out_of_range("No key frame at that index.");
    return m_keyFrames[index];
}

} // namespace vantix::vtxutiltools
