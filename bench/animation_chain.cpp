// The whole animator chain of an animation shown on screen (view, fade, streamtraces, solution time, on
// screen) over a 10,000-frame list of three key frames of the transient demo data set, with the host only
// counting redraws (it draws nothing: the add-on's own cost is measured). Three measures:
//
//   BuildChain   building the chain: the view computation of 9,998 views, the 10,000 solution times and the
//                rest; reported per chain and per frame.
//   DrawFrames   the frame loop: every frame of the list through the built chain, as the driver draws it;
//                reported per drawn frame.
//   Animate      the whole driver, building and drawing with its progress lines, for comparison.
//
// The add-on is linked into this program, the host is in its shared libraries, so a profile split by
// shared object (perf report --sort dso) tells the add-on's time from the host's.
#include "animation/Animate.h"
#include "animation/AnimatorAbstractFactory.h"
#include "animation/AnimatorInterface.h"
#include "core/KeyFrame.h"
#include "core/MacroOption.h"
#include "core/Settings.h"
#include "core/View.h"

#include <VtxUtil.h>
#include <vantix/host/Host.h>
#include <vantix/host/Scene.h>

#include <benchmark/benchmark.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

extern "C" void InitVtxAddOn113();

namespace
{

using namespace vantix::vtxutiltools;

const std::uint64_t TotalFrames = 10000;

// A clean host with the demo data set (24 time steps in one strand, so that time animation changes the
// zones shown), markers on, and the add-on registered; returns three key frames turning round the aircraft.
std::vector<KeyFrame_s> SetUpHost()
{
    static const bool registered = (InitVtxAddOn113(), true);
    (void)registered;
    vantix::host::reset();
    vantix::host::addFrame(PlotType_Cartesian3D);
    vantix::host::loadDemoDataSet();
    vantix::host::setStyle({"StreamAttributes", "StreamTiming", "ShowMarkers"}, true);

    std::vector<KeyFrame_s> keyFrames;
    const std::uint64_t counts[] = {TotalFrames / 2, TotalFrames - 1 - TotalFrames / 2, 1};
    for (int i = 0; i < 3; ++i)
    {
        if (i > 0)
        {
            VtxUtilViewRotate3D(RotateAxis_Theta, RotateOriginLocation_DefinedOrigin, 70.0, 0, 0, 0);
            VtxUtilViewRotate3D(RotateAxis_Psi, RotateOriginLocation_DefinedOrigin, -15.0, 0, 0, 0);
        }
        keyFrames.emplace_back(GetCurrentView(), "Key " + std::to_string(i + 1), counts[i], 0.0);
    }
    return keyFrames;
}

Settings_s EveryAnimatorOnScreen()
{
    Settings_s settings;
    settings.destination = OnScreen;
    settings.timeOptions.animateTime = true;
    settings.timeOptions.timeAnimationOperation = Loop;
    settings.timeOptions.numCycles = 3;
    settings.animateStreamtraces = true;
    settings.fadeIn = true;
    settings.fadeOut = true;
    return settings;
}

double MicrosecondsSince(std::chrono::steady_clock::time_point start)
{
    return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count();
}

void BuildChain(benchmark::State& state)
{
    const std::vector<KeyFrame_s> keyFrames = SetUpHost();
    const Settings_s settings = EveryAnimatorOnScreen();
    double microseconds = 0.0;
    for (auto _ : state)
    {
        const auto start = std::chrono::steady_clock::now();
        std::unique_ptr<AnimatorInterface> chain =
            AnimatorAbstractFactory::createAnimator(keyFrames, settings);
        microseconds += MicrosecondsSince(start);
        state.PauseTiming();
        chain.reset();
        state.ResumeTiming();
    }
    state.counters["us_per_frame"] =
        microseconds / (static_cast<double>(state.iterations()) * static_cast<double>(TotalFrames));
    state.counters["ms_per_chain"] = microseconds / 1000.0 / static_cast<double>(state.iterations());
}

void DrawFrames(benchmark::State& state)
{
    const std::vector<KeyFrame_s> keyFrames = SetUpHost();
    const std::unique_ptr<AnimatorInterface> chain =
        AnimatorAbstractFactory::createAnimator(keyFrames, EveryAnimatorOnScreen());
    const int redrawsBefore = vantix::host::redrawCount();
    double microseconds = 0.0;
    for (auto _ : state)
    {
        const auto start = std::chrono::steady_clock::now();
        for (std::size_t frame = 0; frame < TotalFrames; ++frame)
            chain->drawFrame(frame);
        microseconds += MicrosecondsSince(start);
    }
    const double frames = static_cast<double>(state.iterations()) * static_cast<double>(TotalFrames);
    if (static_cast<double>(vantix::host::redrawCount() - redrawsBefore) != frames)
        state.SkipWithError("not every frame was redrawn");
    state.counters["us_per_frame"] = microseconds / frames;
}

void AnimateWhole(benchmark::State& state)
{
    const std::vector<KeyFrame_s> keyFrames = SetUpHost();
    const Settings_s settings = EveryAnimatorOnScreen();
    double microseconds = 0.0;
    for (auto _ : state)
    {
        const auto start = std::chrono::steady_clock::now();
        Animate(keyFrames, 0, keyFrames.size(), settings, DoNotRecordMacro);
        microseconds += MicrosecondsSince(start);
    }
    state.counters["us_per_frame"] =
        microseconds / (static_cast<double>(state.iterations()) * static_cast<double>(TotalFrames));
}

BENCHMARK(BuildChain)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(DrawFrames)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(AnimateWhole)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
