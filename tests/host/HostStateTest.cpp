// Locks, frames and their stacking, solution time and the status line
// (macro recording: the macro command tests).
#include "support/HostTest.h"

#include <stdexcept>

namespace
{

namespace host = vantix::host;
using namespace ::testing;
using HostStateTest = testsupport::HostTest;

// That a registered add-on is known, by its name and SDK version: the module loading tests.
TEST_F(HostStateTest, AnAddOnsLocksNestAndUnbalancedUseIsReported)
{
    VtxUtilLockStart(m_testAddOn);
    VtxUtilLockStart(m_testAddOn);
    EXPECT_EQ(2, host::lockDepth(m_testAddOn));
    VtxUtilLockFinish(m_testAddOn);
    VtxUtilLockFinish(m_testAddOn);
    VtxUtilLockOn();
    EXPECT_EQ(std::make_pair(0, 1), std::make_pair(host::lockDepth(m_testAddOn), host::globalLockDepth()));
    VtxUtilLockOff();

    // Unbalanced use is reported, not ignored.
    VtxUtilLockFinish(m_testAddOn);
    VtxUtilLockOff();
    int notAHandle = 0;
    VtxUtilLockStart(reinterpret_cast<AddOn_pa>(&notAHandle));
    EXPECT_THAT(host::hostErrors(),
                ElementsAre(HasSubstr("finished a lock it had not started"),
                            HasSubstr("global lock was released"), HasSubstr("never gave out")));
    host::clearHostErrors();
}

TEST_F(HostStateTest, FramesHaveUniqueIdsPlotTypesAndAStackingOrder)
{
    // The frame count, the active frame and its plot type, through the SDK, and the stack from the bottom.
    const auto page = []
    {
        return std::make_tuple(VtxUtilFrameGetCount(), VtxUtilFrameGetUniqueID(), VtxUtilFrameGetPlotType(),
                               host::frameStack());
    };
    using Ids = std::vector<UniqueID_t>;
    EXPECT_EQ(std::make_tuple(1, m_frame, PlotType_Cartesian3D, Ids{m_frame}), page());
    const UniqueID_t second = host::addFrame(PlotType_XYLine), third = host::addFrame(PlotType_Sketch);
    EXPECT_EQ(std::make_tuple(3, third, PlotType_Sketch, Ids{m_frame, second, third}), page());
    ASSERT_TRUE(VtxUtilFrameActivateByUniqueID(m_frame));
    EXPECT_FALSE(VtxUtilFrameActivateByUniqueID(third + 100));
    EXPECT_EQ(std::make_tuple(3, m_frame, PlotType_Cartesian3D, Ids{m_frame, second, third}), page())
        << "activating keeps the order";
    ASSERT_TRUE(VtxUtilFrameActivateTop());
    EXPECT_EQ(third, VtxUtilFrameGetUniqueID());
    ASSERT_TRUE(VtxUtilFramePushTop());
    EXPECT_EQ(std::make_tuple(3, second, PlotType_XYLine, Ids{third, m_frame, second}), page());
    ASSERT_TRUE(VtxUtilFramePushTop() && VtxUtilFramePushTop());
    EXPECT_EQ((Ids{m_frame, second, third}), host::frameStack());

    // Solution time belongs to each frame.
    EXPECT_EQ(SetValueReturnCode_Ok, VtxUtilSolutionTimeSetCurrent(2.5));
    ASSERT_TRUE(VtxUtilFrameActivateByUniqueID(m_frame));
    EXPECT_EQ(0.0, VtxUtilSolutionTimeGetCurrent());
    ASSERT_TRUE(VtxUtilFrameActivateByUniqueID(third));
    EXPECT_EQ(2.5, VtxUtilSolutionTimeGetCurrent());

    // Ids are never given out twice, not even after a reset.
    host::reset();
    EXPECT_EQ(std::make_tuple(0, UniqueID_t(0), PlotType_Invalid, Ids{}), page());
    EXPECT_FALSE(VtxUtilFramePushTop());
    EXPECT_EQ(SetValueReturnCode_ContextError, VtxUtilSolutionTimeSetCurrent(1.0));
    EXPECT_GT(host::addFrame(), third);
}

// The status line's events, as the progress line makes them: the animation tests.
TEST_F(HostStateTest, StatusLineAnswersScriptedAndRequestedCancelsUntilItIsFinishedAndReportsMisuse)
{
    std::string answers; // of the checks, in order
    const auto check = [&answers](int percent)
    { answers += VtxUtilStatusCheckPercentDone(percent) ? "go " : "stop "; };
    ASSERT_TRUE(VtxUtilStatusStartPercentDone("Working", TRUE, FALSE));
    EXPECT_TRUE(host::statusIsShown());
    host::scriptCancelAtCheck(3);
    for (const int percent : {10, 20, 30, 40})
        check(percent);
    VtxUtilStatusFinishPercentDone();
    EXPECT_FALSE(host::statusIsShown());
    // A new line starts without the old request; an asynchronous request hits the next check.
    VtxUtilStatusStartPercentDone("Again", TRUE, TRUE);
    check(50);
    host::requestCancel();
    check(60);
    VtxUtilStatusFinishPercentDone();
    EXPECT_EQ("go go stop stop go stop ", answers) << "a request stands until the line is finished";

    EXPECT_THROW(host::scriptCancelAtCheck(0), std::invalid_argument);
    VtxUtilStatusFinishPercentDone();
    VtxUtilStatusStartPercentDone("Bad", TRUE, TRUE);
    VtxUtilStatusCheckPercentDone(101);
    VtxUtilStatusFinishPercentDone();
    EXPECT_THAT(host::hostErrors(),
                ElementsAre(HasSubstr("finished that was not shown"), HasSubstr("101 percent")));
    host::clearHostErrors();
}

// A batch run of any length logs its state changes and status events for the tests without the logs
// growing for ever: they keep the latest.
TEST_F(HostStateTest, TheLogsOfStateChangesAndStatusEventsKeepTheLatestWithoutGrowingForEver)
{
    constexpr int Entries = 300'000;
    VtxUtilStatusStartPercentDone("Long", FALSE, TRUE);
    for (int i = 0; i < Entries; ++i)
    {
        host::raiseStateChange(i % 2 == 0 ? StateChange_View3D : StateChange_Style);
        VtxUtilStatusCheckPercentDone(i % 100);
    }
    const std::vector<StateChange_e> changes = host::raisedStateChanges();
    const std::vector<host::StatusEvent> events = host::statusEvents();
    for (const std::size_t size : {changes.size(), events.size()})
        EXPECT_TRUE(size >= 65'536 && size <= 2 * 65'536) << size;
    EXPECT_EQ(StateChange_Style, changes.back());
    EXPECT_EQ(StateChange_View3D, changes[changes.size() - 2]);
    EXPECT_EQ((Entries - 1) % 100, events.back().percent);
    VtxUtilStatusFinishPercentDone();
}

} // namespace
