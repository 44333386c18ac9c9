// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/BusAdaptors.h"

#include "platform/ActivationToken.h"
#include "platform/LibraryLock.h"
#include "platform/StandardFolders.h"

namespace elmworth {

namespace {

constexpr const char* notTheLibrarys =
    "Only programs that may write this library can give it commands.";

void takeToken(const QVariantMap& platformData) {
    takeActivationToken(
        platformData.value(QStringLiteral("activation-token")).toString().toStdString());
}

}  // namespace

QByteArray CommandsAdaptor::Run(const QStringList& arguments, const QString& workingFolder,
                                const QString& locale, const QString& moneyLocale,
                                const QString& zone, const QDBusUnixFileDescriptor& terminal,
                                const QDBusUnixFileDescriptor& lifeline,
                                const QDBusUnixFileDescriptor& standardInput,
                                const QDBusUnixFileDescriptor& library, unsigned umask,
                                QByteArray& errors, int& exitStatus) {
    std::vector<std::string> words;
    for (const auto& argument : arguments) words.push_back(argument.toStdString());
    const CommandCaller caller{workingFolder.toStdString(),    locale.toStdString(),
                               moneyLocale.toStdString(),      zone.toStdString(),
                               terminal.fileDescriptor(),      lifeline.fileDescriptor(),
                               standardInput.fileDescriptor(), umask};
    const auto result = isWritableLockFile(library.fileDescriptor(), dataFolder())
                            ? service_.run(words, caller)
                            : failedCommand(notTheLibrarys);
    errors = QByteArray::fromStdString(result.errors);
    exitStatus = result.exitStatus;
    return QByteArray::fromStdString(result.output);
}

void ApplicationAdaptor::Activate(const QVariantMap& platformData) {
    takeToken(platformData);
    service_.activation().activate();
}

void ApplicationAdaptor::Open(const QStringList& /*uris*/, const QVariantMap& platformData) {
    takeToken(platformData);
    service_.activation().activate();
}

void ApplicationAdaptor::ActivateAction(const QString& name, const QVariantList& /*parameters*/,
                                        const QVariantMap& platformData) {
    takeToken(platformData);
    service_.activation().run(name.toStdString());
}

}  // namespace elmworth
