#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the window costs while a timer runs in it and nobody does anything.

    tests/e2e/desktop bench/idle.py build/release/bin [software | opengl]

Without the second word the program chooses what draws by itself."""

import os
import pathlib
import subprocess
import sys
import time

SETTLING_SECONDS = 15
MINUTE = 60


def elmworth(programs, *arguments):
    subprocess.run([programs / "elmworth", *arguments], check=True, stdout=subprocess.DEVNULL)


def processor_seconds(process):
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def wake_ups(process):
    threads = pathlib.Path(f"/proc/{process}/task").iterdir()
    lines = (line for thread in threads for line in (thread / "status").read_text().splitlines())
    return sum(int(line.split()[1]) for line in lines if line.startswith("voluntary_ctxt_switches"))


def main():
    programs = pathlib.Path(sys.argv[1])
    elmworth(programs, "client", "add", "Acme Co")
    elmworth(programs, "project", "add", "Website", "--client", "Acme Co")
    elmworth(programs, "start", "Website")
    # What listens to the window for assistive technology is not what is measured.
    set_apart = ("QT_QUICK_BACKEND", "QT_LINUX_ACCESSIBILITY_ALWAYS_ON")
    environment = {name: value for name, value in os.environ.items() if name not in set_apart}
    if len(sys.argv) > 2:
        environment |= {"QT_QUICK_BACKEND": {"software": "software", "opengl": "rhi"}[sys.argv[2]]}
    program = subprocess.Popen([programs / "elmworth-app"], env=environment)
    try:
        time.sleep(SETTLING_SECONDS)
        seconds, woken = processor_seconds(program.pid), wake_ups(program.pid)
        time.sleep(MINUTE)
        print(f"{processor_seconds(program.pid) - seconds:.2f} s of processor time a minute, "
              f"{(wake_ups(program.pid) - woken) / MINUTE:.1f} wake-ups a second")
    finally:
        program.kill()
        program.wait()


if __name__ == "__main__":
    main()
