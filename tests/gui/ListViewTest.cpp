// A list view mirroring its model into a real host list control, every call under the host lock: the
// empty-model message, line-by-line appends, deletions and replacements against full rebuilds, the selection
// kept across them, model ownership, suspended updates, and a view without a control.
#include <support/GuiListTest.h>

#include <algorithm>
#include <functional>
#include <map>
#include <stdexcept>

using namespace vantix::vtxutiltools;
using ::testing::IsEmpty;
using testsupport::KeyFrames;

namespace
{

struct ModelLife_s
{
    int rebuilds = 0, frees = 0, deletions = 0;
};

// Key frames that count what they went through and can report deletions in any order; the key frame "!"
// cannot be shown.
class CountingModel : public ListModelKeyFrame
{
public:
    CountingModel(ModelLife_s& life, const char* names) : m_life(life) { setDataList(KeyFrames(names)); }
    ~CountingModel() override { ++m_life.deletions; }
    void rebuildModel() override { ++m_life.rebuilds; }
    void freeMemory() override { ++m_life.frees; }
    std::string displayString(unsigned long at) const override
    {
        return name(at) == "!" ? throw std::runtime_error("unreadable") : name(at);
    }
    void reportDeleted(std::vector<unsigned long> at) { queueChange(ChangeInfo_s::ItemsDeleted, at); }

private:
    ModelLife_s& m_life;
};

class ListViewTest : public testsupport::GuiListTest
{
protected:
    // The list's lines, the selected ones in brackets, and "(greyed)" when it is greyed out.
    std::string Shown(int list = GuiId_None) const
    {
        const vantix::host::GuiElement e = vantix::host::guiElement(list == GuiId_None ? m_list : list);
        std::string shown;
        for (std::size_t at = 0; at < e.items.size(); ++at)
        {
            const bool selected = std::count(e.selected.begin(), e.selected.end(), static_cast<int>(at + 1));
            shown += (at ? " " : "") + (selected ? "[" + e.items[at] + "]" : e.items[at]);
        }
        return e.sensitive ? shown : shown + " (greyed)";
    }

    // The calls since the mark that changed the list, a word each: "+" a line appended, "-" one deleted, "~"
    // one replaced, "clear" all deleted, "deselect" and "select" the selection cleared and set; and any call
    // made without the host lock.
    std::string ListChanges() const
    {
        // clang-format off
        const std::map<std::string, std::string> words = {{"VtxGUIListAppendItem", "+"},
            {"VtxGUIListDeleteItemAtPos", "-"}, {"VtxGUIListReplaceItem", "~"},
            {"VtxGUIListDeleteAllItems", "clear"}, {"VtxGUIListDeselectAllItems", "deselect"},
            {"VtxGUIListSetSelectedItems", "select"}};
        // clang-format on
        std::string changes;
        for (const std::string& call : ControlCallsSinceMark())
            if (words.count(call) != 0 || call.find(" unlocked") != std::string::npos)
                changes += (changes.empty() ? "" : " ") + (words.count(call) ? words.at(call) : call);
        return changes;
    }
};

} // namespace

// Appending and deleting go line by line, and so does renaming; inserting before the end, the first item
// and a reset rebuild the list. Either way the indices selected before are selected again where they exist.
// A view without a control, shown the same model, adds nothing to the list's changes.
TEST_F(ListViewTest, MirrorsEachChangeLineByLineWhereItCanAndKeepsTheSelectedIndices)
{
    using Change = std::function<void(CountingModel&)>;
    const auto Insert = [](unsigned long at, const char* name) -> Change
    { return [=](CountingModel& model) { model.insertItem(at, KeyFrames(name)[0]); }; };
    const auto Remove = [](unsigned long at, unsigned long count = 1) -> Change
    { return [=](CountingModel& model) { model.removeItems(at, count); }; };
    const auto Reset = [](const char* names) -> Change
    { return [=](CountingModel& model) { model.setDataList(KeyFrames(names)); }; };
    const std::tuple<const char*, std::vector<int>, Change, const char*, const char*> cases[] = {
        // clang-format off
        {"ABC", {2}, Insert(4, "D"), "A [B] C D", "+"}, // at end()
        {"ABC", {2}, Insert(3, "D"), "A [B] C D", "+"}, // after the last
        {"ABC", {1, 3}, Insert(0, "X"), "[X] A [B] C", "clear + + + + deselect select"},
        {"", {}, Insert(1, "D"), "D", "clear + deselect"},
        {"ABCDE", {5}, Remove(1), "A C D E", "- deselect"}, // index 4 is past the new end
        {"ABCDE", {1, 4}, Remove(1), "[A] C D [E]", "- deselect select"},
        {"ABCDE", {2}, Remove(4), "A [B] C D", "- deselect select"},
        {"ABCDE", {}, Remove(0), "B C D E", "- deselect"},
        // From the highest position down, in whatever order the model lists them.
        {"ABCDE", {}, Remove(1, 2), "A D E", "- - deselect"},
        {"ABCDE", {}, [](CountingModel& m) { m.reportDeleted({3, 1}); }, "A C E", "- - deselect"},
        {"AB", {1}, Remove(0, 2), "No Key Frames established. (greyed)", "clear +"},
        {"AB", {1}, Reset(""), "No Key Frames established. (greyed)", "clear +"},
        {"ABC", {2, 3}, [](CountingModel& m) { m.setName(1, "R"); }, "A [R] [C]", "~ deselect select"},
        {"ABC", {2, 3}, Reset("PQ"), "P [Q]", "clear + + deselect select"},
        // clang-format on
    };
    for (const auto& [keyFrames, selected, change, shown, listChanges] : cases)
    {
        SCOPED_TRACE(std::string(keyFrames) + " to " + shown);
        ModelLife_s life;
        CountingModel model(life, keyFrames);
        ListView view(m_list, ListView::MultiSelection), unbound(ListView::MultiSelection);
        view.setModel(model);
        unbound.setModel(model); // shows the model nowhere
        Select(m_list, selected);
        MarkTrace();
        change(model);
        EXPECT_EQ(std::make_pair(std::string(shown), std::string(listChanges)),
                  std::make_pair(Shown(), ListChanges()));
    }
}

// A model given by pointer is the view's; one given by reference, or by pointer to a view that borrows
// its model, never is. Setting the model shown already changes nothing, not even its ownership.
TEST_F(ListViewTest, DeletesOnlyTheModelsItOwnsWhenTheyAreReplacedOrTheViewGoes)
{
    ModelLife_s life[5]; // given by pointer 0 to 2, by reference 3 and 4
    CountingModel borrowedA(life[3], "a"), borrowedB(life[4], "b");
    const auto Deletions = [&life]
    {
        std::string deletions;
        for (const ModelLife_s& one : life)
            deletions += std::to_string(one.deletions);
        return deletions;
    };
    {
        ListView view(m_list, ListView::MultiSelection);
        view.setModel(new CountingModel(life[0], "A"));
        view.setModel(new CountingModel(life[1], "B"));
        MarkTrace();
        view.setModel(*view.model());
        view.setModel(view.model());
        EXPECT_THAT(TraceSinceMark(), IsEmpty());
        view.resetModel(view.model()); // attached and shown anew
        EXPECT_EQ("clear + deselect", ListChanges());
        view.resetModel(new CountingModel(life[2], "C"));
        EXPECT_EQ("11000", Deletions());

        ListView borrowing(m_list, ListView::MultiSelection);
        borrowing.setModel(borrowedA);
        borrowing.setModel(borrowedB);
        MarkTrace();
        borrowedA.insertItem(1, KeyFrames("x")[0]); // let go: no longer observed
        EXPECT_THAT(ControlCallsSinceMark(), IsEmpty());
        borrowing.resetModel(&borrowedA);
        EXPECT_EQ("a x", Shown());
    }
    EXPECT_EQ("11100", Deletions());
    // The views are gone: their models must not reach them any more.
    MarkTrace();
    borrowedA.removeItem(0);
    EXPECT_THAT(ControlCallsSinceMark(), IsEmpty());
}

// A model set while suspended, even to a view that had none, is observed only from the resumption on. A
// model that cannot be shown passes its error on and leaves the host unlocked.
TEST_F(ListViewTest, WhileSuspendedLetsTheModelFreeItsMemoryAndResumingObservesAndShowsItAnew)
{
    ModelLife_s life, laterLife;
    CountingModel model(life, "AB"), later(laterLife, "P"), failing(life, "!");
    ListView view(m_list, ListView::MultiSelection);
    view.setModel(model);
    view.suspendUpdates();
    MarkTrace();
    model.insertItem(2, KeyFrames("C")[0]);
    EXPECT_THAT(ControlCallsSinceMark(), IsEmpty());
    EXPECT_EQ(std::make_pair(1, 1), std::make_pair(life.rebuilds, life.frees));
    view.resumeUpdates();
    model.insertItem(3, KeyFrames("D")[0]);
    EXPECT_EQ(std::make_pair(2, std::string("A B C D")), std::make_pair(life.rebuilds, Shown()));
    MarkTrace();
    view.resumeUpdates(); // not suspended: nothing to do
    EXPECT_THAT(TraceSinceMark(), IsEmpty());

    ListView fresh(m_list, ListView::MultiSelection);
    fresh.suspendUpdates();
    fresh.setModel(later);
    later.insertItem(1, KeyFrames("Q")[0]);
    EXPECT_EQ(0, laterLife.rebuilds);
    EXPECT_THAT(ControlCallsSinceMark(), IsEmpty());
    fresh.resumeUpdates();
    EXPECT_EQ(std::make_pair(1, std::string("P Q")), std::make_pair(laterLife.rebuilds, Shown()));

    EXPECT_THROW(fresh.setModel(failing), std::runtime_error);
    EXPECT_EQ(std::make_pair(0, static_cast<ListModelGenericInterface*>(&failing)),
              std::make_pair(vantix::host::lockDepth(AddOnID), fresh.model()));
}
