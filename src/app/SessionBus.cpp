// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The way to the running application. It stands on libdbus, which the command holds: Qt's D-Bus
// module, and sd-bus with the libraries behind it, take longer to load than the call takes.

#include "app/SessionBus.h"

#include <dbus/dbus.h>

#include <algorithm>
#include <cstdlib>
#include <memory>

namespace elmworth {

namespace {

struct Release {
    void operator()(DBusConnection* connection) const noexcept {
        dbus_connection_close(connection);
        dbus_connection_unref(connection);
    }
    void operator()(DBusMessage* message) const noexcept { dbus_message_unref(message); }
    void operator()(char* text) const noexcept { dbus_free(text); }
};
using Connection = std::unique_ptr<DBusConnection, Release>;
using Message = std::unique_ptr<DBusMessage, Release>;

/// libdbus would start a bus of its own where there is none, so it isn't asked for the address.
std::string sessionBusAddress() {
    const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS");
    if (address && *address) return address;
    const char* folder = std::getenv("XDG_RUNTIME_DIR");
    if (!folder || !*folder) return {};
    const auto path = std::string(folder) + "/bus";
    const std::unique_ptr<char, Release> escaped(dbus_address_escape_value(path.c_str()));
    return escaped ? std::string("unix:path=") + escaped.get() : std::string();
}

Connection connectToSessionBus() {
    // A reader of the output that goes away ends a command, as it does without a bus.
    dbus_connection_set_change_sigpipe(0);
    const auto address = sessionBusAddress();
    if (address.empty()) return nullptr;
    Connection connection(dbus_connection_open_private(address.c_str(), nullptr));
    return connection && dbus_bus_register(connection.get(), nullptr) ? std::move(connection)
                                                                      : nullptr;
}

/// A call of the running application; null when there is no memory.
Message newCall(const char* interface, const char* method) {
    Message call(dbus_message_new_method_call(bus::service, bus::object, interface, method));
    // The bus must not start the application for a command that works without it.
    if (call) dbus_message_set_auto_start(call.get(), 0);
    return call;
}

/// The answer to `call`; null when there is none.
Message answerTo(const Message& call, int milliseconds) {
    const auto connection = connectToSessionBus();
    return Message(connection ? dbus_connection_send_with_reply_and_block(
                                    connection.get(), call.get(), milliseconds, nullptr)
                              : nullptr);
}

/// libdbus ends a program that gives it another text.
bool isText(const std::string& text) {
    return dbus_validate_utf8(text.c_str(), nullptr) != 0;
}

bool appendRequest(DBusMessage* call, const HandOffRequest& request) {
    std::vector<const char*> words;
    for (const auto& argument : request.arguments) words.push_back(argument.c_str());
    const auto* const arguments = words.data();
    const auto* const folder = request.workingFolder.c_str();
    const auto* const locale = request.locale.c_str();
    const auto* const moneyLocale = request.moneyLocale.c_str();
    const auto* const zone = request.zone.c_str();
    return std::all_of(request.arguments.begin(), request.arguments.end(), isText) &&
           isText(folder) && isText(locale) && isText(moneyLocale) && isText(zone) &&
           dbus_message_append_args(
               call, DBUS_TYPE_ARRAY, DBUS_TYPE_STRING, &arguments, static_cast<int>(words.size()),
               DBUS_TYPE_STRING, &folder, DBUS_TYPE_STRING, &locale, DBUS_TYPE_STRING, &moneyLocale,
               DBUS_TYPE_STRING, &zone, DBUS_TYPE_UNIX_FD, &request.terminal, DBUS_TYPE_UNIX_FD,
               &request.lifeline, DBUS_TYPE_UNIX_FD, &request.standardInput, DBUS_TYPE_UNIX_FD,
               &request.library, DBUS_TYPE_UINT32, &request.umask, DBUS_TYPE_INVALID) != 0;
}

bool appendEmptyList(DBusMessageIter& place, const char* type) {
    DBusMessageIter list;
    return dbus_message_iter_open_container(&place, DBUS_TYPE_ARRAY, type, &list) &&
           dbus_message_iter_close_container(&place, &list);
}

/// One entry of a table from text to anything.
bool appendEntry(DBusMessageIter& table, const char* key, const char* value) {
    DBusMessageIter entry;
    DBusMessageIter variant;
    return dbus_message_iter_open_container(&table, DBUS_TYPE_DICT_ENTRY, nullptr, &entry) &&
           dbus_message_iter_append_basic(&entry, DBUS_TYPE_STRING,
                                          static_cast<const void*>(&key)) &&
           dbus_message_iter_open_container(&entry, DBUS_TYPE_VARIANT, "s", &variant) &&
           dbus_message_iter_append_basic(&variant, DBUS_TYPE_STRING,
                                          static_cast<const void*>(&value)) &&
           dbus_message_iter_close_container(&entry, &variant) &&
           dbus_message_iter_close_container(&table, &entry);
}

/// The desktop's leave to come to the front, which this process hands on.
bool appendPlatformData(DBusMessageIter& place) {
    constexpr const char* entries = "{sv}";
    const char* token = std::getenv("XDG_ACTIVATION_TOKEN");
    if (!token || !*token || !isText(token)) return appendEmptyList(place, entries);
    DBusMessageIter table;
    return dbus_message_iter_open_container(&place, DBUS_TYPE_ARRAY, entries, &table) &&
           appendEntry(table, "activation-token", token) &&
           dbus_message_iter_close_container(&place, &table);
}

bool appendActivation(DBusMessage* call, const std::string& action) {
    const auto* const name = action.c_str();
    DBusMessageIter place;
    dbus_message_iter_init_append(call, &place);
    return (action.empty() || (dbus_message_iter_append_basic(&place, DBUS_TYPE_STRING,
                                                              static_cast<const void*>(&name)) &&
                               appendEmptyList(place, "v"))) &&
           appendPlatformData(place);
}

}  // namespace

std::optional<CommandResult> runOverBus(const HandOffRequest& request) {
    const auto call = newCall(bus::commandInterface, "Run");
    if (!call || !appendRequest(call.get(), request)) return std::nullopt;
    const auto answer = answerTo(call, DBUS_TIMEOUT_INFINITE);
    const char* output = nullptr;
    const char* errors = nullptr;
    int outputSize = 0;
    int errorsSize = 0;
    CommandResult result;
    if (!answer ||
        !dbus_message_get_args(answer.get(), nullptr, DBUS_TYPE_ARRAY, DBUS_TYPE_BYTE, &output,
                               &outputSize, DBUS_TYPE_ARRAY, DBUS_TYPE_BYTE, &errors, &errorsSize,
                               DBUS_TYPE_INT32, &result.exitStatus, DBUS_TYPE_INVALID)) {
        return std::nullopt;
    }
    result.output.assign(output, static_cast<std::size_t>(outputSize));
    result.errors.assign(errors, static_cast<std::size_t>(errorsSize));
    return result;
}

bool activateRunningApplication(const std::string& action) {
    constexpr int longestWait = 5'000;
    const auto call =
        newCall("org.freedesktop.Application", action.empty() ? "Activate" : "ActivateAction");
    return call && appendActivation(call.get(), action) && answerTo(call, longestWait) != nullptr;
}

}  // namespace elmworth
