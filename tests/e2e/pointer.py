# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A mouse for a display without a window manager."""

import pyatspi

LEFT, RIGHT = 1, 3
CURRENT_TIME = 0


class Pointer:
    def __init__(self, keyboard):
        self.keyboard = keyboard

    def move_to(self, node):
        """To the middle of what assistive technology knows as this node."""
        box = node.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
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
