// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// For programs that hold libdbus (cmake/CommandLibraries.cmake): its code for a bus, which they
// don't run, asks libsystemd for the sockets that the bus is to serve. Loading that library and
// the five that it needs would take longer than a whole command.

extern "C" {

__attribute__((visibility("hidden"))) int sd_listen_fds(int /*unsetEnvironment*/) {
    return 0;
}

__attribute__((visibility("hidden"))) int sd_is_socket(int /*descriptor*/, int /*family*/,
                                                       int /*type*/, int /*listening*/) {
    return 0;
}

}  // extern "C"
