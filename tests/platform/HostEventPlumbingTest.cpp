// Deferred calls through the host's on-idle queue, state changes through the toolbox's notifier, and a
// dialog closed once the host's state no longer lets it work.
#include "platform/DialogDropper.h"
#include "platform/OnIdleManager.h"
#include "platform/StateChangeListener.h"

#include <support/AddOnTest.h>

#include <vantix/toolbox/StateChangeEventInterface.h>

#include <functional>
#include <memory>
#include <stdexcept>

using namespace vantix::vtxutiltools;
using namespace vantix::host;
using ::testing::ElementsAre;

namespace
{

// A dialog that works only on a 3D Cartesian frame.
struct ThreeDDialog
{
    static bool okToLaunch() { return VtxUtilFrameGetPlotType() == PlotType_Cartesian3D; }
    static void drop() { ++drops; }
    static inline int drops = 0;
};

// Every burst of state changes also queues the add-on's own update of its menu option: one call more in
// the queue than the dropper's.
class HostEventPlumbingTest : public testsupport::AddOnTest
{
protected:
    void SetUp() override
    {
        AddOnTest::SetUp();
        runOnIdleUntilEmpty(); // calls queued by earlier tests are not this test's
        ThreeDDialog::drops = 0;
        m_listenersBefore = stateChangeListenerCount();
    }

    std::size_t Listeners() const { return stateChangeListenerCount() - m_listenersBefore; }
    // A call that notes that it ran, then does what it was given to do.
    boost::function<void()> Noting(int number, const std::function<void()>& then = nullptr)
    {
        return [this, number, then]
        {
            m_ran.push_back(number);
            if (then)
                then();
        };
    }

    std::size_t m_listenersBefore = 0;
    std::vector<int> m_ran;
};

} // namespace

// Requests made before the host is idle, or while the pending call runs, are dropped; one that throws no
// longer counts as pending; and a call queued by a manager destroyed since does nothing.
TEST_F(HostEventPlumbingTest, OnlyTheFirstOfRequestsBeforeItHasRunRunsAndOnlyOnceWhileTheManagerLives)
{
    OnIdleManager manager;
    manager.addCallback(Noting(1, [&] { manager.addCallback(Noting(9)); }));
    manager.addCallback(Noting(2));
    EXPECT_EQ(std::make_pair(1ul, 0ul), std::make_pair(pendingOnIdleCalls(), m_ran.size()));
    EXPECT_EQ(1, runOnIdleUntilEmpty());
    manager.addCallback(Noting(3));
    runOnIdleUntilEmpty();

    manager.addCallback([] { throw std::runtime_error("refresh failed"); });
    runOnIdle();
    EXPECT_THAT(hostErrors(), ElementsAre("an on-idle callback let an exception out: refresh failed"));
    clearHostErrors();
    manager.addCallback(Noting(4));
    runOnIdle();
    EXPECT_THAT(m_ran, ElementsAre(1, 3, 4));

    m_ran.clear();
    auto gone = std::make_unique<OnIdleManager>();
    gone->addCallback(Noting(1));
    gone.reset();
    // A manager made now may take the old one's place in memory; it must not receive the old call.
    auto successor = std::make_unique<OnIdleManager>();
    successor->addCallback(Noting(2));
    // One that destroys itself from its own call.
    auto selfDestroying = std::make_unique<OnIdleManager>();
    selfDestroying->addCallback(Noting(3, [&] { selfDestroying.reset(); }));
    EXPECT_EQ(3, runOnIdle());
    EXPECT_THAT(m_ran, ElementsAre(2, 3));
}

TEST_F(HostEventPlumbingTest, ListenerForwardsChangesUnderTheLockFromStartToStopOrQuit)
{
    std::vector<StateChange_e> heard;
    StateChangeListener listener(
        [&](const auto& event, auto& /*notifier*/)
        {
            EXPECT_EQ(1, lockDepth(AddOnID));
            heard.push_back(event.getStateChange());
            if (heard.size() == 1)
                throw std::runtime_error("no good");
        });
    raiseStateChange(StateChange_Style);
    EXPECT_EQ(0u, Listeners());
    listener.startListening();
    EXPECT_EQ(1u, Listeners());
    raiseStateChange(StateChange_NewTopFrame);
    // A callback that throws leaves the host unlocked.
    EXPECT_EQ(0, lockDepth(AddOnID));
    EXPECT_THAT(hostErrors(), ElementsAre("a state-change listener let an exception out: no good"));
    clearHostErrors();
    listener.stopListening();
    EXPECT_EQ(0u, Listeners());
    raiseStateChange(StateChange_Style);

    listener.startListening();
    for (const StateChange_e change : {StateChange_View3D, StateChange_QuitProgram, StateChange_Style})
        raiseStateChange(change);
    EXPECT_THAT(heard, ElementsAre(StateChange_NewTopFrame, StateChange_View3D, StateChange_QuitProgram));
    EXPECT_EQ(0u, Listeners());
}

TEST_F(HostEventPlumbingTest, DropperClosesTheDialogOnceAtIdleOnlyWhenTheStateIsStillBadThen)
{
    ThreeDDialog dialog;
    DialogDropper<ThreeDDialog> dropper(dialog);
    dropper.listener().startListening();
    raiseStateChange(StateChange_Style);
    EXPECT_EQ(1u, pendingOnIdleCalls()) << "still 3D: the add-on's menu option update only";
    // Good again by the time the host is idle.
    setPlotType(PlotType_XYLine);
    setPlotType(PlotType_Cartesian3D);
    EXPECT_EQ(2u, pendingOnIdleCalls());
    runOnIdleUntilEmpty();
    EXPECT_EQ(std::make_pair(0, 1ul), std::make_pair(ThreeDDialog::drops, Listeners()));

    // A burst of changes queues one check; the dialog goes and the dropper stops listening.
    setPlotType(PlotType_Cartesian2D);
    for (int i = 0; i < 10; ++i)
        raiseStateChange(StateChange_Style);
    EXPECT_EQ(2u, pendingOnIdleCalls());
    runOnIdleUntilEmpty();
    EXPECT_EQ(std::make_pair(1, 0ul), std::make_pair(ThreeDDialog::drops, Listeners()));

    // Without a frame there is nothing to work on either.
    setPlotType(PlotType_Cartesian3D);
    dropper.listener().startListening();
    deleteFrame(m_frame);
    runOnIdleUntilEmpty();
    EXPECT_EQ(2, ThreeDDialog::drops);
}
