#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""startup.py BIN-FOLDER [RUNS]   how long the application takes to its first frame, and to the whole window.

Starts it on the big library, on one of 100 entries, on an empty one, and starts a program that shows
an empty window, in turn, so that all meet the same machine. Run it as "tests/e2e/desktop
bench/startup.py …": it needs a display and a session bus. A frame is when Qt's renderer says that it
has drawn one; the window is whole with the last of those that follow one another.
"""

import os
import pathlib
import selectors
import statistics
import subprocess
import sys
import tempfile
import time

AIMS = {"empty library": 1.15, "empty window": 1.5}

PAUSE = 0.4         # the running time is drawn once a second
LONGEST_WAIT = 10


def frames(command, environment):
    """When the frames of the start were drawn, in seconds, up to the first pause."""
    began = time.monotonic()
    process = subprocess.Popen(command, env=environment, stderr=subprocess.PIPE)
    os.set_blocking(process.stderr.fileno(), False)
    drawn, text = [], b""
    try:
        with selectors.DefaultSelector() as output:
            output.register(process.stderr, selectors.EVENT_READ)
            while output.select(PAUSE if drawn else LONGEST_WAIT):
                *lines, text = (text + (process.stderr.read() or b"")).split(b"\n")
                drawn += [time.monotonic() - began for line in lines if b"Frame rendered" in line]
        if not drawn:
            raise SystemExit(f"{command} drew nothing")
        return drawn
    finally:
        process.terminate()
        process.stderr.close()
        process.wait()


def environment_of(home):
    return os.environ | {
        "XDG_DATA_HOME": str(home / "data"), "XDG_CONFIG_HOME": str(home / "config"),
        "QT_LOGGING_RULES": "qt.scenegraph.time.renderloop=true",
        "QT_LINUX_ACCESSIBILITY_ALWAYS_ON": "0", "NO_AT_BRIDGE": "1"}


def main():
    programs = pathlib.Path(sys.argv[1])
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 15
    with tempfile.TemporaryDirectory() as folder:
        homes = {name: pathlib.Path(folder, name) for name in ("big", "small", "empty")}
        now = time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(time.time() - 3600))
        for name, entries in (("big", "200000"), ("small", "100")):
            library = homes[name] / "data/Elmworth/library.sqlite"
            library.parent.mkdir(parents=True, mode=0o700)
            subprocess.run([programs / "elmworth-make-library", library, entries, now], check=True)
        for home in homes.values():
            settings = home / "config/Elmworth/Elmworth.ini"
            settings.parent.mkdir(parents=True, mode=0o700)
            settings.write_text("[General]\ndidOnboard=true\n")  # not the very first start
        application = [programs / "elmworth-app"]
        cases = {"big library": (application, environment_of(homes["big"])),
                 "small library": (application, environment_of(homes["small"])),
                 "empty library": (application, environment_of(homes["empty"])),
                 "empty window": ([programs / "elmworth_empty_window"], environment_of(homes["empty"]))}
        took = {case: [] for case in cases}
        for _ in range(runs + 2):
            for case, (command, environment) in cases.items():
                drawn = frames(command, environment)
                took[case].append((drawn[0], drawn[-1]))
    # The first two runs warm the caches of the machine.
    medians = {case: [statistics.median(times) for times in zip(*runs[2:])] for case, runs in took.items()}
    for case, (first, whole) in medians.items():
        ratio = medians["big library"][0] / first
        aim = f", the aim is {AIMS[case]}" if case in AIMS else ""
        print(f"{case:14} first frame {first * 1000:7.1f} ms, whole {whole * 1000:7.1f} ms   {ratio:5.2f}{aim}")


if __name__ == "__main__":
    main()
