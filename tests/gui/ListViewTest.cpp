// A list view mirroring its model into a real host list control: the empty-model message, line-by-line
// appends, deletions and replacements against full rebuilds, the selection kept across them, the control
// identifier, model ownership, suspended updates, the host lock, and a view without a control.
#include "gui/ListView.h"
#include "document/ListModelKeyFrame.h"
#include "model/ListModelAbstract.h"
#include "model/ListModelPreMapped.h"

#include <support/AddOnTest.h>

#include <VtxGUI.h>
#include <VtxUtil.h>
#include <vantix/host/Gui.h>
#include <vantix/host/Host.h>

#include <algorithm>
#include <cstddef>
#include <functional>
#include <iterator>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace
{

void NoAction() {}
void NoValue(const int*) {}

// What a model went through while a test watched it.
struct ModelLife_s
{
    int rebuilds = 0;
    int frees = 0;
    int deletions = 0;
};

// A list of texts that counts its life cycle and reports each change with exactly the indices it is given,
// in the order given.
class CountingModel : public ListModelAbstract<std::string>
{
public:
    explicit CountingModel(ModelLife_s& life, std::vector<std::string> items = {})
        : m_life(life), m_items(std::move(items))
    {
    }
    ~CountingModel() override { ++m_life.deletions; }

    unsigned long size() const override { return m_items.size(); }
    std::string displayString(unsigned long index) const override { return m_items.at(index); }
    const std::string& data(unsigned long index) const override { return m_items.at(index); }
    void rebuildModel() override { ++m_life.rebuilds; }
    void freeMemory() override { ++m_life.frees; }

    void append(const std::string& item)
    {
        m_items.push_back(item);
        queueChange(ChangeInfo_s::ItemsAdded, {m_items.size() - 1});
    }

    void erase(const std::vector<unsigned long>& indices)
    {
        std::vector<unsigned long> descending(indices);
        std::sort(descending.rbegin(), descending.rend());
        for (const unsigned long index : descending)
            m_items.erase(m_items.begin() + static_cast<long>(index));
        queueChange(ChangeInfo_s::ItemsDeleted, indices);
    }

private:
    ModelLife_s& m_life;
    std::vector<std::string> m_items;
};

// A model whose texts cannot be had.
class UnreadableModel : public ListModelAbstract<int>
{
public:
    unsigned long size() const override { return 2; }
    std::string displayString(unsigned long) const override { throw std::runtime_error("unreadable"); }
    const int& data(unsigned long) const override { throw std::runtime_error("unreadable"); }
    void rebuildModel() override {}
};

KeyFrame_s Named(const std::string& name)
{
    return KeyFrame_s(View(), name, 30, 0.0);
}

std::vector<KeyFrame_s> KeyFramesNamed(const std::vector<std::string>& names)
{
    std::vector<KeyFrame_s> keyFrames;
    for (const std::string& name : names)
        keyFrames.push_back(Named(name));
    return keyFrames;
}

long Occurrences(const std::vector<std::string>& trace, const std::string& call)
{
    return std::count(trace.begin(), trace.end(), call);
}

bool IsControlCall(const std::string& call)
{
    return call.rfind("VtxGUI", 0) == 0;
}

// The traced calls that reach a dialog control.
std::vector<std::string> ControlCalls(const std::vector<std::string>& trace)
{
    std::vector<std::string> calls;
    std::copy_if(trace.begin(), trace.end(), std::back_inserter(calls), IsControlCall);
    return calls;
}

class ListViewTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        m_dialog =
            VtxGUIDialogCreateModeless(GuiId_MainWindow, 400, 300, "List View", nullptr, NoAction, nullptr);
        m_list = VtxGUIListAdd(m_dialog, 10, 10, 200, 200, TRUE, NoValue);
    }

    std::vector<std::string> Lines() const { return vantix::host::guiElement(m_list).items; }
    std::vector<int> SelectedPositions() const { return vantix::host::guiElement(m_list).selected; }
    bool Sensitive() const { return vantix::host::guiElement(m_list).sensitive; }

    void Select(std::vector<int> positions) const
    {
        VtxGUIListSetSelectedItems(m_list, positions.data(), static_cast<int>(positions.size()));
    }

    // The host calls made from here on, as traced by TraceSinceMark.
    void MarkTrace()
    {
        vantix::host::setTracing(true);
        m_traceMark = vantix::host::trace().size();
    }
    std::vector<std::string> TraceSinceMark() const
    {
        const std::vector<std::string> trace = vantix::host::trace();
        return std::vector<std::string>(trace.begin() + static_cast<long>(m_traceMark), trace.end());
    }

    int m_dialog = GuiId_None;
    int m_list = GuiId_None;
    std::size_t m_traceMark = 0;
    ListModelKeyFrame m_keyFrames;
};

} // namespace

TEST_F(ListViewTest, AnEmptyModelShowsItsMessageAsTheOnlyGreyedOutLine)
{
    const struct
    {
        const char* model;
        std::function<ListModelGenericInterface*()> make;
        const char* message;
    } cases[] = {
        {"key frames", [] { return new ListModelKeyFrame; }, "No Key Frames established."},
        {"generic", [] { return new ListModelPreMapped<int>(nullptr, 0); }, "No items available."},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.model);
        VtxGUIListAppendItem(m_list, "left over");
        ListView view(m_list, ListView::MultiSelection);
        view.setModel(c.make());
        EXPECT_THAT(Lines(), ElementsAre(c.message));
        EXPECT_FALSE(Sensitive());
        EXPECT_THAT(SelectedPositions(), IsEmpty());
    }
}

TEST_F(ListViewTest, TheFirstItemMakesTheListSensitiveAndShowsOnlyThatItem)
{
    ListView view(m_list, ListView::MultiSelection);
    view.setModel(m_keyFrames);
    m_keyFrames.insertItem(m_keyFrames.end(), Named("View 1"));
    EXPECT_THAT(Lines(), ElementsAre("View 1"));
    EXPECT_TRUE(Sensitive());
}

TEST_F(ListViewTest, AnItemAddedAfterTheLastAppendsOneLineAndLeavesTheSelectionAlone)
{
    // end() and the old item count both mean "after the last item".
    for (const unsigned long index : {4ul, 3ul})
    {
        SCOPED_TRACE(index);
        m_keyFrames.setDataList(KeyFramesNamed({"A", "B", "C"}));
        ListView view(m_list, ListView::MultiSelection);
        view.setModel(m_keyFrames);
        view.selectionModel()->setSelectedItems({1});
        MarkTrace();
        m_keyFrames.insertItem(index, Named("D"));
        const std::vector<std::string> trace = TraceSinceMark();

        EXPECT_THAT(Lines(), ElementsAre("A", "B", "C", "D"));
        EXPECT_THAT(SelectedPositions(), ElementsAre(2));
        EXPECT_EQ(1, Occurrences(trace, "VtxGUIListAppendItem"));
        EXPECT_EQ(0, Occurrences(trace, "VtxGUIListDeleteAllItems"));
        EXPECT_EQ(0, Occurrences(trace, "VtxGUIListDeselectAllItems"));
        EXPECT_EQ(0, Occurrences(trace, "VtxGUIListSetSelectedItems"));
    }
}

TEST_F(ListViewTest, AnItemInsertedAtTheFrontRebuildsTheListAndRestoresTheSelectionByIndex)
{
    m_keyFrames.setDataList(KeyFramesNamed({"A", "B", "C"}));
    ListView view(m_list, ListView::MultiSelection);
    view.setModel(m_keyFrames);
    Select({1, 3});
    MarkTrace();
    m_keyFrames.insertItem(0, Named("X"));

    EXPECT_THAT(Lines(), ElementsAre("X", "A", "B", "C"));
    EXPECT_THAT(SelectedPositions(), ElementsAre(1, 3));
    EXPECT_EQ(1, Occurrences(TraceSinceMark(), "VtxGUIListDeleteAllItems"));
    EXPECT_EQ(4, Occurrences(TraceSinceMark(), "VtxGUIListAppendItem"));
}

TEST_F(ListViewTest, DeletedItemsLeaveTheListFromTheHighestPositionDown)
{
    // Deleting indices 1 and 3 must take position 4 first and then position 2, however the change lists them.
    for (const std::vector<unsigned long>& deleted : {std::vector<unsigned long>{1, 3}, {3, 1}})
    {
        SCOPED_TRACE(deleted.front());
        ModelLife_s life;
        CountingModel model(life, {"A", "B", "C", "D", "E"});
        ListView view(m_list, ListView::MultiSelection);
        view.setModel(model);
        MarkTrace();
        model.erase(deleted);
        const std::vector<std::string> trace = TraceSinceMark();

        EXPECT_THAT(Lines(), ElementsAre("A", "C", "E"));
        EXPECT_EQ(2, Occurrences(trace, "VtxGUIListDeleteItemAtPos"));
        EXPECT_EQ(0, Occurrences(trace, "VtxGUIListDeleteAllItems"));
    }
}

TEST_F(ListViewTest, AfterADeletionTheIndicesSelectedBeforeAreSelectedAgainWhereTheyStillExist)
{
    const struct
    {
        std::vector<int> selectedBefore; // positions
        unsigned long deleted;
        std::vector<int> selectedAfter; // positions
    } cases[] = {
        {{5}, 1, {}},        // index 4 is past the new end
        {{1, 4}, 1, {1, 4}}, // indices 0 and 3, now showing A and E
        {{3}, 1, {3}},       {{2}, 4, {2}}, {{}, 0, {}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.deleted);
        m_keyFrames.setDataList(KeyFramesNamed({"A", "B", "C", "D", "E"}));
        ListView view(m_list, ListView::MultiSelection);
        view.setModel(m_keyFrames);
        Select(c.selectedBefore);
        m_keyFrames.removeItem(c.deleted);
        EXPECT_EQ(4u, Lines().size());
        EXPECT_THAT(SelectedPositions(), ElementsAreArray(c.selectedAfter));
    }
}

TEST_F(ListViewTest, DeletingTheLastItemShowsTheEmptyModelMessageAgain)
{
    m_keyFrames.setDataList(KeyFramesNamed({"A", "B"}));
    ListView view(m_list, ListView::MultiSelection);
    view.setModel(m_keyFrames);
    Select({1});
    m_keyFrames.removeItems(0, 2);
    EXPECT_THAT(Lines(), ElementsAre("No Key Frames established."));
    EXPECT_FALSE(Sensitive());
    EXPECT_THAT(SelectedPositions(), IsEmpty());
}

TEST_F(ListViewTest, AnUpdatedItemIsReplacedInItsLineAndTheSelectionStays)
{
    m_keyFrames.setDataList(KeyFramesNamed({"A", "B", "C"}));
    ListView view(m_list, ListView::MultiSelection);
    view.setModel(m_keyFrames);
    Select({2, 3});
    MarkTrace();
    m_keyFrames.setName(1, "Renamed");

    EXPECT_THAT(Lines(), ElementsAre("A", "Renamed", "C"));
    EXPECT_THAT(SelectedPositions(), ElementsAre(2, 3));
    EXPECT_EQ(1, Occurrences(TraceSinceMark(), "VtxGUIListReplaceItem"));
    EXPECT_EQ(0, Occurrences(TraceSinceMark(), "VtxGUIListDeleteAllItems"));
}

TEST_F(ListViewTest, AModelResetRebuildsFromTheNewContentsKeepingTheSelectedIndices)
{
    m_keyFrames.setDataList(KeyFramesNamed({"A", "B", "C"}));
    ListView view(m_list, ListView::MultiSelection);
    view.setModel(m_keyFrames);
    Select({2, 3});
    m_keyFrames.setDataList(KeyFramesNamed({"P", "Q"}));
    EXPECT_THAT(Lines(), ElementsAre("P", "Q"));
    EXPECT_THAT(SelectedPositions(), ElementsAre(2));
}

TEST_F(ListViewTest, OnlyANewControlIdentifierRebuildsTheList)
{
    m_keyFrames.setDataList(KeyFramesNamed({"A", "B"}));
    ListView view(m_list, ListView::MultiSelection);
    view.setModel(m_keyFrames);
    MarkTrace();
    view.setGuiID(m_list);
    EXPECT_THAT(TraceSinceMark(), IsEmpty());

    const int other = VtxGUIListAdd(m_dialog, 10, 220, 200, 50, TRUE, NoValue);
    view.setGuiID(other);
    EXPECT_EQ(other, view.guiId());
    EXPECT_THAT(vantix::host::guiElement(other).items, ElementsAre("A", "B"));
    m_keyFrames.setName(0, "Renamed");
    EXPECT_THAT(vantix::host::guiElement(other).items, ElementsAre("Renamed", "B"));
    EXPECT_THAT(Lines(), ElementsAre("A", "B"));
}

TEST_F(ListViewTest, AViewWithoutAControlTouchesNoControl)
{
    m_keyFrames.setDataList(KeyFramesNamed({"A", "B"}));
    MarkTrace();
    ListView view(ListView::MultiSelection);
    EXPECT_EQ(GuiId_None, view.guiId());
    view.setModel(m_keyFrames);
    m_keyFrames.insertItem(m_keyFrames.end(), Named("C"));
    m_keyFrames.insertItem(0, Named("Z"));
    m_keyFrames.setName(1, "Renamed");
    m_keyFrames.removeItem(0);
    m_keyFrames.setDataList(KeyFramesNamed({"P"}));
    m_keyFrames.removeItem(0);
    view.suspendUpdates();
    view.resumeUpdates();
    view.setGuiID(GuiId_None);
    EXPECT_THAT(ControlCalls(TraceSinceMark()), IsEmpty());

    // A control bound later shows the model as it is then.
    m_keyFrames.setDataList(KeyFramesNamed({"Q", "R"}));
    view.setGuiID(m_list);
    EXPECT_THAT(Lines(), ElementsAre("Q", "R"));

    // Unbinding leaves the control as it was.
    view.setGuiID(GuiId_None);
    MarkTrace();
    m_keyFrames.setName(0, "Renamed");
    m_keyFrames.removeItem(1);
    EXPECT_THAT(ControlCalls(TraceSinceMark()), IsEmpty());
    EXPECT_THAT(Lines(), ElementsAre("Q", "R"));
}

TEST_F(ListViewTest, AModelGivenByPointerIsDeletedWhenReplacedAndWithTheView)
{
    ModelLife_s first, second;
    {
        ListView view(m_list, ListView::MultiSelection);
        view.setModel(new CountingModel(first, {"A"}));
        view.setModel(new CountingModel(second, {"B"}));
        EXPECT_EQ(1, first.deletions);
        EXPECT_EQ(0, second.deletions);
        EXPECT_THAT(Lines(), ElementsAre("B"));
    }
    EXPECT_EQ(1, first.deletions);
    EXPECT_EQ(1, second.deletions);
}

TEST_F(ListViewTest, AModelGivenByReferenceIsNeverDeletedAndNoLongerObservedOnceLetGo)
{
    ModelLife_s firstLife, secondLife;
    CountingModel first(firstLife, {"A"});
    CountingModel second(secondLife, {"B"});
    {
        ListView view(m_list, ListView::MultiSelection);
        view.setModel(first);
        view.setModel(second);
        EXPECT_EQ(0, firstLife.deletions);
        MarkTrace();
        first.append("A2");
        EXPECT_THAT(ControlCalls(TraceSinceMark()), IsEmpty());
    }
    EXPECT_EQ(0, firstLife.deletions);
    EXPECT_EQ(0, secondLife.deletions);
    // The view is gone; the model it showed must not reach it any more.
    second.append("B2");
    EXPECT_THAT(Lines(), ElementsAre("B"));
}

TEST_F(ListViewTest, SettingTheModelShownAlreadyChangesNothingNotEvenItsOwnership)
{
    ModelLife_s life;
    {
        ListView view(m_list, ListView::MultiSelection);
        auto* model = new CountingModel(life, {"A"});
        view.setModel(model);
        MarkTrace();
        view.setModel(*model);
        view.setModel(model);
        EXPECT_THAT(TraceSinceMark(), IsEmpty());
        EXPECT_EQ(model, view.model());
        EXPECT_EQ(0, life.deletions);
    }
    EXPECT_EQ(1, life.deletions);
}

TEST_F(ListViewTest, ResetModelAttachesAgainAndKeepsTheOwnershipTheViewHad)
{
    ModelLife_s ownedFirst, ownedSecond, borrowedFirst, borrowedSecond;
    CountingModel borrowedA(borrowedFirst, {"A"});
    CountingModel borrowedB(borrowedSecond, {"B"});
    {
        ListView owning(m_list, ListView::MultiSelection);
        auto* first = new CountingModel(ownedFirst, {"A"});
        owning.setModel(first);
        MarkTrace();
        owning.resetModel(first);
        EXPECT_EQ(1, Occurrences(TraceSinceMark(), "VtxGUIListDeleteAllItems"));
        EXPECT_EQ(0, ownedFirst.deletions);
        owning.resetModel(new CountingModel(ownedSecond, {"B"}));
        EXPECT_EQ(1, ownedFirst.deletions);
        EXPECT_EQ(0, ownedSecond.deletions);
        EXPECT_THAT(Lines(), ElementsAre("B"));

        ListView borrowing(m_list, ListView::MultiSelection);
        borrowing.setModel(borrowedA);
        borrowing.resetModel(&borrowedB);
        EXPECT_EQ(&borrowedB, borrowing.model());
    }
    EXPECT_EQ(1, ownedSecond.deletions);
    EXPECT_EQ(0, borrowedFirst.deletions);
    EXPECT_EQ(0, borrowedSecond.deletions);
}

TEST_F(ListViewTest, ASuspendedViewLetsTheModelFreeItsMemoryAndRebuildsWhenResumed)
{
    ModelLife_s life;
    CountingModel model(life, {"A", "B"});
    ListView view(m_list, ListView::MultiSelection);
    view.setModel(model);
    EXPECT_EQ(1, life.rebuilds);
    EXPECT_EQ(0, life.frees);

    view.suspendUpdates();
    EXPECT_EQ(1, life.frees);
    MarkTrace();
    model.append("C");
    EXPECT_THAT(ControlCalls(TraceSinceMark()), IsEmpty());
    EXPECT_THAT(Lines(), ElementsAre("A", "B"));

    view.resumeUpdates();
    EXPECT_EQ(2, life.rebuilds);
    EXPECT_THAT(Lines(), ElementsAre("A", "B", "C"));
    model.append("D");
    EXPECT_THAT(Lines(), ElementsAre("A", "B", "C", "D"));

    // Resuming a view that is not suspended does nothing.
    MarkTrace();
    view.resumeUpdates();
    EXPECT_EQ(2, life.rebuilds);
    EXPECT_THAT(TraceSinceMark(), IsEmpty());
}

TEST_F(ListViewTest, AModelSetWhileSuspendedIsObservedOnlyFromResumeOn)
{
    ModelLife_s life;
    CountingModel model(life, {"A"});
    ListView view(m_list, ListView::MultiSelection);
    view.suspendUpdates();
    view.setModel(model);
    EXPECT_EQ(0, life.rebuilds);
    EXPECT_THAT(Lines(), IsEmpty());
    model.append("B");
    EXPECT_THAT(Lines(), IsEmpty());

    view.resumeUpdates();
    EXPECT_EQ(1, life.rebuilds);
    EXPECT_THAT(Lines(), ElementsAre("A", "B"));
}

TEST_F(ListViewTest, EveryControlCallIsMadeUnderTheHostLock)
{
    m_keyFrames.setDataList(KeyFramesNamed({"A", "B", "C"}));
    MarkTrace();
    {
        ListView view(m_list, ListView::MultiSelection);
        view.setModel(m_keyFrames);
        view.selectionModel()->setSelectedItems({1});
        m_keyFrames.insertItem(m_keyFrames.end(), Named("D"));
        m_keyFrames.insertItem(0, Named("Z"));
        m_keyFrames.setName(2, "Renamed");
        m_keyFrames.removeItems(1, 2);
        view.selectionModel()->setSelectedItem(0);
        view.selectionModel()->setSelectedItems({0, 1});
        EXPECT_EQ(-1, view.selectionModel()->getSelectedItem());
        m_keyFrames.removeItems(0, m_keyFrames.size());
        view.suspendUpdates();
        m_keyFrames.setDataList(KeyFramesNamed({"P"}));
        view.resumeUpdates();
    }
    const std::vector<std::string> trace = TraceSinceMark();
    int depth = 0;
    for (const std::string& call : trace)
    {
        if (call == "VtxUtilLockStart")
            ++depth;
        else if (call == "VtxUtilLockFinish")
            --depth;
        else if (IsControlCall(call))
        {
            EXPECT_GT(depth, 0) << call;
        }
    }
    EXPECT_EQ(0, depth);
    for (const char* call : {"VtxGUIListAppendItem", "VtxGUIListDeleteAllItems", "VtxGUIListDeleteItemAtPos",
                             "VtxGUIListReplaceItem", "VtxGUIListGetSelectedItems",
                             "VtxGUIListSetSelectedItems", "VtxGUIListSetSelectedItem",
                             "VtxGUIListDeselectAllItems", "VtxGUIListGetItemCount", "VtxGUISetSensitivity"})
        EXPECT_GT(Occurrences(trace, call), 0) << call;
}

TEST_F(ListViewTest, AFailingModelPassesItsErrorOnAndLeavesTheHostUnlocked)
{
    UnreadableModel model;
    ListView view(m_list, ListView::MultiSelection);
    EXPECT_THROW(view.setModel(model), std::runtime_error);
    EXPECT_EQ(0, vantix::host::lockDepth(AddOnID));
    EXPECT_EQ(&model, view.model());
}
