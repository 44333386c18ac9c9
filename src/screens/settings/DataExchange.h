// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QUrl>
#include <QtQmlIntegration>
#include <filesystem>
#include <functional>
#include <vector>

#include "exchange/CSVImporter.h"
#include "screens/settings/SettingsServices.h"
#include "theme/Confirmation.h"

namespace elmworth {

/// Export, import and restore of the library from a window. What may take long shows how far it is
/// and can be stopped; nothing has changed then. Every outcome is told, except that a backup was
/// written.
class DataExchange final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings' model has it")
    Q_PROPERTY(bool isWorking READ isWorking NOTIFY workChanged FINAL)
    /// "Restore Backup"
    Q_PROPERTY(QString workTitle READ workTitle NOTIFY workChanged FINAL)
    /// "Reading…"
    Q_PROPERTY(QString step READ step NOTIFY workChanged FINAL)
    /// From 0 to 1 how much of the step is done; below 0 where that isn't known.
    Q_PROPERTY(double fraction READ fraction NOTIFY workChanged FINAL)

 public:
    /// How the window's events are delivered while work goes on, and how often.
    struct Turning {
        std::function<void()> turn;
        std::chrono::milliseconds interval;
    };

    /// Tells and asks in `confirmation`, which outlives it.
    DataExchange(const SettingsServices& services, Confirmation& confirmation);
    DataExchange(const SettingsServices& services, Confirmation& confirmation, Turning turning);

    [[nodiscard]] bool isWorking() const noexcept { return isWorking_; }
    [[nodiscard]] const QString& workTitle() const { return workTitle_; }
    [[nodiscard]] const QString& step() const { return step_; }
    [[nodiscard]] double fraction() const noexcept { return fraction_; }
    Q_INVOKABLE void cancel();

    /// Where a backup of today is proposed to be written.
    [[nodiscard]] Q_INVOKABLE QUrl backupFile() const;
    /// Writes a backup; asks before it takes the place of a file.
    Q_INVOKABLE void exportBackup(const QUrl& file);
    /// Adds the time of a CSV file; asks before so much that it can't be undone.
    Q_INVOKABLE void importCSV(const QUrl& file);
    /// Loads a backup into the empty library.
    Q_INVOKABLE void restoreBackup(const QUrl& file);

 Q_SIGNALS:
    void workChanged();

 private:
    using Task = std::function<void(Progress&)>;

    /// Runs `task` and tells what went wrong, under `title`. True when nothing did.
    bool work(const QString& workTitle, const QString& title, const Task& task);
    void begin(const QString& workTitle);
    void end();
    [[nodiscard]] QString failureOf(const Task& task);
    void tell(const QString& title, const QString& message);

    void writeBackup(const QUrl& file);
    void apply(const std::vector<CSVImporter::Row>& rows);

    SettingsServices services_;
    Confirmation& confirmation_;
    Turning turning_;
    bool isWorking_ = false;
    bool isStopped_ = false;
    QString workTitle_;
    QString step_;
    double fraction_ = -1;
};

}  // namespace elmworth
