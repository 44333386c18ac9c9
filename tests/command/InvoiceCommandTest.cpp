// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// invoice list, preview, create, show, pdf and email.

#include <limits>

#include "command/CommandTest.h"
#include "invoicing/InvoiceFiles.h"
#include "support/FileSizeLimit.h"

namespace elmworth {
namespace {

using test::Arguments;
using test::at;
using test::keys;
using testing::ElementsAre;
using testing::HasSubstr;

class InvoiceCommand : public test::CommandTest {
 protected:
    InvoiceCommand() {
        addEntry(website_, "2026-03-02T09:00+01:00", 61, "Landing page");
        addEntry(design_, "2026-03-03T09:00+01:00", 120);
    }

    [[nodiscard]] static Arguments march(const char* command, const Arguments& more = {}) {
        Arguments words{"invoice", command,      "--client",  "Acme Co",
                        "--from",  "2026-03-01", "--through", "2026-03-31"};
        words.insert(words.end(), more.begin(), more.end());
        return words;
    }
};

const std::vector<std::string> recordKeys{
    "number",          "client",       "status",    "issueDate",
    "dueDate",         "periodStart",  "periodEnd", "taxRateBasisPoints",
    "roundingMinutes", "currencyCode", "notes",     "showsEntryDetails",
    "isOverdue"};

std::vector<std::string> withKeys(std::vector<std::string> names,
                                  const std::vector<std::string>& more) {
    names.insert(names.end(), more.begin(), more.end());
    return names;
}

// --- preview and create ------------------------------------------------------------------------

TEST_F(InvoiceCommand, previewShowsLinesAndSumsAndChangesNothing) {
    const auto preview = json(march("preview", {"--tax", "10"}));
    EXPECT_THAT(keys(preview), ElementsAre("lines", "subtotalCents", "taxCents", "totalCents"));
    ASSERT_EQ(preview["lines"].Size(), 2U);
    const auto& line = preview["lines"][1];
    EXPECT_THAT(keys(line),
                ElementsAre("projectName", "seconds", "rateCents", "amountCents", "entries"));
    EXPECT_STREQ(line["projectName"].GetString(), "Website");
    EXPECT_EQ(line["seconds"].GetInt(), 66 * 60);
    EXPECT_EQ(line["amountCents"].GetInt(), 11000);
    EXPECT_THAT(keys(line["entries"][0]), ElementsAre("date", "notes", "seconds"));
    EXPECT_STREQ(line["entries"][0]["date"].GetString(), "2026-03-02T08:00:00Z");
    EXPECT_EQ(preview["totalCents"].GetInt(), 34100);
    EXPECT_EQ(library_.context().fetchCount<Invoice>(), 0U);
    EXPECT_EQ(profiles_.profile(), BusinessProfile());
}

TEST_F(InvoiceCommand, previewForPeople) {
    EXPECT_EQ(output(march("preview")),
              "PROJECT   HOURS     RATE   AMOUNT\n"
              "Design     2.00  $100.00  $200.00\n"
              "Website    1.10  $100.00  $110.00\n"
              "Subtotal                  $310.00\n"
              "Tax                         $0.00\n"
              "Total                     $310.00\n");
}

TEST_F(InvoiceCommand, aPeriodWithoutUnbilledTimePreviewsNothingAndCannotBeBilled) {
    EXPECT_EQ(output({"invoice", "preview", "--client", "Globex", "--period", "today"}),
              "No unbilled, finished entries for this client in this period.\n");
    expectRefusal({"invoice", "create", "--client", "Globex", "--period", "today"}, 1,
                  "There are no unbilled, finished entries for this client and range.");
    EXPECT_EQ(profiles_.profile(), BusinessProfile());
}

TEST_F(InvoiceCommand, createPrintsTheNumberAndCountsOn) {
    EXPECT_EQ(output(march("create")), "INV-2026-001\n");
    EXPECT_EQ(profiles_.profile().nextInvoiceNumber, 2);
    EXPECT_EQ(ProfileStore(defaults_).profile().nextInvoiceNumber, 2);
    const auto made = invoice("INV-2026-001");
    EXPECT_EQ(made->periodStart.get(), at("2026-03-01T00:00+01:00"));
    EXPECT_EQ(made->periodEnd.get(), at("2026-04-01T00:00+02:00"));
    EXPECT_EQ(made->entries().size(), 2U);
}

TEST_F(InvoiceCommand, createShowsTheWholeInvoiceAsJSON) {
    const auto made = json(march("create"));
    EXPECT_THAT(keys(made),
                testing::ElementsAreArray(withKeys(
                    recordKeys, {"lines", "subtotalCents", "taxCents", "totalCents", "pages"})));
}

TEST_F(InvoiceCommand, aTaxThatCannotBeReadMakesNoInvoice) {
    expectRefusal(march("create", {"--tax", "lots"}), 1,
                  "“lots” is no percentage. Enter a number like 0 or 8.25, at most 100.");
    EXPECT_EQ(library_.context().fetchCount<Invoice>(), 0U);
}

TEST_F(InvoiceCommand, anInvoiceThatCannotBeSavedLeavesNoTrace) {
    {
        const test::FileSizeLimit fullDisk(0);
        EXPECT_EQ(run(march("create")).exitStatus, 1);
    }
    EXPECT_EQ(library_.context().fetchCount<Invoice>(), 0U);
    EXPECT_EQ(output(march("create")), "INV-2026-001\n");
}

// --- list and show -----------------------------------------------------------------------------

TEST_F(InvoiceCommand, showTellsEveryFigure) {
    const auto number = billMarch();
    const auto shown = json({"invoice", "show", number});
    EXPECT_STREQ(shown["status"].GetString(), "draft");
    EXPECT_STREQ(shown["issueDate"].GetString(), "2026-03-31T10:00:00Z");
    EXPECT_STREQ(shown["dueDate"].GetString(), "2026-04-14T10:00:00Z");
    EXPECT_STREQ(shown["periodEnd"].GetString(), "2026-03-31T22:00:00Z");
    EXPECT_EQ(shown["totalCents"].GetInt(), 31000);
    EXPECT_EQ(shown["pages"].GetInt(), 1);
    EXPECT_FALSE(shown.HasMember("paidAt"));
    invoice(number)->setStatus(InvoiceStatus::paid, now_);
    EXPECT_STREQ(json({"invoice", "show", number})["paidAt"].GetString(), "2026-03-31T10:00:00Z");
}

TEST_F(InvoiceCommand, showForPeople) {
    const auto number = billMarch();
    invoice(number)->notes = "Thank you!";
    EXPECT_EQ(output({"invoice", "show", number}),
              "INV-2026-001 · Acme Co · Draft\n"
              "Issued Mar 31, 2026 · Due Apr 14, 2026\n"
              "Period Mar 1, 2026 – Mar 31, 2026\n"
              "\n"
              "PROJECT   HOURS     RATE   AMOUNT\n"
              "Design     2.00  $100.00  $200.00\n"
              "Website    1.10  $100.00  $110.00\n"
              "Subtotal                  $310.00\n"
              "Tax                         $0.00\n"
              "Total                     $310.00\n"
              "\n"
              "Thank you!\n");
}

TEST_F(InvoiceCommand, anUnknownNumberIsRefused) {
    for (const char* command : {"show", "email", "delete", "pdf"})
        expectRefusal({"invoice", command, "INV-9"}, 1,
                      "There is no invoice “INV-9”. \"elmworth invoice list\" shows all numbers.");
}

TEST_F(InvoiceCommand, theListHasTheFiguresWithoutTheLines) {
    billMarch();
    const auto list = json({"invoice", "list"});
    ASSERT_EQ(list.Size(), 1U);
    EXPECT_THAT(keys(list[0]),
                testing::ElementsAreArray(
                    withKeys(recordKeys, {"subtotalCents", "taxCents", "totalCents", "pages"})));
}

TEST_F(InvoiceCommand, theListIsNewestFirstAndFilteredByStatus) {
    const auto number = billMarch();
    const auto old = library_.addInvoice("OLD", acme_);
    old->issueDate = at("2026-01-01T00:00Z");
    old->dueDate = at("2026-01-15T00:00Z");
    old->setStatus(InvoiceStatus::sent, now_);
    library_.context().save();
    EXPECT_EQ(output({"invoice", "list"}),
              "NUMBER        CLIENT   ISSUED        DUE           STATUS     TOTAL\n"
              "INV-2026-001  Acme Co  Mar 31, 2026  Apr 14, 2026  Draft    $310.00\n"
              "OLD           Acme Co  Jan 1, 2026   Jan 15, 2026  Overdue    $0.00\n");
    EXPECT_EQ(json({"invoice", "list", "--status", "open"}).Size(), 2U);
    EXPECT_EQ(json({"invoice", "list", "--status", "Overdue"}).Size(), 1U);
    EXPECT_EQ(json({"invoice", "list", "--status", "paid"}).Size(), 0U);
}

// --- pdf and email -----------------------------------------------------------------------------

TEST_F(InvoiceCommand, thePDFGoesToTheStoredFileWhosePathIsPrinted) {
    const auto number = billMarch();
    const auto stored = storedInvoiceFile(number);
    EXPECT_EQ(output({"invoice", "pdf", number}), stored.string() + "\n");
    EXPECT_EQ(readFile(stored), "INV-2026-001 letter");
}

TEST_F(InvoiceCommand, thePDFGoesToAFileOfTheWorkingFolderAndIsStoredToo) {
    const auto number = billMarch();
    const auto printed = json({"invoice", "pdf", number, "mine.pdf", "--paper", "A4"});
    EXPECT_THAT(keys(printed), ElementsAre("file", "pages"));
    EXPECT_EQ(printed["file"].GetString(), (library_.folder.path() / "mine.pdf").string());
    EXPECT_EQ(readFile(library_.folder.path() / "mine.pdf"), "INV-2026-001 a4");
    EXPECT_EQ(readFile(storedInvoiceFile(number)), "INV-2026-001 a4");
}

TEST_F(InvoiceCommand, thePDFGoesToStandardOutput) {
    EXPECT_EQ(output({"invoice", "pdf", billMarch(), "-"}), "INV-2026-001 letter");
}

TEST_F(InvoiceCommand, anUnknownPaperIsWrongUsage) {
    expectUsageError({"invoice", "pdf", billMarch(), "--paper", "a5"}, "Choose letter or a4.");
}

TEST_F(InvoiceCommand, whereNothingCanBeDrawnThereIsNoPDF) {
    const auto number = billMarch();
    painter_ = nullptr;
    expectRefusal({"invoice", "pdf", number}, 1, "PDFs can't be drawn here.");
}

TEST_F(InvoiceCommand, theEmailGreetsTheClient) {
    const auto number = billMarch();
    const std::string text = output({"invoice", "email", number});
    EXPECT_EQ(text,
              "Hi Acme Co,\n\nPlease find attached invoice INV-2026-001 for $310.00, due Apr 14, "
              "2026.\n\nThank you!\n");
    EXPECT_EQ(json({"invoice", "email", number})["text"].GetString() + std::string("\n"), text);
}

// --- figures that do not fit ---------------------------------------------------------------------

/// An invoice as no command makes one, but a restored document may hold.
class TooLargeInvoice : public InvoiceCommand {
 protected:
    TooLargeInvoice() {
        number = billMarch();
        invoice(number)->taxRateBasisPoints = std::numeric_limits<std::int64_t>::max();
        library_.addInvoice("INV-2", acme_);
        library_.context().save();
    }
    std::string number;
    std::string sentence = "The figures of INV-2026-001 are too large.";
};

TEST_F(TooLargeInvoice, saysSoWhereItsTotalWouldStandInTheList) {
    const auto text = output({"invoice", "list"});
    EXPECT_THAT(text, HasSubstr(sentence));
    EXPECT_THAT(text, HasSubstr("$0.00")) << "the other one has figures";
    const auto list = json({"invoice", "list"});
    ASSERT_EQ(list.Size(), 2U);
    EXPECT_EQ(list[0]["error"].GetString(), sentence);
    EXPECT_FALSE(list[0].HasMember("totalCents"));
    EXPECT_FALSE(list[0].HasMember("pages"));
    EXPECT_FALSE(list[1].HasMember("error"));
    EXPECT_EQ(list[1]["totalCents"].GetInt64(), 0);
}

TEST_F(TooLargeInvoice, saysSoWhereItsFiguresWouldStand) {
    const auto text = output({"invoice", "show", number});
    EXPECT_THAT(text, HasSubstr("INV-2026-001 · Acme Co"));
    EXPECT_THAT(text, HasSubstr("\n\n" + sentence + "\n"));
    EXPECT_EQ(json({"invoice", "show", number})["error"].GetString(), sentence);
}

TEST_F(TooLargeInvoice, hasNoPDFAndNoEmail) {
    expectRefusal({"invoice", "pdf", number}, 1, sentence);
    expectRefusal({"invoice", "email", number}, 1, sentence);
    EXPECT_FALSE(std::filesystem::exists(storedInvoiceFile(number)));
}

TEST_F(TooLargeInvoice, canBeMarkedRenamedAndDeleted) {
    output({"invoice", "rename", number, "INV-3"});
    output({"invoice", "mark", "INV-3", "sent"});
    output({"invoice", "delete", "INV-3"});
    EXPECT_EQ(invoice("INV-3"), nullptr);
}

}  // namespace
}  // namespace elmworth
