// Registration and locks, frames and their stacking, drawing suspension, solution time and the status line
// (macro recording: the macro command tests).
#include "support/HostTest.h"

#include <algorithm>
#include <stdexcept>

namespace
{

namespace host = vantix::host;
using namespace ::testing;
using HostStateTest = testsupport::HostTest;

TEST_F(HostStateTest, RegisteredAddOnsAreKnownAndTheirLocksNest)
{
    const auto addOns = host::registeredAddOns();
    const auto self = std::find_if(addOns.begin(), addOns.end(),
                                   [this](const auto& info) { return info.handle == m_testAddOn; });
    ASSERT_NE(addOns.end(), self);
    EXPECT_EQ(std::make_pair(110, std::string("Host Tests")), std::make_pair(self->sdkVersion, self->name));

    VtxUtilLockStart(m_testAddOn);
    VtxUtilLockStart(m_testAddOn);
    EXPECT_EQ(2, host::lockDepth(m_testAddOn));
    VtxUtilLockFinish(m_testAddOn);
    VtxUtilLockFinish(m_testAddOn);
    VtxUtilLockOn();
    EXPECT_EQ(std::make_pair(0, 1), std::make_pair(host::lockDepth(m_testAddOn), host::globalLockDepth()));
    VtxUtilLockOff();
    EXPECT_THAT(host::hostErrors(), IsEmpty());

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
    // The frame count, the active frame and its plot type, through the SDK.
    const auto active = []
    { return std::make_tuple(VtxUtilFrameGetCount(), VtxUtilFrameGetUniqueID(), VtxUtilFrameGetPlotType()); };
    EXPECT_EQ(std::make_tuple(1, m_frame, PlotType_Cartesian3D), active());
    const UniqueID_t second = host::addFrame(PlotType_XYLine);
    const UniqueID_t third = host::addFrame(PlotType_Sketch);
    EXPECT_EQ(std::make_tuple(3, third, PlotType_Sketch), active());
    EXPECT_THAT(host::frameStack(), ElementsAre(m_frame, second, third));

    ASSERT_TRUE(VtxUtilFrameActivateByUniqueID(m_frame));
    EXPECT_FALSE(VtxUtilFrameActivateByUniqueID(third + 100));
    EXPECT_EQ(std::make_tuple(3, m_frame, PlotType_Cartesian3D), active());
    EXPECT_THAT(host::frameStack(), ElementsAre(m_frame, second, third)) << "activating keeps the order";
    ASSERT_TRUE(VtxUtilFrameActivateTop());
    EXPECT_EQ(third, VtxUtilFrameGetUniqueID());
    ASSERT_TRUE(VtxUtilFramePushTop());
    EXPECT_THAT(host::frameStack(), ElementsAre(third, m_frame, second));
    EXPECT_EQ(second, VtxUtilFrameGetUniqueID());
    ASSERT_TRUE(VtxUtilFramePushTop());
    ASSERT_TRUE(VtxUtilFramePushTop());
    EXPECT_THAT(host::frameStack(), ElementsAre(m_frame, second, third));

    // Solution time belongs to each frame.
    EXPECT_EQ(SetValueReturnCode_Ok, VtxUtilSolutionTimeSetCurrent(2.5));
    ASSERT_TRUE(VtxUtilFrameActivateByUniqueID(m_frame));
    EXPECT_EQ(0.0, VtxUtilSolutionTimeGetCurrent());
    ASSERT_TRUE(VtxUtilFrameActivateByUniqueID(third));
    EXPECT_EQ(2.5, VtxUtilSolutionTimeGetCurrent());

    // Ids are never given out twice, not even after a reset.
    host::reset();
    EXPECT_EQ(std::make_tuple(0, UniqueID_t(0), PlotType_Invalid), active());
    EXPECT_FALSE(VtxUtilFramePushTop());
    EXPECT_EQ(SetValueReturnCode_ContextError, VtxUtilSolutionTimeSetCurrent(1.0));
    EXPECT_GT(host::addFrame(), third);
}

TEST_F(HostStateTest, DrawingSuspensionsNestAndSkipRedraws)
{
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    VtxUtilDrawGraphics(FALSE);
    VtxUtilDrawGraphics(FALSE);
    EXPECT_EQ(2, host::drawSuspensionDepth());
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    VtxUtilDrawGraphics(TRUE);
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    VtxUtilDrawGraphics(TRUE);
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    EXPECT_EQ(std::make_pair(2, 2), std::make_pair(host::redrawCount(), host::skippedRedrawCount()));
    VtxUtilDrawGraphics(TRUE);
    EXPECT_THAT(host::hostErrors(), ElementsAre(HasSubstr("not suspended")));
    host::clearHostErrors();
}

TEST_F(HostStateTest, StatusLineLogsEveryCallAndAnswersScriptedCancels)
{
    ASSERT_TRUE(VtxUtilStatusStartPercentDone("Working", TRUE, FALSE));
    EXPECT_TRUE(host::statusIsShown());
    VtxUtilStatusSetPercentDoneText("Still working");
    host::scriptCancelAtCheck(3);
    EXPECT_TRUE(VtxUtilStatusCheckPercentDone(10));
    EXPECT_TRUE(VtxUtilStatusCheckPercentDone(20));
    EXPECT_FALSE(VtxUtilStatusCheckPercentDone(30));
    EXPECT_FALSE(VtxUtilStatusCheckPercentDone(40)); // the request stands until the line is finished
    VtxUtilStatusFinishPercentDone();
    EXPECT_FALSE(host::statusIsShown());
    // Each event as "kind text percent stop bar answer".
    std::vector<std::string> events;
    for (const host::StatusEvent& e : host::statusEvents())
        events.push_back(std::to_string(int(e.kind)) + " " + e.text + " " + std::to_string(e.percent) + " " +
                         std::to_string(e.showStop) + std::to_string(e.showBar) + std::to_string(e.answer));
    EXPECT_THAT(events, ElementsAre("0 Working 0 101", "1 Still working 0 001", "2  10 001", "2  20 001",
                                    "2  30 000", "2  40 000", "3  0 001"));

    // A new line starts without the old request; an asynchronous request hits the next check.
    VtxUtilStatusStartPercentDone("Again", TRUE, TRUE);
    EXPECT_TRUE(VtxUtilStatusCheckPercentDone(50));
    host::requestCancel();
    EXPECT_FALSE(VtxUtilStatusCheckPercentDone(60));
    VtxUtilStatusFinishPercentDone();

    EXPECT_THROW(host::scriptCancelAtCheck(0), std::invalid_argument);
    VtxUtilStatusFinishPercentDone();
    VtxUtilStatusStartPercentDone("Bad", TRUE, TRUE);
    VtxUtilStatusCheckPercentDone(101);
    VtxUtilStatusFinishPercentDone();
    EXPECT_THAT(host::hostErrors(),
                ElementsAre(HasSubstr("finished that was not shown"), HasSubstr("101 percent")));
    host::clearHostErrors();
}

} // namespace
