// A comparison without the cost of files: walking and pairing, classifying.
#include <cstdint>

#include <benchmark/benchmark.h>

#include "compare/folder_scanner.h"
#include "compare/pair_classification.h"
#include "measured_window.h"

namespace {

using bench::GeneratedFiles;
using bench::MeasuredWindow;
using bench::Shape;
using compare::Side;

constexpr std::int64_t kMillion = 1'000'000;

// Takes the pairs as a comparison does, and keeps nothing.
class Ignore : public compare::PairVisitor {
  public:
    void Visit(const compare::FilePair& pair, Side found, std::int32_t& Fcount) override {
        benchmark::DoNotOptimize(pair.Status(Side::One));
        if (found == Side::One) benchmark::DoNotOptimize(pair.Status(Side::Two));
        --Fcount;
        ++Visits;
    }
    std::int64_t Visits = 0;
};

// Lists both trees, pairs their names and looks at the files. `Shape::Pairs` comes from the range.
void Scan(benchmark::State& state, Shape shape) {
    shape.Pairs = state.range(0);
    if (shape.FilesPerFolder == 0) shape.FilesPerFolder = shape.Pairs;
    GeneratedFiles files(shape);
    platform::headless::Host host;
    Ignore visitor;
    const bool stopRequested = false;
    for (auto _ : state) {
        compare::FolderScanner scanner(files, host, visitor, stopRequested);
        std::string folder1 = "/1/";
        std::string folder2 = "/2/";
        std::int32_t Fcount = 0;
        scanner.CountFiles(Side::One, folder1, Fcount);
        scanner.CountFiles(Side::Two, folder2, Fcount);
        scanner.WalkFolder(folder1, folder2, Fcount, Side::One);
        scanner.WalkFolder(folder2, folder1, Fcount, Side::Two);
    }
    state.SetItemsProcessed(visitor.Visits);
}

// All of it, by a click on the button.
void Compare(benchmark::State& state) {
    MeasuredWindow window({state.range(0)});
    compare::CompareTable& table = window.Form.Table;
    std::int64_t rows = 0;
    for (auto _ : state) {
        window.Form.Command3.Click();
        rows += table.NewChgCount() + table.SameCount();
    }
    if (rows != state.range(0) * static_cast<std::int64_t>(state.iterations()))
        state.SkipWithError("not every pair was found");
    state.SetItemsProcessed(rows);
}

// `filterList` as the filter keeps it; empty for none.
void Classify(benchmark::State& state, const char* filterList) {
    constexpr std::int64_t kPairs = 10'000;
    constexpr const char* kName = "file_0001234.txt";
    const compare::FolderPair top{nullptr, "/1/", "/2/"};
    const compare::FolderPair folder{&top, "folder_12/", "folder_12/"};
    const platform::FileStatus older{{45'000LL * 86'400, 1}, 100};
    const platform::FileStatus newer{{45'001LL * 86'400, 1}, 100};
    compare::FilePair pair;
    pair.Folder = &folder;
    pair.Name = kName;
    pair.NameLength = 16;
    pair.Known1 = &older;

    platform::headless::Host host;
    platform::Label labels[5];
    rules::FileFilter filter{filterList, true};
    compare::CompareTable table;
    compare::PairClassifier classifier(table, filter, host,
                                       {labels[0], labels[1], labels[2], labels[3], labels[4]});
    for (auto _ : state) {
        table.Clear(nullptr);
        std::int32_t Fcount = kPairs;
        for (std::int64_t i = 0; i < kPairs; ++i) {
            pair.Known2 = i % 10 == 0 ? &newer : &older;
            classifier.ClassifySide1(pair, Fcount);
        }
    }
    state.SetItemsProcessed(kPairs * static_cast<std::int64_t>(state.iterations()));
}

}  // namespace

BENCHMARK_CAPTURE(Scan, normal, Shape{})
    ->ArgName("pairs")
    ->RangeMultiplier(10)
    ->Range(10'000, kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Scan, reversed, Shape{.Reversed = true})
    ->ArgName("pairs")
    ->RangeMultiplier(10)
    ->Range(10'000, kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Scan, one_folder, Shape{.FilesPerFolder = 0, .Reversed = true})
    ->ArgName("pairs")
    ->RangeMultiplier(10)
    ->Range(10'000, kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Compare)
    ->ArgName("pairs")
    ->RangeMultiplier(10)
    ->Range(10'000, kMillion)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(Classify, no_filter, "");
BENCHMARK_CAPTURE(Classify, with_filter, "/txt/jpg/html");
