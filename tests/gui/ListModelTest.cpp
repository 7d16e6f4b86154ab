// The list model framework: observers and the lazy life cycle, the end() convention, the order in which
// queued changes reach observers, resets, observers that throw; the fixed value lists and the option menus
// they fill.
#include "core/Enumerations.h"
#include "core/Settings.h"
#include "gui/OptionMenuStaticManager.h"
#include "model/ListModelAbstract.h"
#include "model/ListModelPreMapped.h"

#include <support/AddOnTest.h>

#include <VtxGUI.h>
#include <vantix/host/Gui.h>
#include <vantix/host/Host.h>

#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

using ChangeInfo_s = ListModelGenericInterface::ChangeInfo_s;

// A list of numbers that counts its life-cycle calls and lets a test queue changes as an editing model would.
class NumberModel : public ListModelAbstract<int>
{
public:
    explicit NumberModel(std::vector<int> numbers = {}) : m_numbers(std::move(numbers)) {}

    unsigned long size() const override { return m_numbers.size(); }
    std::string displayString(unsigned long index) const override
    {
        return std::to_string(m_numbers.at(index));
    }
    const int& data(unsigned long index) const override { return m_numbers.at(index); }
    void rebuildModel() override { ++rebuilds; }
    void freeMemory() override { ++frees; }

    void report(ChangeInfo_s::ChangeType_e type, std::vector<unsigned long> indices)
    {
        queueChange(type, std::move(indices));
    }

    int rebuilds = 0;
    int frees = 0;

private:
    std::vector<int> m_numbers;
};

// Writes "<name>:<type>[indices]" into a shared log for each change it hears.
class RecordingObserver : public ListModelObserverInterface
{
public:
    RecordingObserver(std::string name, std::vector<std::string>& log) : m_name(std::move(name)), m_log(log)
    {
    }

    void modelChanged(const ChangeInfo_s& change) override
    {
        std::string entry = m_name + ":" + std::to_string(change.type) + "[";
        for (const unsigned long& index : change.indices)
            entry += std::to_string(index) + (&index == &change.indices.back() ? "" : ",");
        m_log.push_back(entry + "]");
        if (throwOnChange)
            throw std::runtime_error("observer failed");
    }

    bool throwOnChange = false;

private:
    std::string m_name;
    std::vector<std::string>& m_log;
};

// Observers in the order the model serves them: by address.
std::pair<RecordingObserver*, RecordingObserver*> InServiceOrder(RecordingObserver& a, RecordingObserver& b)
{
    return &a < &b ? std::make_pair(&a, &b) : std::make_pair(&b, &a);
}

TEST(ListModelTest, EndIsOnePastTheLastItemAndMeansNotFound)
{
    const struct
    {
        std::vector<int> numbers;
        int wanted;
        unsigned long expectedEnd;
        unsigned long expectedIndex;
    } cases[] = {
        {{}, 7, 1, 1},        // an empty model finds nothing
        {{4, 9}, 5, 3, 3},    // a missing value is end()
        {{4, 9}, 4, 3, 0},    // the first item
        {{4, 9, 4}, 4, 4, 0}, // the first of equal items
        {{4, 9, 4}, 9, 4, 1}, // an item inside
    };
    for (const auto& c : cases)
    {
        const NumberModel model(c.numbers);
        EXPECT_EQ(c.expectedEnd, model.end());
        EXPECT_EQ(c.expectedIndex, model.indexForData(c.wanted)) << "looking for " << c.wanted;
    }
    EXPECT_EQ("No items available.", NumberModel().emptyModelMessage());
}

TEST(ListModelTest, TheFirstObserverRebuildsAndTheLastOneLeavingFreesMemory)
{
    NumberModel model({1, 2});
    std::vector<std::string> log;
    RecordingObserver a("a", log), b("b", log);

    model.addObserver(a);
    EXPECT_EQ(1, model.rebuilds);
    model.addObserver(a); // the same observer again is kept once
    model.addObserver(b);
    EXPECT_EQ(1, model.rebuilds);

    model.report(ChangeInfo_s::ItemsUpdated, {1});
    EXPECT_EQ(2u, log.size()) << "each observer hears the change once";

    model.removeObserver(a);
    EXPECT_EQ(0, model.frees);
    model.removeObserver(b);
    EXPECT_EQ(1, model.frees);
    model.removeObserver(b); // not attached, but the set is empty: memory is freed again
    EXPECT_EQ(2, model.frees);

    model.addObserver(a);
    EXPECT_EQ(2, model.rebuilds) << "a model left alone rebuilds for its next first observer";
    model.removeObserver(a);
}

TEST(ListModelTest, EachObserverHearsEveryChangeInOrderBeforeTheNextOne)
{
    NumberModel model({1, 2, 3});
    std::vector<std::string> log;
    RecordingObserver a("a", log), b("b", log);
    const auto [first, second] = InServiceOrder(a, b);
    (void)second;
    model.addObserver(a);
    model.addObserver(b);

    // An observer that changes the model while it hears of a change has its change delivered on its own,
    // after the one being told; two changes queued together reach observer after observer.
    class ChainingObserver : public ListModelObserverInterface
    {
    public:
        explicit ChainingObserver(NumberModel& model) : m_model(model) {}
        void modelChanged(const ChangeInfo_s& change) override
        {
            if (change.type == ChangeInfo_s::ItemsAdded && !m_done)
            {
                m_done = true;
                m_model.report(ChangeInfo_s::ItemsUpdated, {2});
            }
        }

    private:
        NumberModel& m_model;
        bool m_done = false;
    };

    model.report(ChangeInfo_s::ItemsAdded, {1, 2});
    model.report(ChangeInfo_s::ItemsDeleted, {0});
    const std::string one = first == &a ? "a" : "b";
    const std::string other = first == &a ? "b" : "a";
    EXPECT_THAT(log, ElementsAre(one + ":0[1,2]", other + ":0[1,2]", one + ":1[0]", other + ":1[0]"));

    log.clear();
    model.modelReset();
    EXPECT_THAT(log, ElementsAre(one + ":3[]", other + ":3[]"));
    EXPECT_EQ(2, model.rebuilds) << "a reset delivered to observers rebuilds the model first";

    model.removeObserver(a);
    model.removeObserver(b);
    ChainingObserver chaining(model);
    model.addObserver(chaining);
    model.addObserver(a);
    log.clear();
    model.report(ChangeInfo_s::ItemsAdded, {3});
    EXPECT_THAT(log, ::testing::Contains("a:2[2]"));
    EXPECT_THAT(log, ::testing::Contains("a:0[3]"));
    model.removeObserver(a);
    model.removeObserver(chaining);
}

TEST(ListModelTest, ChangesWithoutObserversAreDroppedAndAResetThenIsSettledByTheFirstObserver)
{
    NumberModel model({1});
    std::vector<std::string> log;
    RecordingObserver a("a", log);

    model.report(ChangeInfo_s::ItemsAdded, {0});
    model.modelReset(); // nobody to tell
    model.addObserver(a);
    EXPECT_THAT(log, IsEmpty()) << "attaching is not a change";

    // The observer started from the current contents, so the next item-level change is told at once.
    model.report(ChangeInfo_s::ItemsUpdated, {0});
    EXPECT_THAT(log, ElementsAre("a:2[0]"));
    model.removeObserver(a);
}

TEST(ListModelTest, AnObserverThatThrowsEmptiesTheQueueAndStopsTheDelivery)
{
    NumberModel model({1, 2});
    std::vector<std::string> log;
    RecordingObserver a("a", log), b("b", log);
    const auto [first, second] = InServiceOrder(a, b);
    model.addObserver(a);
    model.addObserver(b);

    first->throwOnChange = true;
    EXPECT_THROW(model.modelReset(), std::runtime_error);
    EXPECT_EQ(1u, log.size()) << "the observer after the one that threw hears nothing";

    first->throwOnChange = false;
    log.clear();
    model.report(ChangeInfo_s::ItemsUpdated, {1});
    EXPECT_EQ(2u, log.size()) << "neither the failed reset nor its record is left pending";
    EXPECT_EQ(log[0].substr(2), "2[1]");
    (void)second;
    model.removeObserver(a);
    model.removeObserver(b);
}

TEST(ListModelTest, AnObserverDetachedDuringDeliveryIsNotToldAnyMore)
{
    NumberModel model({1});
    std::vector<std::string> log;
    RecordingObserver a("a", log), b("b", log);
    const auto [first, second] = InServiceOrder(a, b);

    class Detacher : public ListModelObserverInterface
    {
    public:
        Detacher(NumberModel& model, ListModelObserverInterface& victim) : m_model(model), m_victim(victim) {}
        void modelChanged(const ChangeInfo_s&) override { m_model.removeObserver(m_victim); }

    private:
        NumberModel& m_model;
        ListModelObserverInterface& m_victim;
    };

    // The detacher is served first by being attached first only if its address is lowest; make it detach
    // the observer served last, which must then hear nothing.
    Detacher detacher(model, *second);
    model.addObserver(detacher);
    model.addObserver(*first);
    model.addObserver(*second);
    model.report(ChangeInfo_s::ItemsUpdated, {0});
    const bool detacherBeforeSecond = static_cast<void*>(&detacher) < static_cast<void*>(second);
    EXPECT_EQ(detacherBeforeSecond ? 1u : 2u, log.size());
    model.removeObserver(*first);
    model.removeObserver(detacher);
}

enum Colour_e : int
{
    Red = 0,
    Green = 1,
    Blue = 2
};

TEST(ListModelPreMappedTest, HoldsItsEntriesInOrderAndRefusesIndicesBeyondThem)
{
    const PreMappedValue<Colour_e> entries[] = {{"Red", Red}, {"Blue", Blue}};
    const ListModelPreMapped<Colour_e> model(entries, 2);

    ASSERT_EQ(2u, model.size());
    EXPECT_EQ("Blue", model.displayString(1));
    EXPECT_EQ(Blue, model.data(1));
    EXPECT_EQ(1u, model.indexForData(Blue));
    EXPECT_EQ(model.end(), model.indexForData(Green));
    EXPECT_THROW(model.displayString(2), std::out_of_range);
    EXPECT_THROW(model.data(2), std::out_of_range);
}

class OptionMenuStaticManagerTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        m_dialog =
            VtxGUIDialogCreateModeless(GuiId_MainWindow, 200, 100, "Options", nullptr, nullptr, nullptr);
        m_menu = VtxGUIOptionMenuAdd(m_dialog, 10, 10, 100, 20, "stale entry", nullptr);
    }

    static const PreMappedValue<Destination_e> Destinations[2];
    int m_dialog = GuiId_None;
    int m_menu = GuiId_None;
};

const PreMappedValue<Destination_e> OptionMenuStaticManagerTest::Destinations[2] = {{"On Screen", OnScreen},
                                                                                    {"To File", ToFile}};

TEST_F(OptionMenuStaticManagerTest, FillsTheMenuAndConvertsBetweenValuesAndPositions)
{
    OptionMenuStaticManager<Destination_e> manager(Destinations, 2);
    EXPECT_EQ(-2, manager.m_optionMenuId);
    vantix::host::setTracing(true);
    manager.fillOptionMenu(); // not built yet: no host call
    manager.showValue(ToFile);
    EXPECT_THAT(vantix::host::trace(), IsEmpty());
    EXPECT_THROW(manager.chosenValue(), std::out_of_range);

    manager.m_optionMenuId = m_menu;
    manager.fillOptionMenu();
    EXPECT_THAT(vantix::host::guiElement(m_menu).items, ElementsAre("On Screen", "To File"));
    EXPECT_EQ(OnScreen, manager.chosenValue());

    manager.showValue(ToFile);
    EXPECT_EQ(2, vantix::host::guiElement(m_menu).choice);
    EXPECT_EQ(ToFile, manager.chosenValue());
    manager.showValue(static_cast<Destination_e>(7)); // not in the list: the menu stays
    EXPECT_EQ(2, vantix::host::guiElement(m_menu).choice);

    EXPECT_EQ("To File", manager.getDisplayString(ToFile));
    try
    {
        manager.getDisplayString(static_cast<Destination_e>(7));
        ADD_FAILURE() << "a value outside the list has no text";
    }
    catch (const std::out_of_range& error)
    {
        EXPECT_STREQ("Error in OptionMenuStaticManager::getDisplayString:\n"
                     "The requested item does not exist in the model.",
                     error.what());
    }

    manager.fillOptionMenu(); // filling again replaces rather than appends
    EXPECT_THAT(vantix::host::guiElement(m_menu).items, ElementsAre("On Screen", "To File"));
}

} // namespace
