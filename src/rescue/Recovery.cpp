// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rescue/Recovery.h"

#include <memory>
#include <utility>

#include "exchange/AutoBackup.h"
#include "exchange/BackupDecoder.h"
#include "exchange/BackupExporter.h"
#include "exchange/Restore.h"
#include "platform/AtomicFile.h"
#include "platform/StandardFolders.h"
#include "records/LibrarySchema.h"
#include "rescue/LibraryCheck.h"
#include "store/StepRule.h"
#include "store/sqlite/LibraryFile.h"
#include "store/sqlite/RecordStore.h"

namespace elmworth {

namespace {

namespace fs = std::filesystem;

/// A library in memory, which can become a file.
class MemoryLibrary {
 public:
    explicit MemoryLibrary(RunLoop& runLoop) {
        const auto& model = librarySchema();
        auto store = std::make_unique<sqlite::RecordStore>(sqlite::openLibraryInMemory(model));
        database_ = &store->database();
        context_ = std::make_unique<UnitOfWork>(std::move(store), model.types, runLoop);
    }

    [[nodiscard]] UnitOfWork& context() { return *context_; }
    [[nodiscard]] std::string bytes() const { return sqlite::serialized(*database_); }

 private:
    const sqlite::Database* database_ = nullptr;  ///< of the context
    std::unique_ptr<UnitOfWork> context_;
};

class Recovery {
 public:
    Recovery(const RecoverySource& source, fs::path folder, Instant now, Progress& progress)
        : source_(source), folder_(std::move(folder)), now_(now), progress_(progress) {}

    RecoveryReport run() {
        refuseUsedFolder();
        auto found = readLibrary();
        SnapshotCompletion completion(found);
        if (completion.needsSnapshot()) addSnapshot(completion);
        completion.finish();
        report_.counts = completion.counts();
        if (!hasLibrary_ && !report_.snapshot) {
            throw RecoveryError("Nothing of the library " + source_.library.string() +
                                " can be read, and there is no snapshot.");
        }
        fill(found);
        report_.remarks.insert(report_.remarks.end(), found.remarks.begin(), found.remarks.end());
        write();
        return std::move(report_);
    }

 private:
    void refuseUsedFolder() const {
        std::error_code error;
        const auto status = fs::status(folder_, error);
        if (!fs::exists(status)) return;
        if (!fs::is_directory(status) || !fs::is_empty(folder_)) {
            throw RecoveryError("The folder " + folder_.string() +
                                " is not empty. Name a new one, so that nothing is overwritten.");
        }
    }

    Salvaged readLibrary() {
        Salvaged found;
        try {
            const sqlite::LibraryImage image(source_.library);
            found = salvage(image, progress_);
            const bool isEmpty = image.isLibrary() && !found.isIncomplete();
            hasLibrary_ = isEmpty || holdsAny(found);
            tellOfLog(image);
        } catch (const fs::filesystem_error& error) {
            report_.remarks.push_back("The library could not be read: " + error.path1().string() +
                                      ": " + error.code().message() + '.');
        }
        // Without any page there is nothing that the snapshot could contradict.
        if (!hasLibrary_ && found.damagedPages == 0) found.damagedPages = 1;
        report_.pages = found.pages;
        report_.damagedPages = hasLibrary_ ? found.damagedPages : found.pages;
        return found;
    }
    static bool holdsAny(const Salvaged& found) {
        return !found.clients.empty() || !found.projects.empty() || !found.entries.empty() ||
               !found.invoices.empty();
    }
    void tellOfLog(const sqlite::LibraryImage& image) {
        if (image.lostCommits() == 0) return;
        report_.remarks.push_back("The log of the library is damaged. The last " +
                                  std::to_string(image.lostCommits()) +
                                  " changes that it held are lost.");
    }

    /// An older snapshot is better than none.
    void addSnapshot(SnapshotCompletion& completion) {
        for (const auto& snapshot : AutoBackup::snapshots(source_.snapshots)) {
            try {
                FileSource file(snapshot.url);
                const auto backup = decodeBackup(file, progress_);
                MemoryLibrary library(runLoop_);
                restore(backup, library.context(), progress_);
                completion.addSnapshot(library.context());
                report_.snapshot = snapshot.date;
                snapshotProfile_ = backup.profile;
                return;
            } catch (const BackupDecodeError& error) {
                skip(snapshot, error.what());
            } catch (const RestoreError& error) {
                skip(snapshot, error.what());
            } catch (const fs::filesystem_error& error) {
                skip(snapshot, error.code().message() + '.');
            }
        }
    }
    void skip(const AutoBackup::Snapshot& snapshot, const std::string& reason) {
        report_.remarks.push_back("The snapshot " + snapshot.url.filename().string() +
                                  " could not be used: " + reason);
    }

    template <class T>
    void insert(const RecordsByID<T>& records) {
        for (const auto& [id, record] : records) {
            library_.context().insert(record);
            if (++inserted_ % insertsAtOnce == 0) library_.context().flushInserts();
        }
    }

    void fill(const Salvaged& found) {
        insert(found.clients);
        insert(found.projects);
        insert(found.invoices);
        insert(found.entries);
        library_.context().save(progress_);
    }

    void write() {
        report_.library = folder_ / "library.sqlite";
        report_.backup = folder_ / "backup.json";
        report_.remarksFile = folder_ / "remarks.txt";
        createPrivateFolder(folder_);
        const auto profile = source_.profile.value_or(snapshotProfile_);
        const auto counts =
            BackupExporter::writeFile(library_.context(), profile, now_, report_.backup, progress_);
        const auto entries = library_.context().fetchCount<TimeEntry>();
        if (counts.entries < entries) {
            report_.remarks.push_back("The backup document lacks " +
                                      std::to_string(entries - counts.entries) +
                                      " entries without a project, which the library holds.");
        }
        // What can't be set right without changing figures is for a person.
        const std::string bytes = library_.bytes();
        for (const auto& finding : checkLibrary(sqlite::LibraryImage(bytes), progress_).findings)
            report_.remarks.push_back(finding.line());
        std::string remarks;
        for (const auto& remark : report_.remarks) remarks += remark + '\n';
        writeAtomically(report_.remarksFile, remarks);
        // Last: where it is, the rest is, too.
        writeAtomically(report_.library, bytes);
    }

    static constexpr std::size_t insertsAtOnce = 4096;

    const OutsideSteps recovering_;
    const RecoverySource& source_;
    fs::path folder_;
    Instant now_;
    Progress& progress_;
    NoRunLoop runLoop_;
    MemoryLibrary library_{runLoop_};
    RecoveryReport report_;
    BusinessProfile snapshotProfile_;
    bool hasLibrary_ = false;
    std::size_t inserted_ = 0;
};

}  // namespace

RecoveryReport recoverLibrary(const RecoverySource& source, const fs::path& folder, Instant now,
                              Progress& progress) {
    return Recovery(source, folder, now, progress).run();
}

}  // namespace elmworth
