// A list view's selection models over a real host list control, every call under the host lock: positions
// from 1 against indices from 0, single against multiple selection, indices the control does not hold, the
// observers told of every change, the host's selection array given back, and a view without a control.
#include "gui/ListSelectionModel.h"

#include <support/GuiListTest.h>

#include <functional>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using Indices = std::vector<unsigned long>;

namespace
{

// Every selection it was told of, in order.
struct RecordingObserver : ListSelectionModelObserverInterface
{
    void selectionChanged(const Indices& selected) override { told.push_back(selected); }
    std::vector<Indices> told;
};

class ListSelectionModelTest : public testsupport::GuiListTest
{
protected:
    // A new list of the five key frames "A" to "E" shown by the view.
    int ShowInList(ListView& view, bool multiSelection = true)
    {
        const int list = AddList(multiSelection);
        m_keyFrames.setDataList(testsupport::KeyFrames("ABCDE"));
        view.setModel(m_keyFrames);
        view.setGuiID(list);
        return list;
    }

    static Indices IndicesOf(const std::vector<int>& positions)
    {
        Indices indices;
        for (const int position : positions)
            indices.push_back(static_cast<unsigned long>(position - 1));
        return indices;
    }
};

} // namespace

// The observers are told the selection read back from the host, whose array is given back when there is
// one; a single selected item is also answered on its own.
TEST_F(ListSelectionModelTest, SettingTheSelectionSelectsTheIndicesTheListHoldsAndTellsTheObservers)
{
    using Set = std::function<void(ListSelectionModelInterface&)>;
    const auto Items = [](Indices items) -> Set
    { return [=](ListSelectionModelInterface& selection) { selection.setSelectedItems(items); }; };
    const auto Item = [](int index) -> Set
    { return [=](ListSelectionModelInterface& selection) { selection.setSelectedItem(index); }; };
    const unsigned long minusOne = 0xFFFFFFFFul; // -1 taken as a signed 32-bit integer
    const auto Single = ListView::SingleSelection, Multi = ListView::MultiSelection;
    const auto Other = static_cast<ListView::SelectionModel_e>(2); // any but single is multiple
    const std::tuple<ListView::SelectionModel_e, Set, std::vector<int>> cases[] = {
        // clang-format off
        {Single, Items({7, 5, 1, 3}), {2}}, {Single, Items({}), {}}, {Single, Items({9}), {}},
        {Multi, Items({2, 0}), {1, 3}}, {Multi, Items({4, 5, 1}), {2, 5}}, {Multi, Items({minusOne, 3}), {4}},
        {Multi, Items({}), {}}, {Other, Items({0, 4}), {1, 5}},
        {Multi, Item(-1), {}}, {Multi, Item(5), {}}, {Multi, Item(0), {1}}, {Single, Item(4), {5}},
        // clang-format on
    };
    for (const auto& [kind, set, positions] : cases)
    {
        SCOPED_TRACE(::testing::PrintToString(positions));
        ListView view(kind);
        const int list = ShowInList(view, kind != Single);
        Select(list, {4});
        RecordingObserver observer;
        view.selectionModel()->addObserver(observer);
        const long released = vantix::host::callCount("VtxUtilArrayDealloc");
        MarkTrace();
        set(*view.selectionModel());
        const long releasedSince = vantix::host::callCount("VtxUtilArrayDealloc") - released;
        EXPECT_EQ(std::make_tuple(positions, std::vector<Indices>{IndicesOf(positions)},
                                  positions.empty() ? 0l : 1l, positions.size() == 1 ? positions[0] - 1 : -1),
                  std::make_tuple(SelectedPositions(list), observer.told, releasedSince,
                                  view.selectionModel()->getSelectedItem()));
        EXPECT_THAT(ControlCallsSinceMark(true), IsEmpty());
    }
}

TEST_F(ListSelectionModelTest, InitReplacesTheSelectionModelWhichKeepsTheIndicesTheListHolds)
{
    ListView view(ListView::MultiSelection);
    const int list = ShowInList(view);
    view.init(ListView::SingleSelection);
    view.selectionModel()->setSelectedItems({2, 0});
    EXPECT_THAT(SelectedPositions(list), ElementsAre(3));
    const auto& selection = dynamic_cast<ListSelectionModelAbstract&>(*view.selectionModel());

    std::vector<int> signedItems{-1, 4, 0, 5, 2, -7};
    selection.eraseInvalidItems(signedItems);
    Indices unsignedItems{3, 0xFFFFFFFFul, 5, 1, 0x80000000ul};
    selection.eraseInvalidItems(unsignedItems);
    EXPECT_EQ(std::make_pair(std::vector<int>{4, 0, 2}, Indices{3, 1}),
              std::make_pair(signedItems, unsignedItems));
}

TEST_F(ListSelectionModelTest, WithoutAControlTheSelectionIsEmptyAndSettingItOnlyTellsTheObservers)
{
    MarkTrace();
    for (const ListView::SelectionModel_e kind : {ListView::SingleSelection, ListView::MultiSelection})
    {
        ListView view(kind);
        view.setModel(m_keyFrames);
        RecordingObserver observer;
        ListSelectionModelInterface& selection = *view.selectionModel();
        selection.addObserver(observer);
        Indices selected{7};
        selection.getSelectedItems(selected);
        selection.setSelectedItems({0, 1});
        selection.setSelectedItem(0);
        selection.setSelectedItem(-1);
        selection.selectionChanged();
        std::vector<int> items{0, 1};
        dynamic_cast<ListSelectionModelAbstract&>(selection).eraseInvalidItems(items);
        EXPECT_EQ(std::make_tuple(Indices{}, -1, std::vector<Indices>(4), std::vector<int>{}),
                  std::make_tuple(selected, selection.getSelectedItem(), observer.told, items))
            << kind;
    }
    EXPECT_THAT(ControlCallsSinceMark(), IsEmpty());
}
