# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a running process holds."""

import os
import pathlib


def kilobytes(process):
    """Its resident memory without what is shared with files, such as libraries."""
    lines = pathlib.Path(f"/proc/{process}/status").read_text().splitlines()
    return next(int(line.split()[1]) for line in lines if line.startswith("RssAnon:"))


def handles(process):
    return len(os.listdir(f"/proc/{process}/fd"))


def processor_seconds(process):
    fields = pathlib.Path(f"/proc/{process}/stat").read_text().rsplit(")", 1)[1].split()
    return (int(fields[11]) + int(fields[12])) / os.sysconf("SC_CLK_TCK")


def wake_ups(process):
    """Of its first thread, until now."""
    lines = pathlib.Path(f"/proc/{process}/status").read_text().splitlines()
    return next(int(line.split()[1]) for line in lines if line.startswith("voluntary_ctxt_switches"))
