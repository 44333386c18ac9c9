// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A library whose file the disk gives back wrong: single bytes, and all pages from some page on. A
// process of its own meets each of them, and either works or says what is wrong. ELMWORTH_FLIPS
// says how many bytes, and ELMWORTH_SEED which; the pages are all.

#include <gtest/gtest.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <random>

#include "invoicing/InvoiceFigures.h"
#include "rescue/LibraryCheck.h"
#include "rescue/Recovery.h"
#include "support/Instants.h"
#include "support/RawDatabase.h"
#include "support/TestLibrary.h"
#include "tracking/TimerService.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using test::at;

int number(const char* variable, int otherwise) {
    const char* text = std::getenv(variable);
    return text != nullptr ? std::atoi(text) : otherwise;
}

/// What becomes of a damaged library, as the exit status of the process that met it.
enum Outcome {
    works,          ///< and nothing was noticed
    refused,        ///< by the program's fatal message
    toldInReading,  ///< part of it could not be read
    toldInWriting,  ///< a change could not be saved
    outcomeCount,
    hoursLost = 64,    ///< added: the recovered library has less time than the sound one
    checkSilent = 128  ///< added: the check found nothing
};

/// Some hundred kilobytes: two years of work, most of it billed.
void fill(test::TestLibrary& library) {
    std::mt19937 random(1);
    std::vector<Ref<Project>> projects;
    std::vector<Ref<Invoice>> invoices;
    for (int i = 0; i < 6; ++i) {
        const auto client = library.addClient("Client " + std::to_string(i));
        client->address = "1 Main St\nSpringfield";
        projects.push_back(library.addProject("Website " + std::to_string(i), client));
        for (int n = 0; n < 4; ++n) {
            const auto number = "INV-2025-" + std::to_string(100 + 10 * i + n);
            invoices.push_back(library.addInvoice(number, client));
            invoices.back()->currencyCode = "USD";
        }
    }
    for (int i = 0; i < 700; ++i) {
        const std::size_t project = random() % projects.size();
        const Instant start = at("2025-01-01T08:00Z") + std::chrono::hours(12 * i);
        const auto entry =
            library.addEntry(projects[project], start, start + std::chrono::minutes(20 + i % 200));
        entry->notes = std::string(random() % 90, 'n');
        if (i > 600) continue;
        entry->invoice = invoices[4 * project + random() % 4];
        entry->billedRateCents = 12000;
    }
    library.context().save();
}

std::size_t readAll(UnitOfWork& context) {
    const std::size_t before = context.readFaults().count();
    try {
        for (const auto& client : context.fetch<Client>()) static_cast<void>(client->invoices());
        for (const auto& project : context.fetch<Project>())
            static_cast<void>(project->effectiveRateCents());
        for (const auto& entry : context.fetch<TimeEntry>())
            static_cast<void>(entry->effectiveRateCents());
        const auto invoices = context.fetch<Invoice>();
        const InvoiceFigures figures(context, invoices);
        for (const auto& invoice : invoices) {
            try {
                static_cast<void>(figures.totals(*invoice));
                static_cast<void>(InvoiceCalculator::totals(*invoice));
            } catch (const FiguresError&) {
                continue;  // the sentence that stands in their place
            }
        }
    } catch (const StoreError&) {
        return context.readFaults().count() - before + 1;
    }
    return context.readFaults().count() - before;
}

/// Opens the library as the program does, reads all of it, and starts and stops the timer.
Outcome use(const fs::path& file) {
    NoRunLoop runLoop;
    try {
        Library library({file}, runLoop);
        auto& context = library.mainContext();
        const bool isTold = readAll(context) > 0;
        Instant now = at("2026-12-01T09:00Z");
        TimerService timer(
            context, [&] { return now; }, runLoop, [] { return Calendar(Locale("en_US"), "UTC"); });
        timer.restore();
        const auto projects = context.fetchQuietly<Project>();
        timer.start(projects.empty() ? nullptr : projects.front());
        now += std::chrono::hours(1);
        timer.stop();
        if (context.hasChanges()) return toldInWriting;
        return isTold ? toldInReading : works;
    } catch (const LibraryError&) {
        return refused;
    }
}

double hoursIn(const fs::path& library) {
    NoRunLoop runLoop;
    Library opened({library}, runLoop);
    double seconds = 0;
    for (const auto& entry : opened.mainContext().fetch<TimeEntry>())
        seconds += entry->duration(entry->start);
    return seconds / 3600;
}

bool checkIsSilent(const fs::path& file) {
    try {
        return checkLibrary(sqlite::LibraryImage(file)).findings.empty();
    } catch (const StoreError&) {
        return false;  // it looks as if a newer program had made it
    }
}

/// Whether the recovered library has the time of the sound one, or none could be recovered.
bool keepsTime(const fs::path& file, const fs::path& target, double hours) {
    try {
        const auto report = recoverLibrary({file, file.parent_path() / "none", {}}, target,
                                           at("2026-12-01T12:00Z"));
        return hoursIn(report.library) >= hours - 0.01;
    } catch (const RecoveryError&) {
        return false;
    } catch (const StoreError&) {
        return false;
    }
}

class DamagedFile : public testing::Test {
 protected:
    DamagedFile() {
        test::TestLibrary library;
        fill(library);
        library.close();
        hours_ = hoursIn(library.file());
        test::RawDatabase raw(library.file());
        raw.run("PRAGMA wal_checkpoint(TRUNCATE)");
        pageSize_ = std::stoul(raw.rows("PRAGMA page_size").front());
        sound_ = readFile(library.file());
    }

    /// What a process of its own makes of a library of these bytes. It never ends by a signal, and
    /// the file stays as it is.
    void meet(const std::string& bytes, const std::string& what) {
        const test::TemporaryFolder folder;
        const auto file = folder.path() / "library.sqlite";
        std::ofstream(file, std::ios::binary) << bytes;
        const pid_t process = ::fork();
        if (process == 0) ::_exit(outcomeOf(file));
        int status = 0;
        ::waitpid(process, &status, 0);
        ASSERT_TRUE(WIFEXITED(status)) << what << ": signal " << WTERMSIG(status);
        const int code = WEXITSTATUS(status);
        const int outcome = code & ~(hoursLost | checkSilent);
        ASSERT_LT(outcome, outcomeCount) << what;
        EXPECT_EQ(readFile(file), bytes) << what << ": the damaged file was written";
        ++outcomes_[static_cast<std::size_t>(outcome)];
        if ((code & hoursLost) != 0) ++hoursLost_;
        if ((code & checkSilent) != 0) ++silent_[static_cast<std::size_t>(outcome)];
    }

    [[nodiscard]] int outcomeOf(const fs::path& file) const noexcept {
        try {
            const bool isSilent = checkIsSilent(file);
            const bool isKept = keepsTime(file, file.parent_path() / "new", hours_);
            return use(file) + (isKept ? 0 : hoursLost) + (isSilent ? checkSilent : 0);
        } catch (const std::exception& error) {
            std::cerr << error.what() << '\n';
            return 63;
        }
    }

    void report(const char* what) const {
        std::cout << what << ": " << outcomes_[works] << " work, " << outcomes_[refused]
                  << " refused, " << outcomes_[toldInReading] << " told in reading, "
                  << outcomes_[toldInWriting] << " told in writing; check found nothing in "
                  << silent_[works] << " that work and in "
                  << silent_[refused] + silent_[toldInReading] + silent_[toldInWriting]
                  << " others; " << hoursLost_ << " recovered with less time than before, of a "
                  << "library of " << sound_.size() << " bytes\n";
        EXPECT_EQ(silent_[refused] + silent_[toldInReading] + silent_[toldInWriting], 0)
            << "what the program can't use, the check finds";
    }

    std::string sound_;
    std::size_t pageSize_ = 0;
    double hours_ = 0;
    std::array<int, outcomeCount> outcomes_{};
    std::array<int, outcomeCount> silent_{};
    int hoursLost_ = 0;
};

TEST_F(DamagedFile, withAByteFlippedIsUsedOrRefusedButNeitherCrashesNorIsWritten) {
    std::mt19937 random(static_cast<unsigned>(number("ELMWORTH_SEED", 1)));
    const int count = number("ELMWORTH_FLIPS", 150);
    for (int i = 0; i < count && !HasFatalFailure(); ++i) {
        auto bytes = sound_;
        const std::size_t place = random() % bytes.size();
        bytes[place] = static_cast<char>(bytes[place] ^ static_cast<char>(1 + random() % 255));
        meet(bytes, "byte " + std::to_string(place) + " of case " + std::to_string(i));
    }
    report("flipped bytes");
}

TEST_F(DamagedFile, cutOffAtAPageIsUsedOrRefusedButNeitherCrashesNorIsWritten) {
    for (std::size_t size = pageSize_; size < sound_.size() && !HasFatalFailure();
         size += pageSize_)
        meet(sound_.substr(0, size), "cut off at " + std::to_string(size));
    report("cut off pages");
}

}  // namespace
}  // namespace elmworth
