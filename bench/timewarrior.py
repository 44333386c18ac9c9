#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""timewarrior.py PROGRAMS [ENTRIES]   times commands beside those of Timewarrior, in turns.

Both have as many entries over twenty years, of 400 projects, one of them running. Says nothing where Timewarrior
(the Debian package "timewarrior") is not installed.
"""

import collections
import datetime
import os
import pathlib
import shutil
import statistics
import subprocess
import sys
import tempfile
import time

RUNS = 41


def write_timewarrior(folder, entries, now):
    """A file for each month, as Timewarrior writes them."""
    months = collections.defaultdict(list)
    step = datetime.timedelta(days=20 * 365.25) / entries
    for i in range(entries - 1):
        start = now - step * (entries - i)
        end = start + step / 2
        months[start.strftime("%Y-%m.data")].append(
            f'inc {start:%Y%m%dT%H%M%SZ} - {end:%Y%m%dT%H%M%SZ} # "Project {i % 400}" # "what was done in {i}"\n')
    months[now.strftime("%Y-%m.data")].append(f'inc {now:%Y%m%dT%H%M%SZ} # "Project 1"\n')
    data = folder / "data"
    data.mkdir(parents=True)
    (folder / "extensions").mkdir()
    (folder / "timewarrior.cfg").write_text("")
    (data / "tags.data").write_text("{}")
    for name, lines in months.items():
        (data / name).write_text("".join(lines))


def milliseconds(command, environment):
    began = time.perf_counter()
    subprocess.run(command, env=environment, check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    return (time.perf_counter() - began) * 1000


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    timew = shutil.which("timew")
    if not timew:
        sys.exit(0)
    programs, entries = pathlib.Path(sys.argv[1]).resolve(), int(sys.argv[2]) if len(sys.argv) > 2 else 200_000
    now = datetime.datetime.now(datetime.timezone.utc).replace(microsecond=0) - datetime.timedelta(hours=1)
    with tempfile.TemporaryDirectory() as folder:
        home = pathlib.Path(folder)
        write_timewarrior(home / "timewarrior", entries, now)
        library = home / "Elmworth/library.sqlite"
        library.parent.mkdir(mode=0o700)
        subprocess.run([programs / "elmworth-make-library", library, str(entries), f"{now:%Y-%m-%dT%H:%M:%SZ}"], check=True)
        environment = os.environ | {"TIMEWARRIORDB": str(home / "timewarrior"), "XDG_DATA_HOME": folder,
                                    "XDG_CONFIG_HOME": folder, "TZ": "Europe/Berlin", "LC_ALL": "C.UTF-8"}
        elmworth = programs / "elmworth"
        # Seven whole days: the first day of a week is another one for each of them.
        end = now.date()
        week = [str(end - datetime.timedelta(days=days)) for days in (7, 1)]
        pairs = [({"elmworth status": [elmworth, "status"]}, {"timew": [timew]}),
                 ({"elmworth report, a week": [elmworth, "report", "--from", week[0], "--through", week[1]]},
                  {"timew summary, a week": [timew, "summary", week[0], "-", str(end)]}),
                 ({"elmworth report, a year": [elmworth, "report", "--period", "This Year"]},
                  {"timew summary :year": [timew, "summary", ":year"]})]
        times = collections.defaultdict(list)
        for ours, theirs in pairs:  # one pair after the other: a long command leaves cold caches to the next
            for _ in range(RUNS):
                for name, command in (ours | theirs).items():
                    times[name].append(milliseconds(command, environment))
        for name, taken in times.items():
            print(f"{name} | {entries} entries | median {statistics.median(taken):.2f} ms | fastest {min(taken):.2f} ms")


if __name__ == "__main__":
    main()
