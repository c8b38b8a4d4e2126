// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include "ManyNodes.h"
#include "formats/OutputFormatType.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/StageOwner.h"

namespace marquell::bench {
namespace {

class NoOwner : public pipeline::StageOwner {
    void scanOperationFinished(pipeline::ScannerOperation&) override {}
    void reSortOperationFinished(pipeline::ReSortFlatFileListOperation&) override {}
    void outputOperationFinished(formats::OutputFormatOperationType&) override {}
};

void storeAttributes(const pipeline::FlatFileList& list) {
    auto& storage = metadata::MetadataStorage::shared();
    std::int64_t seed = 1;
    for (const auto& node : list.files) {
        seed = seed * 48271 % 2147483647;
        const platform::Date date{1'000'000'000 + seed % 700'000'000, 0};
        storage.storeBasicInformation(node->pathKey(), {seed, date, date});
        storage.store(node->pathKey(), metadata::MetadataSource::basic, "retrieved", true);
    }
}

/// CSV text of a million rows whose values are all stored; the counter is the time of one cell.
void csvCells(benchmark::State& state, const std::vector<std::string>& columns) {
    const auto nodes = manyNodes(1'000'000);
    storeAttributes(*nodes);
    const auto snapshot = std::make_shared<pipeline::DataModelSnapshot>();
    snapshot->columnList = columns;
    NoOwner owner;
    for (auto _ : state) {
        formats::outputFormat(snapshot->outputFormat)
            ->getOutputOperation(snapshot, owner, nodes)
            ->main();
    }
    metadata::MetadataStorage::shared().clear();
    const auto cells = static_cast<double>(nodes->files.size() * columns.size());
    state.counters["cell"] = benchmark::Counter(
        cells, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void csvPathCells(benchmark::State& state) { csvCells(state, {"name", "absolute_path"}); }
BENCHMARK(csvPathCells)->Unit(benchmark::kMillisecond)->UseRealTime();

void csvAttributeCells(benchmark::State& state) {
    csvCells(state,
             {"name", "absolute_path", "size_in_bytes", "creation_date", "modification_date"});
}
BENCHMARK(csvAttributeCells)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace marquell::bench
