// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/AutoBackup.h"

#include <algorithm>
#include <exception>
#include <system_error>
#include <utility>

#include "exchange/BackupDecoder.h"
#include "exchange/BackupExporter.h"
#include "exchange/SnapshotJob.h"
#include "platform/AtomicFile.h"
#include "platform/ISO8601.h"
#include "platform/StandardFolders.h"
#include "platform/SystemLog.h"
#include "records/ProfileStore.h"
#include "records/TimeEntry.h"

namespace elmworth {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

constexpr auto firstRunDelay = 20s;
constexpr auto interval = 21'600s;
constexpr auto minimumAge = 72'000s;
constexpr auto longestWrite = 24h;
constexpr auto betweenSteps = 8ms;
constexpr auto beforeAnew = 5s;
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

/// What of a finished snapshot is worth a line in the log.
void tellOfRepairs(const fs::path& file, std::size_t repairedTexts) {
    if (repairedTexts == 0) return;
    writeSystemLog("Elmworth: " + file.string() + ": " +
                   BackupExporter::repairMessage(repairedTexts));
}

void prune(const fs::path& folder) {
    const auto all = AutoBackup::snapshots(folder);
    for (std::size_t i = AutoBackup::snapshotsKept; i < all.size(); ++i) {
        std::error_code ignored;
        fs::remove(all[i].url, ignored);
    }
}

/// The file of the snapshot that is due now in `folder`; absent when none is.
std::optional<fs::path> dueFile(UnitOfWork& context, Instant now, const fs::path& folder) {
    const auto existing = AutoBackup::snapshots(folder);
    if (!existing.empty() && now - existing.front().date < minimumAge) return std::nullopt;
    if (context.fetchCount<TimeEntry>() < 1) return std::nullopt;
    return folder / (std::string(prefix) + timestamp(now) + ".json");
}

void tidy(const fs::path& folder, Instant now) {
    prune(folder);
    removeStaleTempFiles(folder, now - longestWrite);
}

}  // namespace

AutoBackup::AutoBackup(UnitOfWork& context, Settings& defaults, Clock now, RunLoop& runLoop,
                       PowerEvents& powerEvents, Check check)
    : context_(context),
      defaults_(defaults),
      now_(std::move(now)),
      check_(std::move(check)),
      runLoop_(runLoop) {
    first_ = runLoop.repeat(firstRunDelay, [this] {
        first_.reset();
        tick();
    });
    repeating_ = runLoop.repeat(interval, [this] { tick(); });
    wake_ = powerEvents.onDidWake([this] { tick(); });
}

AutoBackup::~AutoBackup() = default;

void AutoBackup::tick() {
    if (snapshot_) return;
    anew_.reset();
    try {
        begin();
    } catch (const std::exception&) {
        drop();  // nobody asked for it: the next trigger tries again
    }
}

void AutoBackup::noteFailedCheck(Instant date, const std::string& reason) noexcept {
    try {
        const std::string when = formatISO8601(date);
        writeSystemLog("Elmworth: the snapshot of " + when + " failed its check: " + reason);
        defaults_.setString(failedCheckKey, when + ' ' + reason);
    } catch (const std::exception&) {
        return;  // it stands in the log
    }
}

std::optional<AutoBackup::FailedCheck> AutoBackup::failedCheck(const Settings& defaults) {
    const auto text = defaults.string(failedCheckKey);
    const auto space = text ? text->find(' ') : std::string::npos;
    if (space == std::string::npos) return std::nullopt;
    const auto date = parseISO8601(text->substr(0, space));
    return date ? std::optional<FailedCheck>({*date, text->substr(space + 1)}) : std::nullopt;
}

void AutoBackup::begin() {
    const Instant now = begun_ = now_();
    const fs::path target = folder();
    const auto file = dueFile(context_, now, target);
    if (!file) return;
    file_ = *file;
    snapshot_ = std::make_unique<SnapshotJob>(context_, ProfileStore(defaults_).profile(), now,
                                              *file, check_);
    context_.deliverChanges();  // of before
    hasChanged_ = false;
    changes_ = context_.observeAll([this](const RecordChanges&) { hasChanged_ = true; });
    steps_ = runLoop_.repeat(betweenSteps, [this] { step(); });
}

/// A snapshot shows one state of the library: one that changes meanwhile is begun anew, when things
/// have calmed down.
void AutoBackup::step() {
    try {
        context_.deliverChanges();  // none may wait unheard while the last step is done
        if (hasChanged_ && snapshot_->isReading()) {
            drop();
            anew_ = runLoop_.repeat(beforeAnew, [this] { tick(); });
        } else if (!snapshot_->advance()) {
            tellOfRepairs(file_, snapshot_->repairedTexts());
            drop();
            defaults_.remove(failedCheckKey);
            tidy(folder(), now_());
        }
    } catch (const BackupDecodeError& error) {
        drop();
        noteFailedCheck(begun_, error.what());
    } catch (const std::exception&) {
        drop();
    }
}

void AutoBackup::drop() noexcept {
    steps_.reset();
    changes_.reset();
    snapshot_.reset();
}

fs::path AutoBackup::folder() {
    return createPrivateFolder(dataFolder() / "Backups");
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
