# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The running application as an assistive technology sees it."""

import pyatspi
from gi.repository import GLib
from loop import wait_until  # noqa: F401 - for those who import this


def application():
    """The accessible root of the program, or None while it is not there."""
    desktop = pyatspi.Registry.getDesktop(0)
    for child in desktop:
        try:
            if child is not None and child.name == "Elmworth":
                return child
        except GLib.Error:  # a former one that has just ended
            continue
    return None


def walk(node):
    node.clearCache()  # a name that was read before may have changed
    yield node
    for child in node:
        if child is not None:
            yield from walk(child)


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


def find(name, role=None):
    """The control of that name which shows, or None."""
    root = application()
    if root is None:
        return None
    for node in walk(root):
        try:
            if node.name == name and showing(node) and role in (None, node.getRoleName()):
                return node
        except GLib.Error:  # it went away while being looked at
            continue
    return None


def focused():
    """The control that the keyboard acts on, or None. What holds it has the focus too."""
    innermost = None
    for node in walk(application()):
        try:
            state = node.getState()
            # A window that was closed still knows where the keyboard was in it.
            if state.contains(pyatspi.STATE_FOCUSED) and state.contains(pyatspi.STATE_VISIBLE):
                innermost = node
        except GLib.Error:
            continue
    return innermost


def press(name, role=None):
    press_node(wait_until(lambda: find(name, role), f"a control named {name}"))


def press_node(node):
    action = node.queryAction()
    for index in range(action.nActions):
        if action.getName(index) in ("Press", "press"):
            action.doAction(index)
            return
    raise AssertionError(f"{node.name} can't be pressed")
