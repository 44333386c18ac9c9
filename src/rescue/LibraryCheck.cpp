// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rescue/LibraryCheck.h"

#include <memory>
#include <unordered_map>
#include <unordered_set>
#include <utility>

#include "invoicing/InvoiceFigures.h"
#include "platform/Text.h"
#include "records/LibrarySchema.h"
#include "records/TimeEntry.h"
#include "rescue/RecordRules.h"
#include "store/sqlite/FileFaults.h"
#include "store/sqlite/LibraryMigration.h"
#include "store/sqlite/RecordStore.h"
#include "store/sqlite/StoredRows.h"

namespace elmworth {

namespace {

/// The rules that the records of a library keep, one by one and with each other.
class RecordCheck {
 public:
    RecordCheck(const sqlite::LibraryImage& image, LibraryReport& report, Progress& progress)
        : rows_(image, librarySchema()), report_(report), progress_(progress) {}

    void run() {
        rows_.forEach({[&](const RecordSchema& schema, const PersistentID& id,
                           std::vector<Value>& /*values*/) { noteIdentity(schema, id); },
                       {}},
                      progress_);
        rows_.forEach({[&](const RecordSchema& schema, const PersistentID& id,
                           std::vector<Value>& values) { checkRecord(schema, id, values); },
                       {}},
                      progress_);
        if (const auto pages = rows_.damagedPages(); pages > 0) {
            report_.findings.push_back(
                {"The file", std::nullopt, counted(pages, "page", "pages") + " can't be read"});
        }
        for (std::size_t i = 1; i < running_.size(); ++i) checkRunning(i);
    }

 private:
    struct Running {
        std::int64_t start;
        PersistentID id;
        std::string title;
    };

    void noteIdentity(const RecordSchema& schema, const PersistentID& id) {
        const auto [place, isNew] = types_.try_emplace(id, schema.ordinal);
        if (isNew) ++report_.records[schema.ordinal];
        // The trees would refuse it, but not what a damaged one shows.
        if (!isNew) twice_.insert(id);
    }

    void checkRecord(const RecordSchema& schema, const PersistentID& id,
                     const std::vector<Value>& values) {
        const auto found = [&](std::string problem) {
            report_.findings.push_back({recordTitle(schema, values), id, std::move(problem)});
        };
        for (std::size_t i = 0; i < schema.fields.size(); ++i) {
            const auto& field = schema.fields[i];
            if (const auto correction = correctionOf(schema, field, values[i]))
                found(correction->problem);
            if (field.target && isLost(field.target(), values[i]))
                found("its " + std::string(field.name) + " is not there");
        }
        if (twice_.contains(id)) found("is there more than once");
        if (schema.ordinal != TimeEntry::schema().ordinal) return;
        if (const auto entry = entryCorrectionOf(values)) found(entry->correction.problem);
        noteRunning(id, values);
    }

    [[nodiscard]] bool isLost(const RecordSchema& target, const Value& value) const {
        const auto* id = std::get_if<PersistentID>(&value);
        if (!id) return false;
        const auto found = types_.find(*id);
        return found == types_.end() || found->second != target.ordinal;
    }

    void noteRunning(const PersistentID& id, const std::vector<Value>& values) {
        const auto& schema = TimeEntry::schema();
        if (!std::holds_alternative<std::monostate>(values[schema.fieldIndex("end")])) return;
        running_.push_back({std::get<std::int64_t>(values[schema.fieldIndex("start")]), id,
                            recordTitle(schema, values)});
        // The one that began last is the timer.
        if (running_.back().start > running_.front().start)
            std::swap(running_.back(), running_.front());
    }

    void checkRunning(std::size_t i) {
        report_.findings.push_back(
            {running_[i].title, running_[i].id, "runs beside another timer"});
    }

    sqlite::StoredRows rows_;
    LibraryReport& report_;
    Progress& progress_;
    std::unordered_map<PersistentID, std::size_t> types_;
    std::unordered_set<PersistentID> twice_;
    std::vector<Running> running_;
};

void checkFile(const sqlite::LibraryImage& image, std::vector<Finding>& findings,
               Progress& progress) {
    const auto found = [&](std::string problem) {
        findings.push_back({"The file", std::nullopt, std::move(problem)});
    };
    if (!image.isLibrary()) found("is no Elmworth library, or its head is damaged");
    if (image.isLibrary() && !librarySchema().canRead(static_cast<int>(image.version()))) {
        found("has version " + sqlite::versionText(image.version()) +
              ", which this Elmworth does not know");
    }
    if (image.unreadableBytes() > 0)
        found("the disk can't read " + counted(image.unreadableBytes(), "byte", "bytes") +
              " of it");
    if (image.lostCommits() > 0) {
        found("its log is damaged, and hides the last " +
              counted(image.lostCommits(), "change", "changes"));
    }
    try {
        auto database = image.open();
        for (auto& fault : sqlite::integrityFaults(database, progress)) found(std::move(fault));
        if (image.version() != static_cast<std::uint32_t>(librarySchema().version)) return;
        for (auto& fault : sqlite::shapeFaults(database, librarySchema())) found(std::move(fault));
    } catch (const StoreError& error) {
        found(error.what());
    }
}

bool isSame(const InvoiceCalculator::Totals& a, const InvoiceCalculator::Totals& b) {
    return a.subtotalCents == b.subtotalCents && a.taxCents == b.taxCents &&
           a.totalCents == b.totalCents;
}

void checkFigures(UnitOfWork& context, std::vector<Finding>& findings, Progress& progress) {
    const auto invoices = context.fetch<Invoice>();
    const InvoiceFigures figures(context, invoices);
    std::size_t done = 0;
    for (const auto& invoice : invoices) {
        const auto found = [&](std::string problem) {
            findings.push_back(
                {"Invoice " + invoice->number.get(), invoice->id(), std::move(problem)});
        };
        try {
            if (!isSame(InvoiceCalculator::totals(*invoice), figures.totals(*invoice)))
                found("its figures differ when they are computed in another way");
        } catch (const FiguresError&) {
            found("its figures can't be told");
        }
        progress.advance("Computing", ++done, invoices.size());
    }
}

void checkInvoices(const sqlite::LibraryImage& image, std::vector<Finding>& findings,
                   Progress& progress) {
    NoRunLoop runLoop;
    try {
        UnitOfWork context(std::make_unique<sqlite::RecordStore>(image.open()),
                           librarySchema().types, runLoop);
        checkFigures(context, findings, progress);
    } catch (const StoreError&) {
        findings.push_back({"The invoices", std::nullopt, "they can't all be read"});
    }
}

}  // namespace

LibraryReport checkLibrary(const sqlite::LibraryImage& image, Progress& progress) {
    LibraryReport report;
    report.version = image.version();
    const auto current = static_cast<std::uint32_t>(librarySchema().version);
    if (image.isLibrary() && report.version > current) {
        throw StoreError(StoreError::Code::other,
                         "The library has version " + sqlite::versionText(report.version) +
                             ", which needs a newer Elmworth than this one.");
    }
    checkFile(image, report.findings, progress);
    RecordCheck(image, report, progress).run();
    checkInvoices(image, report.findings, progress);
    return report;
}

}  // namespace elmworth
