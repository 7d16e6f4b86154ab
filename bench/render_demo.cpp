// Drawing the built-in demo data set at 1280 x 720, as a movie export draws each frame: the aircraft's
// time step, the ground with its grid, the streamtraces with markers and dashes, and the frame axis, read
// back into an image. Reports the frames drawn per second; a second case adds the time running, so that
// each frame draws another time step.
#include <vantix/host/Host.h>
#include <vantix/host/Render.h>
#include <vantix/host/Scene.h>

#include <benchmark/benchmark.h>

namespace
{

constexpr int Width = 1280;
constexpr int Height = 720;
constexpr int TimeSteps = 24;

void SetUpDemo()
{
    vantix::host::reset();
    vantix::host::addFrame();
    vantix::host::loadDemoDataSet();
    vantix::host::setStyle({"StreamAttributes", "StreamTiming", "ShowMarkers"}, true);
    vantix::host::setStyle({"StreamAttributes", "StreamTiming", "ShowDashes"}, true);
    // The first picture makes the context and uploads the geometry: not part of a frame's cost.
    vantix::host::renderActiveFrame(Width, Height);
}

void DrawDemoFrame(benchmark::State& state)
{
    SetUpDemo();
    for (auto _ : state)
    {
        const vantix::host::Image image = vantix::host::renderActiveFrame(Width, Height);
        benchmark::DoNotOptimize(image.rgb.data());
    }
    state.counters["frames_per_second"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
    state.SetLabel(vantix::host::rendererDescription());
}

void DrawDemoFrameWithTimeRunning(benchmark::State& state)
{
    SetUpDemo();
    int frame = 0;
    for (auto _ : state)
    {
        vantix::host::setSolutionTime(frame % TimeSteps);
        vantix::host::setStyle({"StreamAttributes", "StreamTiming", "TimeAnchor"}, 0.2 * frame);
        const vantix::host::Image image = vantix::host::renderActiveFrame(Width, Height);
        benchmark::DoNotOptimize(image.rgb.data());
        ++frame;
    }
    state.counters["frames_per_second"] =
        benchmark::Counter(static_cast<double>(state.iterations()), benchmark::Counter::kIsRate);
}

} // namespace

BENCHMARK(DrawDemoFrame)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(DrawDemoFrameWithTimeRunning)->Unit(benchmark::kMillisecond)->UseRealTime();

BENCHMARK_MAIN();
