# SPDX-FileCopyrightText: 2026 The Elmworth authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""A desktop's session manager, by the X Session Management Protocol 1.0. It knows one client."""

import ctypes
from ctypes import CFUNCTYPE, POINTER, byref, c_char_p, c_int, c_ulong, c_void_p

from gi.repository import GLib

ICE = ctypes.CDLL("libICE.so.6")
SM = ctypes.CDLL("libSM.so.6")
SAVE_GLOBAL, SAVE_LOCAL = 0, 1
INTERACT_NONE = 0
ALL_CALLBACKS = (1 << 10) - 1

NewClient = CFUNCTYPE(c_int, c_void_p, c_void_p, POINTER(c_ulong), c_void_p, POINTER(c_char_p))
RegisterClient = CFUNCTYPE(c_int, c_void_p, c_void_p, c_char_p)
SaveDone = CFUNCTYPE(None, c_void_p, c_void_p, c_int)
Ignored = CFUNCTYPE(None, c_void_p, c_void_p)
Admit = CFUNCTYPE(c_int, c_char_p)


class Callback(ctypes.Structure):
    _fields_ = [("function", c_void_p), ("data", c_void_p)]


for function in (ICE.IceAcceptConnection, ICE.IceComposeNetworkIdList):
    function.restype = c_void_p


def address(function):
    return ctypes.cast(function, c_void_p).value


class SessionManager:
    """Runs in GLib's main loop. `address` is what clients find in SESSION_MANAGER."""

    def __init__(self):
        self.client, self.is_registered, self.saves = None, False, 0
        # What the library calls must outlive the calls.
        self._functions = {"new": NewClient(self._accept), "register": RegisterClient(self._register),
                           "done": SaveDone(self._save_done), "ignored": Ignored(lambda *_: None),
                           "admit": Admit(lambda _: 1)}
        message = ctypes.create_string_buffer(256)
        if not SM.SmsInitialize(b"Elmworth tests", b"1", self._functions["new"], None, self._functions["admit"], 256,
                                message):
            raise OSError(message.value.decode())
        count, self._sockets = c_int(), POINTER(c_void_p)()
        if not ICE.IceListenForConnections(byref(count), byref(self._sockets), 256, message):
            raise OSError(message.value.decode())
        self._sources = []
        for i in range(count.value):
            listening = c_void_p(self._sockets[i])
            ICE.IceSetHostBasedAuthProc(listening, self._functions["admit"])
            self._watch(ICE.IceGetListenConnectionNumber(listening), lambda at=listening: self._connect(at))
        addresses = ICE.IceComposeNetworkIdList(count, self._sockets)
        self.address = ctypes.string_at(addresses).decode()

    def close(self):
        for source in self._sources:
            GLib.source_remove(source)

    def end_session(self):
        """Asks the client to save what others would lose, since the session ends."""
        SM.SmsSaveYourself(self.client, SAVE_GLOBAL, 1, INTERACT_NONE, 0)

    def _watch(self, number, ready):
        self._sources.append(GLib.io_add_watch(number, GLib.PRIORITY_DEFAULT, GLib.IO_IN, lambda *_: ready()))

    def _connect(self, listening):
        status = c_int()
        connection = ICE.IceAcceptConnection(listening, byref(status))
        if connection:
            connection = c_void_p(connection)
            self._watch(ICE.IceConnectionNumber(connection), lambda: self._process(connection))
        return True

    @staticmethod
    def _process(connection):
        success = 0
        return ICE.IceProcessMessages(connection, None, None) == success

    def _accept(self, client, _data, mask, callbacks, _reason):
        mask[0] = ALL_CALLBACKS
        table = ctypes.cast(callbacks, POINTER(Callback))
        # In the order of SmsCallbacks: register first, "save yourself" done as the sixth.
        for position in range(10):
            table[position].function = address(self._functions["ignored"])
        table[0].function = address(self._functions["register"])
        table[5].function = address(self._functions["done"])
        self.client = c_void_p(client)
        return 1

    def _register(self, client, _data, previous):
        if previous:
            return 0
        SM.SmsRegisterClientReply(c_void_p(client), b"1")
        # A client that is new says once how it is started again.
        SM.SmsSaveYourself(c_void_p(client), SAVE_LOCAL, 0, INTERACT_NONE, 0)
        self.is_registered = True
        return 1

    def _save_done(self, client, _data, _success):
        self.saves += 1
        SM.SmsSaveComplete(c_void_p(client))
