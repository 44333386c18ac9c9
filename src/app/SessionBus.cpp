// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The module elmworth-session-bus.so: the way to the running application. It is loaded by commands
// that find the library taken, and stands on sd-bus, which is ready in a fraction of the time that
// Qt's D-Bus module needs.

#include "app/SessionBus.h"

#include <systemd/sd-bus.h>

#include <cstdint>
#include <cstdlib>
#include <memory>

namespace {

struct Release {
    void operator()(sd_bus* connection) const noexcept { sd_bus_flush_close_unref(connection); }
    void operator()(sd_bus_message* message) const noexcept { sd_bus_message_unref(message); }
};
using Connection = std::unique_ptr<sd_bus, Release>;
using Message = std::unique_ptr<sd_bus_message, Release>;

Connection connectToSessionBus() {
    sd_bus* connection = nullptr;
    return Connection(sd_bus_open_user(&connection) >= 0 ? connection : nullptr);
}

/// A call of the running application; null when it cannot be made.
Message newCall(const Connection& connection, const char* interface, const char* method) {
    sd_bus_message* message = nullptr;
    if (!connection ||
        sd_bus_message_new_method_call(connection.get(), &message, elmworth::bus::service,
                                       elmworth::bus::object, interface, method) < 0) {
        return nullptr;
    }
    // The bus must not start the application for a command that works without it.
    sd_bus_message_set_auto_start(message, 0);
    return Message(message);
}

/// The answer to `call`; null when there is none.
Message answerTo(const Connection& connection, const Message& call, std::uint64_t microseconds) {
    sd_bus_message* answer = nullptr;
    if (sd_bus_call(connection.get(), call.get(), microseconds, nullptr, &answer) < 0)
        return nullptr;
    return Message(answer);
}

bool appendRequest(sd_bus_message* message, const elmworth::HandOffRequest& request) {
    if (sd_bus_message_open_container(message, 'a', "s") < 0) return false;
    for (const auto& argument : request.arguments) {
        if (sd_bus_message_append(message, "s", argument.c_str()) < 0) return false;
    }
    return sd_bus_message_close_container(message) >= 0 &&
           sd_bus_message_append(message, "sssshhhhu", request.workingFolder.c_str(),
                                 request.locale.c_str(), request.moneyLocale.c_str(),
                                 request.zone.c_str(), request.terminal, request.lifeline,
                                 request.standardInput, request.library, request.umask) >= 0;
}

/// The desktop's leave to come to the front, which this process hands on.
bool appendPlatformData(sd_bus_message* message) {
    const char* token = std::getenv("XDG_ACTIVATION_TOKEN");
    if (!token || !*token) return sd_bus_message_append(message, "a{sv}", 0) >= 0;
    return sd_bus_message_append(message, "a{sv}", 1, "activation-token", "s", token) >= 0;
}

bool readBytes(sd_bus_message* message, std::string& bytes) {
    const void* data = nullptr;
    std::size_t size = 0;
    if (sd_bus_message_read_array(message, 'y', &data, &size) < 0) return false;
    bytes.assign(static_cast<const char*>(data), size);
    return true;
}

}  // namespace

bool elmworthHandOff(const elmworth::HandOffRequest& request, elmworth::CommandResult& result) {
    const auto connection = connectToSessionBus();
    const auto call = newCall(connection, elmworth::bus::commandInterface, "Run");
    if (!call || !appendRequest(call.get(), request)) return false;
    const auto answer = answerTo(connection, call, UINT64_MAX);
    std::int32_t exitStatus = 0;
    if (!answer || !readBytes(answer.get(), result.output) ||
        !readBytes(answer.get(), result.errors) ||
        sd_bus_message_read(answer.get(), "i", &exitStatus) < 0) {
        return false;
    }
    result.exitStatus = exitStatus;
    return true;
}

bool elmworthActivate(const char* action) {
    constexpr std::uint64_t longestWait = 5'000'000;
    const bool isAction = *action != 0;
    const auto connection = connectToSessionBus();
    const auto call = newCall(connection, "org.freedesktop.Application",
                              isAction ? "ActivateAction" : "Activate");
    return call && (!isAction || sd_bus_message_append(call.get(), "sav", action, 0) >= 0) &&
           appendPlatformData(call.get()) && answerTo(connection, call, longestWait) != nullptr;
}
