// Deferred calls through the host's on-idle queue, state changes through the toolbox's notifier, and a
// dialog closed once the host's state no longer lets it work.
#include "platform/DialogDropper.h"
#include "platform/OnIdleManager.h"
#include "platform/StateChangeListener.h"

#include <support/AddOnTest.h>

#include <VtxUtil.h>
#include <vantix/host/Events.h>
#include <vantix/host/Host.h>
#include <vantix/toolbox/StateChangeEventInterface.h>

#include <memory>
#include <stdexcept>
#include <vector>

using namespace vantix::vtxutiltools;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace
{

// A dialog that works only on a 3D Cartesian frame.
struct ThreeDDialog
{
    static bool okToLaunch() { return VtxUtilFrameGetPlotType() == PlotType_Cartesian3D; }
    static void drop() { ++drops; }
    static int drops;
};
int ThreeDDialog::drops = 0;

// Every burst of state changes also queues the add-on's own update of its menu option: one call more in
// the queue than the dropper's.
class HostEventPlumbingTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        // Calls queued by earlier tests are not this test's.
        vantix::host::runOnIdleUntilEmpty();
        ThreeDDialog::drops = 0;
        m_listenersBefore = vantix::host::stateChangeListenerCount();
    }

    std::size_t listeners() const { return vantix::host::stateChangeListenerCount() - m_listenersBefore; }

    std::size_t m_listenersBefore = 0;
    std::vector<int> m_ran;
};

} // namespace

TEST_F(HostEventPlumbingTest, OnlyTheFirstOfRequestsBeforeTheHostIsIdleRunsAndOnlyOnce)
{
    OnIdleManager manager;
    manager.addCallback([this] { m_ran.push_back(1); });
    manager.addCallback([this] { m_ran.push_back(2); });
    EXPECT_EQ(1u, vantix::host::pendingOnIdleCalls());
    EXPECT_THAT(m_ran, IsEmpty());
    EXPECT_EQ(1, vantix::host::runOnIdleUntilEmpty());
    EXPECT_THAT(m_ran, ElementsAre(1));

    manager.addCallback([this] { m_ran.push_back(3); });
    vantix::host::runOnIdleUntilEmpty();
    EXPECT_THAT(m_ran, ElementsAre(1, 3));
}

TEST_F(HostEventPlumbingTest, ARequestMadeWhileThePendingCallRunsIsDropped)
{
    OnIdleManager manager;
    manager.addCallback(
        [&]
        {
            m_ran.push_back(1);
            manager.addCallback([this] { m_ran.push_back(2); });
        });
    EXPECT_EQ(1, vantix::host::runOnIdle());
    EXPECT_EQ(0u, vantix::host::pendingOnIdleCalls());
    EXPECT_THAT(m_ran, ElementsAre(1));
}

TEST_F(HostEventPlumbingTest, ACallThatThrowsNoLongerCountsAsPending)
{
    OnIdleManager manager;
    manager.addCallback([] { throw std::runtime_error("refresh failed"); });
    vantix::host::runOnIdle();
    EXPECT_THAT(vantix::host::hostErrors(),
                ElementsAre("an on-idle callback let an exception out: refresh failed"));
    vantix::host::clearHostErrors();
    manager.addCallback([this] { m_ran.push_back(1); });
    vantix::host::runOnIdle();
    EXPECT_THAT(m_ran, ElementsAre(1));
}

TEST_F(HostEventPlumbingTest, ACallQueuedByADestroyedManagerDoesNothing)
{
    auto gone = std::make_unique<OnIdleManager>();
    gone->addCallback([this] { m_ran.push_back(1); });
    gone.reset();
    // A manager made now may take the old one's place in memory; it must not receive the old call.
    auto successor = std::make_unique<OnIdleManager>();
    successor->addCallback([this] { m_ran.push_back(2); });
    // One that destroys itself from its own call.
    auto selfDestroying = std::make_unique<OnIdleManager>();
    selfDestroying->addCallback(
        [&]
        {
            selfDestroying.reset();
            m_ran.push_back(3);
        });
    EXPECT_EQ(3, vantix::host::runOnIdle());
    EXPECT_THAT(m_ran, ElementsAre(2, 3));
    EXPECT_EQ(nullptr, selfDestroying);
}

TEST_F(HostEventPlumbingTest, ListenerForwardsChangesUnderTheLockFromStartToStopOrQuit)
{
    std::vector<StateChange_e> heard;
    StateChangeListener listener(
        [&](const vantix::toolbox::StateChangeEventInterface& event,
            vantix::toolbox::StateChangeNotifierInterface&)
        {
            EXPECT_EQ(1, vantix::host::lockDepth(AddOnID));
            heard.push_back(event.getStateChange());
        });
    vantix::host::raiseStateChange(StateChange_Style);
    EXPECT_EQ(0u, listeners());

    listener.startListening();
    EXPECT_EQ(1u, listeners());
    vantix::host::raiseStateChange(StateChange_NewTopFrame);
    listener.stopListening();
    EXPECT_EQ(0u, listeners());
    vantix::host::raiseStateChange(StateChange_Style);

    listener.startListening();
    for (const StateChange_e change : {StateChange_View3D, StateChange_QuitProgram, StateChange_Style})
        vantix::host::raiseStateChange(change);
    EXPECT_THAT(heard, ElementsAre(StateChange_NewTopFrame, StateChange_View3D, StateChange_QuitProgram));
    EXPECT_EQ(0u, listeners());
}

TEST_F(HostEventPlumbingTest, ListenerReleasesTheLockWhenItsCallbackThrows)
{
    StateChangeListener listener(
        [](const vantix::toolbox::StateChangeEventInterface&, vantix::toolbox::StateChangeNotifierInterface&)
        { throw std::runtime_error("no good"); });
    listener.startListening();
    vantix::host::raiseStateChange(StateChange_Style);
    EXPECT_EQ(0, vantix::host::lockDepth(AddOnID));
    EXPECT_THAT(vantix::host::hostErrors(),
                ElementsAre("a state-change listener let an exception out: no good"));
    vantix::host::clearHostErrors();
    listener.stopListening();
}

TEST_F(HostEventPlumbingTest, DropperClosesTheDialogOnceAtIdleWhenTheStateStaysBad)
{
    ThreeDDialog dialog;
    DialogDropper<ThreeDDialog> dropper(dialog);
    dropper.listener().startListening();

    vantix::host::raiseStateChange(StateChange_Style);
    EXPECT_EQ(1u, vantix::host::pendingOnIdleCalls()) << "still 3D: the add-on's menu option update only";

    vantix::host::setPlotType(PlotType_Cartesian2D);
    for (int i = 0; i < 10; ++i)
        vantix::host::raiseStateChange(StateChange_Style);
    EXPECT_EQ(2u, vantix::host::pendingOnIdleCalls());
    EXPECT_EQ(0, ThreeDDialog::drops);
    vantix::host::runOnIdleUntilEmpty();
    EXPECT_EQ(1, ThreeDDialog::drops);
    EXPECT_EQ(0u, listeners());
}

TEST_F(HostEventPlumbingTest, DropperKeepsTheDialogWhenTheStateIsGoodAgainAtIdle)
{
    ThreeDDialog dialog;
    DialogDropper<ThreeDDialog> dropper(dialog);
    dropper.listener().startListening();
    vantix::host::setPlotType(PlotType_XYLine);
    vantix::host::setPlotType(PlotType_Cartesian3D);
    EXPECT_EQ(2u, vantix::host::pendingOnIdleCalls());
    vantix::host::runOnIdleUntilEmpty();
    EXPECT_EQ(0, ThreeDDialog::drops);
    EXPECT_EQ(1u, listeners());

    // Without a frame there is nothing to work on either.
    vantix::host::deleteFrame(m_frame);
    vantix::host::runOnIdleUntilEmpty();
    EXPECT_EQ(1, ThreeDDialog::drops);
}

TEST_F(HostEventPlumbingTest, ACheckQueuedByADestroyedDropperDoesNothing)
{
    ThreeDDialog dialog;
    auto dropper = std::make_unique<DialogDropper<ThreeDDialog>>(dialog);
    dropper->listener().startListening();
    vantix::host::setPlotType(PlotType_Cartesian2D);
    dropper.reset();
    EXPECT_EQ(0u, listeners());
    EXPECT_EQ(2, vantix::host::runOnIdle());
    EXPECT_EQ(0, ThreeDDialog::drops);
}
