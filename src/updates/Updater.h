// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/AtomicFile.h"
#include "platform/Instant.h"
#include "platform/Observers.h"
#include "platform/RunLoop.h"
#include "platform/Settings.h"
#include "updates/Appcast.h"
#include "updates/Downloads.h"

namespace elmworth {

/// Looks for newer releases of the program, and replaces it when it ends, where that is its own
/// affair: an AppImage. Where a package manager brought the program it only tells.
///
/// Nothing goes out unless a person asks, or wants updates to be installed automatically; and
/// nothing at all where it `isEnabled` not. Nothing that comes in is used before its signature was
/// found to be right.
class Updater {
 public:
    struct Setup {
        std::string feed;  ///< the address of the list of releases; empty for none
        UpdateKeys keys;
        ReleaseVersion present;         ///< of this program
        std::filesystem::path program;  ///< what may be replaced; empty for nothing
        bool isHosted = false;          ///< run by a test, or on the demo library
    };

    /// `settings` and `downloads` outlive it.
    Updater(Setup setup, Settings& settings, RunLoop& runLoop, Clock now, Downloads& downloads);
    Updater(const Updater&) = delete;
    Updater& operator=(const Updater&) = delete;
    ~Updater();

    /// Whether there is a list of releases to ask for, which somebody known has signed.
    [[nodiscard]] bool isEnabled() const noexcept { return isEnabled_; }
    /// Whether it can replace the program; else it only tells.
    [[nodiscard]] bool canInstall() const noexcept { return !setup_.program.empty(); }
    [[nodiscard]] const ReleaseVersion& present() const noexcept { return setup_.present; }

    /// The setting "installUpdatesAutomatically": looks once a day and fetches what it finds.
    [[nodiscard]] bool installsAutomatically() const;

    /// What a look for updates found: a newer release, none, or a sentence that says what failed.
    struct Finding {
        std::optional<Release> release;
        std::string failure;
    };
    /// Asks for the list of releases. `found` is called once, later; a look that goes on is given
    /// up for the new one, and its `found` isn't called. Only where it `isEnabled`.
    void look(std::function<void(const Finding&)> found);

    /// Fetches `release` beside the program and checks it. `done` is called once, later, with a
    /// sentence that says what failed, or an empty text: then the release `isReady`. Only where it
    /// `canInstall`.
    void fetch(const Release& release, std::function<void(const std::string& failure)> done);

    /// Whether a release waits to take the program's place.
    [[nodiscard]] bool isReady() const noexcept { return ready_ != nullptr; }
    /// Replaces the program by the release that is ready, when it still is what was signed. To be
    /// called when the program ends. A failure leaves the program as it is, and the system's log
    /// says why.
    void install() noexcept;

    /// The release that was found last and is newer than this program.
    [[nodiscard]] const std::optional<Release>& available() const noexcept { return available_; }

    using Observation = Observers<>::Observation;
    /// Calls `changed` when something of the above is different.
    [[nodiscard]] Observation observe(std::function<void()> changed) {
        return observers_.add(std::move(changed));
    }

 private:
    struct Look;
    struct Fetch;
    struct Ready {
        std::unique_ptr<AtomicFile> file;
        UpdateKeys::Signature signature;
    };

    void lookDaily();
    void endLook(const std::string& failure);
    [[nodiscard]] Finding judge(const std::string& document);
    void rememberHighest(const ReleaseVersion& newest);
    void endFetch(const std::string& failure);
    [[nodiscard]] std::string acceptFetched();

    Setup setup_;
    Settings& settings_;
    RunLoop& runLoop_;
    Clock now_;
    Downloads& downloads_;
    bool isEnabled_;
    std::unique_ptr<Look> look_;
    std::unique_ptr<Fetch> fetch_;
    std::unique_ptr<Ready> ready_;
    std::optional<Release> available_;
    Observers<> observers_;
    RunLoop::Handle daily_;
    Settings::Observation settingsObservation_;
};

}  // namespace elmworth
