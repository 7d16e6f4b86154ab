// What the animation tests share: the add-on fixture with small data sets with time strands, key frame
// lists of a given length, the settings of an animation in one call, an export set up to a file, the
// host's style values, and the host's call trace and progress line read as short descriptions.
#pragma once

#include "animation/KeyFrameTestHelpers.h"
#include "core/KeyFrame.h"
#include "core/KeyFrameError.h"
#include "core/Settings.h"

#include <support/AddOnTest.h>
#include <support/TempFolder.h>
#include <support/ThrownMessage.h>

#include <VtxUtil.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <string>
#include <variant>
#include <vector>

namespace testhelpers
{

using namespace vantix::vtxutiltools;
namespace fs = std::filesystem;
using Strings = std::vector<std::string>;

const std::string CancelHint = " Press [Esc] or click [Stop] to cancel.";
const std::string CanceledMessage = "Animation canceled.";
const std::string TooFewKeyFramesMessage =
    "At least two keyFrame views must be established to perform an animation.";

const Strings IntensityPath = {"GlobalThreeD", "LightSource", "Intensity"};
const Strings BackgroundLightPath = {"GlobalThreeD", "LightSource", "BackgroundLight"};
const Strings FrameAxisShownPath = {"ThreeDAxis", "FrameAxis", "Show"};
const Strings TimeAnchorPath = {"StreamAttributes", "StreamTiming", "TimeAnchor"};
const Strings DeltaTimePath = {"StreamAttributes", "StreamTiming", "DeltaTime"};
const Strings ShowMarkersPath = {"StreamAttributes", "StreamTiming", "ShowMarkers"};
const Strings ShowDashesPath = {"StreamAttributes", "StreamTiming", "ShowDashes"};
const Strings UseDisplayListsPath = {"Interface", "UseDisplayLists"};

// One zone of a data set: its solution time, its strand (0 static) and whether it is enabled.
struct TestZone
{
    double solutionTime = 0.0;
    int strandId = 0;
    bool enabled = true;
};

class AnimationTest : public testsupport::AddOnTest
{
protected:
    // Small frames, which the host exports fast.
    void SetUp() override
    {
        AddOnTest::SetUp();
        vantix::host::setExportSetupFromText("ImageWidth", "64");
    }

    // An export that a failed check left open does not reach into the next test.
    void TearDown() override
    {
        if (VtxUtilExportIsRecording())
            VtxUtilExportCancel();
        AddOnTest::TearDown();
    }

    // A clean host with one frame of the plot type given and a data set of these zones (none: no data set),
    // tracing the calls made to it.
    static void FreshHost(PlotType_e plotType = PlotType_Cartesian3D, const std::vector<TestZone>& zones = {})
    {
        vantix::host::reset();
        vantix::host::addFrame(plotType);
        if (!zones.empty())
            LoadZones(zones);
        vantix::host::setTracing(true);
    }

    // Loads a data set of one small triangle per zone into the active frame, then disables the zones asked.
    static void LoadZones(const std::vector<TestZone>& testZones)
    {
        std::vector<vantix::host::ZoneData> zones;
        const std::vector<vantix::host::Point3> corners = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}};
        for (const TestZone& zone : testZones)
            zones.push_back(vantix::host::SurfaceZoneData{"Zone " + std::to_string(zones.size() + 1),
                                                          zone.solutionTime,
                                                          zone.strandId,
                                                          corners,
                                                          {{0, 1, 2}},
                                                          {}}); // one triangle
        vantix::host::loadDataSet("zones", zones);
        for (std::size_t i = 0; i < testZones.size(); ++i)
            if (!testZones[i].enabled)
                vantix::host::setZoneEnabled(int(i) + 1, false);
    }

    // A transient data set whose strand runs through the solution times first, first + 1, ..., last.
    static void LoadTimeSteps(int first, int last)
    {
        std::vector<TestZone> testZones;
        for (int time = first; time <= last; ++time)
            testZones.push_back({double(time), 1, true});
        LoadZones(testZones);
    }

    // Two key frames (X 0 and X 10 * (totalFrames - 1)) whose animation has totalFrames frames: the view of
    // frame f is at X = 10 f.
    static std::vector<KeyFrame_s> KeyFramesOver(std::uint64_t frames)
    {
        return MakeKeyFrames({{ViewAtX(0), frames - 1}, {ViewAtX(10.0 * double(frames - 1)), 1}});
    }

    // The settings of an animation: which animators are asked for, and where the frames go.
    static Settings_s Animation(bool time, bool streams, bool fadeIn, bool fadeOut,
                                Destination_e to = OnScreen)
    {
        return {{time, Forward, 1}, to, streams, fadeIn, fadeOut};
    }
    static Settings_s Everything(Destination_e to = OnScreen)
    {
        return Animation(true, true, true, true, to);
    }

    // Sets the host's export up to write format into name in the test's own folder, and returns that file.
    fs::path ExportTo(const std::string& format, const std::string& name) const
    {
        vantix::host::setExportSetupFromText("ExportFormat", format);
        vantix::host::setExportSetupFromText("ExportFName", "\"" + (m_folder.path() / name).string() + "\"");
        return m_folder.path() / name;
    }

    static long Calls(const char* function) { return vantix::host::callCount(function); }
    static double StyleNumber(const Strings& path) { return std::get<double>(vantix::host::style(path)); }
    static bool StyleSwitch(const Strings& path) { return std::get<bool>(vantix::host::style(path)); }

    // The lights, the frame axis, the streamtrace anchor and the display lists in one line, to compare the
    // host's settings before and after an animation in one check.
    static std::string SceneSettings()
    {
        std::string settings;
        for (const Strings& path :
             {IntensityPath, BackgroundLightPath, FrameAxisShownPath, TimeAnchorPath, UseDisplayListsPath})
            settings += path.back() + " " + ::testing::PrintToString(vantix::host::style(path)) + "; ";
        return settings;
    }

    // The host calls traced since the trace held `from` entries.
    static Strings TraceSince(std::size_t from)
    {
        const Strings trace = vantix::host::trace();
        return Strings(trace.begin() + std::ptrdiff_t(std::min(from, trace.size())), trace.end());
    }

    // The steps of the chain that a stretch of the trace shows, one word per run of calls of one step: "view"
    // (the view written), "lights" (intensity and background light), "axis" (the frame axis shown or hidden),
    // "anchor" (the streamtrace time anchor), "time" (the solution time), "redraw", "export" (started or
    // extended), "cancel" and "finish" (the export abandoned or closed). Other calls are left out.
    static std::string ChainSteps(const Strings& trace)
    {
        // clang-format off
        const std::pair<const char*, const char*> steps[] = {
            {"StyleValue.set ThreeDView/", "view"}, {"StyleValue.set GlobalThreeD/LightSource/", "lights"},
            {"StyleValue.set ThreeDAxis/FrameAxis/Show", "axis"}, {"VtxUtilSolutionTimeSetCurrent", "time"},
            {"StyleValue.set StreamAttributes/StreamTiming/TimeAnchor", "anchor"},
            {"VtxUtilRedraw", "redraw"}, {"VtxUtilExportStart", "export"},
            {"VtxUtilExportNextFrame", "export"}, {"VtxUtilExportCancel", "cancel"},
            {"VtxUtilExportFinish", "finish"}};
        // clang-format on
        std::string result, last;
        for (const std::string& call : trace)
            for (const auto& [prefix, step] : steps)
                if (call.rfind(prefix, 0) == 0 && last != step)
                    result += (result.empty() ? "" : " ") + (last = step);
        return result;
    }

    // The events of the progress line, one string each: "start TEXT" with " [stop]" and " [bar]" when the
    // stop button and the bar are shown, "text TEXT", "N%" for a percent check, and "finish".
    static Strings StatusEvents()
    {
        using Kind = vantix::host::StatusEvent::Kind;
        Strings events;
        for (const vantix::host::StatusEvent& e : vantix::host::statusEvents())
            events.push_back(e.kind == Kind::Start ? "start " + e.text + (e.showStop ? " [stop]" : "") +
                                                         (e.showBar ? " [bar]" : "")
                             : e.kind == Kind::SetText ? "text " + e.text
                             : e.kind == Kind::Check   ? std::to_string(e.percent) + "%"
                                                       : "finish");
        return events;
    }

    // The percentages of the progress line's checks, in order: "20 40 60".
    static std::string Percents()
    {
        std::string percents;
        for (const vantix::host::StatusEvent& event : vantix::host::statusEvents())
            if (event.kind == vantix::host::StatusEvent::Kind::Check)
                percents += (percents.empty() ? "" : " ") + std::to_string(event.percent);
        return percents;
    }

    testsupport::TempFolder m_folder{"vantix-animation"};
};

} // namespace testhelpers
