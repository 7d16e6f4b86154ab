// Splitting the add-on's macro command texts into items, at growing item counts: the time per item stays
// about the same when splitting takes time in proportion to the text.
//
// Two kinds of text: items that each hold their own "=" (as the add-on writes them), and items without one
// before a last item that has it (a damaged or hand-made text, which the parser refuses afterwards).
#include "core/KeyFrameError.h"
#include "macro/MacroManager.h"

#include <benchmark/benchmark.h>

#include <string>
#include <vector>

namespace
{

using vantix::vtxutiltools::AddOnMacroCommandManager;

std::string CommandText(std::size_t items, const std::string& item)
{
    std::string text = "Animate";
    text.reserve(text.size() + items * (item.size() + 1) + 32);
    for (std::size_t i = 0; i < items; ++i)
        text += " " + item;
    return text + " AnimationDestination=ToFile";
}

void Tokenize(benchmark::State& state, const std::string& item)
{
    const auto items = static_cast<std::size_t>(state.range(0));
    const std::string text = CommandText(items, item);
    const AddOnMacroCommandManager manager(" ");
    std::vector<std::string> tokens;
    for (auto _ : state)
    {
        tokens.clear();
        manager.tokenize(text, tokens);
        benchmark::DoNotOptimize(tokens.data());
    }
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations() * items));
}

void EachItemWithItsEquals(benchmark::State& state)
{
    Tokenize(state, "FileName=a");
}

void ItemsBeforeTheOnlyEquals(benchmark::State& state)
{
    Tokenize(state, "x");
}

} // namespace

BENCHMARK(EachItemWithItsEquals)
    ->Arg(10000)
    ->Arg(40000)
    ->Arg(160000)
    ->Arg(640000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(ItemsBeforeTheOnlyEquals)
    ->Arg(10000)
    ->Arg(40000)
    ->Arg(160000)
    ->Arg(640000)
    ->Unit(benchmark::kMillisecond);

BENCHMARK_MAIN();
