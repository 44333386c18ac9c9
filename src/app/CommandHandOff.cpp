// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/CommandHandOff.h"

#include <fcntl.h>
#include <unistd.h>

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusUnixFileDescriptor>
#include <QStringList>
#include <QVariantMap>
#include <array>
#include <limits>

#include "app/WorkingFolder.h"
#include "platform/Calendar.h"

namespace elmworth {

namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QDBusMessage call(const char* interface, const char* method, const QVariantList& arguments,
                  int timeout) {
    auto message = QDBusMessage::createMethodCall(
        QString::fromLatin1(bus::service), QString::fromLatin1(bus::object),
        QString::fromLatin1(interface), QString::fromLatin1(method));
    message.setArguments(arguments);
    // The bus must not start the application for a command that works without it.
    message.setAutoStartService(false);
    return QDBusConnection::sessionBus().call(message, QDBus::Block, timeout);
}

/// A pipe whose end for writing closes with this process, however that ends. The end for reading
/// tells another process that it did.
class Lifeline {
 public:
    Lifeline() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) != 0) return;
        watched_.giveFileDescriptor(ends[0]);
        held_.giveFileDescriptor(ends[1]);
    }
    [[nodiscard]] const QDBusUnixFileDescriptor& watched() const { return watched_; }

 private:
    QDBusUnixFileDescriptor watched_;
    QDBusUnixFileDescriptor held_;
};

}  // namespace

std::optional<CommandResult> handOff(const std::vector<std::string>& arguments) {
    if (!QDBusConnection::sessionBus().isConnected()) return std::nullopt;
    QStringList list;
    for (const auto& argument : arguments) list << text(argument);
    const Lifeline lifeline;
    const QVariantList message{list,
                               text(workingFolder().string()),
                               text(Locale::current().identifier()),
                               text(Calendar::current().zoneID()),
                               QVariant::fromValue(QDBusUnixFileDescriptor(STDERR_FILENO)),
                               QVariant::fromValue(lifeline.watched())};
    const auto reply = call(bus::commandInterface, "Run", message, std::numeric_limits<int>::max());
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().size() != 3) {
        return std::nullopt;
    }
    return CommandResult{reply.arguments().at(0).toByteArray().toStdString(),
                         reply.arguments().at(1).toByteArray().toStdString(),
                         reply.arguments().at(2).toInt()};
}

bool activateRunningApplication() {
    constexpr int timeout = 5000;
    if (!QDBusConnection::sessionBus().isConnected()) return false;
    return call("org.freedesktop.Application", "Activate", {QVariantMap()}, timeout).type() ==
           QDBusMessage::ReplyMessage;
}

}  // namespace elmworth
