#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""startup.py PROGRAMS [RUNS]   how long the application takes to its first frame, and to the whole window.

Starts it on libraries of three sizes and on an empty one, and starts a program that shows an empty window of the
same QML modules, in turn, so that all meet the same machine. Run it as "tests/e2e/desktop bench/startup.py …": it
needs a display and a session bus. A frame is when Qt's renderer says that it has drawn one; the window is whole with
the last of those that follow one another.
"""

import os
import pathlib
import selectors
import statistics
import subprocess
import sys
import tempfile
import time

SIZES = (1_000, 10_000, 200_000)
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


def write_settings(home):
    """Those of a program that is not started for the very first time."""
    settings = home / "config/Elmworth/Elmworth.ini"
    settings.parent.mkdir(parents=True, mode=0o700)
    settings.write_text("[General]\ndidOnboard=true\n")


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    programs = pathlib.Path(sys.argv[1])
    runs = int(sys.argv[2]) if len(sys.argv) > 2 else 15
    with tempfile.TemporaryDirectory() as folder:
        now = time.strftime("%Y-%m-%dT%H:%M:%SZ", time.gmtime(time.time() - 3600))
        empty = pathlib.Path(folder, "empty")
        write_settings(empty)
        cases = {", empty library": (programs / "elmworth-app", empty)}
        for size in SIZES:
            home = pathlib.Path(folder, str(size))
            write_settings(home)
            library = home / "data/Elmworth/library.sqlite"
            library.parent.mkdir(parents=True, mode=0o700)
            subprocess.run([programs / "elmworth-make-library", library, str(size), now], check=True)
            cases[f" | {size} entries"] = (programs / "elmworth-app", home)
        cases["start of an empty window"] = (programs / "elmworth_empty_window", empty)
        took = {case: [] for case in cases}
        for _ in range(runs + 2):
            for case, (program, home) in cases.items():
                drawn = frames([program], environment_of(home))
                took[case].append((drawn[0] * 1000, drawn[-1] * 1000))
    # The first two runs warm the caches of the machine.
    for case, times in took.items():
        first, whole = (statistics.median(column) for column in zip(*times[2:]))
        if case.startswith("start"):
            print(f"{case} | median {first:.1f} ms")
        else:
            print(f"start to the first frame{case} | median {first:.1f} ms")
            print(f"start to the whole window{case} | median {whole:.1f} ms")


if __name__ == "__main__":
    main()
