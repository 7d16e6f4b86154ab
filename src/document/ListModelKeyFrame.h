// The key frame list: the document that the user edits in the main dialog, that the animation runs
// through and that the key frame file saves and reads. Its observers (the dialog's list view) hear of every
// change of a name or of the list's shape; changes that no view shows (frame count, solution time, view)
// are made silently.
#pragma once

#include "core/KeyFrame.h"
#include "core/View.h"
#include "model/ListModelAbstract.h"

#include <string>
#include <vector>

namespace vantix::vtxutiltools
{

class ListModelKeyFrame : public ListModelAbstract<KeyFrame_s>
{
public:
    ListModelKeyFrame() = default;
    ~ListModelKeyFrame() override;

    unsigned long size() const override;
    // A row of the list view shows the key frame's name and nothing else.
    std::string displayString(unsigned long index) const override;
    std::string emptyModelMessage() const override;

    const std::vector<KeyFrame_s>& dataList() const { return m_keyFrames; }
    const KeyFrame_s& data(unsigned long index) const override;
    const std::string& name(unsigned long index) const;
    unsigned long frameCount(unsigned long index) const;
    double solutionTime(unsigned long index) const;

    // Each throws std::out_of_range for an index not below size(), changing nothing.
    void setData(unsigned long index, const KeyFrame_s& keyFrame) override;
    void setName(unsigned long index, const std::string& name);
    void setFrameCount(unsigned long index, unsigned long frameCount);
    void setSolutionTime(unsigned long index, double solutionTime);
    // Takes view as the key frame's view and the host's current solution time as its time, keeping name and
    // frame count.
    void update(unsigned long index, const View& view);

    // index from 0 to size() inserts before that row, end() appends; callers keep to that range.
    void insertItem(unsigned long index, const KeyFrame_s& keyFrame) override;
    void insertItems(unsigned long index, const std::vector<KeyFrame_s>& keyFrames) override;
    // Callers keep index below size() and first + count at most size().
    void removeItem(unsigned long index) override;
    void removeItems(unsigned long first, unsigned long count) override;

    // Replaces the whole list and tells observers to rebuild. Should copying the list fail, the model is
    // left as it was.
    void setDataList(const std::vector<KeyFrame_s>& keyFrames);

    // The list is held whole at all times; there is nothing to build.
    void rebuildModel() override;

private:
    KeyFrame_s& row(unsigned long index);
    const KeyFrame_s& row(unsigned long index) const;

    std::vector<KeyFrame_s> m_keyFrames;
};

} // namespace vantix::vtxutiltools
