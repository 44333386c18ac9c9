#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""memory.py PROGRAMS [ENTRIES]   measures the peak memory of whole commands on a big library.

PROGRAMS is the folder of the built programs, with elmworth-make-library among them.
"""

import datetime
import os
import subprocess
import sys
import tempfile

MEGABYTE = 1_000_000


def peak(arguments, environment):
    """The largest resident size of a process in bytes."""
    process = subprocess.Popen(arguments, env=environment, stdout=subprocess.DEVNULL)
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        sys.exit(f"{' '.join(arguments)} failed")
    return usage.ru_maxrss * 1024


def home(folder, name):
    path = os.path.join(folder, name)
    os.makedirs(os.path.join(path, "Elmworth"), mode=0o700)
    return {"XDG_DATA_HOME": path, "XDG_CONFIG_HOME": path, "LC_ALL": "C.UTF-8", "TZ": "Europe/Berlin"}


def write_table_of_one_client(file, entries):
    begin = datetime.datetime(2006, 1, 1)
    with open(file, "w", encoding="utf-8") as table:
        table.write("Start,End,Hours,Client,Project,Notes\n")
        for row in range(entries):
            start = begin + datetime.timedelta(minutes=50 * row)
            end = start + datetime.timedelta(minutes=45)
            table.write(f"{start.isoformat()}Z,{end.isoformat()}Z,,Acme,Website,What was done in row {row}\n")


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    programs, entries = sys.argv[1], sys.argv[2] if len(sys.argv) > 2 else "200000"
    elmworth = os.path.join(programs, "elmworth")
    with tempfile.TemporaryDirectory() as folder:
        big, restored, imported, single = (
            home(folder, name) for name in ("big", "restored", "imported", "single"))
        library = os.path.join(big["XDG_DATA_HOME"], "Elmworth", "library.sqlite")
        subprocess.run([os.path.join(programs, "elmworth-make-library"), library, entries], check=True)
        document, table = os.path.join(folder, "backup.json"), os.path.join(folder, "time.csv")
        everything = ["--from", "2000-01-01", "--through", "2030-01-01"]
        idle = peak([elmworth, "status"], big)
        write_table_of_one_client(os.path.join(folder, "single.csv"), int(entries))
        peak([elmworth, "import", os.path.join(folder, "single.csv")], single)
        figures = [("backup of one client", peak([elmworth, "backup", document], single) - idle, 20 * MEGABYTE),
                   ("backup", peak([elmworth, "backup", document], big) - idle, 60 * MEGABYTE),
                   ("export", peak([elmworth, "export", table, *everything], big) - idle, 60 * MEGABYTE),
                   ("restore", peak([elmworth, "restore", document], restored), 4 * os.path.getsize(document)),
                   ("import", peak([elmworth, "import", table], imported), 4 * os.path.getsize(table))]
    print(f"memory, elmworth status | {idle / MEGABYTE:.1f} MB")
    for name, size, aim in figures:
        above = "" if name in ("restore", "import") else " above status"
        print(f"memory, {name}{above} | {size / MEGABYTE:.1f} MB | aim {aim / MEGABYTE:.0f} MB")


if __name__ == "__main__":
    main()
