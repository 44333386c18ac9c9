#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""report.py PROGRAM [OPTION...]   runs the benchmarks and prints their medians beside their limits.

The options go to the benchmarks, such as --benchmark_filter=process. Ends with 1 when an aim is
missed.
"""

import json
import subprocess
import sys
import tempfile

MICROSECONDS = {"ns": 0.001, "us": 1, "ms": 1000, "s": 1_000_000}

# Figure, what it is held against, and how many times that it may take; a number is microseconds.
AIMS = [
    ("open/200000", "open/100", 1.2),
    ("open/200000", "limit/open/200000", 3),
    ("start/200000", "limit/start/200000", 3),
    ("start/200000", "start/10000", 1.3),
    ("stop/200000", "limit/stop/200000", 3),
    ("stop/200000", "stop/10000", 1.3),
    ("switch/200000", "limit/switch/200000", 3),
    ("switch/200000", "switch/10000", 1.3),
    ("week/200000", "limit/week/200000", 3),
    ("year/200000", "limit/year/200000", 3),
    ("tick/200000", 20, 1),
    ("createInvoice/200000", 20_000, 1),
    ("createInvoice/200000", "limit/createInvoice/200000", 3),
    ("pdf/12", 10_000, 1),
    ("backup/200000", "limit/backup/200000", 2),
    ("restore/200000", "limit/restore/200000", 3),
    ("import/200000", "limit/import/200000", 3),
    ("importAgain/200000", "import/200000", 0.5),
    ("export/200000", "limit/export/200000", 2),
    ("process/projectList/200000", "limit/allEntries/200000", 3),
    ("process/invoiceList/200000", "limit/allEntries/200000", 3),
    ("process/report/200000", "limit/entriesOfAYear/200000", 3),
    ("process/status/100", "limit/process", 2),
    ("process/status/200000", "limit/process", 2),
    ("process/statusHandedOver/100", "process/status/100", 1),
    ("process/statusHandedOver/200000", "process/status/200000", 1),
    ("process/start/100", "limit/process", 2),
    ("process/start/200000", "limit/process", 2),
    ("process/stop/100", "limit/process", 2),
    ("process/stop/200000", "limit/process", 2),
]


def medians(program, options):
    """The median of each benchmark in microseconds."""
    with tempfile.NamedTemporaryFile(suffix=".json") as output:
        subprocess.run([program, "--benchmark_repetitions=9", "--benchmark_min_time=0.1",
                        "--benchmark_enable_random_interleaving=true",
                        "--benchmark_report_aggregates_only=true",
                        f"--benchmark_out={output.name}", *options],
                       check=True, stdout=subprocess.DEVNULL)
        measured = json.load(output)["benchmarks"]
    return {run["run_name"].removesuffix("/real_time"):
            run["real_time"] * MICROSECONDS[run["time_unit"]]
            for run in measured if run.get("aggregate_name") == "median"}


def readable(microseconds):
    if microseconds < 1000:
        return f"{microseconds:.3g} µs"
    return f"{microseconds / 1000:.3g} ms"


def print_aims(figures):
    """Whether all aims whose figures were measured are reached."""
    reached = True
    print("| figure | took | beside | took | ratio | aim | |\n|---|---|---|---|---|---|---|")
    for name, beside, times in AIMS:
        limit = beside if isinstance(beside, int) else figures.get(beside)
        if name not in figures or limit is None:
            continue
        ratio = figures[name] / limit
        reached &= ratio <= times
        print(f"| {name} | {readable(figures[name])} | "
              f"{'an amount' if isinstance(beside, int) else beside} | {readable(limit)} | "
              f"{ratio:.2f} | {times} | {'' if ratio <= times else 'missed'} |")
    return reached


def print_others(figures):
    named = {name for name, _, _ in AIMS} | {beside for _, beside, _ in AIMS}
    print("\n| other figure | took |\n|---|---|")
    for name in sorted(set(figures) - named):
        print(f"| {name} | {readable(figures[name])} |")


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    figures = medians(sys.argv[1], sys.argv[2:])
    reached = print_aims(figures)
    print_others(figures)
    sys.exit(0 if reached else 1)


if __name__ == "__main__":
    main()
