// The host's events. State changes: raised by the host's real operations, delivered to the callbacks
// registered through argument lists and to the toolbox's notifiers, whose listeners may come and go while
// they are told. The on-idle queue: calls run once each, in the order queued, when the host is idle; a call
// queued while the queue runs waits for the next idle moment; the macro runner is idle after each command.
#include "support/HostTest.h"
#include "support/ThrownMessage.h"

#include <vantix/host/Macro.h>
#include <vantix/toolbox/ArgList.h>
#include <vantix/toolbox/StateChangeEventInterface.h>
#include <vantix/toolbox/StateChangeListenerInterface.h>
#include <vantix/toolbox/StateChangeNotifier.h>
#include <vantix/toolbox/StyleValue.h>

#include <functional>
#include <memory>
#include <stdexcept>

namespace
{

namespace host = vantix::host;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using vantix::toolbox::StateChangeNotifier;
using Notifier = vantix::toolbox::StateChangeNotifierInterface;
using Changes = std::vector<StateChange_e>;
using Texts = std::vector<std::string>;

// What the callbacks and listeners were told, in order, as "<who> <code>"; heard: the listeners alone
// (callbacks registered by earlier tests stay registered).
Texts told, heard;

template <int N>
void Callback(StateChange_e change)
{
    told.push_back("callback" + std::to_string(N) + " " + std::to_string(change));
}

const auto Address = [](StateChangeCallback_pf callback) { return reinterpret_cast<const void*>(callback); };

// Notes each change it is told of, then does what it was given to do.
struct Listener : vantix::toolbox::StateChangeListenerInterface
{
    explicit Listener(std::string name) : name(std::move(name)) {}

    void stateChanged(const vantix::toolbox::StateChangeEventInterface& event, Notifier& notifier) override
    {
        told.push_back(name + " " + std::to_string(event.getStateChange()));
        heard.push_back(told.back());
        lastNotifier = &notifier;
        if (then)
            then(event.getStateChange(), notifier);
    }

    std::string name;
    std::function<void(StateChange_e, Notifier&)> then;
    Notifier* lastNotifier = nullptr;
};

template <typename T>
SetValueReturnCode_e WriteStyle(const char* group, const char* name, const T& value)
{
    vantix::toolbox::StyleValue style(group);
    return style.setValue(value, nullptr, -1, -1, style.initMacroIDsfromStyleValueNames(name));
}

class StateChangeTest : public testsupport::HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        told.clear();
        heard.clear();
        host::clearRaisedStateChanges();
    }
};

TEST_F(StateChangeTest, TheHostsOperationsRaiseTheirChanges)
{
    UniqueID_t second = 0;
    const auto addSecond = [&]
    {
        second = host::addFrame();
        host::activateFrame(m_frame);
    };
    const auto load = [] { host::loadDemoDataSet(); };
    const auto deleteFirst = [&] { host::deleteFrame(m_frame); };
    const auto displayLists = [](auto value) { return WriteStyle("Interface", "UseDisplayLists", value); };
    const auto rotate = [](RotateAxis_e axis)
    { VtxUtilViewRotate3D(axis, RotateOriginLocation_DefinedOrigin, 10.0, 0, 0, 0); };
    const StateChange_e created = StateChange_FrameCreated, top = StateChange_NewTopFrame,
                        deleted = StateChange_FrameDeleted, style = StateChange_Style,
                        view = StateChange_View3D, plot = StateChange_PlotTypeChanged,
                        zones = StateChange_ZonesAdded, loaded = StateChange_DataSetLoaded;
    const std::tuple<const char*, std::function<void()>, std::function<void()>, Changes> cases[] = {
        // clang-format off
        {"a new frame", nullptr, [] { host::addFrame(); }, {created, top}},
        {"another frame activated", addSecond, [&] { host::activateFrame(second); }, {top}},
        {"the active frame activated", nullptr, [&] { host::activateFrame(m_frame); }, {}},
        {"the top frame pushed", addSecond, [] { VtxUtilFramePushTop(); }, {}},
        {"the active top frame pushed", [] { host::addFrame(); }, [] { VtxUtilFramePushTop(); }, {top}},
        {"another frame deleted", addSecond, [&] { host::deleteFrame(second); }, {deleted}},
        {"the active frame deleted", addSecond, deleteFirst, {deleted, top}},
        {"the last frame deleted", nullptr, deleteFirst, {deleted, top}},
        {"the plot type", nullptr, [] { host::setPlotType(PlotType_Cartesian2D); }, {plot}},
        {"the same plot type", nullptr, [] { host::setPlotType(PlotType_Cartesian3D); }, {}},
        {"a style value", nullptr, [&] { EXPECT_EQ(SetValueReturnCode_Ok, displayLists(false)); }, {style}},
        {"the value a style has", nullptr, [&] { displayLists(true); }, {}},
        {"a refused style value", nullptr, [&] { displayLists(3.0); }, {}},
        {"a view style value", nullptr, [] { WriteStyle("ThreeDView", "PSIAngle", 30.0); }, {view}},
        {"a rotation", nullptr, [&] { rotate(RotateAxis_Psi); }, {view}},
        {"a refused rotation", nullptr, [&] { rotate(RotateAxis_X); }, {}},
        {"the whole view", nullptr, [] { host::setView(host::view()); }, {view}},
        {"a data set", nullptr, load, {zones, loaded}},
        {"another data set", load, load, {StateChange_DataSetReset, zones, loaded}},
        {"a data set on an empty page", deleteFirst, load, {created, top, zones, loaded}},
        {"a zone disabled", load, [] { host::setZoneEnabled(1, false); }, {StateChange_ZoneActivation}},
        {"a zone left enabled", load, [] { host::setZoneEnabled(1, true); }, {}},
        // A failed macro raises nothing, which the expected changes catch.
        {"a macro rotation", nullptr,
         [] { host::runMacroText(std::string(host::MacroHeader) + "\n$!ROTATE3DVIEW PSI = 10", "m"); },
         {view}},
        // clang-format on
    };
    for (const auto& [what, setUp, act, raised] : cases)
    {
        host::reset();
        m_frame = host::addFrame();
        if (setUp)
            setUp();
        host::clearRaisedStateChanges();
        act();
        EXPECT_EQ(raised, host::raisedStateChanges()) << what;
    }
    host::raiseStateChange(StateChange_NewLayout);
    host::reset();
    EXPECT_THAT(host::raisedStateChanges(), IsEmpty()) << "a reset raises nothing and starts the log afresh";
}

TEST_F(StateChangeTest, TheCallbackIsRegisteredOnlyFromAFittingArgumentListAndToldBeforeTheListeners)
{
    using Append = std::function<void(ArgList_pa)>;
    const auto fn = [](StateChangeCallback_pf callback, const char* name = "CallbackFunction") -> Append
    { return [=](ArgList_pa list) { VtxUtilArgListAppendFunction(list, name, Address(callback)); }; };
    const auto num = [](const char* name, LgIndex_t value) -> Append
    { return [=](ArgList_pa list) { VtxUtilArgListAppendInt(list, name, value); }; };
    const Append f4 = fn(Callback<4>);
    const std::string given = "VtxUtilStateChangeAddCallbackX was given ",
                      noFunction = "no function as \"CallbackFunction\"";
    const std::size_t before = host::stateChangeCallbackCount();
    // What the list holds, whether the callback is registered, and what the host reports after "was given".
    const std::tuple<const char*, std::vector<Append>, bool, std::string> cases[] = {
        // clang-format off
        {"the function alone", {fn(Callback<1>)}, true, ""},
        {"all three, in any case", {num("statechangemode", 2), fn(Callback<2>, "CALLBACKFUNCTION"),
                                    num("StateChangeCallbackAPI", 1)}, true, ""},
        {"registered already", {fn(Callback<2>)}, false, ""},
        {"no function", {num("StateChangeMode", 2)}, false, noFunction},
        {"a null function", {fn(nullptr)}, false, noFunction},
        {"an integer", {num("CallbackFunction", 5)}, false, noFunction},
        {"mode 1", {f4, num("StateChangeMode", 1)}, false, "the state-change mode 1; the host offers 2"},
        {"form 2", {f4, num("StateChangeCallbackAPI", 2)}, false,
         "the state-change callback form 2; the host offers 1"},
        {"a function mode", {f4, fn(Callback<4>, "StateChangeMode")}, false,
         "a function as \"StateChangeMode\", which takes an integer"},
        {"unknown", {f4, num("ClientData", 7)}, false, "the unknown argument \"ClientData\""},
        // clang-format on
    };
    for (const auto& [what, arguments, registered, error] : cases)
    {
        ArgList_pa list = VtxUtilArgListAlloc();
        for (const Append& append : arguments)
            append(list);
        EXPECT_EQ(registered, bool(VtxUtilStateChangeAddCallbackX(list))) << what;
        VtxUtilArgListDealloc(&list);
        EXPECT_EQ(error.empty() ? Texts{} : Texts{given + error}, host::hostErrors()) << what;
        host::clearHostErrors();
    }
    EXPECT_EQ(before + 2, host::stateChangeCallbackCount());
    Listener listener("listener");
    StateChangeNotifier notifier;
    notifier.addListener(&listener);
    told.clear();
    host::raiseStateChange(StateChange_Style);
    EXPECT_THAT(told, ElementsAre("callback1 7", "callback2 7", "listener 7"));

    int foreign = 0;
    EXPECT_FALSE(VtxUtilStateChangeAddCallbackX(reinterpret_cast<ArgList_pa>(&foreign)));
    EXPECT_THAT(host::hostErrors(),
                ElementsAre(given + "an argument list the host never made (or released already)"));
    host::clearHostErrors();
}

TEST_F(StateChangeTest, ArgumentListsAreCountedUntilReleasedAndTakeEachNameOnce)
{
    ArgList_pa first = VtxUtilArgListAlloc(), second = VtxUtilArgListAlloc();
    {
        vantix::toolbox::ArgList wrapped;
        EXPECT_EQ(3, host::outstandingArgLists());
        EXPECT_TRUE(wrapped.appendInt("StateChangeMode", 2));
        EXPECT_FALSE(wrapped.appendInt("STATECHANGEMODE", 2));
        EXPECT_TRUE(wrapped.appendFunction("CallbackFunction", Address(Callback<9>)));
    }
    EXPECT_EQ(2, host::outstandingArgLists()) << "the toolbox's list releases itself";
    EXPECT_TRUE(VtxUtilArgListAppendInt(first, "A", 1));
    EXPECT_FALSE(VtxUtilArgListAppendInt(first, "a", 2));
    EXPECT_FALSE(VtxUtilArgListAppendFunction(first, nullptr, Address(Callback<9>)));
    EXPECT_FALSE(VtxUtilArgListAppendFunction(first, "", Address(Callback<9>)));
    ArgList_pa copy = first;
    VtxUtilArgListDealloc(&first);
    EXPECT_EQ(nullptr, first);
    EXPECT_EQ(1, host::outstandingArgLists());
    VtxUtilArgListDealloc(&copy); // released already
    EXPECT_FALSE(VtxUtilArgListAppendInt(copy, "B", 1));
    const std::string released = "an argument list the host never made (or released already)";
    EXPECT_THAT(
        host::hostErrors(),
        ElementsAre("vantix::toolbox::ArgList::appendInt was given the argument \"STATECHANGEMODE\" a "
                    "second time",
                    "VtxUtilArgListAppendInt was given the argument \"a\" a second time",
                    "VtxUtilArgListAppendFunction was given an argument without a name",
                    "VtxUtilArgListAppendFunction was given an argument without a name",
                    "VtxUtilArgListDealloc was given " + released,
                    "VtxUtilArgListAppendInt was given " + released));
    host::clearHostErrors();
    ArgList_pa none = nullptr;
    VtxUtilArgListDealloc(&none);
    VtxUtilArgListDealloc(nullptr);

    host::reset();
    EXPECT_EQ(0, host::outstandingArgLists()) << "the count starts again";
    EXPECT_TRUE(VtxUtilArgListAppendInt(second, "StillValid", 1));
    VtxUtilArgListDealloc(&second); // and counted no further: the fixture's check on the way out
}

// A listener that removes the one after it: that one hears nothing of this change; one added while a change
// is told hears of the next change; one that removes itself hears no more. Notifiers are told in the order
// they were made, and one may be destroyed while it tells: its listeners after that hear nothing.
TEST_F(StateChangeTest, ListenersAndNotifiersMayComeAndGoWhileTheyAreTold)
{
    auto first = std::make_unique<StateChangeNotifier>();
    StateChangeNotifier second;
    Listener remover("remover"), next("next"), once("once"), always("always"), elsewhere("elsewhere");
    once.then = [&](StateChange_e, Notifier& n) { n.removeListener(&once); };
    first->addListener(&remover);
    first->addListener(&remover); // once only
    first->addListener(&next);
    first->addListener(&once);
    second.addListener(&elsewhere);
    EXPECT_EQ(4u, host::stateChangeListenerCount());
    remover.then = [&](StateChange_e, Notifier& n) { n.removeListener(&next); };
    host::raiseStateChange(StateChange_Style);
    EXPECT_EQ(std::make_pair(static_cast<Notifier*>(first.get()), static_cast<Notifier*>(&second)),
              std::make_pair(remover.lastNotifier, elsewhere.lastNotifier));
    remover.then = [&](StateChange_e, Notifier& n) { n.addListener(&always); };
    host::raiseStateChange(StateChange_Style);
    remover.then = nullptr;
    host::raiseStateChange(StateChange_View3D);
    remover.then = [&](StateChange_e, Notifier&) { first.reset(); };
    host::raiseStateChange(StateChange_DataSetLoaded);
    EXPECT_EQ(1u, host::stateChangeListenerCount());
    EXPECT_THAT(heard, ElementsAre("remover 7", "once 7", "elsewhere 7", "remover 7", "elsewhere 7",
                                   "remover 12", "always 12", "elsewhere 12", "remover 51", "elsewhere 51"));
}

TEST_F(StateChangeTest, AChangeRaisedWhileAnotherIsToldIsToldAtOnceAndProblemsAreReported)
{
    StateChangeNotifier notifier, unknownMode(StateChangeMode_e(1));
    Listener writer("writer"), second("second"), unheard("unheard");
    writer.then = [](StateChange_e change, Notifier&)
    {
        if (change == StateChange_View3D)
            WriteStyle("Interface", "UseDisplayLists", false);
    };
    notifier.addListener(&writer);
    notifier.addListener(&second);
    VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 5.0, 0, 0, 0);
    EXPECT_THAT(heard, ElementsAre("writer 12", "writer 7", "second 7", "second 12"));
    EXPECT_EQ((Changes{StateChange_View3D, StateChange_Style}), host::raisedStateChanges());

    // The listeners after one that throws are still told, not a bad mode's.
    heard.clear();
    writer.then = [](StateChange_e, Notifier&) { throw std::runtime_error("it broke"); };
    notifier.addListener(nullptr);
    unknownMode.addListener(&unheard);
    host::raiseStateChange(StateChange_Style);
    EXPECT_THAT(heard, ElementsAre("writer 7", "second 7"));
    EXPECT_THAT(
        host::hostErrors(),
        ElementsAre("vantix::toolbox::StateChangeNotifier was given the state-change mode 1; the host "
                    "offers 2",
                    "vantix::toolbox::StateChangeNotifier::addListener was given no listener",
                    "a state-change listener let an exception out: it broke"));
    host::clearHostErrors();
}

std::vector<std::string> ran;
int requeuesLeft = 0;

const auto Record = [](ArbParam_t clientData) { ran.push_back("call " + std::to_string(clientData)); };

// Queues itself again while requeuesLeft lasts, as a call that keeps work coming.
void Requeue(ArbParam_t clientData)
{
    ran.push_back("requeue " + std::to_string(clientData));
    if (requeuesLeft-- > 0)
        VtxUtilOnIdleQueueAddCallback(Requeue, clientData + 1);
}

// One idle moment (or idle moments until the queue is empty, at most rounds of them), told as
// "<calls run>: <what they did>; <calls still pending> pending".
std::string Idle(int rounds = 0)
{
    std::string told = std::to_string(rounds ? host::runOnIdleUntilEmpty(rounds) : host::runOnIdle()) + ":";
    for (const std::string& call : ran)
        told += " " + call;
    ran.clear();
    return told + "; " + std::to_string(host::pendingOnIdleCalls()) + " pending";
}

using OnIdleQueueTest = testsupport::HostTest;

// Queued calls run once each, in order, when the host is idle, even after a reset; a call may not run the
// queue; one that throws is reported while the others still run; a call queued while the queue runs waits
// for the next idle moment.
TEST_F(OnIdleQueueTest, QueuedCallsRunOnceInOrderWhenTheHostIsIdleAndMacroCommandsAreIdleMoments)
{
    host::runOnIdleUntilEmpty(); // what modules loaded earlier in this process queued is not this test's
    ran.clear();
    const long queuedBefore = host::callCount("VtxUtilOnIdleQueueAddCallback");
    for (const ArbParam_t data : {ArbParam_t(3), ArbParam_t(1), ArbParam_t(2), ArbParam_t(-7)})
        EXPECT_TRUE(VtxUtilOnIdleQueueAddCallback(Record, data));
    EXPECT_FALSE(VtxUtilOnIdleQueueAddCallback(nullptr, 0));
    EXPECT_THAT(host::hostErrors(), ElementsAre("VtxUtilOnIdleQueueAddCallback was given no callback"));
    host::clearHostErrors();
    EXPECT_EQ(queuedBefore + 5, host::callCount("VtxUtilOnIdleQueueAddCallback"));
    host::reset();
    EXPECT_THAT(ran, IsEmpty()) << "nothing runs before the host is idle";
    EXPECT_EQ("4: call 3 call 1 call 2 call -7; 0 pending", Idle());
    EXPECT_EQ("0:; 0 pending", Idle());

    VtxUtilOnIdleQueueAddCallback(
        [](ArbParam_t)
        {
            EXPECT_THROW(host::runOnIdle(), std::logic_error);
            throw std::runtime_error("out of an on-idle call");
        },
        0);
    VtxUtilOnIdleQueueAddCallback(Record, 1);
    EXPECT_EQ("2: call 1; 0 pending", Idle());
    EXPECT_THAT(host::hostErrors(),
                ElementsAre("an on-idle callback let an exception out: out of an on-idle call"));
    host::clearHostErrors();

    requeuesLeft = 1;
    VtxUtilOnIdleQueueAddCallback(Requeue, 10);
    VtxUtilOnIdleQueueAddCallback(Record, 1);
    EXPECT_EQ("2: requeue 10 call 1; 1 pending", Idle());
    EXPECT_EQ("1: requeue 11; 0 pending", Idle());
    // Running until empty gives a call that always requeues a bounded number of rounds.
    requeuesLeft = 1000;
    VtxUtilOnIdleQueueAddCallback(Requeue, 0);
    EXPECT_EQ("5: requeue 0 requeue 1 requeue 2 requeue 3 requeue 4; 1 pending", Idle(5));
    requeuesLeft = 1;
    EXPECT_EQ("2: requeue 5 requeue 6; 0 pending", Idle(100));
    EXPECT_THROW(host::runOnIdleUntilEmpty(0), std::invalid_argument);

    // The macro runner is idle after each command. (A frame for its redraws: the calls that modules loaded
    // earlier queue on its making are not this test's.)
    m_frame = host::addFrame();
    host::runOnIdleUntilEmpty();
    requeuesLeft = 1;
    VtxUtilOnIdleQueueAddCallback(
        [](ArbParam_t) { ran.push_back("after " + std::to_string(host::redrawCount()) + " redraws"); }, 0);
    VtxUtilOnIdleQueueAddCallback(Requeue, 0);
    const auto result =
        host::runMacroText(std::string(host::MacroHeader) + "\n$!REDRAW\n$!REDRAW\n", "idle.mcr");
    ASSERT_TRUE(result.ok()) << result.message;
    // Both queued calls, and the one queued meanwhile, run between the two commands.
    EXPECT_THAT(ran, ElementsAre("after 1 redraws", "requeue 0", "requeue 1"));
    EXPECT_EQ(0u, host::pendingOnIdleCalls());
}

} // namespace
