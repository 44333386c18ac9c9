// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/MakeWindow.h"

#include <QQmlComponent>
#include <QQmlEngine>
#include <QUrl>
#include <QVariant>
#include <tuple>

namespace elmworth {

std::unique_ptr<QQuickWindow> makeWindow(QQmlEngine& engine, const QUrl& file,
                                         const QVariant& model) {
    QQmlComponent component(&engine, file);
    std::unique_ptr<QObject> object(
        component.createWithInitialProperties({{QStringLiteral("model"), model}}));
    auto* window = qobject_cast<QQuickWindow*>(object.get());
    if (window == nullptr) {
        qFatal("%s can't be shown: %s", qUtf8Printable(file.toString()),
               qUtf8Printable(component.errorString()));
    }
    std::ignore = object.release();
    return std::unique_ptr<QQuickWindow>(window);
}

}  // namespace elmworth
