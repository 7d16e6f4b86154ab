// The progress line: its message with or without the cancel hint while it lives, the percent done passed
// at each step, and the user's cancel request seen at the check that noticed it.
#include "animation/Status.h"
#include "animation/ChainTestHelpers.h"

using namespace testhelpers;

using StatusTest = AnimationTest;

TEST_F(StatusTest, ShowsTheMessageWithOrWithoutTheCancelHintUntilDestroyed)
{
    for (const Status::CancelOption option : {Status::AllowCancel, Status::NoCancelHint})
    {
        vantix::host::reset();
        const std::string hint = option == Status::AllowCancel ? CancelHint : "";
        {
            Status status("Working....", option, std::size_t(3));
            status.setMessage("Still working....");
            // The cancel request is noticed with or without the hint.
            vantix::host::scriptCancelAtCheck(1);
            ++status;
            EXPECT_TRUE(status.isCanceled());
        }
        EXPECT_FALSE(vantix::host::statusIsShown());
        EXPECT_EQ((Strings{"start Working...." + hint + " [stop] [bar]", "text Still working...." + hint,
                           "33%", "finish"}),
                  StatusEvents());
    }
}

TEST_F(StatusTest, EachStepPassesThePercentDoneTruncatedAndAtMostHundredAndWithNoStepsTheHostIsNeverAsked)
{
    // The steps of the operation, the steps counted, and the percentages passed. With no steps the line
    // shows neither stop button nor bar.
    const std::tuple<std::size_t, int, const char*> cases[] = {
        {3, 3, "33 66 100"}, {2, 4, "50 100 100 100"}, {7, 2, "14 28"}, {200, 1, "0"}, {0, 2, ""}};
    for (const auto& [total, steps, expected] : cases)
    {
        vantix::host::reset();
        {
            Status status("Counting", Status::AllowCancel, total);
            for (int i = 0; i < steps; ++i)
                EXPECT_FALSE((++status).isCanceled());
        }
        EXPECT_EQ(expected, Percents()) << "total " << total;
        EXPECT_EQ("start Counting" + CancelHint + (total > 0 ? " [stop] [bar]" : ""), StatusEvents().front());
    }
}

TEST_F(StatusTest, UpdateChecksWithoutCountingAStepAndACancelIsReportedFromTheCheckThatSawIt)
{
    Status status("Counting", Status::AllowCancel, std::size_t(4));
    vantix::host::scriptCancelAtCheck(4);
    std::vector<bool> canceled;
    for (int i = 0; i < 2; ++i)
    {
        status.update();
        canceled.push_back(status.isCanceled());
        canceled.push_back((++status).isCanceled());
    }
    EXPECT_EQ("0 25 25 50", Percents());
    EXPECT_EQ((std::vector<bool>{false, false, false, true}), canceled);
}
