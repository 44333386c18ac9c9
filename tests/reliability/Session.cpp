// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reliability/Session.h"

#include <QColor>
#include <QImage>
#include <QString>
#include <set>
#include <stdexcept>

#include "command/CommandLine.h"
#include "exchange/AutoBackup.h"
#include "exchange/BackupDecoder.h"
#include "exchange/BackupExporter.h"
#include "exchange/FileSource.h"
#include "platform/AtomicFile.h"
#include "platform/StandardFolders.h"
#include "records/Logo.h"
#include "records/Preferences.h"
#include "support/Instants.h"
#include "support/Snapshots.h"

namespace elmworth::test {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

std::string snapshotText(const AutoBackup::Snapshot& snapshot) {
    const std::string name = "snapshot " + snapshot.url.filename().string();
    try {
        FileSource file(snapshot.url);
        return name + ": " + std::to_string(countBackup(file).entries) + " entries\n";
    } catch (const std::exception& error) {
        return name + ": " + error.what() + '\n';
    }
}

/// One more than are kept is no harm: it goes after the next one.
std::string snapshotsText() {
    std::string text;
    const auto snapshots = AutoBackup::snapshots(dataFolder() / "Backups");
    for (std::size_t i = 0; i < snapshots.size() && i < AutoBackup::snapshotsKept; ++i)
        text += snapshotText(snapshots[i]);
    return text;
}

std::string logoText() {
    const auto logo = loadLogo();
    return logo ? "logo of " + std::to_string(logo->width()) + " pixels\n" : "no logo\n";
}

}  // namespace

Session::Session(fs::path workingFolder, Instant begin)
    : workingFolder_(std::move(workingFolder)),
      now_(begin),
      services_(
          false, [this] { return now_; }, runLoop_) {}

std::string Session::run(const std::vector<std::string>& step) {
    now_ += 24h;
    try {
        if (step.front() == "logo") {
            storeLogoFile(makeLogoFile(workingFolder_ / step.at(1)));
        } else if (step.front() == "snapshot") {
            if (!takeSnapshot(services_.context(), services_.defaults(), now_))
                return "No snapshot was taken.\n";
        } else {
            return runCommandLine(step);
        }
    } catch (const std::exception& error) {  // as those do who let the application do it
        return std::string(error.what()) + '\n';
    }
    return {};
}

std::string Session::runCommandLine(const std::vector<std::string>& step) {
    CommandEnvironment environment{services_.context(),      services_.history(), services_.timer(),
                                   services_.profiles(),     services_.clock(),   Locale("en_US"),
                                   {Locale("en_US"), "UTC"}, workingFolder_};
    const auto commandLine = parseCommandLine(step);
    const auto result =
        commandLine.answer ? *commandLine.answer : runCommand(commandLine, environment);
    if (result.exitStatus != 0 && result.errors.empty()) return "refused without a word\n";
    return result.exitStatus == 0 ? "" : result.errors;
}

std::string Session::settings() {
    std::string text;
    for (const auto* preference : preferences::all()) {
        text += std::string(preference->key) + ' ' +
                preferenceText(services_.defaults(), *preference) + ' ' +
                std::to_string(preferenceNumber(services_.defaults(), *preference)) + '\n';
    }
    return text;
}

/// With the number that the next invoice takes: an invoice is there before its number is counted,
/// but a number that is taken is passed over.
BusinessProfile Session::profile() {
    auto profile = services_.profiles().profile();
    profile.applyYearlyReset(2026);
    std::set<std::string> taken;
    for (const auto& invoice : services_.context().fetch<Invoice>()) taken.insert(invoice->number);
    while (taken.contains(profile.formattedInvoiceNumber(2026))) ++profile.nextInvoiceNumber;
    return profile;
}

std::string Session::contents() {
    std::string text;
    const auto append = [&](std::string_view bytes) { text += bytes; };
    try {
        BackupExporter::write(services_.context(), profile(), now_, append);
    } catch (const std::exception& error) {
        text += std::string("unreadable: ") + error.what();
    }
    return text + '\n' + settings() + logoText() + snapshotsText();
}

std::string Session::tryTo(const std::function<std::string()>& work) {
    try {
        return work();
    } catch (const LibraryError& error) {
        return std::string(error.what()) + '\n';
    } catch (const fs::filesystem_error& error) {
        return "Could not create ModelContainer: " + error.path1().string() + ": " +
               error.code().message() + '\n';
    }
}

void writePicture(const fs::path& file, int side) {
    QImage picture(side, side, QImage::Format_ARGB32);
    for (int y = 0; y < side; ++y) {
        for (int x = 0; x < side; ++x)
            picture.setPixelColor(x, y, QColor(x % 256, y % 256, side % 256));
    }
    if (!picture.save(QString::fromStdString(file.string()), "PNG"))
        throw std::runtime_error(file.string());
}

}  // namespace elmworth::test
