// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QTimer>
#include <QWindow>
#include <string>

#include "platform/Settings.h"
#include "screens/main/WindowFrame.h"

namespace elmworth {

/// Gives a window the place and size that it had when the program ran last, as far as the screens
/// can show them; without any it becomes no larger than its screen. Notes them in the settings
/// while they change: a moment after the last change, and at the end.
class RememberedWindow final : public QObject {
    Q_OBJECT

 public:
    /// Both outlive this object. `key` is the name of the setting.
    RememberedWindow(QWindow& window, Settings& defaults, std::string key);
    ~RememberedWindow() override;

 private:
    void restore();
    void note();

    QWindow& window_;
    Settings& defaults_;
    std::string key_;
    WindowFrame frame_;
    QTimer settled_;
};

}  // namespace elmworth
