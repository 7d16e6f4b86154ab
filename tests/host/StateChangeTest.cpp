// State changes: raised by the host's real operations, delivered to the callbacks registered through
// argument lists and to the toolbox's notifiers, whose listeners may come and go while they are told.
#include "support/HostTest.h"

#include <VtxUtil.h>
#include <vantix/host/Events.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>
#include <vantix/host/Scene.h>
#include <vantix/toolbox/ArgList.h>
#include <vantix/toolbox/StateChangeEventInterface.h>
#include <vantix/toolbox/StateChangeListenerInterface.h>
#include <vantix/toolbox/StateChangeNotifier.h>
#include <vantix/toolbox/StyleValue.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testsupport::HostTest;
using vantix::toolbox::StateChangeEventInterface;
using vantix::toolbox::StateChangeListenerInterface;
using vantix::toolbox::StateChangeNotifier;
using vantix::toolbox::StateChangeNotifierInterface;
using Changes = std::vector<StateChange_e>;

// What the callbacks and listeners were told, in order, as "<who> <code>".
std::vector<std::string> told;
// What the listeners alone were told: callbacks registered by earlier tests stay registered.
std::vector<std::string> heard;

template <int N>
void Callback(StateChange_e change)
{
    told.push_back("callback" + std::to_string(N) + " " + std::to_string(change));
}

const void* Address(StateChangeCallback_pf callback)
{
    return reinterpret_cast<const void*>(callback);
}

// Registers Callback<0> once per process, as an add-on registers in its entry point.
void RegisterTheRecordingCallback()
{
    static const bool registered = []
    {
        vantix::toolbox::ArgList arguments;
        arguments.appendFunction("CallbackFunction", Address(Callback<0>));
        arguments.appendInt("StateChangeMode", StateChangeMode_Immediate);
        arguments.appendInt("StateChangeCallbackAPI", StateChangeCallbackAPI_ChangeOnly);
        return VtxUtilStateChangeAddCallbackX(arguments.getRef()) == TRUE;
    }();
    ASSERT_TRUE(registered);
}

class Listener : public StateChangeListenerInterface
{
public:
    explicit Listener(std::string name) : m_name(std::move(name)) {}

    void stateChanged(const StateChangeEventInterface& event, StateChangeNotifierInterface& notifier) override
    {
        told.push_back(m_name + " " + std::to_string(event.getStateChange()));
        heard.push_back(told.back());
        lastNotifier = &notifier;
        if (then)
            then(event.getStateChange(), notifier);
    }

    // What the listener does after it has noted a change.
    std::function<void(StateChange_e, StateChangeNotifierInterface&)> then;
    StateChangeNotifierInterface* lastNotifier = nullptr;

private:
    std::string m_name;
};

std::vector<vantix::host::ZoneData> OneTriangle()
{
    vantix::host::SurfaceZoneData zone;
    zone.name = "triangle";
    zone.nodes = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
    zone.triangles = {{0, 1, 2}};
    return {zone};
}

bool WriteDisplayLists(bool on)
{
    vantix::toolbox::StyleValue value("Interface");
    return value.setValue(on, nullptr, -1, -1, value.initMacroIDsfromStyleValueNames("UseDisplayLists")) ==
           SetValueReturnCode_Ok;
}

class StateChangeTest : public HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        told.clear();
        heard.clear();
        vantix::host::clearRaisedStateChanges();
    }

    static std::vector<std::string> ToldTo(const std::string& who)
    {
        std::vector<std::string> mine;
        for (const std::string& entry : told)
            if (entry.compare(0, who.size() + 1, who + " ") == 0)
                mine.push_back(entry.substr(who.size() + 1));
        return mine;
    }
};

TEST_F(StateChangeTest, TheHostsOperationsRaiseTheirChanges)
{
    UniqueID_t second = 0;
    const auto addSecond = [&]
    {
        second = vantix::host::addFrame();
        vantix::host::activateFrame(m_frame);
    };
    const auto macro = [](const std::string& line)
    {
        const auto result =
            vantix::host::runMacroText(std::string(vantix::host::MacroHeader) + "\n" + line, "m");
        EXPECT_TRUE(result.ok()) << result.message;
    };
    const auto load = [] { vantix::host::loadDataSet("one", OneTriangle()); };
    const struct
    {
        const char* what;
        std::function<void()> setUp, act;
        Changes raised;
    } cases[] = {
        {"a new frame",
         nullptr,
         [] { vantix::host::addFrame(); },
         {StateChange_FrameCreated, StateChange_NewTopFrame}},
        {"another frame activated",
         addSecond,
         [&] { vantix::host::activateFrame(second); },
         {StateChange_NewTopFrame}},
        {"the active frame activated", nullptr, [&] { vantix::host::activateFrame(m_frame); }, {}},
        {"a frame activated by id",
         addSecond,
         [&] { VtxUtilFrameActivateByUniqueID(second); },
         {StateChange_NewTopFrame}},
        {"the top frame activated", addSecond, [] { VtxUtilFrameActivateTop(); }, {StateChange_NewTopFrame}},
        {"the top frame pushed", addSecond, [] { VtxUtilFramePushTop(); }, {}},
        {"the active top frame pushed",
         [&] { second = vantix::host::addFrame(); },
         [] { VtxUtilFramePushTop(); },
         {StateChange_NewTopFrame}},
        {"another frame deleted",
         addSecond,
         [&] { vantix::host::deleteFrame(second); },
         {StateChange_FrameDeleted}},
        {"the active frame deleted",
         addSecond,
         [&] { vantix::host::deleteFrame(m_frame); },
         {StateChange_FrameDeleted, StateChange_NewTopFrame}},
        {"the last frame deleted",
         nullptr,
         [&] { vantix::host::deleteFrame(m_frame); },
         {StateChange_FrameDeleted, StateChange_NewTopFrame}},
        {"a lightweight walk",
         addSecond,
         []
         {
             VtxUtilFrameLightweightPopStart();
             while (VtxUtilFrameLightweightPopNext())
                 ;
             VtxUtilFrameLightweightPopEnd();
         },
         {}},
        {"the plot type",
         nullptr,
         [] { vantix::host::setPlotType(PlotType_Cartesian2D); },
         {StateChange_PlotTypeChanged}},
        {"the same plot type", nullptr, [] { vantix::host::setPlotType(PlotType_Cartesian3D); }, {}},
        {"a style value", nullptr, [] { EXPECT_TRUE(WriteDisplayLists(false)); }, {StateChange_Style}},
        {"the value a style has", nullptr, [] { WriteDisplayLists(true); }, {}},
        {"a refused style value",
         nullptr,
         []
         {
             vantix::toolbox::StyleValue value("Interface");
             value.setValue(3.0, nullptr, -1, -1, value.initMacroIDsfromStyleValueNames("UseDisplayLists"));
         },
         {}},
        {"a view style value",
         nullptr,
         []
         {
             vantix::toolbox::StyleValue value("ThreeDView");
             value.setValue(30.0, nullptr, -1, -1, value.initMacroIDsfromStyleValueNames("PSIAngle"));
         },
         {StateChange_View3D}},
        {"a host API style value",
         nullptr,
         [] {
             vantix::host::setStyle({"GlobalThreeD", "LightSource", "Intensity"}, 50.0);
         },
         {StateChange_Style}},
        {"an export setting",
         nullptr,
         [] { VtxUtilExportSetup("ImageWidth", nullptr, 0.0, 640); },
         {StateChange_Style}},
        {"a rotation",
         nullptr,
         [] { VtxUtilViewRotate3D(RotateAxis_Psi, RotateOriginLocation_DefinedOrigin, 10.0, 0, 0, 0); },
         {StateChange_View3D}},
        {"a refused rotation",
         nullptr,
         [] { VtxUtilViewRotate3D(RotateAxis_X, RotateOriginLocation_DefinedOrigin, 10.0, 0, 0, 0); },
         {}},
        {"the whole view",
         nullptr,
         [] { vantix::host::setView(vantix::host::view()); },
         {StateChange_View3D}},
        {"a data set", nullptr, load, {StateChange_ZonesAdded, StateChange_DataSetLoaded}},
        {"another data set",
         load,
         load,
         {StateChange_DataSetReset, StateChange_ZonesAdded, StateChange_DataSetLoaded}},
        {"a data set on an empty page",
         [&] { vantix::host::deleteFrame(m_frame); },
         load,
         {StateChange_FrameCreated, StateChange_NewTopFrame, StateChange_ZonesAdded,
          StateChange_DataSetLoaded}},
        {"a zone disabled",
         load,
         [] { vantix::host::setZoneEnabled(1, false); },
         {StateChange_ZoneActivation}},
        {"a zone left enabled", load, [] { vantix::host::setZoneEnabled(1, true); }, {}},
        {"the solution time", nullptr, [] { VtxUtilSolutionTimeSetCurrent(3.0); }, {}},
        {"a macro rotation", nullptr, [&] { macro("$!ROTATE3DVIEW PSI = 10"); }, {StateChange_View3D}},
        {"a macro plot type", nullptr, [&] { macro("$!PLOTTYPE = XYLINE"); }, {StateChange_PlotTypeChanged}},
        {"a macro frame",
         nullptr,
         [&] { macro("$!NEWFRAME"); },
         {StateChange_FrameCreated, StateChange_NewTopFrame}},
        {"a macro style value",
         nullptr,
         [&] { macro("$!SETSTYLEVALUE ThreeDAxis FrameAxis Show = FALSE"); },
         {StateChange_Style}},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        vantix::host::reset();
        m_frame = vantix::host::addFrame();
        if (c.setUp)
            c.setUp();
        vantix::host::clearRaisedStateChanges();
        c.act();
        EXPECT_EQ(c.raised, vantix::host::raisedStateChanges());
    }
}

TEST_F(StateChangeTest, AChangeReachesTheCallbacksFirstAndThenTheListenersAtOnce)
{
    RegisterTheRecordingCallback();
    StateChangeNotifier notifier(StateChangeMode_Immediate);
    Listener listener("listener");
    notifier.addListener(&listener);
    told.clear();

    vantix::host::addFrame();
    EXPECT_EQ(ToldTo("callback0"), ToldTo("listener"));
    EXPECT_THAT(ToldTo("listener"), ElementsAre("50", "6"));
    const auto firstListener = std::find(told.begin(), told.end(), "listener 50");
    const auto firstCallback = std::find(told.begin(), told.end(), "callback0 50");
    EXPECT_LT(firstCallback, firstListener);
    EXPECT_EQ(&notifier, listener.lastNotifier) << "the listener is told which notifier tells it";

    told.clear();
    vantix::host::raiseStateChange(StateChange_QuitProgram);
    EXPECT_THAT(ToldTo("callback0"), ElementsAre("15"));
    EXPECT_THAT(ToldTo("listener"), ElementsAre("15"));
    notifier.removeListener(&listener);
}

TEST_F(StateChangeTest, TheCallbackIsRegisteredOnlyFromAFittingArgumentList)
{
    const std::size_t before = vantix::host::stateChangeCallbackCount();
    const struct
    {
        const char* what;
        std::function<void(ArgList_pa)> fill;
        bool registered;
        std::string error;
    } cases[] = {
        {"the function alone",
         [](ArgList_pa list)
         { VtxUtilArgListAppendFunction(list, "CallbackFunction", Address(Callback<1>)); },
         true, ""},
        {"all three",
         [](ArgList_pa list)
         {
             VtxUtilArgListAppendFunction(list, "CallbackFunction", Address(Callback<2>));
             VtxUtilArgListAppendInt(list, "StateChangeMode", 2);
             VtxUtilArgListAppendInt(list, "StateChangeCallbackAPI", 1);
         },
         true, ""},
        {"names in any case",
         [](ArgList_pa list)
         {
             VtxUtilArgListAppendInt(list, "statechangemode", 2);
             VtxUtilArgListAppendFunction(list, "CALLBACKFUNCTION", Address(Callback<3>));
         },
         true, ""},
        {"a function registered already",
         [](ArgList_pa list)
         { VtxUtilArgListAppendFunction(list, "CallbackFunction", Address(Callback<2>)); },
         false, ""},
        {"no function", [](ArgList_pa list) { VtxUtilArgListAppendInt(list, "StateChangeMode", 2); }, false,
         "VtxUtilStateChangeAddCallbackX was given no function as \"CallbackFunction\""},
        {"a null function",
         [](ArgList_pa list) { VtxUtilArgListAppendFunction(list, "CallbackFunction", nullptr); }, false,
         "VtxUtilStateChangeAddCallbackX was given no function as \"CallbackFunction\""},
        {"an integer as the function",
         [](ArgList_pa list) { VtxUtilArgListAppendInt(list, "CallbackFunction", 5); }, false,
         "VtxUtilStateChangeAddCallbackX was given no function as \"CallbackFunction\""},
        {"another mode",
         [](ArgList_pa list)
         {
             VtxUtilArgListAppendFunction(list, "CallbackFunction", Address(Callback<4>));
             VtxUtilArgListAppendInt(list, "StateChangeMode", 1);
         },
         false, "VtxUtilStateChangeAddCallbackX was given the state-change mode 1; the host offers 2"},
        {"another callback form",
         [](ArgList_pa list)
         {
             VtxUtilArgListAppendFunction(list, "CallbackFunction", Address(Callback<4>));
             VtxUtilArgListAppendInt(list, "StateChangeCallbackAPI", 2);
         },
         false,
         "VtxUtilStateChangeAddCallbackX was given the state-change callback form 2; the host offers 1"},
        {"a function as the mode",
         [](ArgList_pa list)
         {
             VtxUtilArgListAppendFunction(list, "CallbackFunction", Address(Callback<4>));
             VtxUtilArgListAppendFunction(list, "StateChangeMode", Address(Callback<4>));
         },
         false,
         "VtxUtilStateChangeAddCallbackX was given a function as \"StateChangeMode\", which takes an "
         "integer"},
        {"an unknown argument",
         [](ArgList_pa list)
         {
             VtxUtilArgListAppendFunction(list, "CallbackFunction", Address(Callback<4>));
             VtxUtilArgListAppendInt(list, "ClientData", 7);
         },
         false, "VtxUtilStateChangeAddCallbackX was given the unknown argument \"ClientData\""},
    };
    for (const auto& c : cases)
    {
        SCOPED_TRACE(c.what);
        ArgList_pa list = VtxUtilArgListAlloc();
        c.fill(list);
        EXPECT_EQ(c.registered, bool(VtxUtilStateChangeAddCallbackX(list)));
        VtxUtilArgListDealloc(&list);
        EXPECT_EQ(nullptr, list);
        if (c.error.empty())
            EXPECT_THAT(vantix::host::hostErrors(), IsEmpty());
        else
            EXPECT_THAT(vantix::host::hostErrors(), ElementsAre(c.error));
        vantix::host::clearHostErrors();
    }
    EXPECT_EQ(before + 3, vantix::host::stateChangeCallbackCount());
    EXPECT_EQ(0, vantix::host::outstandingArgLists());

    told.clear();
    vantix::host::raiseStateChange(StateChange_Style);
    for (const char* who : {"callback1", "callback2", "callback3"})
        EXPECT_THAT(ToldTo(who), ElementsAre("7")) << who;
    EXPECT_THAT(ToldTo("callback4"), IsEmpty());

    int foreign = 0;
    EXPECT_FALSE(VtxUtilStateChangeAddCallbackX(reinterpret_cast<ArgList_pa>(&foreign)));
    EXPECT_THAT(
        vantix::host::hostErrors(),
        ElementsAre("VtxUtilStateChangeAddCallbackX was given an argument list the host never made (or "
                    "released already)"));
    vantix::host::clearHostErrors();
}

TEST_F(StateChangeTest, ArgumentListsAreCountedUntilReleasedAndTakeEachNameOnce)
{
    ArgList_pa first = VtxUtilArgListAlloc();
    ArgList_pa second = VtxUtilArgListAlloc();
    EXPECT_NE(first, second);
    EXPECT_EQ(2, vantix::host::outstandingArgLists());
    {
        vantix::toolbox::ArgList wrapped;
        EXPECT_NE(nullptr, wrapped.getRef());
        EXPECT_EQ(3, vantix::host::outstandingArgLists());
        EXPECT_TRUE(wrapped.appendInt("StateChangeMode", 2));
        EXPECT_FALSE(wrapped.appendInt("STATECHANGEMODE", 2));
        EXPECT_THAT(
            vantix::host::hostErrors(),
            ElementsAre("vantix::toolbox::ArgList::appendInt was given the argument \"STATECHANGEMODE\" a "
                        "second time"));
        vantix::host::clearHostErrors();
    }
    EXPECT_EQ(2, vantix::host::outstandingArgLists()) << "the toolbox's list releases itself";

    EXPECT_TRUE(VtxUtilArgListAppendInt(first, "A", 1));
    EXPECT_FALSE(VtxUtilArgListAppendInt(first, "a", 2));
    EXPECT_FALSE(VtxUtilArgListAppendFunction(first, nullptr, Address(Callback<9>)));
    EXPECT_FALSE(VtxUtilArgListAppendFunction(first, "", Address(Callback<9>)));
    EXPECT_THAT(vantix::host::hostErrors(),
                ElementsAre("VtxUtilArgListAppendInt was given the argument \"a\" a second time",
                            "VtxUtilArgListAppendFunction was given an argument without a name",
                            "VtxUtilArgListAppendFunction was given an argument without a name"));
    vantix::host::clearHostErrors();

    ArgList_pa copy = first;
    VtxUtilArgListDealloc(&first);
    EXPECT_EQ(1, vantix::host::outstandingArgLists());
    VtxUtilArgListDealloc(&copy); // released already
    EXPECT_FALSE(VtxUtilArgListAppendInt(copy, "B", 1));
    EXPECT_THAT(
        vantix::host::hostErrors(),
        ElementsAre("VtxUtilArgListDealloc was given an argument list the host never made (or released "
                    "already)",
                    "VtxUtilArgListAppendInt was given an argument list the host never made (or released "
                    "already)"));
    vantix::host::clearHostErrors();
    ArgList_pa none = nullptr;
    VtxUtilArgListDealloc(&none);
    VtxUtilArgListDealloc(nullptr);

    vantix::host::reset();
    EXPECT_EQ(0, vantix::host::outstandingArgLists()) << "the count starts again";
    EXPECT_TRUE(VtxUtilArgListAppendInt(second, "StillValid", 1));
    VtxUtilArgListDealloc(&second);
    EXPECT_EQ(nullptr, second);
    EXPECT_EQ(0, vantix::host::outstandingArgLists());
    EXPECT_THAT(vantix::host::hostErrors(), IsEmpty());
}

TEST_F(StateChangeTest, AListenerMayRemoveItselfOrOthersWhileItIsTold)
{
    StateChangeNotifier notifier;
    Listener once("once"), next("next"), always("always");
    once.then = [&](StateChange_e, StateChangeNotifierInterface& n) { n.removeListener(&once); };
    notifier.addListener(&once);
    notifier.addListener(&always);
    notifier.addListener(&always); // once only
    EXPECT_EQ(2u, vantix::host::stateChangeListenerCount());

    vantix::host::raiseStateChange(StateChange_Style);
    vantix::host::raiseStateChange(StateChange_View3D);
    EXPECT_THAT(heard, ElementsAre("once 7", "always 7", "always 12"));
    EXPECT_EQ(1u, vantix::host::stateChangeListenerCount());

    // A listener that removes the one after it: that one hears nothing of this change.
    heard.clear();
    Listener remover("remover");
    remover.then = [&](StateChange_e, StateChangeNotifierInterface& n) { n.removeListener(&next); };
    notifier.removeListener(&always);
    notifier.addListener(&remover);
    notifier.addListener(&next);
    vantix::host::raiseStateChange(StateChange_Style);
    EXPECT_THAT(heard, ElementsAre("remover 7"));

    // One added while the change is told hears of the next change.
    heard.clear();
    remover.then = [&](StateChange_e, StateChangeNotifierInterface& n) { n.addListener(&always); };
    vantix::host::raiseStateChange(StateChange_Style);
    vantix::host::raiseStateChange(StateChange_View3D);
    EXPECT_THAT(heard, ElementsAre("remover 7", "remover 12", "always 12"));
    notifier.removeListener(&remover);
    notifier.removeListener(&always);
    notifier.removeListener(&next); // not added: nothing happens
    EXPECT_EQ(0u, vantix::host::stateChangeListenerCount());
}

TEST_F(StateChangeTest, AListenerStopsListeningWhenTheProgramQuits)
{
    StateChangeNotifier notifier(StateChangeMode_e(2));
    Listener listener("listener");
    listener.then = [&](StateChange_e change, StateChangeNotifierInterface& n)
    {
        if (change == StateChange_QuitProgram)
            n.removeListener(&listener);
    };
    notifier.addListener(&listener);
    for (const StateChange_e change : {StateChange_NewTopFrame, StateChange_QuitProgram, StateChange_Style})
        vantix::host::raiseStateChange(change);
    EXPECT_THAT(heard, ElementsAre("listener 6", "listener 15"));
    notifier.addListener(&listener);
    vantix::host::raiseStateChange(StateChange_FrameCreated);
    EXPECT_THAT(heard, ElementsAre("listener 6", "listener 15", "listener 50"))
        << "listening again after an add";
    notifier.removeListener(&listener);
}

TEST_F(StateChangeTest, AListenerMayDestroyItsNotifierWhileItIsTold)
{
    auto notifier = std::make_unique<StateChangeNotifier>();
    StateChangeNotifier other;
    Listener destroyer("destroyer"), after("after"), elsewhere("elsewhere");
    destroyer.then = [&](StateChange_e, StateChangeNotifierInterface&) { notifier.reset(); };
    notifier->addListener(&destroyer);
    notifier->addListener(&after);
    other.addListener(&elsewhere);
    EXPECT_EQ(3u, vantix::host::stateChangeListenerCount());

    vantix::host::raiseStateChange(StateChange_DataSetLoaded);
    EXPECT_EQ(nullptr, notifier);
    EXPECT_THAT(heard, ElementsAre("destroyer 51", "elsewhere 51"));
    EXPECT_EQ(1u, vantix::host::stateChangeListenerCount());
    vantix::host::raiseStateChange(StateChange_Style);
    EXPECT_THAT(heard, ElementsAre("destroyer 51", "elsewhere 51", "elsewhere 7"));
    other.removeListener(&elsewhere);
}

TEST_F(StateChangeTest, NotifiersAreToldInTheOrderTheyWereMade)
{
    StateChangeNotifier first, second;
    Listener a("a"), b("b"), c("c");
    second.addListener(&c);
    first.addListener(&a);
    first.addListener(&b);
    vantix::host::raiseStateChange(StateChange_NewTopFrame);
    EXPECT_THAT(heard, ElementsAre("a 6", "b 6", "c 6"));
    EXPECT_EQ(&first, a.lastNotifier);
    EXPECT_EQ(&second, c.lastNotifier);
    first.removeListener(&a);
    first.removeListener(&b);
    second.removeListener(&c);
}

TEST_F(StateChangeTest, AChangeRaisedWhileAnotherIsToldIsToldAtOnce)
{
    StateChangeNotifier notifier;
    Listener writer("writer"), second("second");
    writer.then = [](StateChange_e change, StateChangeNotifierInterface&)
    {
        if (change == StateChange_View3D)
            WriteDisplayLists(false);
    };
    notifier.addListener(&writer);
    notifier.addListener(&second);
    VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 5.0, 0, 0, 0);
    EXPECT_THAT(heard, ElementsAre("writer 12", "writer 7", "second 7", "second 12"));
    EXPECT_EQ((Changes{StateChange_View3D, StateChange_Style}), vantix::host::raisedStateChanges());
    notifier.removeListener(&writer);
    notifier.removeListener(&second);
}

TEST_F(StateChangeTest, ProblemsOfListenersAndNotifiersAreReported)
{
    StateChangeNotifier notifier;
    Listener throwing("throwing"), after("after");
    throwing.then = [](StateChange_e, StateChangeNotifierInterface&)
    { throw std::runtime_error("listener broke"); };
    notifier.addListener(&throwing);
    notifier.addListener(&after);
    vantix::host::raiseStateChange(StateChange_Style);
    EXPECT_THAT(heard, ElementsAre("throwing 7", "after 7")) << "the others are still told";
    notifier.addListener(nullptr);
    EXPECT_THAT(vantix::host::hostErrors(),
                ElementsAre("a state-change listener let an exception out: listener broke",
                            "vantix::toolbox::StateChangeNotifier::addListener was given no listener"));
    vantix::host::clearHostErrors();
    notifier.removeListener(&throwing);
    notifier.removeListener(&after);

    heard.clear();
    StateChangeNotifier unknownMode(StateChangeMode_e(1));
    Listener unheard("unheard");
    unknownMode.addListener(&unheard);
    vantix::host::raiseStateChange(StateChange_Style);
    EXPECT_THAT(ToldTo("unheard"), IsEmpty());
    EXPECT_THAT(
        vantix::host::hostErrors(),
        ElementsAre("vantix::toolbox::StateChangeNotifier was given the state-change mode 1; the host "
                    "offers 2"));
    vantix::host::clearHostErrors();
    unknownMode.removeListener(&unheard);
}

TEST_F(StateChangeTest, TheLogOfRaisedChangesStartsAfreshOnAReset)
{
    vantix::host::raiseStateChange(StateChange_NewLayout);
    vantix::host::raiseStateChange(StateChange_ZonesDeleted);
    EXPECT_EQ((Changes{StateChange_NewLayout, StateChange_ZonesDeleted}), vantix::host::raisedStateChanges());
    vantix::host::reset();
    EXPECT_THAT(vantix::host::raisedStateChanges(), IsEmpty()) << "a reset raises nothing";
}

} // namespace
