// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the sheet shows is what the invoice comes to, wherever it is looked at.

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <random>
#include <sstream>

#include "command/CommandLine.h"
#include "invoicing/InvoiceFigures.h"
#include "invoicing/InvoicePDFRenderer.h"
#include "platform/MoneyFormat.h"
#include "screens/invoices/NewInvoiceModel.h"
#include "support/PdfText.h"
#include "support/ScopedEnvironment.h"
#include "support/TestServices.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using test::at;

constexpr unsigned librariesPerLocale = 167;
/// Printing takes longer than all the rest.
constexpr unsigned librariesPerPrint = 60;
constexpr unsigned librariesPerCommand = 6;

/// "95,00€" for "95,00 €", whatever blanks there are.
std::string withoutBlanks(const std::string& text) {
    std::string result;
    for (const QChar letter : QString::fromStdString(text)) {
        if (!letter.isSpace()) result += QString(letter).toStdString();
    }
    return result;
}

std::string digits(const std::string& text) {
    std::string result;
    std::copy_if(text.begin(), text.end(), std::back_inserter(result),
                 [](char letter) { return letter >= '0' && letter <= '9'; });
    return result;
}

std::array<std::int64_t, 3> sums(const InvoiceCalculator::Totals& totals) {
    return {totals.subtotalCents, totals.taxCents, totals.totalCents};
}

/// Another one for each text, the same in every run.
unsigned seedOf(std::string_view text) {
    unsigned seed = 0;
    for (const char letter : text) seed = 31 * seed + static_cast<unsigned char>(letter);
    return seed;
}

/// A library of one to three clients with a few days of work, some of it of no concern to the first
/// one's invoice.
class RandomLibrary {
 public:
    explicit RandomLibrary(unsigned seed) : random_(seed) {
        const int clientCount = between(1, 3);
        for (int i = 0; i < clientCount; ++i) addClient("Client " + std::to_string(i));
        const int entryCount = between(1, 14);
        for (int i = 0; i < entryCount; ++i) addEntry();
        timer.library.context().save();
        auto profile = app.profiles.profile();
        profile.name = "Ada";
        profile.roundingMinutes = between(0, 3) == 0 ? between(1, 90) : 6;
        app.profiles.setProfile(profile);
    }

    int between(int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random_);
    }

    test::TestTimer timer{test::InMemory{}};
    test::TestServices app{timer};
    std::vector<Ref<Client>> clients;

 private:
    void addClient(const std::string& name) {
        static constexpr std::array currencies{"USD", "EUR", "GBP", "CHF", "SEK"};
        const auto client = timer.library.addClient(name);
        client->hourlyRateCents = between(0, 300'00);
        client->currencyCode = currencies[static_cast<std::size_t>(between(0, 4))];
        if (between(0, 1) == 0) client->taxBasisPoints = between(0, 25'00);
        clients.push_back(client);
        const int projectCount = between(1, 3);
        for (int i = 0; i < projectCount; ++i) {
            const auto project = timer.library.addProject("P" + std::to_string(i), client);
            if (between(0, 2) == 0) project->rateOverrideCents = between(0, 9999'99);
            projects_.push_back(project);
        }
    }
    void addEntry() {
        const Instant start = at("2026-02-20T00:00Z") + between(0, 9 * 86'400) * 1s;
        const auto& project =
            projects_[static_cast<std::size_t>(between(0, static_cast<int>(projects_.size()) - 1))];
        const auto length = between(-10, 5 * 3'600'000) * 1ms;
        const bool runs = between(0, 9) == 0;
        const auto entry = timer.library.addEntry(
            project, start, runs ? std::nullopt : std::optional<Instant>(start + length));
        if (!runs && between(0, 9) == 0) {
            const auto number = "2025-" + std::to_string(++billed_);
            entry->invoice = timer.library.addInvoice(number, project->client.get());
        }
    }

    std::mt19937 random_;
    std::vector<Ref<Project>> projects_;
    int billed_ = 0;
};

class NewInvoiceTruth : public testing::Test {
 protected:
    /// Makes the invoice of what the sheet shows. Null where there is nothing to invoice.
    Ref<Invoice> create(RandomLibrary& library, NewInvoiceModel& sheet) {
        sheet.open(library.clients.front());
        if (library.between(0, 1) == 0) {
            const auto rate = formatBasisPoints(library.between(0, 100'00));
            sheet.tax()->setText(QString::fromStdString(rate));
        }
        if (library.between(0, 4) == 0) {
            sheet.choosePreset(static_cast<int>(DateRangePreset::lastWeek));
        }
        shown_ = sheet.figures()->totals();
        if (!sheet.canSave()) return nullptr;
        Ref<Invoice> made;
        QObject::connect(&sheet, &NewInvoiceModel::created, [&](const PersistentID& id) {
            made = library.timer.library.context().record<Invoice>(id);
        });
        remember(sheet);
        sheet.save();
        return made;
    }
    void remember(NewInvoiceModel& sheet) {
        auto& figures = *sheet.figures();
        texts_.clear();
        for (const auto& line : figures.lines()) {
            texts_.push_back((line.name + u'|' + line.detail + u'|' + line.amount).toStdString());
        }
        subtotal_ = figures.subtotal().toStdString();
        tax_ = figures.tax().toStdString();
        total_ = figures.total().toStdString();
    }
    [[nodiscard]] InvoiceRenderModel printed(RandomLibrary& library, const Invoice& invoice) const {
        return makeInvoiceRenderModel(invoice, library.app.profiles.profile(),
                                      {locale_, locale_, "UTC"}, nullptr);
    }
    void expectSameTexts(const InvoiceRenderModel& model) const {
        std::vector<std::string> rows;
        for (const auto& row : model.rows) {
            if (const auto* line = std::get_if<InvoiceRenderModel::ProjectRow>(&row)) {
                rows.push_back(line->name + '|' + line->hours + " h × " + line->rate + '|' +
                               line->amount);
            }
        }
        EXPECT_EQ(texts_, rows);
        EXPECT_EQ(subtotal_, model.subtotal);
        EXPECT_EQ(tax_, model.tax);
        EXPECT_EQ(total_, model.total);
    }
    /// That the digits of the text are those of the cents.
    static void expectCents(const std::string& text, std::int64_t cents) {
        const std::string wanted = std::to_string(cents);
        const std::string padding(wanted.size() < 3 ? 3 - wanted.size() : 0, '0');
        EXPECT_EQ(digits(text), padding + wanted) << text;
    }
    static void expectInPrint(const InvoiceRenderModel& model,
                              const test::TemporaryFolder& folder) {
        const auto file = folder.path() / "invoice.pdf";
        InvoicePDFRenderer::render(model, PaperSize::a4, file);
        const std::string text = withoutBlanks(test::pdfPlainText(file));
        const auto expect = [&](const std::string& part) {
            EXPECT_NE(text.find(withoutBlanks(part)), std::string::npos) << part << "\n" << text;
        };
        for (const auto& row : model.rows) {
            if (const auto* line = std::get_if<InvoiceRenderModel::ProjectRow>(&row)) {
                expect(line->name + line->hours + line->rate + line->amount);
            }
        }
        expect(model.subtotal);
        if (model.taxLabel) expect(model.tax);
        expect(model.total);
    }

    /// What a command that must succeed prints.
    [[nodiscard]] std::string output(RandomLibrary& library,
                                     const std::vector<std::string>& arguments) const {
        auto& timer = library.timer;
        CommandEnvironment environment{timer.library.context(),
                                       *timer.history,
                                       *timer.service,
                                       library.app.profiles,
                                       [&timer] { return timer.now; },
                                       locale_,
                                       timer.calendar,
                                       timer.library.folder.path()};
        const auto result = runCommand(parseCommandLine(arguments), environment);
        EXPECT_EQ(result.errors, "");
        return result.output;
    }
    [[nodiscard]] rapidjson::Document json(RandomLibrary& library,
                                           std::vector<std::string> arguments) const {
        arguments.insert(arguments.end(), {"--format", "json"});
        rapidjson::Document document;
        document.Parse(output(library, arguments).c_str());
        return document;
    }
    static void expectCents(const rapidjson::Value& invoice,
                            const InvoiceCalculator::Totals& totals) {
        EXPECT_EQ(invoice["subtotalCents"].GetInt64(), totals.subtotalCents);
        EXPECT_EQ(invoice["taxCents"].GetInt64(), totals.taxCents);
        EXPECT_EQ(invoice["totalCents"].GetInt64(), totals.totalCents);
    }
    /// `invoice list` and `invoice show`, as people and as programs read them.
    void expectInCommands(RandomLibrary& library, const std::string& number,
                          const InvoiceCalculator::Totals& totals) const {
        const auto list = json(library, {"invoice", "list"});
        const auto listed = list.GetArray();
        const auto* const found = std::find_if(listed.begin(), listed.end(), [&](const auto& one) {
            return one["number"].GetString() == number;
        });
        ASSERT_NE(found, listed.end());
        expectCents(*found, totals);
        const auto show = json(library, {"invoice", "show", number});
        expectCents(show, totals);
        ASSERT_EQ(show["lines"].Size(), totals.lines.size());
        for (unsigned i = 0; i < show["lines"].Size(); ++i) {
            EXPECT_EQ(show["lines"][i]["amountCents"].GetInt64(), totals.lines[i].amountCents);
        }
        EXPECT_EQ(lastColumns(output(library, {"invoice", "list"}), number),
                  std::vector{withoutBlanks(total_)});
        const std::string shown = output(library, {"invoice", "show", number});
        EXPECT_EQ(lastColumns(shown, "Subtotal"), std::vector{withoutBlanks(subtotal_)});
        EXPECT_EQ(lastColumns(shown, "Tax"), std::vector{withoutBlanks(tax_)});
        EXPECT_EQ(lastColumns(shown, "Total"), std::vector{withoutBlanks(total_)});
    }
    /// The last column of the lines of a table that begin with `first`; two blanks part columns.
    static std::vector<std::string> lastColumns(const std::string& table,
                                                const std::string& first) {
        std::vector<std::string> columns;
        std::istringstream lines(table);
        for (std::string line; std::getline(lines, line);) {
            if (!line.starts_with(first + ' ')) continue;
            columns.push_back(withoutBlanks(line.substr(line.rfind("  "))));
        }
        return columns;
    }

    void expectAgreement(unsigned first) {
        unsigned invoices = 0;
        for (unsigned i = 0; i < librariesPerLocale && !HasFailure(); ++i) {
            SCOPED_TRACE(first + i);
            RandomLibrary library(first + i);
            NewInvoiceModel sheet(library.app.services());
            const auto invoice = create(library, sheet);
            if (!invoice) {
                EXPECT_EQ(shown_.totalCents, 0);
                continue;
            }
            ++invoices;
            const auto totals = InvoiceCalculator::totals(*invoice);
            EXPECT_EQ(shown_, totals);
            const auto listed =
                InvoiceFigures(library.timer.library.context(), {invoice}).totals(*invoice);
            EXPECT_EQ(sums(listed), sums(totals));
            const auto model = printed(library, *invoice);
            expectSameTexts(model);
            expectCents(total_, totals.totalCents);
            if (i % librariesPerCommand == 0) expectInCommands(library, invoice->number, totals);
            if (i % librariesPerPrint == 0) expectInPrint(model, library.timer.library.folder);
        }
        EXPECT_GT(invoices, librariesPerLocale / 2);
    }

    // Each invoice writes the settings, and a thousand of them would wait for the disk.
    test::ScopedEnvironment temporary_{"TMPDIR", std::filesystem::exists("/dev/shm")
                                                     ? "/dev/shm"
                                                     : std::filesystem::temp_directory_path()};
    Locale locale_{"en_US"};
    InvoiceCalculator::Totals shown_;
    std::vector<std::string> texts_;
    std::string subtotal_;
    std::string tax_;
    std::string total_;
};

TEST_F(NewInvoiceTruth, allFiguresAgreeToTheCentInSixLocales) {
    for (const char* name : {"en_US.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8", "de_CH.UTF-8",
                             "ja_JP.UTF-8", "sv_SE.UTF-8"}) {
        SCOPED_TRACE(name);
        const test::ScopedEnvironment environment("LC_ALL", name);
        locale_ = Locale(name);
        expectAgreement(seedOf(name));
    }
}

}  // namespace
}  // namespace elmworth
