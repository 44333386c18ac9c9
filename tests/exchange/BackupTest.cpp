// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/Backup.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <set>
#include <string_view>

#include "exchange/BackupDecoder.h"
#include "exchange/BackupDocuments.h"
#include "exchange/BackupExporter.h"
#include "exchange/BackupWalk.h"
#include "exchange/Restore.h"
#include "platform/AtomicFile.h"
#include "support/BackupObjects.h"
#include "support/Golden.h"
#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using test::TestLibrary;
using test::valueOf;
using testing::HasSubstr;

const Instant exportedAt = at("2026-03-10T12:00Z");

Backup backupOf(TestLibrary& library) {
    return test::makeBackup(library.context(), {}, exportedAt);
}

/// Two clients of one name, entries billed, unbilled and running, an invoice of the second client.
void fill(TestLibrary& library) {
    const auto first = library.addClient("Acme");
    const auto second = library.addClient("Acme");
    const auto web = library.addProject("Web", first);
    const auto app = library.addProject("App", second);
    library.addEntry(web, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"))->notes =
        "“Größe”\n日本";
    library.addEntry(web, at("2026-03-02T09:00Z"), std::nullopt);
    const auto billed = library.addEntry(app, at("2026-03-03T09:00Z"), at("2026-03-03T10:30Z"));
    const auto invoice = library.addInvoice("INV-2026-001", second);
    invoice->issueDate = at("2026-03-04T08:00Z");
    invoice->dueDate = at("2026-03-18T08:00Z");
    invoice->periodStart = at("2026-03-01T00:00Z");
    invoice->periodEnd = at("2026-04-01T00:00Z");
    BusinessProfile snapshot;
    snapshot.name = "Jane";
    invoice->businessSnapshot = Blob{encodeProfile(snapshot)};
    billed->invoice = invoice;
    billed->billedRateCents = 12345;
    library.context().save();
}

TEST(Backup, emptyLibraryGivesADocumentWithEmptyLists) {
    TestLibrary library;
    const std::string json = test::encode(backupOf(library));
    EXPECT_THAT(json, HasSubstr("\"clients\": []"));
    EXPECT_THAT(json, HasSubstr("\"invoices\": []"));
    EXPECT_EQ(test::decode(json), backupOf(library));
}

TEST(Backup, aLibraryWithEveryKeyGivesThisDocument) {
    TestLibrary library;
    fill(library);
    const auto client = library.context().fetch<Client>().at(0);
    client->email = "billing@acme.example";
    client->address = "1 Main St\nSpringfield";
    client->dueDays = 30;
    client->taxBasisPoints = 825;
    const auto project = client->projects().at(0);
    project->rateOverrideCents = 9000;
    project->isArchived = true;
    project->budgetHours = 40;
    const auto invoice = library.context().fetch<Invoice>().at(0);
    invoice->taxRateBasisPoints = 1900;
    invoice->notes = "Thank you";
    invoice->showsEntryDetails = false;
    invoice->setStatus(InvoiceStatus::paid, at("2026-03-09T08:00Z"));
    std::string json;
    BackupExporter::write(library.context(), {.name = "Jane", .paperSize = PaperSize::a4},
                          exportedAt, [&](std::string_view piece) { json += piece; });
    test::expectGolden(json, "exchange/backup.json");
    EXPECT_EQ(test::encode(test::decode(json)), json);
}

TEST(Backup, thePublishedSchemaHasTheKeysOfTheRecords) {
    rapidjson::Document schema;
    schema.Parse(readFile(ELMWORTH_TEST_DATA "/../../docs/backup.schema.json").c_str());
    const auto expectKeys = [](const rapidjson::Value& published, const BackupShape& shape) {
        std::set<std::string_view> keys;
        std::set<std::string_view> required;
        for (const auto& key : shape.keys) {
            keys.insert(key.name);
            if (key.isRequired) required.insert(key.name);
        }
        std::set<std::string_view> publishedKeys;
        std::set<std::string_view> publishedRequired;
        for (const auto& key : published["properties"].GetObject())
            publishedKeys.insert(key.name.GetString());
        if (published.HasMember("required"))
            for (const auto& key : published["required"].GetArray())
                publishedRequired.insert(key.GetString());
        EXPECT_EQ(publishedKeys, keys);
        EXPECT_EQ(publishedRequired, required);
    };
    const auto& objects = schema["$defs"];
    expectKeys(schema, backupShapes().document);
    expectKeys(objects["profile"], backupShapes().profile);
    expectKeys(objects["client"], backupShapes().client);
    expectKeys(objects["project"], backupShapes().project);
    expectKeys(objects["entry"], backupShapes().entry);
    expectKeys(objects["invoice"], backupShapes().invoice);
}

TEST(Backup, whatIsEncodedDecodesToTheSame) {
    TestLibrary library;
    fill(library);
    EXPECT_EQ(test::decode(test::encode(backupOf(library))), backupOf(library));
}

TEST(Backup, writingPieceByPieceGivesTheEncodedDocument) {
    TestLibrary library;
    fill(library);
    std::string written;
    const auto counts = BackupExporter::write(library.context(), {}, exportedAt,
                                              [&](std::string_view bytes) { written += bytes; });
    EXPECT_EQ(written, test::encode(backupOf(library)));
    EXPECT_EQ(counts, (BackupExporter::Counts{2, 2, 3, 1}));
}

TEST(Backup, keysOfAnObjectAreSortedAndAbsentOnesLeftOut) {
    TestLibrary library;
    fill(library);
    const std::string json = test::encode(backupOf(library));
    EXPECT_THAT(json, HasSubstr("{\n              \"notes\": \"\",\n              \"start\": "
                                "\"2026-03-02T09:00:00Z\"\n            }"));
    EXPECT_EQ(json.find("null"), std::string::npos);
}

TEST(Backup, unsavedChangesAreInTheDocument) {
    TestLibrary library;
    fill(library);
    const auto project = library.context().fetch<Project>().front();
    library.addEntry(project, at("2026-02-01T09:00Z"), at("2026-02-01T10:00Z"));
    const auto entries = backupOf(library).clients.at(0).items.at(0).items;
    ASSERT_EQ(entries.size(), 3U);
    EXPECT_EQ(entries.at(0)["start"], valueOf(at("2026-02-01T09:00Z")));
}

TEST(Backup, invoiceOfTheSecondOfTwoNamesakesNamesItsPosition) {
    TestLibrary library;
    fill(library);
    const auto backup = backupOf(library);
    EXPECT_EQ(backup.invoices.at(0)["client"], Value("Acme"));
    EXPECT_EQ(backup.invoices.at(0)["clientIndex"], Value(1));
}

TEST(Backup, clientsSortAsPeopleExpectAndProjectsByCodePoints) {
    TestLibrary library;
    const auto ten = library.addClient("Client 10");
    library.addClient("Client 2");
    library.addProject("Phase 2", ten);
    library.addProject("Phase 10", ten);
    const auto backup = backupOf(library);
    EXPECT_EQ(backup.clients.at(0)["name"], Value("Client 2"));
    EXPECT_EQ(backup.clients.at(1).items.at(0)["name"], Value("Phase 10"));
}

TEST(Backup, aRunningEntryHasNoEndAndIsOtherwiseLikeAnyOther) {
    TestLibrary library;
    fill(library);
    const auto entries = backupOf(library).clients.at(0).items.at(0).items;
    ASSERT_EQ(entries.size(), 2U);
    EXPECT_EQ(entries.at(1), test::entryObject(at("2026-03-02T09:00Z"), std::nullopt));
}

TEST(Backup, anInvoiceWithoutAClientHasAnEmptyNameAndNoPosition) {
    TestLibrary library;
    library.addClient("Acme");
    library.addInvoice("INV-2026-001", nullptr);
    const auto invoice = backupOf(library).invoices.at(0);
    EXPECT_EQ(invoice["client"], Value(""));
    EXPECT_EQ(invoice["clientIndex"], Value());
    EXPECT_EQ(invoice["currencyCode"], Value("USD"));
}

TEST(Backup, anInvoiceWithoutACurrencyOfItsOwnHasItsClients) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    client->currencyCode = "EUR";
    library.addInvoice("1", client);
    library.addInvoice("2", client)->currencyCode = "JPY";
    const auto backup = backupOf(library);
    EXPECT_EQ(backup.invoices.at(0)["currencyCode"], Value("EUR"));
    EXPECT_EQ(backup.invoices.at(1)["currencyCode"], Value("JPY"));
}

TEST(Backup, aFrozenProfileThatCannotBeReadCostsOnlyItsKey) {
    TestLibrary library;
    library.addInvoice("1", library.addClient("Acme"))->businessSnapshot = Blob{"no profile"};
    const auto backup = backupOf(library);
    ASSERT_EQ(backup.invoices.size(), 1U);
    EXPECT_EQ(backup.invoices.at(0)["business"], Value());
}

TEST(Backup, invoicesSortByNumberAsPeopleExpect) {
    TestLibrary library;
    const auto client = library.addClient("Acme");
    library.addInvoice("inv-10", client);
    library.addInvoice("INV-9", client);
    const auto backup = backupOf(library);
    EXPECT_EQ(backup.invoices.at(0)["number"], Value("INV-9"));
}

TEST(Backup, entriesStandByStartWheneverTheyWereMade) {
    TestLibrary library;
    const auto project = library.addProject("Web", library.addClient("Acme"));
    library.addEntry(project, at("2026-03-02T09:00Z"), at("2026-03-02T10:00Z"));
    library.addEntry(project, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    const auto backup = backupOf(library);
    EXPECT_EQ(backup.clients.at(0).items.at(0).items.at(0)["start"],
              valueOf(at("2026-03-01T09:00Z")));
}

TEST(Backup, aProjectWithoutClientAndItsTimeAreNotInTheDocument) {
    TestLibrary library;
    const auto project = library.addProject("Web", nullptr);
    library.addEntry(project, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    library.addEntry(nullptr, at("2026-03-01T09:00Z"), at("2026-03-01T10:00Z"));
    const auto backup = backupOf(library);
    EXPECT_TRUE(backup.clients.empty());
    EXPECT_EQ(backup.version, 1);
    EXPECT_EQ(backup.exportedAt, exportedAt);
}

TEST(Backup, aFractionOfASecondIsDropped) {
    TestLibrary library;
    const auto project = library.addProject("Web", library.addClient("Acme"));
    library.addEntry(project, at("2026-03-01T09:00Z") + std::chrono::milliseconds(900),
                     at("2026-03-01T10:00Z"));
    EXPECT_THAT(test::encode(backupOf(library)), HasSubstr("2026-03-01T09:00:00Z"));
}

TEST(Backup, anyPrefixOfADocumentIsRefused) {
    TestLibrary library;
    fill(library);
    const std::string json = test::encode(backupOf(library));
    const std::size_t last = json.rfind('}');
    for (std::size_t length = 0; length <= last; length += 7) {
        EXPECT_THROW((void)test::decode(json.substr(0, length)), BackupDecodeError) << length;
    }
}

TEST(BackupDecoder, aWholeNumberMayHaveAFractionOfZeros) {
    auto backup = test::decode(
        R"({"version":1.0,"exportedAt":"2026-03-10T12:00:00Z","clients":[],"invoices":[],)"
        R"("profile":{"roundingMinutes":6.0}})");
    EXPECT_EQ(backup.version, 1);
    EXPECT_EQ(backup.profile.roundingMinutes, 6);
}

TEST(Backup, damagedTextsStandWithReplacementCharactersAndAreCounted) {
    TestLibrary library;
    fill(library);
    library.context().fetch<TimeEntry>().at(0)->notes = "caf\xE9 am \xFF Platz";
    library.context().fetch<Invoice>().at(0)->number = "INV-\xC3";
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "backup.json";
    // The number stands on the invoice and on its entry.
    EXPECT_EQ(BackupExporter::writeFile(library.context(), {}, exportedAt, file).repairedTexts, 3U);
    const auto backup = test::readBackup(file);
    EXPECT_EQ(backup.clients.at(0).items.at(0).items.at(0)["notes"], Value("caf� am � Platz"));
    EXPECT_EQ(backup.invoices.at(0)["number"], Value("INV-�"));
    TestLibrary second;
    EXPECT_EQ(restore(backup, second.context()).unlinkedEntries, 0);
}

TEST(Backup, aDamagedByteInAnInvoicesOwnProfileCostsOneCharacter) {
    TestLibrary library;
    fill(library);
    const auto invoice = library.context().fetch<Invoice>().at(0);
    std::string json = encodeProfile({.name = "Jane", .taxLabel = "VAT"});
    json.replace(json.find("Jane"), 1, "\xFF");
    invoice->businessSnapshot = Blob{json};
    std::string document;
    const auto counts = BackupExporter::write(library.context(), {}, exportedAt,
                                              [&](std::string_view piece) { document += piece; });
    EXPECT_EQ(counts.repairedTexts, 1U);
    EXPECT_EQ(test::decode(document).invoices.at(0)["business"],
              valueOf({.name = "�ane", .taxLabel = "VAT"}));
}

TEST(Backup, aDateThatNoDocumentCanHoldStandsAsTheNearestOne) {
    Backup backup;
    backup.exportedAt = Instant::max();
    EXPECT_EQ(test::decode(test::encode(backup)).exportedAt, at("9999-12-31T23:59:59Z"));
}

TEST(Backup, theMessageOfDamagedTextsCountsThem) {
    EXPECT_EQ(BackupExporter::repairMessage(1),
              "1 text of the library held damaged bytes, which stand as � in the document.");
    EXPECT_EQ(BackupExporter::repairMessage(2),
              "2 texts of the library held damaged bytes, which stand as � in the document.");
}

struct BadDocument {
    const char* name;
    const char* from;
    const char* to;
    const char* message;
};

class BadBackup : public testing::TestWithParam<BadDocument> {};

TEST_P(BadBackup, isRefusedWithThePlaceOfTheFault) {
    TestLibrary library;
    fill(library);
    std::string json = test::encode(backupOf(library));
    const auto place = json.find(GetParam().from);
    ASSERT_NE(place, std::string::npos);
    json.replace(place, std::string(GetParam().from).size(), GetParam().to);
    try {
        (void)test::decode(json);
        FAIL() << "was read";
    } catch (const BackupDecodeError& error) {
        EXPECT_THAT(error.what(), HasSubstr(GetParam().message));
        EXPECT_THAT(error.what(), HasSubstr("(line "));
    }
}

INSTANTIATE_TEST_SUITE_P(
    Documents, BadBackup,
    testing::Values(
        BadDocument{"fraction", "2026-03-02T09:00:00Z", "2026-03-02T09:00:00.5Z",
                    "clients[0].projects[0].entries[1].start: not a date"},
        BadDocument{"noOffset", "2026-03-02T09:00:00Z", "2026-03-02T09:00:00",
                    "entries[1].start: not a date"},
        BadDocument{"bareDate", "2026-03-02T09:00:00Z", "2026-03-02",
                    "entries[1].start: not a date"},
        BadDocument{"hour25", "2026-03-02T09:00:00Z", "2026-03-02T25:00:00Z",
                    "entries[1].start: not a date"},
        BadDocument{"floatRate", "\"hourlyRateCents\": 10000", "\"hourlyRateCents\": 1.5",
                    "clients[0].hourlyRateCents: not a whole number of 64 bits"},
        BadDocument{"hugeRate", "\"hourlyRateCents\": 10000",
                    "\"hourlyRateCents\": 9223372036854775808",
                    "clients[0].hourlyRateCents: not a whole number of 64 bits"},
        BadDocument{"textRate", "\"hourlyRateCents\": 10000", "\"hourlyRateCents\": \"1\"",
                    "clients[0].hourlyRateCents: not a whole number of 64 bits"},
        BadDocument{"loneSurrogate", "\"colorHex\": \"#4F7CFF\"", R"("colorHex": "\uD83D")",
                    "This file is no JSON document"},
        BadDocument{"loneLowSurrogate", "\"colorHex\": \"#4F7CFF\"", R"("colorHex": "\uDE00")",
                    "clients[0].projects[0].colorHex: not a text"},
        BadDocument{"missingNotes", "\"notes\": \"\",\n              \"start\"",
                    "\"other\": \"\",\n              \"start\"",
                    "clients[0].projects[0].entries[1]: the key \"notes\" is missing"},
        BadDocument{"requiredNull", "\"isArchived\": false", "\"isArchived\": null",
                    "clients[0].projects[0].isArchived: neither true nor false"},
        BadDocument{"objectForList", "\"invoices\": [", "\"invoices\": {}, \"x\": [",
                    "invoices: not an array"},
        BadDocument{"paper", "\"paperSize\": \"letter\"", "\"paperSize\": \"a5\"",
                    "paperSize: neither \"letter\" nor \"a4\""}),
    [](const auto& row) { return row.param.name; });

TEST(Backup, unknownKeysArePassedOverHoweverDeepTheyAre) {
    const std::string deep = std::string(100'000, '[') + std::string(100'000, ']');
    TestLibrary library;
    std::string json = test::encode(backupOf(library));
    json.insert(1, "\"unknown\": " + deep + ", ");
    EXPECT_EQ(test::decode(json), backupOf(library));
}

TEST(Backup, optionalKeysMayBeNull) {
    TestLibrary library;
    fill(library);
    std::string json = test::encode(backupOf(library));
    json.insert(json.find("\"address\""), "\"dueDays\": null, ");
    EXPECT_EQ(test::decode(json), backupOf(library));
}

/// An empty library's document with these keys of a client before the others.
std::string withClient(const std::string& keys) {
    return R"({"version": 1, "exportedAt": "2026-03-10T12:00:00Z", "profile": {}, "invoices": [],
               "clients": [{)" +
           keys + R"("name": "A", "email": "", "address": "", "currencyCode": "USD",
                     "hourlyRateCents": 0, "projects": []}]})";
}

TEST(Backup, ofTwoEqualKeysTheLastCountsAlsoWhenItIsNull) {
    EXPECT_EQ(test::decode(withClient(R"("dueDays": 1, "dueDays": 2,)")).clients.at(0)["dueDays"],
              Value(2));
    EXPECT_EQ(
        test::decode(withClient(R"("dueDays": 1, "dueDays": null,)")).clients.at(0)["dueDays"],
        Value());
    std::string json = withClient("");
    json.replace(json.find("{}"), 2, R"({"taxLabel": "VAT", "taxLabel": null})");
    EXPECT_EQ(test::decode(json).profile, BusinessProfile{});
}

TEST(Backup, whatFollowsANulByteIsNotOverlooked) {
    using namespace std::string_literals;
    EXPECT_THROW((void)test::decode(withClient("") + "\0"s), BackupDecodeError);
    EXPECT_THROW((void)test::decode(withClient("") + "\0{}"s), BackupDecodeError);
}

TEST(Backup, lone64BitNumbersStayExact) {
    TestLibrary library;
    library.addClient("Acme")->hourlyRateCents = std::numeric_limits<std::int64_t>::max() - 1;
    EXPECT_EQ(test::decode(test::encode(backupOf(library))).clients.at(0)["hourlyRateCents"],
              Value(std::numeric_limits<std::int64_t>::max() - 1));
}

TEST(Backup, foldersAndDevicesAreRefused) {
    TestLibrary library;
    EXPECT_THROW((void)test::readBackup(library.folder.path()), std::filesystem::filesystem_error);
    EXPECT_THROW((void)test::readBackup("/dev/zero"), std::filesystem::filesystem_error);
    EXPECT_THROW((void)test::readBackup(library.folder.path() / "none"),
                 std::filesystem::filesystem_error);
}

TEST(Backup, aFileIsReadAsItsTextIs) {
    TestLibrary library;
    fill(library);
    const auto file = library.folder.path() / "backup.json";
    BackupExporter::writeFile(library.context(), {}, exportedAt, file);
    EXPECT_EQ(test::readBackup(file), backupOf(library));
}

TEST(Backup, everyEntryStandsInItOnceHoweverManyBeganAtOneInstant) {
    TestLibrary library;
    const auto project = library.addProject("Web", library.addClient("Acme"));
    constexpr int perStep = static_cast<int>(BackupWalk::entriesPerStep);
    int count = 0;
    for (const int alike : {1, perStep - 2, 3, 1, 1, 3 * perStep, 1, perStep, 2}) {
        const Instant start = at("2026-03-01T09:00Z") + std::chrono::minutes(count);
        for (int i = 0; i < alike; ++i) {
            library.addEntry(project, start, start)->notes = std::to_string(count++);
        }
    }
    const auto notes = [](const std::vector<BackupObject>& entries) {
        std::vector<std::string> found;
        for (const auto& entry : entries) found.push_back(std::get<std::string>(entry["notes"]));
        return found;
    };
    std::vector<std::string> expected;
    for (int i = 0; i < count; ++i) expected.push_back(std::to_string(i));
    EXPECT_EQ(notes(backupOf(library).clients.at(0).items.at(0).items), expected);  // unsaved
    library.context().save();
    EXPECT_EQ(notes(backupOf(library).clients.at(0).items.at(0).items), expected);
}

TEST(Backup, aFileOfMoreThanFourGigabytesIsNotRead) {
    const test::TemporaryFolder folder;
    const auto file = folder.path() / "backup.json";
    writeAtomically(file, "{}");
    const auto refusal = [&](std::uintmax_t size) {
        std::filesystem::resize_file(file, size);
        FileSource source(file);
        try {
            (void)decodeBackup(source);
        } catch (const BackupDecodeError& error) {
            return std::string(error.what());
        }
        return std::string();
    };
    EXPECT_THAT(refusal(4'000'000'000), testing::HasSubstr("is missing"));
    EXPECT_EQ(refusal(4'000'000'001), "This file is larger than 4 GB, more than a backup can be.");
}

TEST(Backup, aDocumentIsCountedAsItIsRead) {
    TestLibrary library;
    fill(library);
    const auto file = library.folder.path() / "backup.json";
    const auto written = BackupExporter::writeFile(library.context(), {}, exportedAt, file);
    FileSource source(file);
    EXPECT_EQ(countBackup(source), written);
    auto json = readFile(file);
    json.replace(json.find("\"isArchived\": false"), 19, "\"isArchived\": 0    ");
    writeAtomically(file, json);
    FileSource broken(file);
    EXPECT_THROW((void)countBackup(broken), BackupDecodeError);
}

}  // namespace
}  // namespace elmworth
