// Small data sets with time strands, key frame lists of a given length, and the host's call trace read as
// the steps of the animator chain, for the tests of the time, streamtrace, fade and export animators and of
// the chain they make.
#pragma once

#include "animation/KeyFrameTestHelpers.h"
#include "core/KeyFrame.h"

#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace testhelpers
{

// One zone of a data set: its solution time, its strand (0 static) and whether it is enabled.
struct TestZone
{
    double solutionTime = 0.0;
    int strandId = 0;
    bool enabled = true;
};

// Loads a data set of one small triangle per zone into the active frame, then disables the zones asked.
inline void LoadZones(const std::vector<TestZone>& testZones)
{
    std::vector<vantix::host::ZoneData> zones;
    for (const TestZone& testZone : testZones)
    {
        vantix::host::SurfaceZoneData zone;
        zone.name = "Zone " + std::to_string(zones.size() + 1);
        zone.solutionTime = testZone.solutionTime;
        zone.strandId = testZone.strandId;
        zone.nodes = {{0.0, 0.0, 0.0}, {1.0, 0.0, 0.0}, {0.0, 1.0, 0.0}};
        zone.triangles = {{0, 1, 2}};
        zones.emplace_back(zone);
    }
    vantix::host::loadDataSet("zones", zones);
    for (std::size_t i = 0; i < testZones.size(); ++i)
        if (!testZones[i].enabled)
            vantix::host::setZoneEnabled(int(i) + 1, false);
}

// A transient data set whose strand runs through the solution times first, first + 1, ..., last.
inline void LoadTimeSteps(int first, int last)
{
    std::vector<TestZone> testZones;
    for (int time = first; time <= last; ++time)
        testZones.push_back({double(time), 1, true});
    LoadZones(testZones);
}

// Two key frames (X 0 and X 10 * (totalFrames - 1)) whose animation has totalFrames frames.
inline std::vector<vantix::vtxutiltools::KeyFrame_s> KeyFramesOver(std::uint64_t totalFrames)
{
    return MakeKeyFrames({{ViewAtX(0), totalFrames - 1}, {ViewAtX(10.0 * double(totalFrames - 1)), 1}});
}

// The host calls traced since the trace held `from` entries.
inline std::vector<std::string> TraceSince(std::size_t from)
{
    const std::vector<std::string> trace = vantix::host::trace();
    return std::vector<std::string>(trace.begin() + std::ptrdiff_t(std::min(from, trace.size())),
                                    trace.end());
}

// The steps of the chain that a stretch of the trace shows, one name per run of calls of one step: "view"
// (the view written), "lights" (intensity and background light), "axis" (the frame axis shown or hidden),
// "anchor" (the streamtrace time anchor), "time" (the solution time), "redraw", "export" (started or
// extended), "cancel" and "finish" (the export abandoned or closed). Other calls are left out.
inline std::vector<std::string> ChainSteps(const std::vector<std::string>& trace)
{
    const struct
    {
        const char* prefix;
        const char* step;
    } steps[] = {
        {"StyleValue.set ThreeDView/", "view"},
        {"StyleValue.set GlobalThreeD/LightSource/", "lights"},
        {"StyleValue.set ThreeDAxis/FrameAxis/Show", "axis"},
        {"StyleValue.set StreamAttributes/StreamTiming/TimeAnchor", "anchor"},
        {"VtxUtilSolutionTimeSetCurrent", "time"},
        {"VtxUtilRedraw", "redraw"},
        {"VtxUtilExportStart", "export"},
        {"VtxUtilExportNextFrame", "export"},
        {"VtxUtilExportCancel", "cancel"},
        {"VtxUtilExportFinish", "finish"},
    };
    std::vector<std::string> result;
    for (const std::string& call : trace)
        for (const auto& step : steps)
            if (call.rfind(step.prefix, 0) == 0)
            {
                if (result.empty() || result.back() != step.step)
                    result.push_back(step.step);
                break;
            }
    return result;
}

inline double StyleNumber(const std::vector<std::string>& path)
{
    return std::get<double>(vantix::host::style(path));
}

inline bool StyleSwitch(const std::vector<std::string>& path)
{
    return std::get<bool>(vantix::host::style(path));
}

const std::vector<std::string> IntensityPath = {"GlobalThreeD", "LightSource", "Intensity"};
const std::vector<std::string> BackgroundLightPath = {"GlobalThreeD", "LightSource", "BackgroundLight"};
const std::vector<std::string> FrameAxisShownPath = {"ThreeDAxis", "FrameAxis", "Show"};
const std::vector<std::string> TimeAnchorPath = {"StreamAttributes", "StreamTiming", "TimeAnchor"};
const std::vector<std::string> DeltaTimePath = {"StreamAttributes", "StreamTiming", "DeltaTime"};
const std::vector<std::string> ShowMarkersPath = {"StreamAttributes", "StreamTiming", "ShowMarkers"};
const std::vector<std::string> ShowDashesPath = {"StreamAttributes", "StreamTiming", "ShowDashes"};
const std::vector<std::string> UseDisplayListsPath = {"Interface", "UseDisplayLists"};

} // namespace testhelpers
