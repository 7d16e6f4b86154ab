// What replaying the add-on's demo macro costs beyond calling the add-on's Animate directly on the same key
// frames and the same export setup.
//
// The demo (examples/keyframe_demo.mcr) loads the demo data set, sets streamtrace markers and the export up,
// opens the key frame file shipped beside it through the add-on's OpenSettingsFile command and animates to a
// file. This program copies both into a work folder of its own (only the image width changed, so that a run
// takes seconds) and builds the direct path from the same lines: each set-up line becomes the host call or
// add-on call that does its work, so the two paths cannot drift apart when the demo changes; each pair of
// whole runs is checked to write the same number of frames and end on the same view.
//
// 1. Whole runs, replayed and direct, alternating, after one warm-up replay that pays what a process pays
//    once (the OpenGL context, the shaders, the first encoder).
// 2. The replay's own work. Nearly all of a run is drawing and encoding the movie, shared by both paths,
//    whose spread is far larger than the replay's own work, so that work is measured apart where it
//    happens: around the heavy operations, never inside them. Two pieces, each replayed from a macro of its
//    own against its direct calls, in many alternating pairs, on the main thread's CPU clock (where the
//    host, the add-on and the replay run, and which leaves out other processes):
//      - the set-up lines, on a page with the demo data set loaded before: reading and parsing the lines,
//        the host's idle work after each, the add-on's callback and command parsing, the main dialog taking
//        the key frames and settings over;
//      - the Animate command with AnimationDestination=OnScreen (in batch the host only counts redraws, so
//        the animation itself is cheap) against Animate called directly on screen: the same parsing and
//        executer as the ToFile command, whose destination is only a parameter value.
//    The loading line is left out: its own work (one line) is far smaller than how much the load's time
//    moves with where the heap puts the data set.
// The share printed last is the sum of both pieces over the median whole replay.
//
// Usage: keyframe_replay [width] [runs] [pairs] [work folder parent]   (defaults: 480, 3, 50, /tmp)
#include "animation/Animate.h"
#include "core/Settings.h"
#include "document/KeyFrameFile.h"
#include "document/ListModelKeyFrame.h"

#include <support/TempFolder.h>

#include <vantix/host/Events.h>
#include <vantix/host/Export.h>
#include <vantix/host/Host.h>
#include <vantix/host/Macro.h>
#include <vantix/host/Scene.h>

#include <time.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

extern "C" void InitVtxAddOn113();

namespace
{

using namespace vantix::vtxutiltools;
namespace fs = std::filesystem;

struct Sample
{
    double wall = 0.0;
    double threadCpu = 0.0; // the main thread, which runs the host, the add-on and the replay
};

double Seconds(clockid_t clock)
{
    timespec now{};
    clock_gettime(clock, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

Sample Measure(const std::function<void()>& work)
{
    const Sample start{Seconds(CLOCK_MONOTONIC), Seconds(CLOCK_THREAD_CPUTIME_ID)};
    work();
    return {Seconds(CLOCK_MONOTONIC) - start.wall, Seconds(CLOCK_THREAD_CPUTIME_ID) - start.threadCpu};
}

double Median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0.0 : values[values.size() / 2];
}

// Replayed minus direct, pair by pair.
std::vector<double> Differences(const std::vector<Sample>& replays, const std::vector<Sample>& directs,
                                double Sample::*field)
{
    std::vector<double> values;
    for (std::size_t i = 0; i < replays.size() && i < directs.size(); ++i)
        values.push_back(replays[i].*field - directs[i].*field);
    return values;
}

std::vector<double> Field(const std::vector<Sample>& samples, double Sample::*field)
{
    std::vector<double> values;
    for (const Sample& sample : samples)
        values.push_back(sample.*field);
    return values;
}

std::string Trim(const std::string& text)
{
    const std::size_t first = text.find_first_not_of(" \t\r");
    return first == std::string::npos ? "" : text.substr(first, text.find_last_not_of(" \t\r") - first + 1);
}

// What the direct path keeps between its calls: what the key frame file held.
struct DirectState
{
    Settings_s settings;
    ListModelKeyFrame keyFrames;

    void clear()
    {
        settings = Settings_s();
        keyFrames.setDataList({});
    }
};
using DirectStep = std::function<void(DirectState&)>;

void AnimateDirectly(const DirectState& state, Destination_e destination)
{
    Settings_s settings = state.settings;
    settings.destination = destination;
    Animate(state.keyFrames.dataList(), 0, state.keyFrames.size(), settings, RecordMacro);
}

// The demo's lines in three parts, as macro texts, with the direct calls of its set-up lines.
struct Demo
{
    std::string whole, setUp, animateOnScreen;
    std::vector<DirectStep> directSetUp;
};

// The direct call of one set-up line; the direct movie goes to directMovie.
DirectStep DirectCall(const std::string& line, const fs::path& folder, const fs::path& directMovie)
{
    const std::size_t equals = line.find('=');
    std::istringstream words(line.substr(0, equals));
    std::string command;
    words >> command;
    std::vector<std::string> path;
    for (std::string word; words >> word;)
        path.push_back(word);
    const std::string value = equals == std::string::npos ? "" : Trim(line.substr(equals + 1));
    if (command == "$!SETSTYLEVALUE" && (value == "TRUE" || value == "FALSE"))
        return [path, on = value == "TRUE"](DirectState&) { vantix::host::setStyle(path, on); };
    if (command == "$!SETSTYLEVALUE")
        return [path, number = std::stod(value)](DirectState&) { vantix::host::setStyle(path, number); };
    if (command == "$!EXPORTSETUP" && path.size() == 1)
    {
        const std::string text = path[0] == "ExportFName" ? "\"" + directMovie.string() + "\"" : value;
        return [name = path[0], text](DirectState&) { vantix::host::setExportSetupFromText(name, text); };
    }
    const std::string open = "COMMAND = 'OpenSettingsFile FileName=";
    if (command == "$!ADDONCOMMAND" && line.find(open) != std::string::npos)
    {
        const fs::path file = folder / line.substr(line.find(open) + open.size(),
                                                   line.rfind('\'') - line.find(open) - open.size());
        return [file](DirectState& state)
        { KeyFrameFile().readFile(file.string(), state.settings, state.keyFrames); };
    }
    throw std::runtime_error("the demo has a line this benchmark cannot do directly: " + line);
}

Demo ReadDemo(const fs::path& file, const fs::path& folder, int width, const fs::path& directMovie)
{
    std::ifstream in(file);
    if (!in)
        throw std::runtime_error("cannot read " + file.string());
    Demo demo;
    demo.setUp = demo.animateOnScreen = std::string(vantix::host::MacroHeader) + "\n";
    for (std::string line; std::getline(in, line);)
    {
        if (line.rfind("$!EXPORTSETUP ImageWidth", 0) == 0)
            line = "$!EXPORTSETUP ImageWidth = " + std::to_string(width);
        demo.whole += line + "\n";
        if (line.rfind("$!", 0) != 0 || line.rfind("$!LOADDATA DEMO", 0) == 0)
            continue;
        const std::size_t toFile = line.find("'Animate AnimationDestination=ToFile'");
        if (toFile != std::string::npos)
            demo.animateOnScreen += line.substr(0, toFile) + "'Animate AnimationDestination=OnScreen'\n";
        else
        {
            demo.setUp += line + "\n";
            demo.directSetUp.push_back(DirectCall(line, folder, directMovie));
        }
    }
    return demo;
}

// The page the vantix program starts with; the add-on stays registered.
void FreshPage(bool withData)
{
    vantix::host::reset();
    vantix::host::addFrame(PlotType_Cartesian3D);
    if (withData)
        vantix::host::loadDemoDataSet();
    vantix::host::runOnIdleUntilEmpty();
}

void Replay(const fs::path& macro)
{
    const vantix::host::MacroResult result = vantix::host::runMacroFile(macro.string());
    if (!result.ok())
        throw std::runtime_error(result.message);
}

// count pairs of replay and direct, alternating which goes first so that a drift of the machine falls on
// both alike; prepare runs before each and check after each, outside the measurement. The direct path's
// queued idle work, which the replay does after each line, is left to prepare.
void Pairs(int count, const std::function<void()>& prepare, const std::function<void()>& replay,
           const std::function<void()>& direct, const std::function<void()>& check,
           std::vector<Sample>& replays, std::vector<Sample>& directs)
{
    for (int i = 0; i < 2 * count; ++i)
    {
        prepare();
        if ((i % 2 == 0) == (i / 2 % 2 == 0))
            replays.push_back(Measure(replay));
        else
            directs.push_back(Measure(direct));
        check();
    }
}

int Run(int width, int runs, int pairs, const fs::path& parent)
{
    const testsupport::TempFolder workFolder("keyframe_replay", parent);
    const fs::path& folder = workFolder.path();
    const fs::path examples = EXAMPLES_FOLDER;
    fs::copy_file(examples / "aircraft_flyaround.keyframe", folder / "aircraft_flyaround.keyframe");
    const Demo demo = ReadDemo(examples / "keyframe_demo.mcr", folder, width, folder / "direct.mp4");
    testsupport::WriteFile(folder / "whole.mcr", demo.whole);
    testsupport::WriteFile(folder / "setup.mcr", demo.setUp);
    testsupport::WriteFile(folder / "animate.mcr", demo.animateOnScreen);
    InitVtxAddOn113();
    std::printf("keyframe_replay: the demo macro at %d pixels wide, in %s\n", width, folder.c_str());

    // Whole runs, each checked against the warm-up replay.
    DirectState state;
    const auto directWhole = [&]
    {
        vantix::host::loadDemoDataSet();
        for (const DirectStep& step : demo.directSetUp)
            step(state);
        AnimateDirectly(state, ToFile);
    };
    struct Outcome
    {
        long frames;
        double psi;
    };
    const auto outcome = [] {
        return Outcome{vantix::host::callCount("VtxUtilExportNextFrame"), vantix::host::view().psi};
    };
    FreshPage(false);
    Replay(folder / "whole.mcr");
    const Outcome expected = outcome();
    const auto sameMovie = [&]
    {
        const Outcome run = outcome();
        if (run.frames != expected.frames || run.psi != expected.psi || !vantix::host::hostErrors().empty())
            throw std::runtime_error("the replay and the direct calls did not make the same movie");
    };
    std::vector<Sample> replays, directs;
    Pairs(
        runs,
        [&]
        {
            FreshPage(false);
            state.clear();
        },
        [&] { Replay(folder / "whole.mcr"); }, directWhole, sameMovie, replays, directs);
    const double wholeReplay = Median(Field(replays, &Sample::wall));
    std::printf("whole runs (median of %d)        replayed %.3f s, direct %.3f s wall; %ld frames\n", runs,
                wholeReplay, Median(Field(directs, &Sample::wall)), expected.frames + 1);

    // The two pieces of the replay's own work.
    double ownWork = 0.0;
    const auto piece = [&](const char* what, const std::function<void()>& prepare, const fs::path& macro,
                           const std::function<void()>& direct)
    {
        std::vector<Sample> pieceReplays, pieceDirects;
        Pairs(
            pairs, prepare, [&] { Replay(macro); }, direct, [] {}, pieceReplays, pieceDirects);
        const double own = Median(Differences(pieceReplays, pieceDirects, &Sample::threadCpu));
        std::printf("%-32s replayed %8.3f ms, direct %8.3f ms CPU; own work %+.3f ms\n", what,
                    1e3 * Median(Field(pieceReplays, &Sample::threadCpu)),
                    1e3 * Median(Field(pieceDirects, &Sample::threadCpu)), 1e3 * own);
        ownWork += own;
    };
    piece(
        "set-up lines", [] { FreshPage(true); }, folder / "setup.mcr",
        [&]
        {
            DirectState fresh;
            for (const DirectStep& step : demo.directSetUp)
                step(fresh);
        });
    FreshPage(true);
    state.clear();
    for (const DirectStep& step : demo.directSetUp)
        step(state);
    Replay(folder / "setup.mcr");
    piece(
        "Animate on screen", [] { vantix::host::runOnIdleUntilEmpty(); }, folder / "animate.mcr",
        [&] { AnimateDirectly(state, OnScreen); });
    std::printf("the replay's own work             %+.3f ms, %.4f %% of the whole replay\n", 1e3 * ownWork,
                100.0 * ownWork / wholeReplay);
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const int width = argc > 1 ? std::atoi(argv[1]) : 480;
    const int runs = argc > 2 ? std::atoi(argv[2]) : 3;
    const int pairs = argc > 3 ? std::atoi(argv[3]) : 50;
    if (width < 2 || width > 32766 || runs < 1 || pairs < 1)
    {
        std::fprintf(stderr, "usage: keyframe_replay [width 2..32766] [runs >= 1] [pairs >= 1] [folder]\n");
        return 2;
    }
    try
    {
        return Run(width, runs, pairs, argc > 4 ? argv[4] : "/tmp");
    }
    catch (const std::exception& error)
    {
        std::fprintf(stderr, "keyframe_replay: %s\n", error.what());
        return 1;
    }
}
