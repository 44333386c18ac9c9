// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <string_view>

#include "platform/Tray.h"
#include "screens/AppServices.h"

namespace elmworth {

/// What stands beside the tray item's image while a timer runs. The setting "menuBarStyle"
/// holds the name of the case.
enum class TrayLabelStyle { time, timeAndProject, icon };

/// The style of a stored text. Any text but the cases' names means `time`.
[[nodiscard]] TrayLabelStyle trayLabelStyle(std::string_view raw);

/// The text to store.
[[nodiscard]] std::string_view rawValue(TrayLabelStyle style);

/// What the tray item shows: the timer at a glance. Changes once a minute while a timer runs.
///
/// Follows the timer, the records and the setting "menuBarStyle"; changes show together
/// within two turns of the run loop.
class TrayLabel final : public QObject {
    Q_OBJECT
    QML_ANONYMOUS
    /// "clock", or "record" while a timer runs.
    Q_PROPERTY(QString image READ image NOTIFY changed FINAL)
    /// What stands beside the image, by the style; empty for nothing.
    Q_PROPERTY(QString text READ text NOTIFY changed FINAL)
    /// The same in words, whatever the style: "0:42 · Website" or "Nothing is running."
    Q_PROPERTY(QString summary READ summary NOTIFY changed FINAL)

 public:
    explicit TrayLabel(AppServices services);

    [[nodiscard]] const QString& image() const noexcept { return look_.image; }
    [[nodiscard]] const QString& text() const noexcept { return look_.text; }
    [[nodiscard]] const QString& summary() const noexcept { return look_.summary; }

    /// The same for a tray. The text in the icon is the time alone, in full hours where they have
    /// four digits.
    [[nodiscard]] TrayFace trayFace() const;

 Q_SIGNALS:
    void changed();

 private:
    struct Look {
        QString image;
        QString text;
        QString summary;
        std::string time;  ///< within `text`

        friend bool operator==(const Look&, const Look&) = default;
    };
    [[nodiscard]] Look look() const;
    void updateSoon();
    void update();

    AppServices services_;
    Look look_;
    RunLoop::Handle pendingUpdate_;
    TimerService::Observation timerObservation_;
    Settings::Observation styleObservation_;
    UnitOfWork::Observation entryObservation_;
    UnitOfWork::Observation projectObservation_;
};

}  // namespace elmworth
