// The list model framework: observers and the lazy life cycle, the end() convention, the order in which
// changes reach observers, resets, observers that throw or detach others; the fixed value lists and the
// option menus they fill.
#include "core/Enumerations.h"
#include "gui/OptionMenuStaticManager.h"
#include "model/ListModelAbstract.h"

#include <support/GuiListTest.h>
#include <support/ThrownMessage.h>

#include <functional>
#include <stdexcept>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ChangeInfo_s = ListModelGenericInterface::ChangeInfo_s;

namespace
{

// A list of numbers that counts its life-cycle calls and lets a test queue changes as an editing model would.
struct NumberModel : ListModelAbstract<int>
{
    explicit NumberModel(std::vector<int> numbers = {}) : numbers(std::move(numbers)) {}
    unsigned long size() const override { return numbers.size(); }
    std::string displayString(unsigned long at) const override { return std::to_string(numbers.at(at)); }
    const int& data(unsigned long at) const override { return numbers.at(at); }
    void rebuildModel() override { ++rebuilds; }
    void freeMemory() override { ++frees; }
    void report(ChangeInfo_s::ChangeType_e type, std::vector<unsigned long> at) { queueChange(type, at); }

    std::vector<int> numbers;
    int rebuilds = 0, frees = 0;
};

// Writes "<name>:<type>[indices]" into a shared log for each change it hears, then does what it is told to.
struct RecordingObserver : ListModelObserverInterface
{
    RecordingObserver(const char* name, std::vector<std::string>& log) : name(name), log(log) {}
    void modelChanged(const ChangeInfo_s& change) override
    {
        std::string entry = name + ":" + std::to_string(change.type) + "[";
        for (const unsigned long& index : change.indices)
            entry += std::to_string(index) + (&index == &change.indices.back() ? "" : ",");
        log.push_back(entry + "]");
        if (onChange)
            onChange(change);
    }

    std::string name;
    std::vector<std::string>& log;
    std::function<void(const ChangeInfo_s&)> onChange;
};

// A model of three numbers and two observers. The model serves its observers by address, and members lie in
// the order declared: a hears every change before b.
class ListModelTest : public ::testing::Test
{
protected:
    NumberModel m_model{{1, 2, 3}};
    std::vector<std::string> m_log;
    RecordingObserver m_a{"a", m_log}, m_b{"b", m_log};
};

// A pre-mapped model is complete from the start: nothing to rebuild, nothing to tell its observers.
TEST_F(ListModelTest, EndIsOnePastTheLastItemAndMeansNotFoundAndAPreMappedModelHoldsItsEntriesInOrder)
{
    // The numbers, the one looked for, end() and the index found.
    const std::tuple<std::vector<int>, int, unsigned long, unsigned long> cases[] = {
        {{}, 7, 1, 1},        // an empty model finds nothing
        {{4, 9}, 5, 3, 3},    // a missing value is end()
        {{4, 9, 4}, 4, 4, 0}, // the first of equal items, at once
    };
    for (const auto& [numbers, wanted, end, index] : cases)
    {
        const NumberModel model(numbers);
        EXPECT_EQ(std::make_pair(end, index), std::make_pair(model.end(), model.indexForData(wanted)))
            << wanted;
    }
    EXPECT_EQ("No items available.", NumberModel().emptyModelMessage());

    const PreMappedValue<TimeAnimationOperation_e> entries[] = {{"Loop", Loop}, {"Bounce", Bounce}};
    ListModelPreMapped<TimeAnimationOperation_e> model(entries, 2);
    model.addObserver(m_a);
    EXPECT_EQ(std::make_tuple(2ul, std::string("Bounce"), Bounce, 1ul, model.end(), 0ul),
              std::make_tuple(model.size(), model.displayString(1), model.data(1), model.indexForData(Bounce),
                              model.indexForData(Forward), m_log.size()));
    EXPECT_THROW(model.displayString(2), std::out_of_range);
}

// Nobody to tell: a change is dropped, and the first observer, starting from the current contents, settles
// a reset, so that the next item-level change is told at once. A change made while an observer hears of
// another is delivered on its own, to every observer once. An observer that throws or detaches another
// stops the delivery to the others, and neither the failed reset nor its record is left pending.
TEST_F(ListModelTest, EachObserverHearsEveryChangeInOrderAndAResetRebuildsTheModelFirst)
{
    m_model.report(ChangeInfo_s::ItemsAdded, {0});
    m_model.modelReset();
    m_model.addObserver(m_a);
    m_model.addObserver(m_b);
    m_model.report(ChangeInfo_s::ItemsAdded, {1, 2});
    m_model.report(ChangeInfo_s::ItemsDeleted, {0});
    m_model.modelReset();
    EXPECT_THAT(m_log, ElementsAre("a:0[1,2]", "b:0[1,2]", "a:1[0]", "b:1[0]", "a:3[]", "b:3[]"));
    EXPECT_EQ(2, m_model.rebuilds) << "once for the first observer, once for the reset";

    m_log.clear();
    m_a.onChange = [this](const ChangeInfo_s& change)
    {
        if (change.type == ChangeInfo_s::ItemsAdded)
            m_model.report(ChangeInfo_s::ItemsUpdated, {2});
    };
    m_model.report(ChangeInfo_s::ItemsAdded, {3});
    EXPECT_THAT(m_log, ::testing::UnorderedElementsAre("a:0[3]", "b:0[3]", "a:2[2]", "b:2[2]"));

    m_log.clear();
    m_a.onChange = [](const ChangeInfo_s&) { throw std::runtime_error("observer failed"); };
    EXPECT_THROW(m_model.modelReset(), std::runtime_error);
    m_a.onChange = nullptr;
    m_model.report(ChangeInfo_s::ItemsUpdated, {1});
    m_a.onChange = [this](const ChangeInfo_s&) { m_model.removeObserver(m_b); };
    m_model.report(ChangeInfo_s::ItemsUpdated, {0});
    EXPECT_THAT(m_log, ElementsAre("a:3[]", "a:2[1]", "b:2[1]", "a:2[0]"));
}

using OptionMenuStaticManagerTest = testsupport::GuiListTest;

TEST_F(OptionMenuStaticManagerTest, FillsTheMenuAndConvertsBetweenValuesAndPositions)
{
    const PreMappedValue<Destination_e> destinations[] = {{"On Screen", OnScreen}, {"To File", ToFile}};
    OptionMenuStaticManager<Destination_e> manager(destinations, 2);
    MarkTrace();
    manager.fillOptionMenu(); // not built yet: no host call
    manager.showValue(ToFile);
    EXPECT_THAT(TraceSinceMark(), IsEmpty());
    EXPECT_THROW(manager.chosenValue(), std::out_of_range);

    manager.m_optionMenuId = VtxGUIOptionMenuAdd(m_dialog, 10, 10, 100, 20, "stale entry", nullptr);
    manager.fillOptionMenu();
    manager.fillOptionMenu(); // filling again replaces rather than appends
    EXPECT_THAT(vantix::host::guiElement(manager.m_optionMenuId).items, ElementsAre("On Screen", "To File"));
    EXPECT_EQ(OnScreen, manager.chosenValue());
    manager.showValue(ToFile);
    manager.showValue(static_cast<Destination_e>(7)); // not in the list: the menu stays
    EXPECT_EQ(std::make_pair(2, ToFile),
              std::make_pair(vantix::host::guiElement(manager.m_optionMenuId).choice, manager.chosenValue()));

    EXPECT_EQ("To File", manager.getDisplayString(ToFile));
    EXPECT_THROW_MSG(manager.getDisplayString(static_cast<Destination_e>(7)), std::out_of_range,
                     "Error in OptionMenuStaticManager::getDisplayString:\n"
                     "The requested item does not exist in the model.");
}

} // namespace
