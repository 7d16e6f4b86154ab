#include "animation/Status.h"

#include <support/AddOnTest.h>

#include <cstddef>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using vantix::host::StatusEvent;

namespace
{

class StatusTest : public testsupport::AddOnTest
{
};

const std::string CancelHint = " Press [Esc] or click [Stop] to cancel.";

// The percentages of the host's percent checks, in order.
std::vector<int> CheckedPercents()
{
    std::vector<int> percents;
    for (const StatusEvent& event : vantix::host::statusEvents())
        if (event.kind == StatusEvent::Kind::Check)
            percents.push_back(event.percent);
    return percents;
}

} // namespace

TEST_F(StatusTest, ShowsTheMessageWithTheCancelHintUntilDestroyed)
{
    {
        Status status("Working....", Status::AllowCancel, std::size_t(3));
        EXPECT_TRUE(vantix::host::statusIsShown());
        EXPECT_EQ("Working...." + CancelHint, vantix::host::statusText());
        status.setMessage("Still working....");
        EXPECT_EQ("Still working...." + CancelHint, vantix::host::statusText());
        EXPECT_EQ("Done." + CancelHint, status.buildStatusMessage("Done."));
    }
    EXPECT_FALSE(vantix::host::statusIsShown());

    const std::vector<StatusEvent> events = vantix::host::statusEvents();
    ASSERT_EQ(3u, events.size());
    EXPECT_EQ(StatusEvent::Kind::Start, events[0].kind);
    EXPECT_EQ("Working...." + CancelHint, events[0].text);
    EXPECT_TRUE(events[0].showStop);
    EXPECT_TRUE(events[0].showBar);
    EXPECT_EQ(StatusEvent::Kind::SetText, events[1].kind);
    EXPECT_EQ(StatusEvent::Kind::Finish, events[2].kind);
}

TEST_F(StatusTest, WithoutTheHintTheMessageStandsAlone)
{
    Status status("Working....", Status::NoCancelHint, 2);
    EXPECT_EQ("Working....", vantix::host::statusText());
    EXPECT_EQ("Next", status.buildStatusMessage("Next"));
    status.setMessage("Next");
    EXPECT_EQ("Next", vantix::host::statusText());
    // The cancel request is still noticed.
    vantix::host::scriptCancelAtCheck(1);
    ++status;
    EXPECT_TRUE(status.isCanceled());
}

TEST_F(StatusTest, EachStepPassesThePercentDoneTruncatedAndAtMostHundred)
{
    const struct
    {
        std::size_t total;
        int steps;
        std::vector<int> expected;
    } cases[] = {
        {3, 3, {33, 66, 100}}, {2, 4, {50, 100, 100, 100}}, {7, 2, {14, 28}}, {1, 1, {100}}, {200, 1, {0}},
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        {
            Status status("Counting", Status::AllowCancel, c.total);
            for (int i = 0; i < c.steps; ++i)
            {
                ++status;
                EXPECT_FALSE(status.isCanceled());
            }
        }
        EXPECT_EQ(c.expected, CheckedPercents()) << "total " << c.total;
    }
}

TEST_F(StatusTest, UpdateChecksWithoutCountingAStep)
{
    Status status("Counting", Status::AllowCancel, std::size_t(4));
    status.update();
    ++status;
    status.update();
    ++status;
    EXPECT_EQ((std::vector<int>{0, 25, 25, 50}), CheckedPercents());
}

TEST_F(StatusTest, ACancelRequestIsReportedFromTheCheckThatSawIt)
{
    Status status("Counting", Status::AllowCancel, std::size_t(10));
    vantix::host::scriptCancelAtCheck(3);
    ++status;
    EXPECT_FALSE(status.isCanceled());
    status.update();
    EXPECT_FALSE(status.isCanceled());
    ++status;
    EXPECT_TRUE(status.isCanceled());
}

TEST_F(StatusTest, WithNoStepsTheHostIsNeverAskedAndNothingIsCanceled)
{
    vantix::host::scriptCancelAtCheck(1);
    {
        Status status("Nothing to do", Status::AllowCancel, std::size_t(0));
        ++status;
        status.update();
        ++status;
        EXPECT_FALSE(status.isCanceled());
    }
    EXPECT_TRUE(CheckedPercents().empty());
    const std::vector<StatusEvent> events = vantix::host::statusEvents();
    ASSERT_EQ(2u, events.size());
    EXPECT_EQ(StatusEvent::Kind::Start, events[0].kind);
    EXPECT_FALSE(events[0].showStop);
    EXPECT_FALSE(events[0].showBar);
    EXPECT_EQ(StatusEvent::Kind::Finish, events[1].kind);
}
