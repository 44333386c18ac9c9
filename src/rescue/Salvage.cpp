// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rescue/Salvage.h"

#include <algorithm>
#include <set>
#include <span>
#include <utility>

#include "records/LibrarySchema.h"
#include "rescue/DetachedFields.h"
#include "rescue/RecordRules.h"
#include "store/sqlite/LibraryMigration.h"
#include "store/sqlite/StoredRows.h"

namespace elmworth {

namespace {

using sqlite::StoredColumn;

std::string words(const Value& value) {
    if (const auto* number = std::get_if<std::int64_t>(&value)) return std::to_string(*number);
    if (const auto* text = std::get_if<std::string>(&value)) return "“" + *text + "”";
    return "nothing";
}

template <class T>
bool take(RecordsByID<T>& records, const Ref<Record>& record) {
    if (record->recordSchema().ordinal != T::schema().ordinal) return false;
    return records.try_emplace(record->id(), std::static_pointer_cast<T>(record)).second;
}

Value instantOf(std::int64_t microseconds) {
    return Value{microseconds};
}

class Salvager {
 public:
    Salvager(const sqlite::LibraryImage& image, Progress& progress)
        : image_(image), rows_(image, librarySchema()), progress_(progress) {}

    Salvaged run() {
        refuseNewer();
        rows_.forEach({[&](const RecordSchema& schema, const PersistentID& id,
                           std::vector<Value>& values) { takeRecord(schema, id, values); },
                       {}},
                      progress_);
        found_.pages = rows_.pages();
        found_.damagedPages = rows_.damagedPages();
        readIndexes();
        return std::move(found_);
    }

 private:
    void refuseNewer() const {
        const auto current = static_cast<std::uint32_t>(librarySchema().version);
        if (!image_.isLibrary() || image_.version() <= current || !rows_.holdsMore()) return;
        throw StoreError(StoreError::Code::other,
                         "The library has version " + sqlite::versionText(image_.version()) +
                             ", which needs a newer Elmworth than this one.");
    }

    void takeRecord(const RecordSchema& schema, const PersistentID& id,
                    std::vector<Value>& values) {
        const std::string title = recordTitle(schema, values);
        for (std::size_t i = 0; i < schema.fields.size(); ++i) {
            if (auto correction = correctionOf(schema, schema.fields[i], values[i]))
                correct(title, *correction, values[i]);
        }
        if (schema.ordinal == TimeEntry::schema().ordinal) {
            if (auto entry = entryCorrectionOf(values))
                correct(title, entry->correction, values[entry->field]);
        }
        const auto record = schema.make(id);
        for (std::size_t i = 0; i < schema.fields.size(); ++i) {
            const auto& field = schema.fields[i];
            // A library of an older version may lack the field: a new record has it.
            if (values[i] == Value{} && !field.optional) continue;
            field.write(*record, std::move(values[i]));
        }
        if (take(found_.clients, record) || take(found_.projects, record) ||
            take(found_.entries, record) || take(found_.invoices, record))
            return;
        found_.remarks.push_back(title + " was there twice; the second was left out.");
    }

    void correct(const std::string& title, Correction& correction, Value& value) {
        found_.remarks.push_back(title + ": " + correction.problem + "; it is " +
                                 words(correction.value) + " now.");
        value = std::move(correction.value);
    }

    void readIndexes() {
        rows_.forEach({[](const RecordSchema& /*schema*/, const PersistentID& /*id*/,
                          std::vector<Value>& /*values*/) {},
                       [&](std::span<const StoredColumn> columns) { takeIndexRow(columns); }},
                      progress_);
        rebuildInvoices();
        rebuildEntries();
        settleTimes();
        mendRelationships();
    }

    void takeIndexRow(std::span<const StoredColumn> columns) {
        const auto id = columns.back().identity();
        if (!id) return;
        if (columns.size() == 2) takePair(columns.front(), *id);
        if (columns.size() == 3) takeTimes(columns, *id);
        if (columns.size() == 4) takeSpan(columns, *id);
    }

    void takePair(const StoredColumn& column, const PersistentID& id) {
        auto& index = found_.index;
        if (const auto owner = column.identity()) index.owners[id] = *owner;
        if (column.kind == StoredColumn::Kind::text) index.numbers[id] = column.bytes;
        if (column.kind == StoredColumn::Kind::integer) index.dates[id] = column.number;
    }

    /// One index has the end of an entry before its start, and only finished ones.
    void takeSpan(std::span<const StoredColumn> columns, const PersistentID& id) {
        using enum StoredColumn::Kind;
        if (columns[1].kind != integer) return;
        const bool isFinished = columns[2].kind == integer;
        if (!isFinished && columns[2].kind != null) return;
        IndexRows::Span span{columns[0].identity(), columns[1].number, std::nullopt};
        if (isFinished) {
            span.start = std::min(columns[1].number, columns[2].number);
            span.end = std::max(columns[1].number, columns[2].number);
        }
        found_.index.entries.insert_or_assign(id, span);
    }

    void takeTimes(std::span<const StoredColumn> columns, const PersistentID& id) {
        using enum StoredColumn::Kind;
        if (columns[0].kind != integer || columns[1].kind != integer) return;
        times_[id] = {columns[1].number, columns[0].number};
    }

    /// A time that the disk gives back wrong is a time like any other, but for the two indexes that
    /// still agree on the right one.
    void settleTimes() {
        for (const auto& [id, times] : times_) {
            const auto span = found_.index.entries.find(id);
            const auto entry = found_.entries.find(id);
            if (span == found_.index.entries.end() || entry == found_.entries.end()) continue;
            const Times stored = timesOf(*entry->second);
            if (times == stored || times != Times{span->second.start, span->second.end} ||
                !isUsable(span->second))
                continue;
            setField(*entry->second, "start", Value{times.first});
            setField(*entry->second, "end", Value{*times.second});
            found_.remarks.push_back("Entry of " + formatISO8601(entry->second->start) + " until " +
                                     formatISO8601(*entry->second->end.get()) +
                                     " was stored with other times, which its indexes belie.");
        }
    }

    void rebuildInvoices() {
        std::set<std::string> known;
        for (const auto& [id, invoice] : found_.invoices) known.insert(invoice->number);
        for (const auto& [id, number] : found_.index.numbers) {
            // A damaged index may tell of a record that never was, but not of its number.
            if (found_.invoices.contains(id) || !isUsable(number) || !known.insert(number).second)
                continue;
            const auto invoice = std::make_shared<Invoice>(id);
            setField(*invoice, "number", number);
            const auto date = found_.index.dates.find(id);
            const Value issued = instantOf(date == found_.index.dates.end() ? 0 : date->second);
            for (const char* field : {"issueDate", "dueDate", "periodStart", "periodEnd"})
                setField(*invoice, field, issued);
            found_.invoices[id] = invoice;
            found_.rebuilt.insert(id);
        }
    }
    [[nodiscard]] static bool isUsable(const std::string& number) {
        const auto& schema = Invoice::schema();
        return !correctionOf(schema, schema.fields[schema.fieldIndex("number")], number);
    }

    void rebuildEntries() {
        using Place = std::pair<std::int64_t, PersistentID>;
        std::set<Place> known;
        for (const auto& [id, entry] : found_.entries) {
            known.emplace(entry->start->time_since_epoch().count(),
                          entry->project.id().value_or(PersistentID{}));
        }
        for (const auto& [id, span] : found_.index.entries) {
            if (found_.entries.contains(id) || !isUsable(span)) continue;
            // The same time must not count twice, whatever a damaged index says of its identity.
            if (!known.emplace(span.start, span.project.value_or(PersistentID{})).second) continue;
            const auto entry = std::make_shared<TimeEntry>(id);
            setField(*entry, "start", instantOf(span.start));
            if (span.end) setField(*entry, "end", instantOf(*span.end));
            if (span.project) setField(*entry, "project", *span.project);
            found_.entries[id] = entry;
            found_.rebuilt.insert(id);
        }
    }
    [[nodiscard]] static bool isUsable(const IndexRows::Span& span) {
        const auto stands = [](std::int64_t number) {
            return hasISO8601(Instant{std::chrono::microseconds{number}});
        };
        return stands(span.start) && (!span.end || stands(*span.end));
    }

    /// What a record points to that is not there, an index may know better.
    void mendRelationships() {
        for (auto& [id, entry] : found_.entries) {
            const auto span = found_.index.entries.find(id);
            const auto project = entry->project.id();
            if (span != found_.index.entries.end() && span->second.project &&
                found_.projects.contains(*span->second.project) && project &&
                !found_.projects.contains(*project))
                setField(*entry, "project", *span->second.project);
            const bool isFinished = entry->end.get().has_value();
            if (isFinished) mend(*entry, "invoice", entry->invoice.id(), found_.invoices);
        }
        for (auto& [id, project] : found_.projects)
            mend(*project, "client", project->client.id(), found_.clients);
        for (auto& [id, invoice] : found_.invoices)
            mend(*invoice, "client", invoice->client.id(), found_.clients);
    }
    template <class T>
    void mend(Record& record, std::string_view field, const std::optional<PersistentID>& target,
              const RecordsByID<T>& targets) {
        const bool isRight =
            target ? targets.contains(*target) : !found_.rebuilt.contains(record.id());
        if (isRight) return;
        const auto owner = found_.index.owners.find(record.id());
        if (owner == found_.index.owners.end()) return;
        if (targets.contains(owner->second) || !target) setField(record, field, owner->second);
    }

    /// Start and end, in microseconds since 1970.
    using Times = std::pair<std::int64_t, std::optional<std::int64_t>>;
    static Times timesOf(const TimeEntry& entry) {
        Times times{entry.start->time_since_epoch().count(), std::nullopt};
        if (entry.end.get()) times.second = entry.end.get()->time_since_epoch().count();
        return times;
    }

    std::unordered_map<PersistentID, Times> times_;  ///< as the index by end has them
    const sqlite::LibraryImage& image_;
    sqlite::StoredRows rows_;
    Progress& progress_;
    Salvaged found_;
};

}  // namespace

Salvaged salvage(const sqlite::LibraryImage& image, Progress& progress) {
    return Salvager(image, progress).run();
}

}  // namespace elmworth
