// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/settings/GeneralSettings.h"

#include <algorithm>
#include <string>
#include <system_error>

namespace elmworth {

GeneralSettings::GeneralSettings(const SettingsServices& services, SettingsKeeper& keeper)
    : services_(services), keeper_(keeper) {
    defaultsObservation_ = services_.app.defaults.observe([this](std::string_view key) {
        const auto rows = preferences::all();
        const bool isShown =
            std::any_of(rows.begin(), rows.end(), [&](const auto* row) { return row->key == key; });
        if (isShown) Q_EMIT changed();
    });
    loginObservation_ = services_.loginItem.observe([this] { refresh(); });
    if (services_.updater != nullptr) {
        updatesObservation_ = services_.updater->observe([this] { Q_EMIT changed(); });
    }
}

void GeneralSettings::refresh() {
    launchesAtLogin_ = services_.loginItem.isEnabled();
    snapshots_ = readSnapshots();
    Q_EMIT changed();
}

void GeneralSettings::reload() {
    loginError_.clear();
    refresh();
}

int GeneralSettings::positionOf(const Preference& preference) const {
    const auto text = preferenceText(services_.app.defaults, preference);
    const auto& choices = preference.choices;
    return static_cast<int>(std::find(choices.begin(), choices.end(), text) - choices.begin());
}

void GeneralSettings::choose(const Preference& preference, int position) {
    if (position < 0 || static_cast<std::size_t>(position) >= preference.choices.size()) return;
    keep(preference, preference.choices[static_cast<std::size_t>(position)]);
}

void GeneralSettings::keep(const Preference& preference, std::string_view text) {
    keeper_.keep([&] { setPreference(services_.app.defaults, preference, text); });
    Q_EMIT changed();  // a control that was moved goes back
}

int GeneralSettings::appearance() const {
    return positionOf(preferences::appearance);
}

void GeneralSettings::setAppearance(int position) {
    choose(preferences::appearance, position);
}

int GeneralSettings::trayStyle() const {
    return positionOf(preferences::trayStyle);
}

void GeneralSettings::setTrayStyle(int position) {
    choose(preferences::trayStyle, position);
}

int GeneralSettings::goalHours() const {
    const auto hours = preferenceNumber(services_.app.defaults, preferences::weeklyGoal);
    return static_cast<int>(std::min<std::int64_t>(hours, mostGoalHours()));
}

void GeneralSettings::setGoalHours(int hours) {
    keep(preferences::weeklyGoal, std::to_string(std::clamp(hours, 0, mostGoalHours())));
}

int GeneralSettings::mostGoalHours() {
    return static_cast<int>(preferences::weeklyGoal.highest);
}

QString GeneralSettings::goalText() const {
    const auto hours = preferenceNumber(services_.app.defaults, preferences::weeklyGoal);
    if (hours == 0) return QStringLiteral("Weekly hours goal: off");
    return QStringLiteral("Weekly hours goal: %1 h").arg(hours);
}

void GeneralSettings::setLaunchesAtLogin(bool launches) {
    QString error;
    try {
        services_.loginItem.setEnabled(launches);
    } catch (const LoginItemError& failure) {
        error = QString::fromUtf8(failure.what());
    }
    loginError_ = error;
    refresh();
}

QString GeneralSettings::version() const {
    return versionText(services_.version, services_.build);
}

QString GeneralSettings::versionText(const std::string& version, const std::string& build) {
    const auto shown = [](const std::string& part) {
        return part.empty() ? QStringLiteral("?") : QString::fromStdString(part);
    };
    const auto text = QStringLiteral("%1 (%2)").arg(shown(version), shown(build));
    return version.starts_with("0.") ? text + QStringLiteral(" · beta") : text;
}

QString GeneralSettings::snapshotPolicy() {
    return QStringLiteral("A daily snapshot is kept for the last %1 days.")
        .arg(AutoBackup::snapshotsKept);
}

SnapshotStatus GeneralSettings::readSnapshots() const {
    if (services_.isDemo) return {QStringLiteral("The demo takes no snapshots."), false};
    if (const auto failed = AutoBackup::failedCheck(services_.app.defaults)) {
        return snapshotStatus(*failed);
    }
    try {
        const auto all = AutoBackup::snapshots(services_.snapshotFolder());
        const auto newest = all.empty() ? std::nullopt : std::optional(all.front().date);
        return snapshotStatus(newest, services_.app.now());
    } catch (const std::system_error& error) {
        return {QStringLiteral("The folder of the snapshots can't be used: %1.")
                    .arg(QString::fromStdString(error.code().message())),
                true};
    }
}

bool GeneralSettings::hasUpdates() const {
    return services_.updater != nullptr && services_.updater->isEnabled();
}

bool GeneralSettings::installsUpdates() const {
    return hasUpdates() && services_.updater->installsAutomatically();
}

void GeneralSettings::setInstallsUpdates(bool installs) {
    if (hasUpdates()) keep(preferences::automaticUpdates, installs ? "true" : "false");
}

QString GeneralSettings::updateText() const {
    if (!hasUpdates() || !services_.updater->available()) return {};
    const auto version = services_.updater->available()->version.text();
    return QStringLiteral("Elmworth %1 is available").arg(QString::fromStdString(version));
}

void GeneralSettings::lookForUpdates() {
    if (hasUpdates() && services_.lookForUpdates) services_.lookForUpdates();
}

void GeneralSettings::showSnapshots() {
    if (services_.isDemo) return;
    try {
        services_.showFolder(services_.snapshotFolder());
    } catch (const std::system_error&) {
        refresh();  // which says so
    }
}

}  // namespace elmworth
