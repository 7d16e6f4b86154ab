// The on-idle queue: calls run once each, in the order queued, when the host is idle; a call queued while
// the queue runs waits for the next idle moment; the macro runner is idle after each command.
#include "support/HostTest.h"
#include "support/ThrownMessage.h"

#include <vantix/host/Macro.h>

#include <stdexcept>

namespace
{

namespace host = vantix::host;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

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

// Tries to run the queue from inside it, then throws.
void Misbehaves(ArbParam_t)
{
    ran.push_back(testsupport::ThrownMessage<std::logic_error>([] { host::runOnIdle(); }).empty()
                      ? "ran the queue from inside"
                      : "refused");
    throw std::runtime_error("out of an on-idle call");
}

void SeesRedraws(ArbParam_t)
{
    ran.push_back("after " + std::to_string(host::redrawCount()) + " redraws");
}

class OnIdleQueueTest : public testsupport::HostTest
{
protected:
    void SetUp() override
    {
        HostTest::SetUp();
        // Calls an add-on module loaded earlier in this process may have queued are not this test's.
        host::runOnIdleUntilEmpty();
        ran.clear();
        requeuesLeft = 0;
    }

    // One idle moment (or idle moments until the queue is empty, at most rounds of them), told as
    // "<calls run>: <what they did>; <calls still pending> pending".
    static std::string Idle(int rounds = 0)
    {
        std::string told =
            std::to_string(rounds ? host::runOnIdleUntilEmpty(rounds) : host::runOnIdle()) + ":";
        for (const std::string& call : ran)
            told += " " + call;
        ran.clear();
        return told + "; " + std::to_string(host::pendingOnIdleCalls()) + " pending";
    }
};

TEST_F(OnIdleQueueTest, QueuedCallsRunOnceInTheOrderQueuedWhenTheHostIsIdleEvenAfterAReset)
{
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
}

TEST_F(OnIdleQueueTest, ACallMayNotRunTheQueueAndOneThatThrowsIsReportedWhileTheOthersStillRun)
{
    VtxUtilOnIdleQueueAddCallback(Misbehaves, 0);
    VtxUtilOnIdleQueueAddCallback(Record, 1);
    EXPECT_EQ("2: refused call 1; 0 pending", Idle());
    EXPECT_THAT(host::hostErrors(),
                ElementsAre("an on-idle callback let an exception out: out of an on-idle call"));
    host::clearHostErrors();
}

TEST_F(OnIdleQueueTest, ACallQueuedWhileTheQueueRunsWaitsForTheNextIdleMoment)
{
    requeuesLeft = 2;
    VtxUtilOnIdleQueueAddCallback(Requeue, 10);
    VtxUtilOnIdleQueueAddCallback(Record, 1);
    EXPECT_EQ("2: requeue 10 call 1; 1 pending", Idle());
    EXPECT_EQ("1: requeue 11; 1 pending", Idle());
    EXPECT_EQ("1: requeue 12; 0 pending", Idle());
    EXPECT_EQ("0:; 0 pending", Idle());
    // Running until empty gives a call that always requeues a bounded number of rounds.
    requeuesLeft = 1000;
    VtxUtilOnIdleQueueAddCallback(Requeue, 0);
    EXPECT_EQ("5: requeue 0 requeue 1 requeue 2 requeue 3 requeue 4; 1 pending", Idle(5));
    requeuesLeft = 1;
    EXPECT_EQ("2: requeue 5 requeue 6; 0 pending", Idle(100));
    EXPECT_THROW(host::runOnIdleUntilEmpty(0), std::invalid_argument);
}

TEST_F(OnIdleQueueTest, TheMacroRunnerIsIdleAfterEachCommand)
{
    requeuesLeft = 1;
    VtxUtilOnIdleQueueAddCallback(SeesRedraws, 0);
    VtxUtilOnIdleQueueAddCallback(Requeue, 0);
    const auto result =
        host::runMacroText(std::string(host::MacroHeader) + "\n$!REDRAW\n$!REDRAW\n", "idle.mcr");
    ASSERT_TRUE(result.ok()) << result.message;
    // Both queued calls, and the one queued meanwhile, run between the two commands.
    EXPECT_THAT(ran, ElementsAre("after 1 redraws", "requeue 0", "requeue 1"));
    EXPECT_EQ(0u, host::pendingOnIdleCalls());
}

} // namespace
