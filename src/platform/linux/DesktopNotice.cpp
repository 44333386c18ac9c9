// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/DesktopNotice.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QStringList>
#include <QVariantMap>
#include <utility>

#include "platform/ActivationToken.h"

namespace elmworth {

namespace {

const auto service = QStringLiteral("org.freedesktop.Notifications");
const auto path = QStringLiteral("/org/freedesktop/Notifications");
const auto pressed = QStringLiteral("default");
constexpr int asLongAsUsual = -1;

}  // namespace

DesktopNotice::DesktopNotice(QDBusConnection bus, std::function<void()> chosen)
    : bus_(std::move(bus)), chosen_(std::move(chosen)) {
    bus_.connect(QString(), path, service, QStringLiteral("ActionInvoked"), this,
                 SLOT(actionInvoked(uint, QString)));
    bus_.connect(QString(), path, service, QStringLiteral("ActivationToken"), this,
                 SLOT(tokenGiven(uint, QString)));
}

void DesktopNotice::show(const QString& title, const QString& text) {
    auto call = QDBusMessage::createMethodCall(service, path, service, QStringLiteral("Notify"));
    const QVariantMap hints{
        {QStringLiteral("desktop-entry"), QStringLiteral("org.elmworth.Elmworth")}};
    call << QStringLiteral("Elmworth") << number_ << QStringLiteral("org.elmworth.Elmworth")
         << title << text.toHtmlEscaped() << QStringList{pressed, QStringLiteral("Open Elmworth")}
         << hints << asLongAsUsual;
    auto* const answer = new QDBusPendingCallWatcher(bus_.asyncCall(call), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, [this, answer] {
        answer->deleteLater();
        const QDBusPendingReply<uint> number = *answer;
        if (!number.isError()) number_ = number.value();
    });
}

/// Others' sentences are told of too.
void DesktopNotice::actionInvoked(uint number, const QString& action) {
    if (number == 0 || number != number_ || action != pressed) return;
    if (chosen_) chosen_();
}

/// The desktop's leave to come to the front; it is told before the action.
void DesktopNotice::tokenGiven(uint number, const QString& token) {
    if (number != 0 && number == number_) takeActivationToken(token.toStdString());
}

}  // namespace elmworth
