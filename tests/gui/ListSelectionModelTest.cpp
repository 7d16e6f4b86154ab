// A list view's selection models over a real host list control: positions from 1 against indices from 0,
// single against multiple selection, indices the control does not hold, the observers told of every change,
// the host's selection array given back, and a view without a control.
#include "gui/ListSelectionModel.h"
#include "document/ListModelKeyFrame.h"
#include "gui/ListView.h"

#include <support/AddOnTest.h>

#include <VtxGUI.h>
#include <VtxUtil.h>
#include <vantix/host/Gui.h>
#include <vantix/host/Host.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace
{

void NoAction() {}

// The view whose list the user clicks in; its callback tells the selection model, as a dialog does.
ListView* clickedView = nullptr;
void ListClicked(const int*)
{
    clickedView->selectionModel()->selectionChanged();
}

// Every selection it was told of, in order.
class RecordingObserver : public ListSelectionModelObserverInterface
{
public:
    void selectionChanged(const std::vector<unsigned long>& selected) override { m_told.push_back(selected); }
    std::vector<std::vector<unsigned long>> m_told;
};

class ListSelectionModelTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        m_dialog = VtxGUIDialogCreateModeless(GuiId_MainWindow, 400, 300, "List Selection", nullptr, NoAction,
                                              nullptr);
        std::vector<KeyFrame_s> keyFrames;
        for (const char* name : {"A", "B", "C", "D", "E"})
            keyFrames.emplace_back(View(), name, 30, 0.0);
        m_keyFrames.setDataList(keyFrames);
    }

    void TearDown() override
    {
        clickedView = nullptr;
        AddOnTest::TearDown();
    }

    // A list of the five key frames shown by a view of the given kind.
    int ShowInList(ListView& view, bool multiSelection)
    {
        const int list =
            VtxGUIListAdd(m_dialog, 10, 10, 200, 200, multiSelection ? TRUE : FALSE, ListClicked);
        view.setModel(m_keyFrames);
        view.setGuiID(list);
        return list;
    }

    static std::vector<int> SelectedPositions(int list) { return vantix::host::guiElement(list).selected; }

    static void Select(int list, std::vector<int> positions)
    {
        VtxGUIListSetSelectedItems(list, positions.data(), static_cast<int>(positions.size()));
    }

    // The indices of list positions.
    static std::vector<unsigned long> Indices(const std::vector<int>& positions)
    {
        std::vector<unsigned long> indices;
        for (const int position : positions)
            indices.push_back(static_cast<unsigned long>(position - 1));
        return indices;
    }

    static ListSelectionModelAbstract& Abstract(ListView& view)
    {
        return dynamic_cast<ListSelectionModelAbstract&>(*view.selectionModel());
    }

    int m_dialog = GuiId_None;
    ListModelKeyFrame m_keyFrames;
};

} // namespace

TEST_F(ListSelectionModelTest, SetSelectedItemsSelectsTheIndicesTheListHoldsAndTellsTheObservers)
{
    const unsigned long minusOne = 0xFFFFFFFFul; // -1 taken as a signed 32-bit integer
    const struct
    {
        ListView::SelectionModel_e kind;
        std::vector<unsigned long> items;
        std::vector<int> positions;
    } cases[] = {
        {ListView::SingleSelection, {2, 0}, {3}},
        {ListView::SingleSelection, {7, 5, 1, 3}, {2}},
        {ListView::SingleSelection, {}, {}},
        {ListView::SingleSelection, {9}, {}},
        {ListView::MultiSelection, {2, 0}, {1, 3}},
        {ListView::MultiSelection, {4, 5, 1}, {2, 5}},
        {ListView::MultiSelection, {minusOne, 3}, {4}},
        {ListView::MultiSelection, {}, {}},
        {static_cast<ListView::SelectionModel_e>(2), {0, 4}, {1, 5}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(::testing::PrintToString(c.items) + " kind " + std::to_string(c.kind));
        ListView view(c.kind);
        const int list = ShowInList(view, c.kind != ListView::SingleSelection);
        Select(list, {4});
        RecordingObserver observer;
        view.selectionModel()->addObserver(observer);

        view.selectionModel()->setSelectedItems(c.items);
        EXPECT_THAT(SelectedPositions(list), ElementsAreArray(c.positions));
        EXPECT_THAT(observer.m_told, ElementsAre(Indices(c.positions)));
        view.selectionModel()->removeObserver(observer);
    }
}

TEST_F(ListSelectionModelTest, SetSelectedItemClearsTheSelectionForAnIndexOutsideTheListAndTellsTheObservers)
{
    const struct
    {
        int index;
        std::vector<int> positions;
    } cases[] = {
        {-1, {}}, {5, {}}, {100, {}}, {0, {1}}, {4, {5}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.index);
        ListView view(ListView::MultiSelection);
        const int list = ShowInList(view, true);
        Select(list, {2, 3});
        RecordingObserver observer;
        view.selectionModel()->addObserver(observer);

        view.selectionModel()->setSelectedItem(c.index);
        EXPECT_THAT(SelectedPositions(list), ElementsAreArray(c.positions));
        EXPECT_THAT(observer.m_told, ElementsAre(Indices(c.positions)));
        view.selectionModel()->removeObserver(observer);
    }
}

TEST_F(ListSelectionModelTest, GetSelectedItemAnswersOnlyForExactlyOneSelectedItem)
{
    const struct
    {
        std::vector<int> positions;
        int expected;
    } cases[] = {
        {{}, -1},
        {{3}, 2},
        {{1}, 0},
        {{2, 5}, -1},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.expected);
        ListView view(ListView::MultiSelection);
        const int list = ShowInList(view, true);
        Select(list, c.positions);
        EXPECT_EQ(c.expected, view.selectionModel()->getSelectedItem());
    }
}

TEST_F(ListSelectionModelTest, GetSelectedItemsConvertsPositionsToIndicesAndGivesTheHostArrayBack)
{
    ListView view(ListView::MultiSelection);
    const int list = ShowInList(view, true);
    std::vector<unsigned long> selected{42, 43};

    Select(list, {1, 4, 5});
    long released = vantix::host::callCount("VtxUtilArrayDealloc");
    view.selectionModel()->getSelectedItems(selected);
    EXPECT_THAT(selected, ElementsAre(0ul, 3ul, 4ul));
    EXPECT_EQ(released + 1, vantix::host::callCount("VtxUtilArrayDealloc"));
    EXPECT_EQ(0, vantix::host::outstandingHostArrays());

    // With nothing selected the host hands out no array, and there is nothing to give back.
    VtxGUIListDeselectAllItems(list);
    released = vantix::host::callCount("VtxUtilArrayDealloc");
    view.selectionModel()->getSelectedItems(selected);
    EXPECT_THAT(selected, IsEmpty());
    EXPECT_EQ(released, vantix::host::callCount("VtxUtilArrayDealloc"));
}

TEST_F(ListSelectionModelTest, ObserversHearTheSelectionTheUserMadeOnceEach)
{
    ListView view(ListView::MultiSelection);
    const int list = ShowInList(view, true);
    clickedView = &view;
    VtxGUIDialogLaunch(m_dialog);
    RecordingObserver first, second, removed;
    view.selectionModel()->addObserver(first);
    view.selectionModel()->addObserver(first);
    view.selectionModel()->addObserver(second);
    view.selectionModel()->addObserver(removed);
    view.selectionModel()->removeObserver(removed);

    vantix::host::selectListItems(list, {2, 4});
    const std::vector<unsigned long> expected{1, 3};
    EXPECT_THAT(first.m_told, ElementsAre(expected));
    EXPECT_THAT(second.m_told, ElementsAre(expected));
    EXPECT_THAT(removed.m_told, IsEmpty());

    vantix::host::selectListItem(list, 5);
    EXPECT_THAT(first.m_told.back(), ElementsAre(4ul));
    VtxGUIDialogDrop(m_dialog);
}

TEST_F(ListSelectionModelTest, ObserversHearTheSelectionThatAListChangeRestored)
{
    ListView view(ListView::MultiSelection);
    const int list = ShowInList(view, true);
    Select(list, {5});
    RecordingObserver observer;
    view.selectionModel()->addObserver(observer);

    // Index 4 is gone after the deletion; index 2 stays selected across the renaming.
    m_keyFrames.removeItem(1);
    Select(list, {3});
    m_keyFrames.setName(0, "Renamed");
    EXPECT_THAT(observer.m_told, ElementsAre(IsEmpty(), ElementsAre(2ul)));
    EXPECT_THAT(SelectedPositions(list), ElementsAre(3));
}

TEST_F(ListSelectionModelTest, EraseInvalidItemsKeepsTheIndicesTheListHoldsInTheirOrder)
{
    ListView view(ListView::MultiSelection);
    ShowInList(view, true);
    const ListSelectionModelAbstract& selection = Abstract(view);

    std::vector<int> signedItems{-1, 4, 0, 5, 2, -7};
    selection.eraseInvalidItems(signedItems);
    EXPECT_THAT(signedItems, ElementsAre(4, 0, 2));

    std::vector<unsigned long> unsignedItems{3, 0xFFFFFFFFul, 5, 1, 0x80000000ul};
    selection.eraseInvalidItems(unsignedItems);
    EXPECT_THAT(unsignedItems, ElementsAre(3ul, 1ul));
}

TEST_F(ListSelectionModelTest, InitReplacesTheSelectionModelWithOneOfTheKindAsked)
{
    ListView view(ListView::MultiSelection);
    const int list = ShowInList(view, true);
    view.init(ListView::SingleSelection);
    view.selectionModel()->setSelectedItems({2, 0});
    EXPECT_THAT(SelectedPositions(list), ElementsAre(3));
    EXPECT_EQ(&view, &Abstract(view).parentView());
}

TEST_F(ListSelectionModelTest, WithoutAControlTheSelectionIsEmptyAndSettingItOnlyTellsTheObservers)
{
    vantix::host::setTracing(true);
    const std::size_t mark = vantix::host::trace().size();
    for (const ListView::SelectionModel_e kind : {ListView::SingleSelection, ListView::MultiSelection})
    {
        SCOPED_TRACE(kind);
        ListView view(kind);
        view.setModel(m_keyFrames);
        RecordingObserver observer;
        ListSelectionModelInterface& selection = *view.selectionModel();
        selection.addObserver(observer);

        std::vector<unsigned long> selected{7};
        selection.getSelectedItems(selected);
        EXPECT_THAT(selected, IsEmpty());
        EXPECT_EQ(-1, selection.getSelectedItem());
        selection.setSelectedItems({0, 1});
        selection.setSelectedItem(0);
        selection.setSelectedItem(-1);
        selection.selectionChanged();
        EXPECT_THAT(observer.m_told, ElementsAre(IsEmpty(), IsEmpty(), IsEmpty(), IsEmpty()));

        std::vector<int> items{0, 1};
        Abstract(view).eraseInvalidItems(items);
        EXPECT_THAT(items, IsEmpty());
    }
    const std::vector<std::string> trace = vantix::host::trace();
    for (auto call = trace.begin() + static_cast<long>(mark); call != trace.end(); ++call)
        EXPECT_NE(0u, call->rfind("VtxGUI", 0)) << *call;
}
