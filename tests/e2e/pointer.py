# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A mouse for a display without a window manager."""

import time

import pyatspi
from loop import wait_until

LEFT, RIGHT, WHEEL_UP, WHEEL_DOWN = 1, 3, 4, 5
CURRENT_TIME = 0
REST_SECONDS = 0.3


def extents(node):
    return node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)


def resting_place(node):
    """Where the node is once it has stood still for as long as the window's movements take, while the program
    answered: a list may still move."""
    place, since = None, 0

    def rests():
        nonlocal place, since
        box = extents(node)
        if place != (box.x, box.y, box.width, box.height):
            place, since = (box.x, box.y, box.width, box.height), time.monotonic()
        return box if time.monotonic() - since >= REST_SECONDS else None

    return wait_until(rests, "a node that stands still")


class Pointer:
    def __init__(self, keyboard):
        self.keyboard = keyboard

    def move_to(self, node):
        """To the middle of what assistive technology knows as this node, once it stands still."""
        box = resting_place(node)
        self.keyboard.xtest.XTestFakeMotionEvent(self.keyboard.display, -1, box.x + box.width // 2,
                                                 box.y + box.height // 2, CURRENT_TIME)
        self.keyboard.x11.XSync(self.keyboard.display, False)

    def click(self, node, held=None, button=LEFT, times=1):
        """Clicks while the key of that name is held."""
        self.move_to(node)
        if held:
            self.keyboard.press(held)
        for _ in range(times):
            for down in (True, False):
                self.keyboard.xtest.XTestFakeButtonEvent(self.keyboard.display, button, down, CURRENT_TIME)
        if held:
            self.keyboard.release(held)
        self.keyboard.x11.XSync(self.keyboard.display, False)

    def double_click(self, node):
        self.click(node, times=2)
