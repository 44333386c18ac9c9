# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Waiting for what a bus tells."""

from gi.repository import GLib

DEADLINE_SECONDS = 60
REST_MILLISECONDS = 20  # between two looks, each of which costs the program time too


def wait_until(condition, what):
    """Lets the buses deliver events until the condition gives something, and returns that. What it waits for may be
    a function, which is asked when it never happened."""
    loop = GLib.MainContext.default()
    expired = []
    deadline = GLib.timeout_add_seconds(DEADLINE_SECONDS, lambda: expired.append(True))
    try:
        while True:
            result = condition()
            if result:
                return result
            if expired:
                raise AssertionError(f"never happened: {what() if callable(what) else what}")
            rested = []
            GLib.timeout_add(REST_MILLISECONDS, rested.append, True)  # once, as nothing is returned
            while not rested:
                loop.iteration(True)
    finally:
        if not expired:
            GLib.source_remove(deadline)
