// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <optional>
#include <random>
#include <string>
#include <vector>

#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth::test {

/// Fills a library with clients, projects, time and invoices of any kind. Equal seeds give equal
/// libraries.
class RandomLibrary {
 public:
    enum class Contents {
        anything,       ///< also timers that run, and invoices without a client
        comesBack,      ///< all that a backup brings back
        fitsInAReport,  ///< all that a CSV export brings back
    };

    RandomLibrary(TestLibrary& library, unsigned seed, Contents contents)
        : library_(library), random_(seed), contents_(contents) {
        for (int i = below(5); i >= 0; --i) addClient(i);
        library_.context().save();
    }

 private:
    int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
    bool oneIn(int count) { return below(count) == 0; }

    std::string text() {
        static const std::array<std::string, 14> pieces{
            "Acme",    " & Söhne ",  "日本語", "👩‍👩‍👧‍👦",
            "العربية", "\"quoted\"", ",",      "\n",
            "\\",      "<b>",        "{}",     "e\xCC\x81",
            "\t",      "%s"};
        std::string result = "x";
        for (int i = below(5); i > 0; --i) result += pieces[random_() % pieces.size()];
        result += "x";
        if (contents_ == Contents::fitsInAReport) return result;
        if (oneIn(6)) result += std::string("\r\n \x01\x7F\0 ", 6);
        if (oneIn(12)) result.clear();
        return result;
    }
    /// A name that no other has, whatever the case of its letters.
    std::string name(int number) {
        if (contents_ != Contents::fitsInAReport && oneIn(3)) return "Namesake";
        return text() + std::to_string(number);
    }
    std::optional<std::int64_t> number() {
        if (oneIn(2)) return std::nullopt;
        return oneIn(5) ? static_cast<std::int64_t>(random_()) : below(20000);
    }
    Instant instant() {
        return at("2026-01-01T00:00Z") + std::chrono::seconds(random_() % 31'536'000);
    }

    void addClient(int i) {
        const auto client = library_.addClient(name(i));
        client->email = text();
        client->address = text();
        client->currencyCode = oneIn(2) ? "EUR" : "JPY";
        client->hourlyRateCents = number().value_or(0);
        client->dueDays = number();
        client->taxBasisPoints = number();
        std::vector<Ref<Invoice>> invoices;
        for (int n = below(3); n > 0; --n) invoices.push_back(addInvoice(client));
        for (int n = below(4); n > 0; --n) addProject(n, client, invoices);
    }

    Ref<Invoice> addInvoice(const Ref<Client>& client) {
        const bool isOrphan = contents_ == Contents::anything && oneIn(4);
        const auto invoice = library_.addInvoice("N" + std::to_string(++invoiceCount_) + text(),
                                                 isOrphan ? nullptr : client);
        invoice->issueDate = instant();
        invoice->dueDate = instant();
        invoice->periodStart = instant();
        invoice->periodEnd = instant();
        invoice->taxRateBasisPoints = below(10000);
        invoice->statusRaw = oneIn(2) ? "sent" : text();
        invoice->roundingMinutes = below(60);
        invoice->notes = text();
        if (oneIn(2)) invoice->paidAt = instant();
        invoice->showsEntryDetails = oneIn(2);
        invoice->currencyCode = "USD";
        BusinessProfile profile;
        profile.name = text();
        if (oneIn(2)) invoice->businessSnapshot = Blob{encodeProfile(profile)};
        return invoice;
    }

    void addProject(int i, const Ref<Client>& client, const std::vector<Ref<Invoice>>& invoices) {
        const auto project = library_.addProject(name(i), client);
        project->colorHex = text();
        project->rateOverrideCents = number();
        project->isArchived = oneIn(3);
        project->budgetHours = number();
        for (int n = below(12); n > 0; --n) addEntry(project, invoices);
    }

    void addEntry(const Ref<Project>& project, const std::vector<Ref<Invoice>>& invoices) {
        // No two entries of a library cover the same span.
        const Instant start = instant();
        std::optional<Instant> end = start + std::chrono::seconds(++entryCount_);
        if (contents_ == Contents::anything && oneIn(20)) end.reset();
        const auto entry = library_.addEntry(project, start, end);
        entry->notes = text();
        if (invoices.empty() || oneIn(2)) return;
        entry->invoice = invoices[random_() % invoices.size()];
        entry->billedRateCents = number();
    }

    TestLibrary& library_;
    std::mt19937 random_;
    Contents contents_;
    int invoiceCount_ = 0;
    int entryCount_ = 0;
};

}  // namespace elmworth::test
