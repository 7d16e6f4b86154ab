// The on-idle queue: calls run once each, in the order queued, when the host is idle; a call queued while
// the queue runs waits for the next idle moment; the macro runner is idle after each command.
#include "support/HostTest.h"

#include <VtxUtil.h>
#include <vantix/host/Events.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace
{

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testsupport::HostTest;

std::vector<std::string> ran;
int requeuesLeft = 0;

void Record(ArbParam_t clientData)
{
    ran.push_back("call " + std::to_string(clientData));
}

// Queues itself again while requeuesLeft lasts, as a call that keeps work coming.
void Requeue(ArbParam_t clientData)
{
    ran.push_back("requeue " + std::to_string(clientData));
    if (requeuesLeft-- > 0)
        VtxUtilOnIdleQueueAddCallback(Requeue, clientData + 1);
}

void TriesToRunTheQueue(ArbParam_t)
{
    try
    {
        vantix::host::runOnIdle();
        ran.push_back("ran the queue from inside");
    }
    catch (const std::logic_error&)
    {
        ran.push_back("refused");
    }
}

void Throws(ArbParam_t)
{
    throw std::runtime_error("out of an on-idle call");
}

void SeesRedraws(ArbParam_t)
{
    ran.push_back("after " + std::to_string(vantix::host::redrawCount()) + " redraws");
}

class OnIdleQueueTest : public HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        // Calls an add-on module loaded earlier in this process may have queued are not this test's.
        vantix::host::runOnIdleUntilEmpty();
        ran.clear();
        requeuesLeft = 0;
    }
};

TEST_F(OnIdleQueueTest, QueuedCallsRunOnceInTheOrderQueuedWhenTheHostIsIdle)
{
    const long queuedBefore = vantix::host::callCount("VtxUtilOnIdleQueueAddCallback");
    for (const ArbParam_t data : {ArbParam_t(3), ArbParam_t(1), ArbParam_t(2), ArbParam_t(-7)})
        EXPECT_TRUE(VtxUtilOnIdleQueueAddCallback(Record, data));
    EXPECT_THAT(ran, IsEmpty()) << "nothing runs before the host is idle";
    EXPECT_EQ(4u, vantix::host::pendingOnIdleCalls());
    EXPECT_EQ(4, vantix::host::runOnIdle());
    EXPECT_THAT(ran, ElementsAre("call 3", "call 1", "call 2", "call -7"));
    EXPECT_EQ(0u, vantix::host::pendingOnIdleCalls());
    EXPECT_EQ(0, vantix::host::runOnIdle());
    EXPECT_EQ(queuedBefore + 4, vantix::host::callCount("VtxUtilOnIdleQueueAddCallback"));
}

TEST_F(OnIdleQueueTest, ACallQueuedWhileTheQueueRunsWaitsForTheNextIdleMoment)
{
    requeuesLeft = 2;
    VtxUtilOnIdleQueueAddCallback(Requeue, 10);
    VtxUtilOnIdleQueueAddCallback(Record, 1);
    const struct
    {
        int ran;
        std::vector<std::string> log;
        std::size_t pending;
    } rounds[] = {
        {2, {"requeue 10", "call 1"}, 1},
        {1, {"requeue 10", "call 1", "requeue 11"}, 1},
        {1, {"requeue 10", "call 1", "requeue 11", "requeue 12"}, 0},
        {0, {"requeue 10", "call 1", "requeue 11", "requeue 12"}, 0},
    };
    for (const auto& round : rounds)
    {
        EXPECT_EQ(round.ran, vantix::host::runOnIdle());
        EXPECT_EQ(round.log, ran);
        EXPECT_EQ(round.pending, vantix::host::pendingOnIdleCalls());
    }
}

TEST_F(OnIdleQueueTest, RunningUntilEmptyGivesACallThatAlwaysRequeuesABoundedNumberOfRounds)
{
    requeuesLeft = 3;
    VtxUtilOnIdleQueueAddCallback(Requeue, 0);
    EXPECT_EQ(4, vantix::host::runOnIdleUntilEmpty());
    EXPECT_EQ(0u, vantix::host::pendingOnIdleCalls());

    requeuesLeft = 1000;
    VtxUtilOnIdleQueueAddCallback(Requeue, 0);
    EXPECT_EQ(5, vantix::host::runOnIdleUntilEmpty(5));
    EXPECT_EQ(1u, vantix::host::pendingOnIdleCalls()) << "the rest waits for the next idle moment";
    requeuesLeft = 0;
    EXPECT_EQ(1, vantix::host::runOnIdleUntilEmpty());
    EXPECT_THROW(vantix::host::runOnIdleUntilEmpty(0), std::invalid_argument);
}

TEST_F(OnIdleQueueTest, TheQueueCannotRunFromInsideOneOfItsCalls)
{
    VtxUtilOnIdleQueueAddCallback(TriesToRunTheQueue, 0);
    VtxUtilOnIdleQueueAddCallback(Record, 1);
    EXPECT_EQ(2, vantix::host::runOnIdle());
    EXPECT_THAT(ran, ElementsAre("refused", "call 1"));
}

TEST_F(OnIdleQueueTest, AnExceptionOutOfACallIsReportedAndTheOthersStillRun)
{
    VtxUtilOnIdleQueueAddCallback(Throws, 0);
    VtxUtilOnIdleQueueAddCallback(Record, 2);
    EXPECT_EQ(2, vantix::host::runOnIdle());
    EXPECT_THAT(ran, ElementsAre("call 2"));
    EXPECT_THAT(vantix::host::hostErrors(),
                ElementsAre("an on-idle callback let an exception out: out of an on-idle call"));
    vantix::host::clearHostErrors();
}

TEST_F(OnIdleQueueTest, ANullCallbackIsRefused)
{
    EXPECT_FALSE(VtxUtilOnIdleQueueAddCallback(nullptr, 0));
    EXPECT_THAT(vantix::host::hostErrors(),
                ElementsAre("VtxUtilOnIdleQueueAddCallback was given no callback"));
    vantix::host::clearHostErrors();
    EXPECT_EQ(0u, vantix::host::pendingOnIdleCalls());
}

TEST_F(OnIdleQueueTest, AResetKeepsTheQueuedCalls)
{
    VtxUtilOnIdleQueueAddCallback(Record, 5);
    vantix::host::reset();
    EXPECT_EQ(1u, vantix::host::pendingOnIdleCalls());
    EXPECT_EQ(1, vantix::host::runOnIdle());
    EXPECT_THAT(ran, ElementsAre("call 5"));
}

TEST_F(OnIdleQueueTest, TheMacroRunnerIsIdleAfterEachCommand)
{
    requeuesLeft = 1;
    VtxUtilOnIdleQueueAddCallback(SeesRedraws, 0);
    VtxUtilOnIdleQueueAddCallback(Requeue, 0);
    const vantix::host::MacroResult result = vantix::host::runMacroText(
        std::string(vantix::host::MacroHeader) + "\n$!REDRAW\n$!REDRAW\n", "idle.mcr");
    ASSERT_TRUE(result.ok()) << result.message;
    // Both queued calls, and the one queued meanwhile, run between the two commands.
    EXPECT_THAT(ran, ElementsAre("after 1 redraws", "requeue 0", "requeue 1"));
    EXPECT_EQ(0u, vantix::host::pendingOnIdleCalls());
}

} // namespace
