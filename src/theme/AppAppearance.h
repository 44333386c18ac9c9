// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQmlIntegration>
#include <optional>

#include "theme/AppearanceSetting.h"

class QJSEngine;
class QQmlEngine;

namespace elmworth {

/// Decides how all windows look: dark or bright, moving or still. The user's setting comes first,
/// then what the desktop says, then the palette of the windowing system. One per process.
class AppAppearance final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_SINGLETON
    Q_PROPERTY(bool dark READ isDark NOTIFY darkChanged FINAL)
    Q_PROPERTY(bool reducedMotion READ hasReducedMotion NOTIFY reducedMotionChanged FINAL)

 public:
    [[nodiscard]] static AppAppearance& instance();
    [[nodiscard]] static AppAppearance* create(QQmlEngine* engine, QJSEngine* scriptEngine);

    [[nodiscard]] bool isDark() const noexcept { return dark_; }
    [[nodiscard]] bool hasReducedMotion() const noexcept { return reducedMotion_; }

    void setSetting(AppearanceSetting setting);
    /// What the desktop prefers; absent when it doesn't say.
    void setDesktopDark(std::optional<bool> dark);
    /// Whether the desktop asks programs not to move things about.
    void setReducedMotion(bool reduced);

    [[nodiscard]] bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
    void darkChanged();
    void reducedMotionChanged();

 private:
    AppAppearance();
    [[nodiscard]] bool decide() const;
    void update();

    AppearanceSetting setting_ = AppearanceSetting::system;
    std::optional<bool> desktopDark_;
    bool dark_ = false;
    bool reducedMotion_ = false;
};

}  // namespace elmworth
