// The key frame list as a document: what each edit changes, what it tells the list's observers, and the
// indices it refuses.
#include "document/ListModelKeyFrame.h"

#include <support/AddOnTest.h>

#include <vantix/host/Host.h>

#include <stdexcept>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace
{

using ChangeInfo_s = ListModelGenericInterface::ChangeInfo_s;

KeyFrame_s Key(const std::string& name, double x = 0.0)
{
    return KeyFrame_s(View(x, 1, 2, 10, 20, 30, 1.5), name, 10, 0.25);
}

std::vector<std::string> Names(const ListModelKeyFrame& model)
{
    std::vector<std::string> names;
    for (const KeyFrame_s& keyFrame : model.dataList())
        names.push_back(keyFrame.name);
    return names;
}

class ChangeLog : public ListModelObserverInterface
{
public:
    void modelChanged(const ChangeInfo_s& change) override { changes.push_back(change); }

    std::vector<ChangeInfo_s> changes;
};

class ListModelKeyFrameTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        m_model.addObserver(m_log);
    }

    void TearDown() override
    {
        m_model.removeObserver(m_log);
        AddOnTest::TearDown();
    }

    void Fill(const std::vector<std::string>& names)
    {
        std::vector<KeyFrame_s> keyFrames;
        for (const std::string& name : names)
            keyFrames.push_back(Key(name));
        m_model.setDataList(keyFrames);
        m_log.changes.clear();
    }

    void ExpectOneChange(ChangeInfo_s::ChangeType_e type, const std::vector<unsigned long>& indices)
    {
        ASSERT_EQ(1u, m_log.changes.size());
        EXPECT_EQ(type, m_log.changes[0].type);
        EXPECT_THAT(m_log.changes[0].indices, ElementsAreArray(indices));
        m_log.changes.clear();
    }

    ListModelKeyFrame m_model;
    ChangeLog m_log;
};

TEST_F(ListModelKeyFrameTest, InsertingAndRemovingMovesRowsAndReportsTheirIndices)
{
    const unsigned long end = 99; // anything beyond the last row appends, as end() does
    const struct
    {
        const char* what;
        std::vector<std::string> before;
        bool insert;
        unsigned long index; // insertion index, or first row removed
        std::vector<std::string> inserted;
        unsigned long removedCount;
        std::vector<std::string> after;
        ChangeInfo_s::ChangeType_e reported;
        std::vector<unsigned long> indices;
    } cases[] = {
        {"append at end()",
         {"a", "b", "c"},
         true,
         4,
         {"d"},
         0,
         {"a", "b", "c", "d"},
         ChangeInfo_s::ItemsAdded,
         {3}},
        {"append beyond end()", {"a"}, true, end, {"d"}, 0, {"a", "d"}, ChangeInfo_s::ItemsAdded, {98}},
        {"insert at 0", {"a", "b"}, true, 0, {"d"}, 0, {"d", "a", "b"}, ChangeInfo_s::ItemsAdded, {0}},
        {"insert at size()", {"a", "b"}, true, 2, {"d"}, 0, {"a", "b", "d"}, ChangeInfo_s::ItemsAdded, {2}},
        {"insert three at 1",
         {"a", "b"},
         true,
         1,
         {"x", "y", "z"},
         0,
         {"a", "x", "y", "z", "b"},
         ChangeInfo_s::ItemsAdded,
         {1, 2, 3}},
        {"first into an empty list", {}, true, 1, {"d"}, 0, {"d"}, ChangeInfo_s::ItemsAdded, {0}},
        {"insert nothing", {"a"}, true, 0, {}, 0, {"a"}, ChangeInfo_s::ItemsAdded, {}},
        {"remove the middle", {"a", "b", "c"}, false, 1, {}, 1, {"a", "c"}, ChangeInfo_s::ItemsDeleted, {1}},
        {"remove all", {"a", "b", "c"}, false, 0, {}, 3, {}, ChangeInfo_s::ItemsDeleted, {0, 1, 2}},
        {"remove two inside",
         {"a", "b", "c", "d", "e"},
         false,
         1,
         {},
         2,
         {"a", "d", "e"},
         ChangeInfo_s::ItemsDeleted,
         {1, 2}},
        {"remove none", {"a", "b"}, false, 1, {}, 0, {"a", "b"}, ChangeInfo_s::ItemsDeleted, {}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        Fill(c.before);
        if (c.insert && c.inserted.size() == 1)
        {
            m_model.insertItem(c.index, Key(c.inserted[0]));
        }
        else if (c.insert)
        {
            std::vector<KeyFrame_s> keyFrames;
            for (const std::string& name : c.inserted)
                keyFrames.push_back(Key(name));
            m_model.insertItems(c.index, keyFrames);
        }
        else if (c.removedCount == 1)
        {
            m_model.removeItem(c.index);
        }
        else
        {
            m_model.removeItems(c.index, c.removedCount);
        }
        EXPECT_THAT(Names(m_model), ElementsAreArray(c.after));
        ExpectOneChange(c.reported, c.indices);
    }
}

TEST_F(ListModelKeyFrameTest, OnlyNamesAndWholeKeyFramesAreReportedAsUpdates)
{
    Fill({"a", "b", "c"});
    vantix::host::setSolutionTime(7.5);
    const View newView(5, 6, 7, 1, 2, 3, 0.5);

    m_model.setFrameCount(1, 42);
    m_model.setSolutionTime(1, 3.25);
    m_model.update(2, newView);
    EXPECT_THAT(m_log.changes, IsEmpty());
    EXPECT_EQ(42u, m_model.frameCount(1));
    EXPECT_EQ(3.25, m_model.solutionTime(1));
    EXPECT_EQ(KeyFrame_s(newView, "c", 10, 7.5), m_model.data(2)) << "name and frame count stay";

    m_model.setName(0, "renamed");
    ExpectOneChange(ChangeInfo_s::ItemsUpdated, {0});
    EXPECT_EQ("renamed", m_model.name(0));
    EXPECT_EQ("renamed", m_model.displayString(0));

    const KeyFrame_s replacement(newView, "new", 3, 1.0);
    m_model.setData(1, replacement);
    ExpectOneChange(ChangeInfo_s::ItemsUpdated, {1});
    EXPECT_EQ(replacement, m_model.data(1));
    EXPECT_EQ(1u, m_model.indexForData(replacement));
    EXPECT_EQ(m_model.end(), m_model.indexForData(KeyFrame_s(newView, "New", 3, 1.0)))
        << "names match exactly";
}

TEST_F(ListModelKeyFrameTest, IndicesBeyondTheListAreRefusedWithoutChangingAnything)
{
    Fill({"a", "b"});
    const std::vector<KeyFrame_s> before = m_model.dataList();
    const unsigned long size = m_model.size();

    EXPECT_THROW(m_model.data(size), std::out_of_range);
    EXPECT_THROW(m_model.name(size), std::out_of_range);
    EXPECT_THROW(m_model.frameCount(size), std::out_of_range);
    EXPECT_THROW(m_model.solutionTime(size), std::out_of_range);
    EXPECT_THROW(m_model.displayString(size), std::out_of_range);
    EXPECT_THROW(m_model.setData(size, Key("x")), std::out_of_range);
    EXPECT_THROW(m_model.setName(size, "x"), std::out_of_range);
    EXPECT_THROW(m_model.setFrameCount(size, 1), std::out_of_range);
    EXPECT_THROW(m_model.setSolutionTime(size, 1.0), std::out_of_range);
    EXPECT_THROW(m_model.update(size, View()), std::out_of_range);

    EXPECT_EQ(before, m_model.dataList());
    EXPECT_THAT(m_log.changes, IsEmpty());
}

TEST_F(ListModelKeyFrameTest, ReplacingTheListResetsItsObservers)
{
    Fill({"a", "b"});
    m_model.setDataList({Key("x"), Key("y"), Key("z")});
    EXPECT_THAT(Names(m_model), ElementsAre("x", "y", "z"));
    ExpectOneChange(ChangeInfo_s::ModelReset, {});

    m_model.setDataList({});
    EXPECT_EQ(0u, m_model.size());
    EXPECT_EQ(1u, m_model.end());
    ExpectOneChange(ChangeInfo_s::ModelReset, {});
    EXPECT_EQ("No Key Frames established.", m_model.emptyModelMessage());
}

} // namespace
