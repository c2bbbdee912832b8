"""The tables of varnel-bench, which measures what is inside the process."""

import json
import statistics

# Ratios compare the processor time of single rounds: waiting for other programs does not count.
ROWS = (("ShowView", "a page filled"), ("ScrollStep", "a scroll step"),
        ("CategoryClick", "a category click"), ("DirectionChoice", "one changed direction"))
GROWTH = (("Scan/normal", "scan, a file"), ("Scan/reversed", "scan, names in another order"),
          ("Scan/one_folder", "scan, all in one folder"), ("Compare", "comparison, a pair"),
          ("Refresh", "refresh, a row"), ("Sync", "synchronisation, a row"))
SINGLE = (("Classify/no_filter", "a pair classified"),
          ("Classify/with_filter", "a pair classified, with a file filter"),
          ("FormatTime/days:1", "a time as text, all of one day"),
          ("FormatTime/days:365", "a time as text, a year"),
          ("FormatTime/days:20000", "a time as text, 55 years"),
          ("PrintRow/text", "a row as text"), ("PrintRow/tsv", "a row as tsv"),
          ("PrintRow/json", "a row as json"),
          ("PrintRow/text_to_terminal", "a row as text to a terminal"),
          ("DoEvents", "a yield without a window"))
SIZES = (10_000, 100_000, 1_000_000)
NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def command(program, rounds):
    return [program, "--benchmark_format=json", f"--benchmark_repetitions={rounds}",
            "--benchmark_enable_random_interleaving=true", "--benchmark_min_time=0.1"]


def read(output):
    """Gives the rounds of each benchmark, by its name without the settings of the run."""
    found = {}
    for run in json.loads(output)["benchmarks"]:
        if run.get("error_occurred"):
            raise ValueError(f"{run['name']}: {run['error_message']}")
        if run["run_type"] == "iteration":
            found.setdefault(run["run_name"].partition("/iterations:")[0], []).append(run)
    for runs in found.values():
        runs.sort(key=lambda run: run["repetition_index"])
    return found


def each(run):
    """Processor nanoseconds of one item: of a file or row where a run has many."""
    if "items_per_second" in run:
        return 1e9 / run["items_per_second"]
    return run["cpu_time"] * NANOSECONDS[run["time_unit"]]


def median(runs):
    return statistics.median(map(each, runs))


def ratio(runs, base):
    return statistics.median(each(mine) / each(its) for mine, its in zip(runs, base))


def row_tables(found):
    few, many = ({name: found[f"{name}/rows:{rows}"] for name, _ in ROWS}
                 for rows in (100, 1_000_000))
    yield ["with a comparison on the screen, ns", "100 rows", "1,000,000 rows", "ratio", "goal"], [
        [meaning, f"{median(few[name]):,.0f}", f"{median(many[name]):,.0f}",
         f"{ratio(many[name], few[name]):.2f}", "<= 1.5"] for name, meaning in ROWS]


def growth_tables(found):
    rows = []
    for name, meaning in GROWTH:
        unit = "rows" if f"{name}/rows:{SIZES[0]}" in found else "pairs"
        runs = [found[f"{name}/{unit}:{size}"] for size in SIZES]
        rows.append([meaning, *(f"{median(each_size):.0f}" for each_size in runs),
                     f"{ratio(runs[-1], runs[0]):.2f}"])
    head = ["files in memory, ns each", *(f"{size:,}" for size in SIZES), "largest to smallest"]
    yield head, rows


def single_tables(found):
    yield ["other", "ns"], [[meaning, f"{median(found[name]):.1f}"] for name, meaning in SINGLE]


def tables(output):
    """Gives heads and rows."""
    found = read(output)
    for make in (row_tables, growth_tables, single_tables):
        yield from make(found)
