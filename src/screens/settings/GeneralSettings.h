// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <string_view>

#include "records/Preferences.h"
#include "screens/settings/SettingsKeeper.h"
#include "screens/settings/SettingsServices.h"
#include "screens/settings/SnapshotStatus.h"

namespace elmworth {

/// The tab about the program itself: how it looks, whether it starts by itself, its version, and
/// the state of its snapshots. Follows what others change, commands among them.
class GeneralSettings final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings' model has it")
    /// A position in the choices of `preferences::appearance`.
    Q_PROPERTY(int appearance READ appearance WRITE setAppearance NOTIFY changed FINAL)
    /// A position in the choices of `preferences::trayStyle`.
    Q_PROPERTY(int trayStyle READ trayStyle WRITE setTrayStyle NOTIFY changed FINAL)
    Q_PROPERTY(int goalHours READ goalHours WRITE setGoalHours NOTIFY changed FINAL)
    Q_PROPERTY(int mostGoalHours READ mostGoalHours CONSTANT FINAL)
    Q_PROPERTY(QString goalText READ goalText NOTIFY changed FINAL)
    Q_PROPERTY(
        bool launchesAtLogin READ launchesAtLogin WRITE setLaunchesAtLogin NOTIFY changed FINAL)
    /// Why the login item is not as it was asked to be, as a sentence.
    Q_PROPERTY(QString loginError READ loginError NOTIFY changed FINAL)
    Q_PROPERTY(QString version READ version CONSTANT FINAL)
    /// Whether this program can look for updates at all.
    Q_PROPERTY(bool hasUpdates READ hasUpdates CONSTANT FINAL)
    Q_PROPERTY(
        bool installsUpdates READ installsUpdates WRITE setInstallsUpdates NOTIFY changed FINAL)
    /// "Elmworth 1.2 is available"; empty while nothing newer is known.
    Q_PROPERTY(QString updateText READ updateText NOTIFY changed FINAL)
    Q_PROPERTY(QString snapshotPolicy READ snapshotPolicy CONSTANT FINAL)
    Q_PROPERTY(QString snapshotText READ snapshotText NOTIFY changed FINAL)
    Q_PROPERTY(bool isSnapshotWorrying READ isSnapshotWorrying NOTIFY changed FINAL)

 public:
    GeneralSettings(const SettingsServices& services, SettingsKeeper& keeper);

    [[nodiscard]] int appearance() const;
    void setAppearance(int position);
    [[nodiscard]] int trayStyle() const;
    void setTrayStyle(int position);
    [[nodiscard]] int goalHours() const;
    void setGoalHours(int hours);
    [[nodiscard]] static int mostGoalHours();
    [[nodiscard]] QString goalText() const;
    [[nodiscard]] bool launchesAtLogin() const { return launchesAtLogin_; }
    void setLaunchesAtLogin(bool launches);
    [[nodiscard]] const QString& loginError() const { return loginError_; }
    [[nodiscard]] QString version() const;
    [[nodiscard]] bool hasUpdates() const;
    [[nodiscard]] bool installsUpdates() const;
    void setInstallsUpdates(bool installs);
    [[nodiscard]] QString updateText() const;
    [[nodiscard]] static QString snapshotPolicy();
    [[nodiscard]] const QString& snapshotText() const { return snapshots_.text; }
    [[nodiscard]] bool isSnapshotWorrying() const { return snapshots_.isWarning; }

    /// Looks again at what nobody tells of: the login item and the snapshots. For a window that
    /// opens or comes to the front.
    Q_INVOKABLE void refresh();
    /// Forgets what went wrong, and looks again: for a window that opens.
    void reload();
    Q_INVOKABLE void showSnapshots();
    Q_INVOKABLE void lookForUpdates();

    /// "0.9 (12) · beta", or "1.0 (20)"; what is empty reads "?".
    [[nodiscard]] static QString versionText(const std::string& version, const std::string& build);

 Q_SIGNALS:
    void changed();

 private:
    [[nodiscard]] int positionOf(const Preference& preference) const;
    void choose(const Preference& preference, int position);
    void keep(const Preference& preference, std::string_view text);
    [[nodiscard]] SnapshotStatus readSnapshots() const;

    SettingsServices services_;
    SettingsKeeper& keeper_;
    bool launchesAtLogin_ = false;
    QString loginError_;
    SnapshotStatus snapshots_;
    Settings::Observation defaultsObservation_;
    LoginItem::Observation loginObservation_;
    Updater::Observation updatesObservation_;
};

}  // namespace elmworth
