// Texts that are made by the row: times, and the formats in which rows are printed.
#include <array>
#include <cstdint>
#include <string>

#include <benchmark/benchmark.h>

#include "app/cli_rows.h"
#include "platform/file_time.h"

namespace {

constexpr std::int64_t kFirstTime = platform::kUnixOrigin + 1'704'067'200;  // 2024-01-01

// Times spread over so many days before 2024.
void FormatTime(benchmark::State& state) {
    std::array<platform::FileTime, 4096> times;
    for (std::size_t i = 0; i < times.size(); ++i)
        times[i].Seconds =
            kFirstTime - static_cast<std::int64_t>(i * 7'919'797) % (state.range(0) * 86'400);
    std::string text;
    for (std::size_t i = 0; auto _ : state) {
        text.clear();
        platform::AppendFileTime(times[i++ % times.size()], text);
        benchmark::DoNotOptimize(text.data());
    }
}

// One row of 80-byte paths. The text is thrown away, not written.
void PrintRow(benchmark::State& state, app::RowFormat format, bool toTerminal) {
    constexpr std::size_t kLargeText = 32 * 1024;
    constexpr std::string_view kName = "file_0001234_of_many_that_are_alike.txt";
    const compare::FolderPair top{nullptr, "/home/someone/Documents/", "/media/backup/Documents/"};
    const compare::FolderPair folder{&top, "folder_12/folder_207/", "folder_12/folder_207/"};
    compare::CompareItem item;
    item.Folder = &folder;
    item.Name = kName.data();
    item.NameLength = static_cast<std::uint16_t>(kName.size());
    item.Bytes1 = item.Bytes2 = 123'456;
    item.Code = compare::code::kReplaceRight;

    app::CliOutput output;
    app::RowPrinter printer(output, format, toTerminal);
    for (std::int64_t i = 0; auto _ : state) {
        item.Time1.Seconds = kFirstTime + ++i * 7919 % 31'536'000;
        item.Time2.Seconds = item.Time1.Seconds - 86'400;
        printer.Print(item, "Replace -->");
        if (output.Pending().size() > kLargeText) output.Pending().clear();
    }
    output.Pending().clear();
    state.SetItemsProcessed(static_cast<std::int64_t>(state.iterations()));
}

}  // namespace

BENCHMARK(FormatTime)->ArgName("days")->Arg(1)->Arg(365)->Arg(20'000);
BENCHMARK_CAPTURE(PrintRow, text, app::RowFormat::Text, false);
BENCHMARK_CAPTURE(PrintRow, tsv, app::RowFormat::Tsv, false);
BENCHMARK_CAPTURE(PrintRow, json, app::RowFormat::Json, false);
BENCHMARK_CAPTURE(PrintRow, text_to_terminal, app::RowFormat::Text, true);
