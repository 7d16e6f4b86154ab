// The key frame list as a document: what each edit changes, what it tells the list's observers of updates
// (inserts and removals: the list view tests), and the indices it refuses.
#include "document/ListModelKeyFrame.h"

#include <support/AddOnTest.h>

using namespace vantix::vtxutiltools;

namespace
{

using ChangeInfo_s = ListModelGenericInterface::ChangeInfo_s;
using Change = std::pair<ChangeInfo_s::ChangeType_e, std::vector<unsigned long>>;

// The key frames named by the letters of names, one letter each.
std::vector<KeyFrame_s> Keys(const std::string& names)
{
    std::vector<KeyFrame_s> keyFrames;
    for (const char name : names)
        keyFrames.emplace_back(View(0, 1, 2, 10, 20, 30, 1.5), std::string(1, name), 10, 0.25);
    return keyFrames;
}

// A list whose changes the test hears as its observer.
class ListModelKeyFrameTest : public testsupport::AddOnTest, public ListModelObserverInterface
{
protected:
    ListModelKeyFrameTest() { m_model.addObserver(*this); }

    void modelChanged(const ChangeInfo_s& change) override
    {
        m_changes.emplace_back(change.type, change.indices);
    }

    void fill(const std::string& names)
    {
        m_model.setDataList(Keys(names));
        m_changes.clear();
    }

    ListModelKeyFrame m_model;
    std::vector<Change> m_changes;
};

TEST_F(ListModelKeyFrameTest, OnlyNamesAndWholeKeyFramesAreReportedAsUpdates)
{
    fill("abc");
    vantix::host::setSolutionTime(7.5);
    const View newView(5, 6, 7, 1, 2, 3, 0.5);
    m_model.setFrameCount(1, 42);
    m_model.setSolutionTime(1, 3.25);
    m_model.update(2, newView);
    EXPECT_EQ(std::make_pair(42ul, 3.25), std::make_pair(m_model.frameCount(1), m_model.solutionTime(1)));
    EXPECT_EQ(KeyFrame_s(newView, "c", 10, 7.5), m_model.data(2)) << "name and frame count stay";
    EXPECT_TRUE(m_changes.empty());

    m_model.setName(0, "renamed");
    const KeyFrame_s replacement(newView, "new", 3, 1.0);
    m_model.setData(1, replacement);
    EXPECT_EQ((std::vector<Change>{{ChangeInfo_s::ItemsUpdated, {0}}, {ChangeInfo_s::ItemsUpdated, {1}}}),
              m_changes);
    EXPECT_EQ(std::make_tuple(std::string("renamed"), std::string("renamed"), replacement),
              std::make_tuple(m_model.name(0), m_model.displayString(0), m_model.data(1)));
    // Names match exactly.
    EXPECT_EQ(std::make_pair(1ul, m_model.end()),
              std::make_pair(m_model.indexForData(replacement),
                             m_model.indexForData(KeyFrame_s(newView, "New", 3, 1.0))));
}

TEST_F(ListModelKeyFrameTest, IndicesBeyondTheListAreRefusedWithoutChangingAnything)
{
    fill("ab");
    const unsigned long size = m_model.size();
    EXPECT_THROW(m_model.data(size), std::out_of_range);
    EXPECT_THROW(m_model.name(size), std::out_of_range);
    EXPECT_THROW(m_model.frameCount(size), std::out_of_range);
    EXPECT_THROW(m_model.solutionTime(size), std::out_of_range);
    EXPECT_THROW(m_model.displayString(size), std::out_of_range);
    EXPECT_THROW(m_model.setData(size, Keys("x")[0]), std::out_of_range);
    EXPECT_THROW(m_model.setName(size, "x"), std::out_of_range);
    EXPECT_THROW(m_model.setFrameCount(size, 1), std::out_of_range);
    EXPECT_THROW(m_model.setSolutionTime(size, 1.0), std::out_of_range);
    EXPECT_THROW(m_model.update(size, View()), std::out_of_range);
    EXPECT_EQ(Keys("ab"), m_model.dataList());
    EXPECT_TRUE(m_changes.empty());
}

} // namespace
