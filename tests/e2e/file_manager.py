# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What a desktop does with files, noted instead of done."""

import pathlib
import urllib.parse

from fake_tray import connect
from gi.repository import Gio, GLib

NAME = "org.freedesktop.FileManager1"
XML = """
<node><interface name="org.freedesktop.FileManager1">
  <method name="ShowItems"><arg type="as" direction="in"/><arg type="s" direction="in"/></method>
</interface></node>"""


class FileManager:
    """A file manager on the session bus."""

    def __init__(self):
        self.shown = []
        self.bus = connect()
        self.bus.register_object("/org/freedesktop/FileManager1", Gio.DBusNodeInfo.new_for_xml(XML).interfaces[0],
                                 self.called, None, None)
        self.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus", "RequestName",
                           GLib.Variant("(su)", (NAME, 4)), None, 0, -1, None)

    def called(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        self.shown += [pathlib.Path(urllib.parse.unquote(urllib.parse.urlparse(file).path)) for file in arguments[0]]
        invocation.return_value(None)

    def close(self):
        self.bus.close_sync()


class Viewer:
    """An xdg-open in `folder`, to be put on the PATH, that opens nothing and ends with `status`."""

    def __init__(self, folder, status=0):
        self.noted = folder / "opened"
        folder.mkdir()
        program = folder / "xdg-open"
        program.write_text(f"#!/bin/sh\nprintf '%s\\n' \"$1\" >> '{self.noted}'\nexit {status}\n")
        program.chmod(0o700)

    def opened(self):
        return [pathlib.Path(line) for line in self.noted.read_text().splitlines()] if self.noted.exists() else []
