// Animate, the entry of an animation, and the animation manager under it: the frames of the whole list or
// of the chosen key frames drawn under a progress line, a cancel or a failure reported to the user with its
// message, the macro recorder told of a completed animation only, and the host left as it was whichever way
// the animation ends.
#include "animation/Animate.h"
#include "animation/AnimationManager.h"
#include "animation/ChainTestHelpers.h"

#include <cmath>
#include <limits>
#include <numeric>

using namespace testhelpers;

const std::string MemoryMessage =
    "Not enough memory to produce the animation.\nTry reducing the number of total frames in the animation.";
const std::string NotIn3DMessage = "The current frame must be in 3D Cartesian mode.";
const std::string AnimatingLine = "start Animating...." + CancelHint + " [stop] [bar]";

// Frame counts 10, 5 and 3: key frames at frames 0, 10 and 15, the view of frame f at X = 10 f. Computing
// the views takes 9 + 4 percent checks before the first frame is drawn.
const std::vector<KeyFrame_s> KeyFrames =
    MakeKeyFrames({{ViewAtX(0), 10}, {ViewAtX(100), 5}, {ViewAtX(150), 3}});
const int ChecksBeforeTheFirstFrame = 13;

class AnimateTest : public AnimationTest
{
protected:
    static int FrameShown() { return int(std::lround(HostView().x() / 10.0)); }

    // Everything the animation changed for its own sake is back, as settingsBefore describes it.
    static void ExpectPutBack(const std::string& settingsBefore)
    {
        EXPECT_EQ(settingsBefore, SceneSettings());
        EXPECT_FALSE(vantix::host::statusIsShown());
        EXPECT_EQ(0, vantix::host::lockDepth(AddOnID));
        EXPECT_EQ(0, vantix::host::drawSuspensionDepth());
    }
};
using AnimationManagerTest = AnimateTest;

TEST_F(AnimateTest, WhateverWayItEndsTheAnimationPutsBackWhatItChangedAndOnlyACompletedOneIsRecorded)
{
    const int computing = 5, fourthFrame = ChecksBeforeTheFirstFrame + 4;
    // The check the user cancels at (0: none), whether the macro recording is asked for and on, the display
    // lists, how often the recording is looked at, the redraws, and the last frame drawn (-1: none).
    const std::tuple<const char*, int, MacroOption_e, bool, bool, long, int, int> cases[] = {
        // While recording, the macro recorder that takes the command asks once more.
        {"completed and recorded", 0, RecordMacro, true, true, 2, 16, 15},
        // The frame during which the cancel was asked is drawn in full, then the scene once more.
        {"canceled at the fourth frame", fourthFrame, RecordMacro, true, false, 0, 5, 3},
        {"canceled while the views are computed", computing, RecordMacro, true, true, 0, 0, -1},
    };
    for (const auto& [what, cancelAt, option, recording, displayLists, asked, redraws, lastFrame] : cases)
    {
        SCOPED_TRACE(what);
        // Every animator at work over time steps 0 to 15, so that frame f shows the time f.
        FreshHost();
        LoadTimeSteps(0, 15);
        vantix::host::setStyle(IntensityPath, 55.0);
        vantix::host::setStyle(BackgroundLightPath, 35.0);
        vantix::host::setStyle(TimeAnchorPath, 4.0);
        vantix::host::setStyle(UseDisplayListsPath, displayLists);
        vantix::host::setMacroRecording(recording);
        if (cancelAt > 0)
            vantix::host::scriptCancelAtCheck(cancelAt);
        const std::string before = SceneSettings();

        const MacroOption_e macroOption = option; // a lambda captures no structured binding in C++17
        EXPECT_THROW_MSG(Animate(KeyFrames, 0, 3, Everything(), macroOption), KeyFrameError,
                         cancelAt ? CanceledMessage : "");
        ExpectPutBack(before);
        EXPECT_EQ(redraws, vantix::host::redrawCount());
        EXPECT_EQ(lastFrame, redraws > 0 ? FrameShown() : -1);
        // The solution time is not put back: it stays at the last frame drawn.
        EXPECT_EQ(std::max(lastFrame, 0), vantix::host::solutionTime());
        // The views are computed under a progress line of their own, then the frames are drawn under another.
        const Strings events = StatusEvents();
        EXPECT_EQ("start Creating interpolated views...." + CancelHint + " [stop] [bar]", events.front());
        EXPECT_EQ(redraws > 0, std::count(events.begin(), events.end(), AnimatingLine) == 1);
        EXPECT_EQ(asked, Calls("VtxUtilMacroIsRecordingActive"));
        EXPECT_EQ(asked == 2 ? 1u : 0u, vantix::host::recordedMacroLines().size());

        // The display lists are off from before the first frame until after the last redraw, and the
        // recording is looked at only once the last frame is drawn.
        const Strings trace = vantix::host::trace();
        const std::string write = "StyleValue.set Interface/UseDisplayLists";
        const auto firstRedraw = std::find(trace.begin(), trace.end(), "VtxUtilRedraw");
        const auto lastRedraw = std::find(trace.rbegin(), trace.rend(), "VtxUtilRedraw").base();
        EXPECT_EQ(redraws > 0 ? 1 : 0, std::count(trace.begin(), firstRedraw, write));
        EXPECT_EQ(redraws > 0 ? 1 : 0, std::count(lastRedraw, trace.end(), write));
        EXPECT_EQ(redraws > 0 ? 2 : 0, std::count(trace.begin(), trace.end(), write));
        const auto asking = std::find(trace.begin(), trace.end(), "VtxUtilMacroIsRecordingActive");
        EXPECT_EQ(0, std::count(asking, trace.end(), "VtxUtilRedraw"));
    }
}

TEST_F(AnimateTest, FailuresComeToTheUserAsTheirMessageBeforeAnythingIsStartedOrAfterTheHostIsPutBack)
{
    const std::vector<KeyFrame_s> one = MakeKeyFrames({{ViewAtX(0), 10}});
    const std::uint64_t largest = std::numeric_limits<std::uint64_t>::max();
    [[maybe_unused]] const std::uint64_t huge = std::uint64_t(1) << 50; // not with the address sanitizer
    // The plot type, the key frames and the range of them, the settings, the message, and the redraws
    // made before the failure (-1: the host is not touched at all).
    using Case = std::tuple<PlotType_e, std::vector<KeyFrame_s>, std::size_t, std::size_t, Settings_s,
                            std::string, int>;
    // clang-format off
    const Case cases[] = {
        {PlotType_Cartesian2D, KeyFrames, 0, 3, Settings_s(), NotIn3DMessage, -1},
        {PlotType_Cartesian3D, one, 0, 1, Settings_s(), TooFewKeyFramesMessage, -1},
        {PlotType_Cartesian3D, {}, 0, 0, Everything(), TooFewKeyFramesMessage, -1},
        // Too many frames for memory, and a range of frames that does not exist: a span or a first key
        // frame past the end.
        {PlotType_Cartesian3D, MakeKeyFrames({{ViewAtX(0), largest / 2}, {ViewAtX(1), 1}}), 0, 2,
         Settings_s(), MemoryMessage, 0},
        {PlotType_Cartesian3D, KeyFrames, 1, 2, Everything(), MemoryMessage, 6},
        {PlotType_Cartesian3D, KeyFrames, 4, 0, Settings_s(), MemoryMessage, 0},
#if !defined(__SANITIZE_ADDRESS__)
        // The address sanitizer ends the program on an allocation it cannot satisfy instead of throwing.
        {PlotType_Cartesian3D, MakeKeyFrames({{ViewAtX(0), huge}, {ViewAtX(1), 1}}), 0, 2, Settings_s(),
         MemoryMessage, 0},
#endif
    };
    // clang-format on
    for (const auto& [plotType, keyFrames, first, span, settings, message, redraws] : cases)
    {
        SCOPED_TRACE(message + ", key frames " + std::to_string(keyFrames.size()));
        FreshHost(plotType);
        const std::string before = SceneSettings();
        const auto animate = [&, &keyFrames = keyFrames, first = first, span = span, &settings = settings] {
            Animate(keyFrames, first, span, settings, RecordMacro);
        }; // no structured binding captured in C++17
        EXPECT_THROW_MSG(animate(), KeyFrameError, message);
        EXPECT_EQ(std::max(redraws, 0), vantix::host::redrawCount());
        for (const std::string& call : vantix::host::trace())
            EXPECT_TRUE(redraws >= 0 || call.find("StyleValue.set") == std::string::npos) << call;
        EXPECT_TRUE(redraws >= 0 || vantix::host::statusEvents().empty());
        ExpectPutBack(before);
    }
}

TEST_F(AnimationManagerTest, DrawsTheFramesOfTheChosenKeyFrames)
{
    // The first key frame and the span, and the frames drawn from first to last.
    const std::tuple<std::size_t, std::size_t, int, int> cases[] = {
        {0, 3, 0, 15}, // the whole list
        {2, 3, 0, 15}, // the whole list, whatever the first key frame
        {1, 1, 10, 15}, {0, 1, 0, 10}, {1, 0, 10, 10}, {0, 0, 0, 0}, {2, 0, 15, 15}, {0, 2, 0, 15},
    };
    for (const auto& [first, span, firstFrame, lastFrame] : cases)
    {
        AnimationManager manager(KeyFrames, first, span, Settings_s());
        std::vector<int> expected(std::size_t(lastFrame - firstFrame + 1)), drawn;
        std::iota(expected.begin(), expected.end(), firstFrame);
        EXPECT_EQ(expected.size(), manager.numFrames()) << "first " << first << " span " << span;
        for (; manager.hasNextFrame() && drawn.size() <= expected.size(); drawn.push_back(FrameShown()))
            manager.drawNextFrame();
        EXPECT_EQ(expected, drawn) << "first " << first << " span " << span;
    }
}
