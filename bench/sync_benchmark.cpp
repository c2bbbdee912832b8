// What a synchronisation costs beside the copies themselves.
#include <cstdint>

#include <benchmark/benchmark.h>

#include "measured_window.h"
#include "sync/sync_refresh.h"

namespace {

using bench::MeasuredWindow;

// A window whose New list has so many rows, none of them copied yet.
struct Compared : MeasuredWindow {
    explicit Compared(std::int64_t rows) : MeasuredWindow({.Pairs = rows, .AllNew = true}) {
        Form.Command3.Click();
    }
};

// Looks at every row's files again and sorts the rows into the result lists.
void Refresh(benchmark::State& state) {
    Compared window(state.range(0));
    app::FormMain& form = window.Form;
    syncing::SyncRefresh refresh(
        form.Table, window.Files,
        {form.LabelNewFile, form.LabelChgFile, form.LabelNewChgFile, form.LabelAllFile});
    for (auto _ : state) {
        refresh.Begin();
        for (const compare::CompareItem& item : form.Table.NewList) refresh.Examine(item, true);
        refresh.Finish();
    }
    state.SetItemsProcessed(state.range(0) * static_cast<std::int64_t>(state.iterations()));
}

// The whole command, from the click to its message.
void Sync(benchmark::State& state) {
    Compared window(state.range(0));
    for (auto _ : state) {
        state.PauseTiming();
        window.Files.Reset();
        window.Form.LabelNewFile.Click();
        window.Form.Command3.Click();
        state.ResumeTiming();
        window.Form.Command4.Click();
    }
    if (window.Files.Copies != state.range(0)) state.SkipWithError("not every row was copied");
    state.SetItemsProcessed(state.range(0) * static_cast<std::int64_t>(state.iterations()));
}

}  // namespace

BENCHMARK(Refresh)
    ->ArgName("rows")
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK(Sync)
    ->ArgName("rows")
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond);
