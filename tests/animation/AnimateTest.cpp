#include "animation/Animate.h"
#include "animation/ChainTestHelpers.h"
#include "animation/KeyFrameTestHelpers.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"

#include <support/AddOnTest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <string>
#include <vector>

using namespace vantix::vtxutiltools;
using testhelpers::HostView;
using testhelpers::MakeKeyFrames;
using testhelpers::ViewAtX;
using vantix::host::StatusEvent;

namespace
{

const std::string CancelHint = " Press [Esc] or click [Stop] to cancel.";
const std::string MemoryMessage =
    "Not enough memory to produce the animation.\nTry reducing the number of total frames in the animation.";
const std::vector<std::string> UseDisplayLists = {"Interface", "UseDisplayLists"};

// Frame counts 10, 5 and 3: key frames at frames 0, 10 and 15, the view of frame f at X = 10 f. Computing
// the views takes 9 + 4 percent checks before the first frame is drawn.
const std::vector<KeyFrame_s> KeyFrames =
    MakeKeyFrames({{ViewAtX(0), 10}, {ViewAtX(100), 5}, {ViewAtX(150), 3}});
const int ChecksBeforeTheFirstFrame = 13;

class AnimateTest : public testsupport::AddOnTest
{
protected:
    // Runs Animate and returns the message it failed with, or "" when it completed.
    static std::string RunAnimate(const std::vector<KeyFrame_s>& keyFrames, std::size_t first,
                                  std::size_t span, MacroOption_e macroOption = RecordMacro)
    {
        try
        {
            Animate(keyFrames, first, span, Settings_s(), macroOption);
        }
        catch (const KeyFrameError& error)
        {
            return error.what();
        }
        return "";
    }

    static int FrameShown() { return int(std::lround(HostView().x() / 10.0)); }

    // Everything the animation changed for its own sake is back, whatever way it ended.
    static void ExpectHostRestored(bool useDisplayLists)
    {
        EXPECT_EQ(vantix::host::StyleData(useDisplayLists), vantix::host::style(UseDisplayLists));
        EXPECT_FALSE(vantix::host::statusIsShown());
        EXPECT_EQ(0, vantix::host::lockDepth(AddOnID));
        EXPECT_EQ(0, vantix::host::drawSuspensionDepth());
    }

    static std::vector<StatusEvent> AnimatingEvents()
    {
        const std::vector<StatusEvent> events = vantix::host::statusEvents();
        const auto start = std::find_if(events.begin(), events.end(),
                                        [](const StatusEvent& event) {
                                            return event.kind == StatusEvent::Kind::Start &&
                                                   event.text == "Animating...." + CancelHint;
                                        });
        return std::vector<StatusEvent>(start, events.end());
    }
};

} // namespace

TEST_F(AnimateTest, DrawsTheFramesOfTheWholeListOrOfTheChosenKeyFrames)
{
    const struct
    {
        std::size_t first;
        std::size_t span;
        int firstFrame;
        int lastFrame;
    } cases[] = {
        {0, 3, 0, 15},
        {1, 1, 10, 15},
        {0, 1, 0, 10},
        {1, 0, 10, 10},
    };
    for (const auto& c : cases)
    {
        const std::string which = "first " + std::to_string(c.first) + " span " + std::to_string(c.span);
        const int frames = c.lastFrame - c.firstFrame + 1;

        vantix::host::reset();
        vantix::host::addFrame();
        EXPECT_EQ("", RunAnimate(KeyFrames, c.first, c.span)) << which;
        EXPECT_EQ(frames, vantix::host::redrawCount()) << which;
        EXPECT_EQ(c.lastFrame, FrameShown()) << which;
        const std::vector<StatusEvent> events = AnimatingEvents();
        ASSERT_EQ(std::size_t(frames + 2), events.size()) << which;
        EXPECT_EQ(100, events[events.size() - 2].percent) << which;
        ExpectHostRestored(true);

        // Stopped at its first frame, the animation shows which frame that was.
        vantix::host::reset();
        vantix::host::addFrame();
        vantix::host::scriptCancelAtCheck(ChecksBeforeTheFirstFrame + 1);
        EXPECT_EQ("Animation canceled.", RunAnimate(KeyFrames, c.first, c.span)) << which;
        EXPECT_EQ(c.firstFrame, FrameShown()) << which;
    }
}

TEST_F(AnimateTest, ShowsTheComputationAndThenTheFramesOnTheProgressLine)
{
    EXPECT_EQ("", RunAnimate(KeyFrames, 0, 3));
    std::vector<std::string> started;
    for (const StatusEvent& event : vantix::host::statusEvents())
        if (event.kind == StatusEvent::Kind::Start)
            started.push_back(event.text);
    EXPECT_EQ((std::vector<std::string>{"Creating interpolated views...." + CancelHint,
                                        "Animating...." + CancelHint}),
              started);
    const std::vector<StatusEvent> events = AnimatingEvents();
    ASSERT_EQ(18u, events.size());
    EXPECT_TRUE(events[0].showStop);
    EXPECT_TRUE(events[0].showBar);
    EXPECT_EQ(6, events[1].percent);
    EXPECT_EQ(100, events[16].percent);
    EXPECT_EQ(StatusEvent::Kind::Finish, events[17].kind);
}

TEST_F(AnimateTest, EndsExactlyOnTheLastKeyView)
{
    const View last(-3, 7.5, 22, -135, 75, 170, 11);
    const std::vector<KeyFrame_s> keyFrames = MakeKeyFrames(
        {{View(1, 2, 30, 10, 20, 30, 5), 7}, {View(5, -5, 20, 80, -120, -60, 2), 4}, {last, 1}});
    EXPECT_EQ("", RunAnimate(keyFrames, 0, 3));
    EXPECT_TRUE(HostView() == last) << HostView().displayString();
}

TEST_F(AnimateTest, ACancelStopsAfterTheFrameDuringWhichItWasAsked)
{
    vantix::host::setMacroRecording(true);
    vantix::host::scriptCancelAtCheck(ChecksBeforeTheFirstFrame + 3);
    EXPECT_EQ("Animation canceled.", RunAnimate(KeyFrames, 0, 3));
    // Three frames drawn in full, then the redraw after the cancel.
    EXPECT_EQ(4, vantix::host::redrawCount());
    EXPECT_EQ(2, FrameShown());
    EXPECT_EQ(0, vantix::host::callCount("VtxUtilMacroIsRecordingActive"));
    EXPECT_TRUE(vantix::host::recordedMacroLines().empty());
    ExpectHostRestored(true);
}

TEST_F(AnimateTest, ACancelDuringTheComputationDrawsNothing)
{
    vantix::host::scriptCancelAtCheck(5);
    EXPECT_EQ("Animation canceled.", RunAnimate(KeyFrames, 0, 3));
    EXPECT_EQ(0, vantix::host::redrawCount());
    EXPECT_TRUE(AnimatingEvents().empty());
    EXPECT_EQ(0, vantix::host::callCount("VtxUtilMacroIsRecordingActive"));
    ExpectHostRestored(true);
}

TEST_F(AnimateTest, OnlyACompletedAnimationAskedToBeRecordedLooksAtTheRecording)
{
    const struct
    {
        MacroOption_e option;
        bool recording;
        long asked;
    } cases[] = {
        // While recording, the macro recorder that takes the command asks once more.
        {RecordMacro, true, 2},
        {RecordMacro, false, 1},
        {DoNotRecordMacro, true, 0},
        {DoNotRecordMacro, false, 0},
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        vantix::host::addFrame();
        vantix::host::setMacroRecording(c.recording);
        vantix::host::setTracing(true);
        EXPECT_EQ("", RunAnimate(KeyFrames, 1, 1, c.option));
        EXPECT_EQ(c.asked, vantix::host::callCount("VtxUtilMacroIsRecordingActive"));
        if (c.asked > 0)
        {
            // Asked once the last frame is drawn.
            const std::vector<std::string> trace = vantix::host::trace();
            const auto asked = std::find(trace.begin(), trace.end(), "VtxUtilMacroIsRecordingActive");
            EXPECT_EQ(0, std::count(asked, trace.end(), "VtxUtilRedraw"));
        }
    }
}

TEST_F(AnimateTest, DisplayListsAreOffWhileTheFramesAreDrawnAndPutBackAfterwards)
{
    for (const bool useDisplayLists : {true, false})
    {
        vantix::host::reset();
        vantix::host::addFrame();
        vantix::host::setStyle(UseDisplayLists, useDisplayLists);
        vantix::host::setTracing(true);
        EXPECT_EQ("", RunAnimate(KeyFrames, 0, 3));
        ExpectHostRestored(useDisplayLists);

        const std::vector<std::string> trace = vantix::host::trace();
        const std::string write = "StyleValue.set Interface/UseDisplayLists";
        const auto firstRedraw = std::find(trace.begin(), trace.end(), "VtxUtilRedraw");
        const auto lastRedraw = std::find(trace.rbegin(), trace.rend(), "VtxUtilRedraw").base();
        EXPECT_EQ(1, std::count(trace.begin(), firstRedraw, write));
        EXPECT_EQ(1, std::count(lastRedraw, trace.end(), write));
        EXPECT_EQ(2, std::count(trace.begin(), trace.end(), write));
    }
}

TEST_F(AnimateTest, MemoryAndRangeFailuresComeToTheUserAsTheMemoryMessage)
{
    const std::uint64_t largest = std::numeric_limits<std::uint64_t>::max();
    const struct
    {
        const char* what;
        std::vector<KeyFrame_s> keyFrames;
        std::size_t first;
        std::size_t span;
        int redraws;
    } cases[] = {
        {"more frames than a vector holds", MakeKeyFrames({{ViewAtX(0), largest / 2}, {ViewAtX(1), 1}}), 0, 2,
         0},
        {"a span past the end of the list", KeyFrames, 1, 2, 6},
        {"a first key frame past the end of the list", KeyFrames, 4, 0, 0},
#if !defined(__SANITIZE_ADDRESS__)
        // The address sanitizer ends the program on an allocation it cannot satisfy instead of throwing.
        {"more frames than memory holds",
         MakeKeyFrames({{ViewAtX(0), std::uint64_t(1) << 50}, {ViewAtX(1), 1}}), 0, 2, 0},
#endif
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        vantix::host::addFrame();
        EXPECT_EQ(MemoryMessage, RunAnimate(c.keyFrames, c.first, c.span)) << c.what;
        EXPECT_EQ(c.redraws, vantix::host::redrawCount()) << c.what;
        ExpectHostRestored(true);
    }
}

TEST_F(AnimateTest, NothingIsStartedWithoutA3DFrameOrWithTooFewKeyFrames)
{
    const struct
    {
        PlotType_e plotType;
        std::vector<KeyFrame_s> keyFrames;
        std::string message;
    } cases[] = {
        {PlotType_Cartesian2D, KeyFrames, "The current frame must be in 3D Cartesian mode."},
        {PlotType_Sketch, KeyFrames, "The current frame must be in 3D Cartesian mode."},
        {PlotType_Cartesian3D, MakeKeyFrames({{ViewAtX(0), 10}}),
         "At least two keyFrame views must be established to perform an animation."},
        {PlotType_Cartesian3D,
         {},
         "At least two keyFrame views must be established to perform an animation."},
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        vantix::host::addFrame(c.plotType);
        vantix::host::setTracing(true);
        EXPECT_EQ(c.message, RunAnimate(c.keyFrames, 0, c.keyFrames.size()));
        EXPECT_TRUE(vantix::host::statusEvents().empty());
        for (const std::string& call : vantix::host::trace())
            EXPECT_EQ(std::string::npos, call.find("StyleValue.set")) << call;
        ExpectHostRestored(true);
    }
}

TEST_F(AnimateTest, EverythingTheAnimatorsChangedIsPutBackWhateverWayTheAnimationEnds)
{
    // Frame counts 10, 5 and 3 (16 frames, faded over one), time steps 0 to 15 so that frame f shows time f.
    Settings_s settings;
    settings.timeOptions.animateTime = true;
    settings.animateStreamtraces = true;
    settings.fadeIn = true;
    settings.fadeOut = true;
    const struct
    {
        const char* what;
        int cancelAtCheck; // 0: none
        std::string message;
        int lastFrameDrawn; // -1: none
    } cases[] = {
        {"completed", 0, "", 15},
        {"canceled at the fourth frame", ChecksBeforeTheFirstFrame + 4, "Animation canceled.", 3},
        {"canceled while the views are computed", 5, "Animation canceled.", -1},
    };
    for (const auto& c : cases)
    {
        vantix::host::reset();
        vantix::host::addFrame();
        testhelpers::LoadTimeSteps(0, 15);
        vantix::host::setStyle(testhelpers::IntensityPath, 55.0);
        vantix::host::setStyle(testhelpers::BackgroundLightPath, 35.0);
        vantix::host::setStyle(testhelpers::FrameAxisShownPath, true);
        vantix::host::setStyle(testhelpers::TimeAnchorPath, 4.0);
        vantix::host::setStyle(UseDisplayLists, false);
        if (c.cancelAtCheck > 0)
            vantix::host::scriptCancelAtCheck(c.cancelAtCheck);
        std::string message;
        try
        {
            Animate(KeyFrames, 0, KeyFrames.size(), settings, RecordMacro);
        }
        catch (const KeyFrameError& error)
        {
            message = error.what();
        }
        EXPECT_EQ(c.message, message) << c.what;
        EXPECT_EQ(55.0, testhelpers::StyleNumber(testhelpers::IntensityPath)) << c.what;
        EXPECT_EQ(35.0, testhelpers::StyleNumber(testhelpers::BackgroundLightPath)) << c.what;
        EXPECT_TRUE(testhelpers::StyleSwitch(testhelpers::FrameAxisShownPath)) << c.what;
        EXPECT_EQ(4.0, testhelpers::StyleNumber(testhelpers::TimeAnchorPath)) << c.what;
        ExpectHostRestored(false);
        // The solution time is not put back: it stays at the last frame drawn.
        EXPECT_EQ(c.lastFrameDrawn < 0 ? 0.0 : double(c.lastFrameDrawn), vantix::host::solutionTime())
            << c.what;
    }
}
