// SPDX-License-Identifier: GPL-3.0-or-later
#include <benchmark/benchmark.h>

#include <fstream>
#include <string>

#include "ManyNodes.h"
#include "formats/OutputFormatType.h"
#include "metadata/MetadataStorage.h"
#include "pipeline/StageOwner.h"

namespace marquell::bench {
namespace {

using Index = pipeline::OutputFormatIndexEnum;

class NoOwner : public pipeline::StageOwner {
    void scanOperationFinished(pipeline::ScannerOperation&) override {}
    void reSortOperationFinished(pipeline::ReSortFlatFileListOperation&) override {}
    void outputOperationFinished(formats::OutputFormatOperationType&) override {}
};

/// A figure of this process from the kernel, in bytes.
double processMemory(const std::string& figure) {
    std::ifstream status("/proc/self/status");
    for (std::string name; status >> name;) {
        if (name == figure + ":") {
            double kilobytes = 0;
            status >> kilobytes;
            return 1024 * kilobytes;
        }
    }
    return 0;
}

/// Peak memory from now on, above what is held now.
class MemoryPeak {
public:
    MemoryPeak() { std::ofstream("/proc/self/clear_refs") << 5; }
    double bytes() const { return processMemory("VmHWM") - before_; }

private:
    double before_ = processMemory("VmRSS");
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

/// Text of a million rows whose values are all stored. Counters: the time of a cell, bytes of text
/// a second, and peak memory in relation to the text.
void cells(benchmark::State& state, Index format, const std::vector<std::string>& columns) {
    const auto nodes = manyNodes(1'000'000);
    storeAttributes(*nodes);
    const auto snapshot = std::make_shared<pipeline::DataModelSnapshot>();
    snapshot->columnList = columns;
    NoOwner owner;
    std::size_t textSize = 0;
    double peak = 0;
    for (auto _ : state) {
        const MemoryPeak memory;
        const auto operation =
            formats::outputFormat(format).getOutputOperation(snapshot, owner, nodes);
        operation->main();
        // Later on, texts of before may still be on their way out.
        if (peak == 0) peak = memory.bytes();
        textSize = operation->outputString()->size();
    }
    metadata::MetadataStorage::shared().clear();
    const auto count = static_cast<double>(nodes->files.size() * columns.size());
    const auto perIteration = benchmark::Counter::kIsIterationInvariantRate;
    state.counters["cell"] = benchmark::Counter(count, perIteration | benchmark::Counter::kInvert);
    state.counters["text"] = benchmark::Counter(static_cast<double>(textSize), perIteration);
    state.counters["memory"] = peak / static_cast<double>(textSize);
}

const std::vector<std::string> pathColumns = {"name", "absolute_path"};
const std::vector<std::string> attributeColumns = {"name", "absolute_path", "size_in_bytes",
                                                   "creation_date", "modification_date"};

BENCHMARK_CAPTURE(cells, csvOfPaths, Index::CSV, pathColumns)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(cells, csv, Index::CSV, attributeColumns)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(cells, tsv, Index::TSV, attributeColumns)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(cells, json, Index::JSON, attributeColumns)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(cells, html, Index::HTML, attributeColumns)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(cells, htmlFragment, Index::CopyToHTML, attributeColumns)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(cells, spreadsheet, Index::CopyToExcel, attributeColumns)
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

}  // namespace
}  // namespace marquell::bench
