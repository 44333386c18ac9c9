// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickWindow>
#include <memory>

class QQmlEngine;
class QUrl;
class QVariant;

namespace elmworth {

/// Makes the window that the QML `file` describes, with `model` as its property "model". Ends the
/// process when the file describes no window, which only a broken build has.
[[nodiscard]] std::unique_ptr<QQuickWindow> makeWindow(QQmlEngine& engine, const QUrl& file,
                                                       const QVariant& model);

}  // namespace elmworth
