# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""The running application as an assistive technology sees it."""

import collections
import functools

import pyatspi
from gi.repository import Gio, GLib
from loop import wait_until  # noqa: F401 - for those who import this

ACCESSIBLE = "org.a11y.atspi.Accessible"
REGISTRY = "org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root"

# A control that is not hidden: its place among the children of its parents, its address, name and states.
Seen = collections.namedtuple("Seen", "place address name states")


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


@functools.cache
def accessibility_bus():
    session = Gio.bus_get_sync(Gio.BusType.SESSION)
    address, = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None,
                                 Gio.DBusCallFlags.NONE, -1)
    flags = Gio.DBusConnectionFlags
    return Gio.DBusConnection.new_for_address_sync(
        address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION)


def ask(questions):
    """Puts all questions (an address, a method, its arguments) at once, as a walk that waits for each answer takes long
    where much else runs. Gives the answers in the same order, None where nobody is there any more."""
    context = GLib.MainContext()
    answers = [None] * len(questions)
    waiting = set(range(len(questions)))

    def answer(bus, result, index):
        waiting.remove(index)
        try:
            answers[index] = bus.call_finish(result).unpack()[0]
        except GLib.Error:  # it went away while being looked at
            pass

    context.push_thread_default()
    try:
        for index, ((name, path), method, arguments) in enumerate(questions):
            interface, member = method.rsplit(".", 1)
            accessibility_bus().call(name, path, interface, member, arguments, None, Gio.DBusCallFlags.NONE, -1, None,
                                     answer, index)
        while waiting:
            context.iteration(True)
    finally:
        context.pop_thread_default()
    return answers


def ask_each(addresses, method, arguments=None):
    return ask([(address, method, arguments) for address in addresses])


def names(addresses):
    return ask_each(addresses, "org.freedesktop.DBus.Properties.Get", GLib.Variant("(ss)", (ACCESSIBLE, "Name")))


def seen():
    """What is not hidden in the application's windows, as it is read."""
    programs, = ask_each([REGISTRY], ACCESSIBLE + ".GetChildren")
    root = next((program for program, name in zip(programs or (), names(programs or ())) if name == "Elmworth"), None)
    found, level = [], [((), root)] if root else []
    while level:
        addresses = [address for _, address in level]
        children = ask_each(addresses, ACCESSIBLE + ".GetChildren")
        level = [((*place, index), child) for (place, _), inside in zip(level, children)
                 for index, child in enumerate(inside or ())]
        addresses = [address for _, address in level]
        states = ask_each(addresses, ACCESSIBLE + ".GetState")
        visible = [(place, address, low | high << 32) for (place, address), (low, high)
                   in zip(level, (state or (0, 0) for state in states)) if low & 1 << int(pyatspi.STATE_VISIBLE)]
        level = [(place, address) for place, address, _ in visible]
        found += [Seen(place, address, name, state) for (place, address, state), name
                  in zip(visible, names([address for _, address in level]))]
    return sorted(found)


def has(control, state):
    return control.states & 1 << int(state)


def node_of(control):
    """What pyatspi calls it; None when it moved or went away meanwhile."""
    node = application()
    try:
        for index in control.place:
            node.clearCache()
            node = node[index]
        node.clearCache()
        return node if node.name == control.name else None
    except (AttributeError, IndexError, TypeError, GLib.Error):
        return None


def find(name, role=None):
    """The control of that name which shows, or None."""
    for control in seen():
        if control.name != name or not has(control, pyatspi.STATE_SHOWING):
            continue
        node = node_of(control)
        if node and (role is None or node.getRoleName() == role):
            return node
    return None


def focus():
    """The control that the keyboard acts on, or None. What holds it has the focus too."""
    return next((control for control in reversed(seen()) if has(control, pyatspi.STATE_FOCUSED)), None)


def focused():
    control = focus()
    return node_of(control) if control else None


def focused_name():
    control = focus()
    return control.name or "" if control else ""


def press(name, role=None):
    press_node(wait_until(lambda: find(name, role), f"a control named {name}"))


def press_node(node):
    action = node.queryAction()
    for index in range(action.nActions):
        if action.getName(index) in ("Press", "press"):
            action.doAction(index)
            return
    raise AssertionError(f"{node.name} can't be pressed")
