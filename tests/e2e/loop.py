# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Waiting for what a bus tells."""

from gi.repository import GLib

DEADLINE_SECONDS = 60


def wait_until(condition, what):
    """Lets the buses deliver events until the condition gives something, and returns that. What it waits for may be
    a function, which is asked when it never happened."""
    loop = GLib.MainContext.default()
    expired = []
    deadline = GLib.timeout_add_seconds(DEADLINE_SECONDS, lambda: expired.append(True))
    wake = GLib.timeout_add(50, lambda: True)
    try:
        while True:
            result = condition()
            if result:
                return result
            if expired:
                raise AssertionError(f"never happened: {what() if callable(what) else what}")
            loop.iteration(True)
    finally:
        GLib.source_remove(wake)
        if not expired:
            GLib.source_remove(deadline)
