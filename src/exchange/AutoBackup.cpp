// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/AutoBackup.h"

#include <algorithm>
#include <exception>
#include <system_error>
#include <utility>

#include "core/ProfileStore.h"
#include "core/TimeEntry.h"
#include "exchange/BackupDecoder.h"
#include "exchange/BackupExporter.h"
#include "platform/AbandonedFiles.h"
#include "platform/ISO8601.h"
#include "platform/StandardFolders.h"
#include "platform/SystemLog.h"

namespace elmworth {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto firstRunDelay = 20s;
constexpr auto interval = 21'600s;
constexpr auto minimumAge = 72'000s;
constexpr auto longestWrite = 24h;
constexpr std::string_view prefix = "Elmworth-";
constexpr std::string_view failedCheckKey = "failedSnapshotCheck";

/// "2026-03-01T09-30-00", in UTC: the ISO form with what file systems allow.
std::string timestamp(Instant instant) {
    std::string text = formatISO8601(instant);
    text.pop_back();
    std::replace(text.begin() + 11, text.end(), ':', '-');
    return text;
}

std::optional<Instant> parseTimestamp(std::string text) {
    if (text.size() != 19 || text[13] != '-' || text[16] != '-') return std::nullopt;
    text[13] = text[16] = ':';
    return parseISO8601(text + 'Z');
}

BackupExporter::Counts countsOf(const Backup& backup) {
    BackupExporter::Counts counts;
    counts.clients = backup.clients.size();
    counts.invoices = backup.invoices.size();
    for (const auto& client : backup.clients) {
        counts.projects += client.projects.size();
        for (const auto& project : client.projects) counts.entries += project.entries.size();
    }
    return counts;
}

void readBack(const fs::path& file, const BackupExporter::Counts& written) {
    if (countsOf(decodeBackupFile(file)) != written) {
        throw BackupDecodeError("The snapshot does not hold what was written.");
    }
}

/// A snapshot that cannot be read back is none.
void verify(const fs::path& file, const BackupExporter::Counts& written,
            const AutoBackup::Check& check) {
    try {
        check ? check(file, written) : readBack(file, written);
    } catch (...) {
        std::error_code ignored;
        fs::remove(file, ignored);
        throw;
    }
}

void prune(const fs::path& folder) {
    const auto all = AutoBackup::snapshots(folder);
    for (std::size_t i = AutoBackup::snapshotsKept; i < all.size(); ++i) {
        std::error_code ignored;
        fs::remove(all[i].url, ignored);
    }
}

}  // namespace

AutoBackup::AutoBackup(ModelContext& context, UserDefaults& defaults, Clock now, RunLoop& runLoop,
                       PowerEvents& powerEvents, Check check)
    : context_(context), defaults_(defaults), now_(std::move(now)), check_(std::move(check)) {
    first_ = runLoop.repeat(firstRunDelay, [this] {
        first_.reset();
        tick();
    });
    repeating_ = runLoop.repeat(interval, [this] { tick(); });
    wake_ = powerEvents.onDidWake([this] { tick(); });
}

void AutoBackup::tick() {
    const Instant now = now_();
    try {
        if (runIfDue(context_, ProfileStore(defaults_).profile(), now, std::nullopt, check_)) {
            defaults_.remove(failedCheckKey);
        }
    } catch (const BackupDecodeError& error) {
        noteFailedCheck(now, error.what());
    } catch (const std::exception&) {
        return;  // nobody asked for it: the next trigger tries again
    }
}

void AutoBackup::noteFailedCheck(Instant date, const std::string& reason) {
    const std::string when = formatISO8601(date);
    writeSystemLog("Elmworth: the snapshot of " + when + " failed its check: " + reason);
    defaults_.setString(failedCheckKey, when + ' ' + reason);
}

std::optional<AutoBackup::FailedCheck> AutoBackup::failedCheck(const UserDefaults& defaults) {
    const auto text = defaults.string(failedCheckKey);
    const auto space = text ? text->find(' ') : std::string::npos;
    if (space == std::string::npos) return std::nullopt;
    const auto date = parseISO8601(text->substr(0, space));
    return date ? std::optional<FailedCheck>({*date, text->substr(space + 1)}) : std::nullopt;
}

std::optional<fs::path> AutoBackup::runIfDue(ModelContext& context, const BusinessProfile& profile,
                                             Instant now, const std::optional<fs::path>& given,
                                             const Check& check) {
    const fs::path target = given ? *given : folder();
    const auto existing = snapshots(target);
    if (!existing.empty() && now - existing.front().date < minimumAge) return std::nullopt;
    if (context.fetchCount<TimeEntry>() < 1) return std::nullopt;
    const fs::path file = target / (std::string(prefix) + timestamp(now) + ".json");
    auto counts = BackupExporter::writeFile(context, profile, now, file);
    const std::size_t repaired = std::exchange(counts.repairedTexts, 0);
    verify(file, counts, check);
    if (repaired > 0) {
        writeSystemLog("Elmworth: " + file.string() + ": " +
                       BackupExporter::repairMessage(repaired));
    }
    prune(target);
    removeAbandonedFiles(target, now - longestWrite);
    return file;
}

fs::path AutoBackup::folder() {
    return createPrivateFolder(applicationSupportFolder() / "Backups");
}

std::vector<AutoBackup::Snapshot> AutoBackup::snapshots(const fs::path& folder) {
    std::vector<Snapshot> found;
    std::error_code error;
    for (fs::directory_iterator item(folder, error), end; !error && item != end;
         item.increment(error)) {
        const std::string name = item->path().stem().string();
        if (!name.starts_with(prefix)) continue;
        const auto date = parseTimestamp(name.substr(prefix.size()));
        if (date) found.push_back({item->path(), *date});
    }
    std::sort(found.begin(), found.end(),
              [](const auto& a, const auto& b) { return a.date > b.date; });
    return found;
}

}  // namespace elmworth
