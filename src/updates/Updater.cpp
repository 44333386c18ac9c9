// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/Updater.h"

#include <algorithm>
#include <chrono>
#include <utility>

#include "platform/SystemLog.h"

namespace elmworth {

namespace {

using namespace std::chrono_literals;

constexpr std::string_view automaticKey = "installUpdatesAutomatically";
constexpr std::string_view highestKey = "highestUpdateSeen";
constexpr std::string_view lookedKey = "lookedForUpdates";  // seconds since 1970

constexpr std::chrono::milliseconds lookInterval = 1h;
constexpr std::chrono::seconds timeBetweenLooks = 24h;
constexpr std::chrono::seconds timeForAppcast = 30s;
constexpr std::chrono::seconds timeForArchive = 30min;

constexpr const char* notAsSigned =
    "The update isn't what Elmworth's makers signed, so it was thrown away.";

}  // namespace

struct Updater::Look {
    std::string document;
    std::function<void(const Finding&)> found;
    Downloads::Handle download;
};

struct Updater::Fetch {
    Release release;
    std::unique_ptr<AtomicFile> file;
    std::int64_t bytes = 0;
    std::function<void(const std::string&)> done;
    Downloads::Handle download;
};

Updater::Updater(Setup setup, Settings& settings, RunLoop& runLoop, Clock now, Downloads& downloads)
    : setup_(std::move(setup)),
      settings_(settings),
      runLoop_(runLoop),
      now_(std::move(now)),
      downloads_(downloads),
      isEnabled_(!setup_.feed.empty() && !setup_.keys.isEmpty() && !setup_.isHosted) {
    if (!isEnabled_) return;
    daily_ = runLoop_.repeat(lookInterval, [this] { lookDaily(); });
    settingsObservation_ = settings_.observe([this](std::string_view key) {
        if (key != automaticKey) return;
        observers_.notify();
        lookDaily();
    });
}

Updater::~Updater() = default;

bool Updater::installsAutomatically() const {
    return isEnabled_ && settings_.boolean(automaticKey).value_or(false);
}

void Updater::lookDaily() {
    if (!installsAutomatically() || look_ || fetch_ || ready_) return;
    const auto now = wholeSeconds(now_());
    const auto looked = settings_.integer(lookedKey).value_or(0);
    if (looked <= now && now - looked < timeBetweenLooks.count()) return;
    settings_.setInteger(lookedKey, now);
    look([this](const Finding& finding) {
        if (finding.release && canInstall() && !finding.release->archive.empty()) {
            fetch(*finding.release, [](const std::string& failure) {
                if (!failure.empty()) writeSystemLog(failure);
            });
        }
    });
}

void Updater::look(std::function<void(const Finding&)> found) {
    look_ = std::make_unique<Look>();
    look_->found = std::move(found);
    look_->download = downloads_.fetch(
        {setup_.feed, static_cast<std::int64_t>(largestAppcast), timeForAppcast},
        [this](std::string_view bytes) {
            look_->document += bytes;
            return true;
        },
        [this](const std::string& failure) { endLook(failure); });
}

void Updater::endLook(const std::string& failure) {
    const auto look = std::exchange(look_, nullptr);
    Finding finding{{}, failure};
    if (failure.empty()) finding = judge(look->document);
    if (finding.failure.empty()) available_ = finding.release;
    observers_.notify();
    look->found(finding);
}

Updater::Finding Updater::judge(const std::string& document) {
    try {
        const auto appcast = readAppcast(document, setup_.keys);
        if (appcast.expires < now_()) {
            throw UpdateError("The list of updates is out of date. Try again later.");
        }
        const auto* newest = appcast.newest();
        if (newest == nullptr) return {};
        rememberHighest(newest->version);
        if (newest->version <= setup_.present) return {};
        return {*newest, {}};
    } catch (const UpdateError& error) {
        return {{}, error.what()};
    }
}

/// Whoever can answer in the place of the server must not be able to bring back an old release.
void Updater::rememberHighest(const ReleaseVersion& newest) {
    const auto highest =
        ReleaseVersion::parse(settings_.string(highestKey).value_or("")).value_or(ReleaseVersion());
    if (newest < highest) {
        throw UpdateError("The list of updates is older than one seen before, so it wasn't used.");
    }
    settings_.setString(highestKey, newest.text());
}

void Updater::fetch(const Release& release, std::function<void(const std::string&)> done) {
    ready_ = nullptr;
    fetch_ = std::make_unique<Fetch>();
    fetch_->release = release;
    fetch_->done = std::move(done);
    try {
        fetch_->file =
            std::make_unique<AtomicFile>(setup_.program, FileAccess::forUmask(currentUmask()));
    } catch (const std::exception& error) {
        fetch_->download = runLoop_.post([this, text = std::string(error.what())] {
            endFetch("The update can't be stored: " + text + ".");
        });
        return;
    }
    fetch_->download = downloads_.fetch(
        {release.archive, release.archiveBytes, timeForArchive},
        [this](std::string_view bytes) {
            fetch_->bytes += static_cast<std::int64_t>(bytes.size());
            try {
                fetch_->file->write(bytes);
            } catch (const std::exception& error) {
                writeSystemLog(error.what());
                return false;
            }
            return true;
        },
        [this](const std::string& failure) { endFetch(failure); });
}

void Updater::endFetch(const std::string& failure) {
    const auto text = failure.empty() ? acceptFetched() : failure;
    const auto fetch = std::exchange(fetch_, nullptr);
    observers_.notify();
    fetch->done(text);
}

std::string Updater::acceptFetched() {
    const auto& signature = fetch_->release.archiveSignature;
    const bool isSigned = fetch_->bytes == fetch_->release.archiveBytes &&
                          setup_.keys.verifyFile(fetch_->file->temporaryPath(), signature);
    if (!isSigned) return notAsSigned;
    ready_ = std::make_unique<Ready>(Ready{std::move(fetch_->file), signature});
    return {};
}

void Updater::install() noexcept {
    const auto ready = std::exchange(ready_, nullptr);
    if (!ready) return;
    try {
        if (!setup_.keys.verifyFile(ready->file->temporaryPath(), ready->signature)) {
            throw UpdateError(notAsSigned);
        }
        ready->file->commit();
    } catch (const std::exception& error) {
        writeSystemLog(error.what());
    }
}

}  // namespace elmworth
