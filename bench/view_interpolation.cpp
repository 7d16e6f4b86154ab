// Computing the views of a two-key-frame list: the view animator's whole cost before the first frame.
// Reports the views computed per second and the memory the animation itself holds per frame; the program
// replaces the global allocation functions to count every byte allocated while the animator is built.
#include "animation/AnimatorKeyFrame.h"
#include "animation/AnimatorOnScreen.h"
#include "core/KeyFrame.h"

#include <VtxUtil.h>
#include <vantix/host/Host.h>

#include <benchmark/benchmark.h>

#include <malloc.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <memory>
#include <new>
#include <vector>

extern "C" void InitVtxAddOn113();

namespace
{

// Bytes allocated and not yet released, and the most there ever were since the last ResetPeak. The sizes are
// the allocator's usable sizes, the same on allocation and release, so the counts stay consistent.
std::size_t g_liveBytes = 0;
std::size_t g_peakBytes = 0;

void* Allocate(std::size_t size)
{
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw std::bad_alloc();
    g_liveBytes += malloc_usable_size(memory);
    g_peakBytes = std::max(g_peakBytes, g_liveBytes);
    return memory;
}

void Release(void* memory) noexcept
{
    if (memory == nullptr)
        return;
    g_liveBytes -= malloc_usable_size(memory);
    std::free(memory);
}

void ResetPeak()
{
    g_peakBytes = g_liveBytes;
}

using vantix::vtxutiltools::AnimatorKeyFrame;
using vantix::vtxutiltools::AnimatorOnScreen;
using vantix::vtxutiltools::KeyFrame_s;
using vantix::vtxutiltools::View;

// Two key views that differ in position, all three angles and width.
std::vector<KeyFrame_s> TwoKeyFrames(std::uint64_t frameCount)
{
    return {KeyFrame_s(View(1, 2, 30, 10, 20, 30, 5), "Start", frameCount, 0.0),
            KeyFrame_s(View(-4, 8, 25, -20, 60, -90, 9), "End", 1, 0.0)};
}

void ComputeViews(benchmark::State& state)
{
    static const bool registered = (InitVtxAddOn113(), true);
    (void)registered;

    const std::uint64_t frameCount = static_cast<std::uint64_t>(state.range(0));
    const std::vector<KeyFrame_s> keyFrames = TwoKeyFrames(frameCount);
    const double totalFrames = static_cast<double>(vantix::vtxutiltools::GetTotalFrameCount(keyFrames));

    double heldBytes = 0.0;
    double peakBytes = 0.0;
    double hostBytes = 0.0;
    for (auto _ : state)
    {
        state.PauseTiming();
        vantix::host::reset();
        vantix::host::addFrame(PlotType_Cartesian3D);
        const std::size_t before = g_liveBytes;
        ResetPeak();
        state.ResumeTiming();

        auto animator =
            std::make_unique<AnimatorKeyFrame>(keyFrames, std::make_unique<AnimatorOnScreen>(keyFrames));

        state.PauseTiming();
        const std::size_t afterBuilding = g_liveBytes;
        const std::size_t peak = g_peakBytes;
        animator.reset();
        // What is still held once the animator is gone was kept by the host (its logs), not by the animation.
        const std::size_t keptByHost = g_liveBytes - before;
        heldBytes = static_cast<double>(afterBuilding - before - keptByHost);
        peakBytes = static_cast<double>(peak - before);
        hostBytes = static_cast<double>(keptByHost);
        state.ResumeTiming();
    }

    state.counters["views_per_second"] =
        benchmark::Counter(static_cast<double>(state.iterations()) * static_cast<double>(frameCount - 1),
                           benchmark::Counter::kIsRate);
    state.counters["held_bytes_per_frame"] = heldBytes / totalFrames;
    state.counters["peak_bytes_per_frame"] = peakBytes / totalFrames;
    state.counters["host_kept_bytes_per_frame"] = hostBytes / totalFrames;
}

BENCHMARK(ComputeViews)->Arg(100000)->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

void* operator new(std::size_t size)
{
    return Allocate(size);
}

void* operator new[](std::size_t size)
{
    return Allocate(size);
}

void operator delete(void* memory) noexcept
{
    Release(memory);
}

void operator delete[](void* memory) noexcept
{
    Release(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    Release(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    Release(memory);
}

BENCHMARK_MAIN();
