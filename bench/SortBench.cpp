// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include "ManyNodes.h"

namespace marquell::bench {
namespace {

/// Re-sorting a million nodes under each text mode; ties are broken by the other kind of key.
void reSort(benchmark::State& state) {
    const auto nodes = manyNodes(1'000'000);
    const int mode = static_cast<int>(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        auto list = std::make_unique<pipeline::FlatFileList>(*nodes);
        state.ResumeTiming();
        list->sort(mode, mode == 0 || mode == 12 ? 2 : 0);
        state.PauseTiming();
        list.reset();
        state.ResumeTiming();
    }
}
BENCHMARK(reSort)
    ->ArgName("mode")
    ->Arg(0)
    ->Arg(1)
    ->Arg(2)
    ->Arg(3)
    ->Arg(12)
    ->Arg(13)
    ->Arg(14)
    ->Arg(15)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace marquell::bench
