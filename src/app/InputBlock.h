// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QList>
#include <QObject>
#include <QPointer>
#include <QQuickWindow>

namespace elmworth {

/// Keeps people from working in any window but one, while it lives. The others go on showing what
/// they do.
class InputBlock final : public QObject {
    Q_OBJECT

 public:
    /// `open` is the window that goes on taking input; null for none.
    explicit InputBlock(QWindow* open);
    ~InputBlock() override;

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 private:
    QPointer<QWindow> open_;
    QList<QPointer<QQuickWindow>> blocked_;  ///< those whose content was disabled
};

}  // namespace elmworth
