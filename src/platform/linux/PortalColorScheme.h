// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QString>
#include <functional>
#include <optional>

#include "platform/ColorScheme.h"
#include "platform/Observers.h"

class QDBusMessage;

namespace elmworth {

/// The preferences that the desktop portal tells: its own "color-scheme" and "reduced-motion", or
/// animations that are switched off in GNOME or in KDE. A portal that is missing tells nothing; one
/// that appears later is asked then.
class PortalColorScheme final : public QObject, public ColorScheme {
    Q_OBJECT

 public:
    /// Waits a moment for the first answer, so that the first window has the right colours.
    explicit PortalColorScheme(const QDBusConnection& bus);

    [[nodiscard]] Preferences preferences() const override;
    [[nodiscard]] Observation observe(std::function<void()> changed) override;

 private Q_SLOTS:
    void settingChanged();

 private:
    /// What the portal said of each setting; absent for one that it doesn't know.
    struct Answers {
        std::optional<uint> colorScheme;
        std::optional<uint> reducedMotion;
        std::optional<bool> gnomeAnimations;
        std::optional<double> kdeAnimationDuration;
    };

    void askAndWait();
    void ask();
    void answered(const QDBusMessage& message);
    static void take(Answers& answers, const QString& group, const QString& key,
                     const QVariant& value);
    void replace(const Answers& answers);

    QDBusConnection bus_;
    QDBusServiceWatcher watcher_;
    Answers answers_;
    Observers<> observers_;
};

}  // namespace elmworth
