// Registration and locks, frames and their stacking, drawing suspension, solution time, the status line
// and macro recording.
#include "support/HostTest.h"

#include <VtxUtil.h>
#include <vantix/host/Host.h>

#include <algorithm>
#include <stdexcept>

namespace
{

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::SizeIs;
using testsupport::HostTest;
using vantix::host::StatusEvent;

class HostStateTest : public HostTest
{
};

TEST_F(HostStateTest, RegisteredAddOnsAreKnownAndTheirLocksNest)
{
    const auto addOns = vantix::host::registeredAddOns();
    const auto self = std::find_if(addOns.begin(), addOns.end(),
                                   [this](const auto& info) { return info.handle == m_testAddOn; });
    ASSERT_NE(addOns.end(), self);
    EXPECT_EQ(110, self->sdkVersion);
    EXPECT_EQ("Host Tests", self->name);

    VtxUtilLockStart(m_testAddOn);
    VtxUtilLockStart(m_testAddOn);
    EXPECT_EQ(2, vantix::host::lockDepth(m_testAddOn));
    VtxUtilLockFinish(m_testAddOn);
    VtxUtilLockFinish(m_testAddOn);
    EXPECT_EQ(0, vantix::host::lockDepth(m_testAddOn));
    EXPECT_THAT(vantix::host::hostErrors(), IsEmpty());

    VtxUtilLockOn();
    EXPECT_EQ(1, vantix::host::globalLockDepth());
    VtxUtilLockOff();

    // Unbalanced use is reported, not ignored.
    VtxUtilLockFinish(m_testAddOn);
    VtxUtilLockOff();
    int notAHandle = 0;
    VtxUtilLockStart(reinterpret_cast<AddOn_pa>(&notAHandle));
    const auto errors = vantix::host::hostErrors();
    ASSERT_THAT(errors, SizeIs(3));
    EXPECT_THAT(errors[0], HasSubstr("finished a lock it had not started"));
    EXPECT_THAT(errors[1], HasSubstr("global lock was released"));
    EXPECT_THAT(errors[2], HasSubstr("never gave out"));
    EXPECT_EQ(0, vantix::host::lockDepth(m_testAddOn));
    vantix::host::clearHostErrors();
}

TEST_F(HostStateTest, FramesHaveUniqueIdsPlotTypesAndAStackingOrder)
{
    EXPECT_EQ(1, VtxUtilFrameGetCount());
    EXPECT_EQ(m_frame, VtxUtilFrameGetUniqueID());
    EXPECT_EQ(PlotType_Cartesian3D, VtxUtilFrameGetPlotType());

    const UniqueID_t second = vantix::host::addFrame(PlotType_XYLine);
    const UniqueID_t third = vantix::host::addFrame(PlotType_Sketch);
    EXPECT_EQ(3, VtxUtilFrameGetCount());
    EXPECT_THAT(vantix::host::frameStack(), ElementsAre(m_frame, second, third));
    EXPECT_EQ(third, VtxUtilFrameGetUniqueID());
    EXPECT_EQ(PlotType_Sketch, VtxUtilFrameGetPlotType());

    ASSERT_TRUE(VtxUtilFrameActivateByUniqueID(m_frame));
    EXPECT_EQ(PlotType_Cartesian3D, VtxUtilFrameGetPlotType());
    EXPECT_THAT(vantix::host::frameStack(), ElementsAre(m_frame, second, third)); // order unchanged
    EXPECT_FALSE(VtxUtilFrameActivateByUniqueID(third + 100));
    EXPECT_EQ(m_frame, VtxUtilFrameGetUniqueID());

    ASSERT_TRUE(VtxUtilFrameActivateTop());
    EXPECT_EQ(third, VtxUtilFrameGetUniqueID());
    ASSERT_TRUE(VtxUtilFramePushTop());
    EXPECT_THAT(vantix::host::frameStack(), ElementsAre(third, m_frame, second));
    EXPECT_EQ(second, VtxUtilFrameGetUniqueID());
    ASSERT_TRUE(VtxUtilFramePushTop());
    ASSERT_TRUE(VtxUtilFramePushTop());
    EXPECT_THAT(vantix::host::frameStack(), ElementsAre(m_frame, second, third));

    // Solution time belongs to each frame.
    EXPECT_EQ(SetValueReturnCode_Ok, VtxUtilSolutionTimeSetCurrent(2.5));
    ASSERT_TRUE(VtxUtilFrameActivateByUniqueID(m_frame));
    EXPECT_EQ(0.0, VtxUtilSolutionTimeGetCurrent());
    ASSERT_TRUE(VtxUtilFrameActivateByUniqueID(third));
    EXPECT_EQ(2.5, VtxUtilSolutionTimeGetCurrent());

    // Ids are never given out twice, not even after a reset.
    vantix::host::reset();
    EXPECT_EQ(0, VtxUtilFrameGetCount());
    EXPECT_EQ(PlotType_Invalid, VtxUtilFrameGetPlotType());
    EXPECT_EQ(0, VtxUtilFrameGetUniqueID());
    EXPECT_FALSE(VtxUtilFramePushTop());
    EXPECT_EQ(SetValueReturnCode_ContextError, VtxUtilSolutionTimeSetCurrent(1.0));
    m_frame = vantix::host::addFrame();
    EXPECT_GT(m_frame, third);
}

TEST_F(HostStateTest, DrawingSuspensionsNestAndSkipRedraws)
{
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    VtxUtilDrawGraphics(FALSE);
    VtxUtilDrawGraphics(FALSE);
    EXPECT_EQ(2, vantix::host::drawSuspensionDepth());
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    VtxUtilDrawGraphics(TRUE);
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    VtxUtilDrawGraphics(TRUE);
    EXPECT_TRUE(VtxUtilRedraw(TRUE));
    EXPECT_EQ(2, vantix::host::redrawCount());
    EXPECT_EQ(2, vantix::host::skippedRedrawCount());

    VtxUtilDrawGraphics(TRUE);
    EXPECT_THAT(vantix::host::hostErrors(), ElementsAre(HasSubstr("not suspended")));
    vantix::host::clearHostErrors();
}

TEST_F(HostStateTest, StatusLineLogsEveryCallAndAnswersScriptedCancels)
{
    ASSERT_TRUE(VtxUtilStatusStartPercentDone("Working", TRUE, FALSE));
    EXPECT_TRUE(vantix::host::statusIsShown());
    EXPECT_EQ("Working", vantix::host::statusText());
    VtxUtilStatusSetPercentDoneText("Still working");
    EXPECT_EQ("Still working", vantix::host::statusText());
    vantix::host::scriptCancelAtCheck(3);
    EXPECT_TRUE(VtxUtilStatusCheckPercentDone(10));
    EXPECT_TRUE(VtxUtilStatusCheckPercentDone(20));
    EXPECT_FALSE(VtxUtilStatusCheckPercentDone(30));
    EXPECT_FALSE(VtxUtilStatusCheckPercentDone(40)); // the request stands until the line is finished
    VtxUtilStatusFinishPercentDone();
    EXPECT_FALSE(vantix::host::statusIsShown());

    const auto events = vantix::host::statusEvents();
    ASSERT_THAT(events, SizeIs(7));
    EXPECT_EQ(StatusEvent::Kind::Start, events[0].kind);
    EXPECT_TRUE(events[0].showStop);
    EXPECT_FALSE(events[0].showBar);
    EXPECT_EQ(StatusEvent::Kind::SetText, events[1].kind);
    EXPECT_EQ("Still working", events[1].text);
    EXPECT_EQ(30, events[4].percent);
    EXPECT_FALSE(events[4].answer);
    EXPECT_EQ(StatusEvent::Kind::Finish, events[6].kind);

    // A new line starts without the old request; an asynchronous request hits the next check.
    VtxUtilStatusStartPercentDone("Again", TRUE, TRUE);
    EXPECT_TRUE(VtxUtilStatusCheckPercentDone(50));
    vantix::host::requestCancel();
    EXPECT_FALSE(VtxUtilStatusCheckPercentDone(60));
    VtxUtilStatusFinishPercentDone();

    EXPECT_THROW(vantix::host::scriptCancelAtCheck(0), std::invalid_argument);
    VtxUtilStatusFinishPercentDone();
    VtxUtilStatusStartPercentDone("Bad", TRUE, TRUE);
    VtxUtilStatusCheckPercentDone(101);
    VtxUtilStatusFinishPercentDone();
    EXPECT_THAT(vantix::host::hostErrors(),
                ElementsAre(HasSubstr("finished that was not shown"), HasSubstr("101 percent")));
    vantix::host::clearHostErrors();
}

TEST_F(HostStateTest, MacroRecordingKeepsLinesOnlyWhileRecording)
{
    EXPECT_FALSE(VtxUtilMacroIsRecordingActive());
    EXPECT_FALSE(VtxUtilMacroRecordRawCommand("$!REDRAW"));
    EXPECT_THAT(vantix::host::recordedMacroLines(), IsEmpty());

    vantix::host::setMacroRecording(true);
    EXPECT_TRUE(VtxUtilMacroIsRecordingActive());
    EXPECT_TRUE(VtxUtilMacroRecordRawCommand("$!EXPORTSETUP IMAGEWIDTH = 640"));
    EXPECT_TRUE(VtxUtilMacroRecordExtCommand("Key Frame Animation", "Animate AnimationDestination=ToFile"));
    EXPECT_TRUE(VtxUtilMacroRecordExtCommand("It's", "FileName=\"C:\\movies\\a b.keyframe\""));
    EXPECT_THAT(vantix::host::recordedMacroLines(),
                ElementsAre("$!EXPORTSETUP IMAGEWIDTH = 640",
                            "$!ADDONCOMMAND ADDONID = 'Key Frame Animation' COMMAND = 'Animate "
                            "AnimationDestination=ToFile'",
                            "$!ADDONCOMMAND ADDONID = 'It\\'s' COMMAND = 'FileName=\"C:\\\\movies\\\\a "
                            "b.keyframe\"'"));

    vantix::host::setMacroRecording(false);
    EXPECT_FALSE(VtxUtilMacroRecordRawCommand("$!REDRAW"));
    EXPECT_THAT(vantix::host::recordedMacroLines(), SizeIs(3));
}

} // namespace
