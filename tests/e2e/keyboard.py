# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A keyboard for a display without a window manager."""

import ctypes

REVERT_TO_PARENT = 2
CURRENT_TIME = 0
IS_VIEWABLE = 2
KEYS = {" ": "space", "/": "slash", ".": "period", "-": "minus", ",": "comma"}


class WindowAttributes(ctypes.Structure):
    """Xlib's XWindowAttributes."""

    _fields_ = [(name, ctypes.c_int) for name in ("x", "y", "width", "height", "border_width", "depth")] + [
        ("visual", ctypes.c_void_p), ("root", ctypes.c_ulong), ("window_class", ctypes.c_int),
        ("bit_gravity", ctypes.c_int), ("win_gravity", ctypes.c_int), ("backing_store", ctypes.c_int),
        ("backing_planes", ctypes.c_ulong), ("backing_pixel", ctypes.c_ulong), ("save_under", ctypes.c_int),
        ("colormap", ctypes.c_ulong), ("map_installed", ctypes.c_int), ("map_state", ctypes.c_int),
        ("all_event_masks", ctypes.c_long), ("your_event_mask", ctypes.c_long),
        ("do_not_propagate_mask", ctypes.c_long), ("override_redirect", ctypes.c_int),
        ("screen", ctypes.c_void_p)]


class Keyboard:
    """Types into the window that has the focus."""

    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.xtest = ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.x11.XDefaultRootWindow.restype = ctypes.c_ulong
        self.x11.XStringToKeysym.restype = ctypes.c_ulong
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        assert self.display, "no display"

    def top_level_windows(self):
        root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        ignored, count = ctypes.c_ulong(), ctypes.c_uint()
        children = ctypes.POINTER(ctypes.c_ulong)()
        self.x11.XQueryTree(self.display, root, ctypes.byref(ignored), ctypes.byref(ignored),
                            ctypes.byref(children), ctypes.byref(count))
        return list(children[:count.value])

    def title(self, window):
        name = ctypes.c_char_p()
        self.x11.XFetchName(self.display, ctypes.c_ulong(window), ctypes.byref(name))
        return (name.value or b"").decode()

    def is_viewable(self, window):
        attributes = WindowAttributes()
        return (self.x11.XGetWindowAttributes(self.display, ctypes.c_ulong(window), ctypes.byref(attributes))
                and attributes.map_state == IS_VIEWABLE)

    def focus(self, title):
        """Does what a window manager does when somebody clicks on the window. False while it doesn't show."""
        for window in self.top_level_windows():
            if self.title(window) == title and self.is_viewable(window):
                self.x11.XSetInputFocus(self.display, ctypes.c_ulong(window), REVERT_TO_PARENT, CURRENT_TIME)
                self.x11.XSync(self.display, False)
                return True
        return False

    def code(self, name):
        symbol = self.x11.XStringToKeysym(name.encode())
        assert symbol, f"no key is named {name}"
        return self.x11.XKeysymToKeycode(self.display, ctypes.c_ulong(symbol))

    def press(self, name):
        self.xtest.XTestFakeKeyEvent(self.display, self.code(name), True, CURRENT_TIME)

    def release(self, name):
        self.xtest.XTestFakeKeyEvent(self.display, self.code(name), False, CURRENT_TIME)

    def key(self, keys):
        """Presses keys together, as "Control_L+Alt_L+period"."""
        names = keys.split("+")
        for name in names:
            self.press(name)
        for name in reversed(names):
            self.release(name)
        self.x11.XSync(self.display, False)

    def type(self, text):
        """Types letters, digits and what is written between them in dates and sentences."""
        for letter in text:
            key = KEYS.get(letter, letter)
            self.key("Shift_L+" + key if key.isupper() else key)
