# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What another program finds on the clipboard of a display."""

import ctypes

from loop import wait_until

SELECTION_NOTIFY = 31
CURRENT_TIME = 0
ANY_TYPE = 0
LONGEST = 1 << 20  # in units of four bytes


class SelectionEvent(ctypes.Structure):
    """Xlib's XSelectionEvent, in the room of an XEvent."""

    _fields_ = [("type", ctypes.c_int), ("serial", ctypes.c_ulong), ("send_event", ctypes.c_int),
                ("display", ctypes.c_void_p), ("requestor", ctypes.c_ulong), ("selection", ctypes.c_ulong),
                ("target", ctypes.c_ulong), ("property", ctypes.c_ulong), ("time", ctypes.c_ulong),
                ("room", ctypes.c_long * 24)]


class Clipboard:
    def __init__(self):
        self.x11 = ctypes.CDLL("libX11.so.6")
        for name, result in (("XOpenDisplay", ctypes.c_void_p), ("XInternAtom", ctypes.c_ulong),
                             ("XDefaultRootWindow", ctypes.c_ulong), ("XCreateSimpleWindow", ctypes.c_ulong)):
            getattr(self.x11, name).restype = result
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(None))
        root = ctypes.c_ulong(self.x11.XDefaultRootWindow(self.display))
        self.window = ctypes.c_ulong(self.x11.XCreateSimpleWindow(self.display, root, 0, 0, 1, 1, 0, 0, 0))

    def atom(self, name):
        return ctypes.c_ulong(self.x11.XInternAtom(self.display, name.encode(), False))

    def text(self):
        """Empty when nobody has any."""
        self.x11.XConvertSelection(self.display, self.atom("CLIPBOARD"), self.atom("UTF8_STRING"),
                                   self.atom("ELMWORTH_TEST"), self.window, CURRENT_TIME)
        event = SelectionEvent()
        wait_until(lambda: self.x11.XCheckTypedWindowEvent(self.display, self.window, SELECTION_NOTIFY,
                                                           ctypes.byref(event)), "an answer of the clipboard's owner")
        return self.received() if event.property else ""

    def received(self):
        kind, left, count = ctypes.c_ulong(), ctypes.c_ulong(), ctypes.c_ulong()
        form = ctypes.c_int()
        data = ctypes.c_char_p()
        self.x11.XGetWindowProperty(self.display, self.window, self.atom("ELMWORTH_TEST"), ctypes.c_long(0),
                                    ctypes.c_long(LONGEST), True, ctypes.c_ulong(ANY_TYPE), ctypes.byref(kind),
                                    ctypes.byref(form), ctypes.byref(count), ctypes.byref(left), ctypes.byref(data))
        return (data.value or b"").decode()
