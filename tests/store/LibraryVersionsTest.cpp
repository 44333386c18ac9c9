// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <set>

#include "records/LibrarySchema.h"
#include "support/RawDatabase.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

namespace fs = std::filesystem;
using test::RawDatabase;
using test::TestLibrary;
using namespace std::string_literals;

/// The library that a former version wrote: of each type a record with all fields set, some to the
/// last value that they can have, and one in which each optional field is absent.
fs::path libraryOf(const std::string& version) {
    return fs::path(ELMWORTH_TEST_DATA) / "library" / ("library-" + version + ".sqlite");
}
fs::path libraryOfVersionOne() {
    return libraryOf("1.0.0");
}

PersistentID id(std::uint8_t number) {
    PersistentID made;
    made.bytes = {0x01, 0x9c, 0x1d, 0x2e, 0x3f, 0x40, 0x70, 0, 0x80, 0, 0, 0, 0, 0, 0, number};
    return made;
}

constexpr std::uint8_t setClient = 1, unsetClient = 2, setProject = 3, unsetProject = 4,
                       setEntry = 5, unsetEntry = 6, setInvoice = 7, unsetInvoice = 8;

constexpr std::int64_t smallest = std::numeric_limits<std::int64_t>::min();
constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();

struct StoredValue {
    const RecordSchema& (*schema)();
    std::uint8_t record;
    const char* field;
    Value value;
};

const Value none;

const StoredValue storedValues[] = {
    {&Client::schema, setClient, "name", "Caf\xC3\xA9 \"Z\xC3\xBCrich\" & S\xC3\xB6hne"s},
    {&Client::schema, setClient, "email", "billing@cafe.example"s},
    {&Client::schema, setClient, "address", "1 Main St\nSpringfield\r\n\xF0\x9F\x8F\xA0"s},
    {&Client::schema, setClient, "currencyCode", "JPY"s},
    {&Client::schema, setClient, "hourlyRateCents", largest},
    {&Client::schema, setClient, "createdAt", 1772355600123456},
    {&Client::schema, setClient, "dueDays", 0},
    {&Client::schema, setClient, "taxBasisPoints", 825},
    {&Client::schema, unsetClient, "name", ""s},
    {&Client::schema, unsetClient, "email", ""s},
    {&Client::schema, unsetClient, "address", ""s},
    {&Client::schema, unsetClient, "currencyCode", "USD"s},
    {&Client::schema, unsetClient, "hourlyRateCents", 10000},
    {&Client::schema, unsetClient, "createdAt", -1},
    {&Client::schema, unsetClient, "dueDays", none},
    {&Client::schema, unsetClient, "taxBasisPoints", none},

    {&Project::schema, setProject, "name", "name"s},
    {&Project::schema, setProject, "client", id(setClient)},
    {&Project::schema, setProject, "rateOverrideCents", 0},
    {&Project::schema, setProject, "colorHex", "#00C2A8"s},
    {&Project::schema, setProject, "isArchived", 1},
    {&Project::schema, setProject, "budgetHours", 40},
    {&Project::schema, unsetProject, "name", "Website"s},
    {&Project::schema, unsetProject, "client", none},
    {&Project::schema, unsetProject, "rateOverrideCents", none},
    {&Project::schema, unsetProject, "colorHex", "#4F7CFF"s},
    {&Project::schema, unsetProject, "isArchived", 0},
    {&Project::schema, unsetProject, "budgetHours", none},

    {&TimeEntry::schema, setEntry, "start", 1772355600000000},
    {&TimeEntry::schema, setEntry, "end", 1772359200000001},
    {&TimeEntry::schema, setEntry, "notes", "a\0b"s},
    {&TimeEntry::schema, setEntry, "project", id(setProject)},
    {&TimeEntry::schema, setEntry, "invoice", id(setInvoice)},
    {&TimeEntry::schema, setEntry, "billedRateCents", 12050},
    {&TimeEntry::schema, unsetEntry, "start", 1772442000000000},
    {&TimeEntry::schema, unsetEntry, "end", none},
    {&TimeEntry::schema, unsetEntry, "notes", ""s},
    {&TimeEntry::schema, unsetEntry, "project", none},
    {&TimeEntry::schema, unsetEntry, "invoice", none},
    {&TimeEntry::schema, unsetEntry, "billedRateCents", none},

    {&Invoice::schema, setInvoice, "number", "INV-2026-001"s},
    {&Invoice::schema, setInvoice, "client", id(setClient)},
    {&Invoice::schema, setInvoice, "issueDate", 1772355600000000},
    {&Invoice::schema, setInvoice, "dueDate", 1774947600000000},
    {&Invoice::schema, setInvoice, "periodStart", 1769900400000000},
    {&Invoice::schema, setInvoice, "periodEnd", 1772319600000000},
    {&Invoice::schema, setInvoice, "taxRateBasisPoints", smallest},
    {&Invoice::schema, setInvoice, "statusRaw", "paid"s},
    {&Invoice::schema, setInvoice, "roundingMinutes", 15},
    {&Invoice::schema, setInvoice, "notes", "Thank you"s},
    {&Invoice::schema, setInvoice, "paidAt", 1772400000000000},
    {&Invoice::schema, setInvoice, "showsEntryDetails", 0},
    {&Invoice::schema, setInvoice, "businessSnapshot", Blob{"{\"name\":\"Jane\"}\0\xFF"s}},
    {&Invoice::schema, setInvoice, "currencyCode", "EUR"s},
    {&Invoice::schema, unsetInvoice, "number", "INV-2026-002"s},
    {&Invoice::schema, unsetInvoice, "client", none},
    {&Invoice::schema, unsetInvoice, "issueDate", 0},
    {&Invoice::schema, unsetInvoice, "dueDate", 0},
    {&Invoice::schema, unsetInvoice, "periodStart", 0},
    {&Invoice::schema, unsetInvoice, "periodEnd", 0},
    {&Invoice::schema, unsetInvoice, "taxRateBasisPoints", 0},
    {&Invoice::schema, unsetInvoice, "statusRaw", "draft"s},
    {&Invoice::schema, unsetInvoice, "roundingMinutes", 6},
    {&Invoice::schema, unsetInvoice, "notes", ""s},
    {&Invoice::schema, unsetInvoice, "paidAt", none},
    {&Invoice::schema, unsetInvoice, "showsEntryDetails", 1},
    {&Invoice::schema, unsetInvoice, "businessSnapshot", none},
    {&Invoice::schema, unsetInvoice, "currencyCode", ""s},
};

class VersionOne : public testing::TestWithParam<StoredValue> {};

TEST_P(VersionOne, isReadValueByValue) {
    TestLibrary library(readFile(libraryOfVersionOne()));
    const auto& [schema, record, field, value] = GetParam();
    const auto read = library.context().record(schema(), id(record));
    ASSERT_TRUE(read);
    EXPECT_EQ(schema().fields[schema().fieldIndex(field)].read(*read), value);
}

INSTANTIATE_TEST_SUITE_P(Values, VersionOne, testing::ValuesIn(storedValues), [](const auto& row) {
    const bool isSet = row.param.record % 2 == 1;
    return std::string(row.param.schema().name) + '_' + row.param.field + (isSet ? "" : "_unset");
});

/// What tells tables and indexes apart, whatever order their columns came in.
std::set<std::string> tablesOf(const fs::path& file) {
    RawDatabase raw(file);
    std::set<std::string> found;
    for (const auto& row :
         raw.rows("SELECT t.name, c.name, c.type, c.\"notnull\", c.pk FROM sqlite_schema AS t, "
                  "pragma_table_info(t.name) AS c WHERE t.type = 'table'"))
        found.insert(row);
    for (const auto& row :
         raw.rows("SELECT t.name, k.\"from\", k.\"table\", k.on_delete FROM sqlite_schema AS t, "
                  "pragma_foreign_key_list(t.name) AS k WHERE t.type = 'table'"))
        found.insert(row);
    for (const auto& row : raw.rows("SELECT name, sql FROM sqlite_schema WHERE type = 'index'"))
        found.insert(row);
    return found;
}

class FormerLibrary : public testing::TestWithParam<const char*> {};

TEST_P(FormerLibrary, hasTheTablesAndIndexesOfANewOneOnceItWasOpened) {
    TestLibrary old(readFile(libraryOf(GetParam())));
    TestLibrary fresh;
    old.close();
    fresh.close();
    EXPECT_EQ(tablesOf(old.file()), tablesOf(fresh.file()));
    EXPECT_EQ(RawDatabase(old.file()).faults(), std::vector<std::string>{});
    EXPECT_EQ(RawDatabase(old.file()).rows("PRAGMA user_version"),
              std::vector{std::to_string(librarySchema().version)});
}

INSTANTIATE_TEST_SUITE_P(Versions, FormerLibrary, testing::Values("1.0.0", "1.1.0"),
                         [](const auto& row) {
                             std::string name = row.param;
                             std::replace(name.begin(), name.end(), '.', '_');
                             return name;
                         });

TEST(LibraryOfVersionOne, canBeWrittenOnceItWasOpened) {
    TestLibrary library(readFile(libraryOfVersionOne()));
    const auto project = library.addProject("New", library.addClient("Client"));
    library.addEntry(project, Instant{}, std::nullopt);
    library.context().record<Project>(id(unsetProject))->name = "Renamed";
    library.context().save();
    library.reopen();
    EXPECT_EQ(library.context().record<Project>(id(unsetProject))->name.get(), "Renamed");
    EXPECT_EQ(library.context().fetchCount<TimeEntry>(), 3U);
}

TEST(Columns, thatATableLacksAreAnErrorAndNotTheirOwnNames) {
    TestLibrary library(readFile(libraryOfVersionOne()));
    library.close();
    RawDatabase(library.file()).run("ALTER TABLE Client RENAME COLUMN email TO mail");
    library.open();
    EXPECT_THROW((void)library.context().fetch<Client>(), StoreError);
    library.addClient("Acme");
    EXPECT_THROW(library.context().save(), StoreError);
}

TEST(Columns, mayStandInAnotherOrder) {
    TestLibrary library;
    library.close();
    RawDatabase(library.file())
        .run(
            "ALTER TABLE Client DROP COLUMN name;"
            "ALTER TABLE Client ADD COLUMN name TEXT NOT NULL DEFAULT ''");
    library.open();
    library.addClient("Acme")->email = "billing@acme.example";
    library.context().save();
    library.reopen();
    const auto client = library.context().fetch<Client>().at(0);
    EXPECT_EQ(client->name.get(), "Acme");
    EXPECT_EQ(client->email.get(), "billing@acme.example");
}

}  // namespace
}  // namespace elmworth
