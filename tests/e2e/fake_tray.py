# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop's tray, as far as the bus shows it."""

import os

from gi.repository import Gio, GLib

WATCHER = "org.kde.StatusNotifierWatcher"
ITEM = "org.kde.StatusNotifierItem"

WATCHER_XML = """
<node><interface name="org.kde.StatusNotifierWatcher">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <signal name="StatusNotifierHostRegistered"/>
</interface></node>"""


def connect():
    return Gio.DBusConnection.new_for_address_sync(
        os.environ["DBUS_SESSION_BUS_ADDRESS"],
        Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION,
        None, None)


class FakeTray:
    """A watcher with a host, on a connection of its own, until it closes."""

    def __init__(self, has_host=True, other_names=()):
        self.items = []
        self.was_asked = False
        self.has_host = has_host
        self.bus = connect()
        self.bus.register_object("/StatusNotifierWatcher",
                                 Gio.DBusNodeInfo.new_for_xml(WATCHER_XML).interfaces[0],
                                 self.called, self.asked, None)
        for name in (WATCHER, *other_names):
            self.take_name(name)

    def take_name(self, name):
        self.bus.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                           "RequestName", GLib.Variant("(su)", (name, 4)), None, 0, -1, None)

    def called(self, _bus, _sender, _path, _interface, _method, arguments, invocation):
        self.items.append(arguments[0])
        invocation.return_value(None)

    def asked(self, *_):
        self.was_asked = True
        return GLib.Variant("b", self.has_host)

    def settle(self):
        """The item has had the answer to all that it asked: the bus keeps the order of one sender's messages."""
        self.bus.call_sync(self.items[0], "/StatusNotifierItem", "org.freedesktop.DBus.Peer", "Ping",
                           None, None, 0, -1, None)

    def host_came(self):
        self.has_host = True
        self.bus.emit_signal(None, "/StatusNotifierWatcher", WATCHER, "StatusNotifierHostRegistered", None)

    def close(self):
        if not self.bus.is_closed():
            self.bus.close_sync()
