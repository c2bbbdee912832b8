// What a user waits for with a comparison on the screen. Each costs the same whatever the number of
// rows: a page shows 25 of them.
#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <string>

#include <benchmark/benchmark.h>

#include "measured_window.h"

namespace {

using bench::MeasuredWindow;

// As many same rows as new and modified ones together.
void FillTable(compare::CompareTable& table, std::int64_t rows) {
    const auto texts = std::make_shared<compare::RowTexts>();
    table.Clear(texts);
    const compare::FolderPair* folder = &texts->Folders.emplace_back();
    texts->Folders.back() = {nullptr, "/1/", "/2/"};
    for (const char* name : {"folder_12/", "folder_207/", "folder_3327/"}) {
        texts->Folders.push_back({folder, name, name});
        folder = &texts->Folders.back();
    }
    for (std::int64_t i = 0; i < 2 * rows; ++i) {
        const std::string_view name = texts->Names.Keep("file_" + std::to_string(i) + ".txt");
        compare::CompareItem item;
        item.Folder = folder;
        item.Name = name.data();
        item.NameLength = static_cast<std::uint16_t>(name.size());
        item.Time1 =
            item.Time2 = {platform::kUnixOrigin + 1'704'067'200 + i * 7919 % 31'536'000, 0};
        item.Bytes1 = item.Bytes2 = 20 + i % 180;
        if (i % 2 == 0) {
            table.SameList.push_back(item);
        } else if (i % 3 == 0) {
            ++item.Time1.Seconds;
            item.Code = compare::code::kReplaceRight;
            table.ChgList.push_back(item);
        } else {
            item.Time2 = {};
            item.Bytes2 = platform::FileStatus::kNoSize;
            item.Code = compare::code::kCopyRight;
            table.NewList.push_back(item);
        }
    }
    table.BuildNewChgList();
}

// Kept: a benchmark is run many times.
app::FormMain& FormWith(std::int64_t rows) {
    static std::map<std::int64_t, std::unique_ptr<MeasuredWindow>> windows;
    std::unique_ptr<MeasuredWindow>& window = windows[rows];
    if (!window) {
        window = std::make_unique<MeasuredWindow>(bench::Shape{});
        FillTable(window->Form.Table, rows);
    }
    app::FormMain& form = window->Form;
    form.LabelNewChgFile.Click();
    form.ScrollToRow(static_cast<std::int32_t>(rows / 2));
    return form;
}

// Fills the page again, with whole paths and with names in turn.
void ShowView(benchmark::State& state) {
    app::FormMain& form = FormWith(state.range(0));
    for (auto _ : state) form.CheckShowPath1.Click();
}

void ScrollStep(benchmark::State& state) {
    platform::ScrollBar& bar = FormWith(state.range(0)).VScroll1;
    for (auto _ : state) bar.Scroll(bar.Value() < bar.Maximum() ? bar.Value() + 1 : 0);
}

void CategoryClick(benchmark::State& state) {
    app::FormMain& form = FormWith(state.range(0));
    for (std::int64_t i = 0; auto _ : state)
        (++i % 2 ? form.LabelAllFile : form.LabelNewChgFile).Click();
}

// From the click on the direction cell to the panel's OK.
void DirectionChoice(benchmark::State& state) {
    app::FormMain& form = FormWith(state.range(0));
    platform::Label& cell = form.sMAC[12];
    for (std::int64_t i = 0; auto _ : state) {
        cell.Click();
        (++i % 2 ? form.Option3 : form.Option1).Click();
        form.Command2.Click();
    }
    if (cell.Caption().empty() || form.Picture3.Visible()) state.SkipWithError("no direction");
}

void DoEvents(benchmark::State& state) {
    platform::headless::Host host;
    platform::FormHost& asSeen = host;
    benchmark::DoNotOptimize(&asSeen);
    for (auto _ : state) asSeen.DoEvents();
}

}  // namespace

BENCHMARK(ShowView)->ArgName("rows")->Arg(100)->Arg(1'000'000);
BENCHMARK(ScrollStep)->ArgName("rows")->Arg(100)->Arg(1'000'000);
BENCHMARK(CategoryClick)->ArgName("rows")->Arg(100)->Arg(1'000'000);
BENCHMARK(DirectionChoice)->ArgName("rows")->Arg(100)->Arg(1'000'000);
BENCHMARK(DoEvents);
