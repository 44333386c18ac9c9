// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/settings/DataExchange.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QStandardPaths>
#include <memory>
#include <new>
#include <system_error>
#include <utility>

#include "exchange/BackupDecoder.h"
#include "exchange/BackupExporter.h"
#include "exchange/Restore.h"
#include "platform/ISO8601.h"
#include "screens/settings/WindowProgress.h"
#include "store/StoreError.h"

namespace elmworth {

namespace {

using namespace std::chrono_literals;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

std::filesystem::path pathOf(const QUrl& file) {
    if (!file.isLocalFile()) {
        throw std::runtime_error("Only a file on this computer can be used. Choose another one.");
    }
    return file.toLocalFile().toStdString();
}

bool isThere(const QUrl& file) {
    return file.isLocalFile() && QFileInfo(file.toLocalFile()).isFile();
}

QString describe(const std::filesystem::filesystem_error& error) {
    return QStringLiteral("“%1” can't be used: %2.")
        .arg(text(error.path1().filename().string()), text(error.code().message()));
}

QString describe(const StoreError& error) {
    switch (error.code()) {
        case StoreError::Code::io:
            return QStringLiteral("The library can't be read or written: %1.")
                .arg(QString::fromUtf8(error.what()));
        case StoreError::Code::corrupt:
            return QStringLiteral("The library is damaged: %1.")
                .arg(QString::fromUtf8(error.what()));
        default:
            return QString::fromUtf8(error.what());
    }
}

const auto importTitle = QStringLiteral("Import");
const auto exportTitle = QStringLiteral("Export Backup");
const auto restoreTitle = QStringLiteral("Restore Backup");

}  // namespace

DataExchange::DataExchange(const SettingsServices& services, Confirmation& confirmation)
    : DataExchange(services, confirmation, {[] { QCoreApplication::processEvents(); }, 60ms}) {}

DataExchange::DataExchange(const SettingsServices& services, Confirmation& confirmation,
                           Turning turning)
    : services_(services), confirmation_(confirmation), turning_(std::move(turning)) {}

void DataExchange::cancel() {
    isStopped_ = true;
}

QUrl DataExchange::backupFile() const {
    QString folder = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    if (!QFileInfo(folder).isDir()) folder = QDir::homePath();
    const auto date = text(formatISO8601(services_.app.now()).substr(0, 10));
    return QUrl::fromLocalFile(QStringLiteral("%1/Elmworth Backup %2.json").arg(folder, date));
}

bool DataExchange::work(const QString& workTitle, const QString& title, const Task& task) {
    if (services_.longWork.isRunning()) return false;
    QString failure;
    begin(workTitle);
    services_.longWork.run([&] { failure = failureOf(task); });
    end();
    if (!failure.isEmpty()) tell(title, failure);
    return failure.isEmpty();
}

void DataExchange::begin(const QString& workTitle) {
    isWorking_ = true;
    isStopped_ = false;
    workTitle_ = workTitle;
    step_.clear();
    fraction_ = -1;
    Q_EMIT workChanged();
}

void DataExchange::end() {
    isWorking_ = false;
    Q_EMIT workChanged();
}

QString DataExchange::failureOf(const Task& task) {
    const auto show = [this](const char* step, double fraction) {
        step_ = QString::fromUtf8(step) + QStringLiteral("…");
        fraction_ = fraction;
        Q_EMIT workChanged();
    };
    try {
        WindowProgress progress({show, turning_.turn, [this] { return isStopped_; }},
                                turning_.interval);
        task(progress);
        return {};
    } catch (const std::filesystem::filesystem_error& error) {
        return describe(error);
    } catch (const StoreError& error) {
        return describe(error);
    } catch (const std::bad_alloc&) {
        return QStringLiteral("There is not enough memory for this.");
    } catch (const std::exception& error) {  // whose sentences are made for people
        return QString::fromUtf8(error.what());
    }
}

void DataExchange::tell(const QString& title, const QString& message) {
    confirmation_.tell({.icon = QStringLiteral("tray"), .title = title, .message = message});
}

void DataExchange::exportBackup(const QUrl& file) {
    if (!isThere(file)) return writeBackup(file);
    confirmation_.ask({.icon = QStringLiteral("document"),
                       .title = QStringLiteral("Replace “%1”?").arg(file.fileName()),
                       .message = QStringLiteral(
                           "A file of that name is there already. What it holds will be lost."),
                       .acceptText = QStringLiteral("Replace"),
                       .isDestructive = true},
                      [this, file] { writeBackup(file); });
}

void DataExchange::writeBackup(const QUrl& file) {
    BackupExporter::Counts counts;
    const bool isWritten = work(exportTitle, exportTitle, [&](Progress& progress) {
        counts = BackupExporter::writeFile(services_.app.context, services_.app.profiles.profile(),
                                           services_.app.now(), pathOf(file), progress,
                                           FileAccess::forUmask(currentUmask()));
    });
    if (isWritten && counts.repairedTexts > 0) {
        tell(exportTitle, text(BackupExporter::repairMessage(counts.repairedTexts)));
    }
}

void DataExchange::restoreBackup(const QUrl& file) {
    QString message;
    const bool isRestored = work(restoreTitle, importTitle, [&](Progress& progress) {
        FileSource source(pathOf(file));
        const auto backup = decodeBackup(source, progress);
        RestoreResult result;
        services_.app.history.performForGood([&] {  // the profile comes too, which no step has
            result = restore(backup, services_.app.context, services_.app.profiles, progress);
        });
        services_.app.timer.refresh();
        message = text(restoreMessage(backup, result));
    });
    if (isRestored) tell(importTitle, message);
}

void DataExchange::importCSV(const QUrl& file) {
    const auto rows = std::make_shared<std::vector<CSVImporter::Row>>();
    const bool isRead = work(importTitle, importTitle, [&](Progress& progress) {
        FileSource source(pathOf(file));
        *rows = CSVImporter::readFile(source, services_.app.calendar().zoneID(), progress);
    });
    if (!isRead) return;
    if (rows->size() <= CSVImporter::mostUndoableRows) return apply(*rows);
    confirmation_.ask(
        {.icon = QStringLiteral("tray"),
         .title = importTitle,
         .message = QStringLiteral("This file holds %1 entries. This import can't be "
                                   "undone.")
                        .arg(QLocale().toString(static_cast<qlonglong>(rows->size()))),
         .acceptText = QStringLiteral("Import")},
        [this, rows] { apply(*rows); });
}

void DataExchange::apply(const std::vector<CSVImporter::Row>& rows) {
    QString message;
    const bool isImported = work(importTitle, importTitle, [&](Progress& progress) {
        CSVImporter::Result result;
        services_.app.history.perform(
            "Import", [&] { result = CSVImporter::apply(rows, services_.app.context, progress); });
        message = text(CSVImporter::message(result));
    });
    if (isImported) tell(importTitle, message);
}

}  // namespace elmworth
