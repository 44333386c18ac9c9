// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "LibraryGenerator.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cmath>
#include <cstdint>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include "TurningLoop.h"
#include "platform/Calendar.h"
#include "records/BusinessProfile.h"
#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Library.h"
#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth::bench {

namespace {

using namespace std::chrono_literals;

std::chrono::seconds cutToSeconds(double seconds) {
    return std::chrono::seconds(static_cast<std::int64_t>(seconds));
}

constexpr std::array names{"Acme",   "Globex",    "Initech", "Umbrella", "Hooli",
                           "Stark",  "Wayne",     "Wonka",   "Café Zoë", "Żółw Studio",
                           "Tyrell", "Cyberdyne", "Soylent", "Aperture", "Müller & Söhne"};
constexpr std::array works{"Website", "Mobile App", "Brand",     "API",     "Support",
                           "Shop",    "Newsletter", "Migration", "Reports", "Workshops"};
constexpr std::array notes{"",
                           "Call with the client",
                           "Homepage hero and navigation",
                           "Code review and merging of what was left from last week",
                           "Fixes",
                           "Layout · Überschriften, 日本語 samples",
                           "Meeting\nTo do: send the minutes"};
constexpr std::array colors{"#4F7CFF", "#FF6B8B", "#2EC4B6", "#FFB400"};
constexpr int workSeconds = 8 * 3600;

/// Random numbers and identities that are the same in every run.
class Dice {
 public:
    std::size_t below(std::size_t limit) { return generator_() % limit; }
    double between(double low, double high) {
        return low + (high - low) * static_cast<double>(below(1'000'000)) / 1e6;
    }
    template <class Choices>
    std::string oneOf(const Choices& choices) {
        return choices[below(choices.size())];
    }

    /// A version 7 UUID as one made at `instant`.
    PersistentID identity(Instant instant) {
        const auto milliseconds =
            std::chrono::floor<std::chrono::milliseconds>(instant).time_since_epoch().count();
        const std::uint64_t high =
            (static_cast<std::uint64_t>(milliseconds) << 16) | 0x7000U | (++sequence_ & 0xFFFU);
        const std::uint64_t low = (generator_() & 0x3FFF'FFFF'FFFF'FFFFU) | 0x8000'0000'0000'0000U;
        PersistentID id;
        for (std::size_t i = 0; i < 8; ++i) {
            id.bytes[i] = static_cast<std::uint8_t>(high >> (56 - 8 * i));
            id.bytes[8 + i] = static_cast<std::uint8_t>(low >> (56 - 8 * i));
        }
        return id;
    }

 private:
    std::mt19937_64 generator_{20260318};
    std::uint64_t sequence_ = 0;
};

std::string customerName(std::size_t index) {
    std::string name = names[index % names.size()];
    if (index >= names.size()) name += ' ' + std::to_string(index / names.size() + 1);
    return name;
}

struct WorkingDay {
    Instant begin;
    std::size_t entries;
};

class Generator {
 public:
    Generator(const std::filesystem::path& file, const LibraryShape& shape)
        : shape_(shape), container_(LibraryOptions{file}, loop_) {
        profile_.name = "Ada Byron Design";
        profile_.resetNumberingYearly = true;
        clients_.resize(shape_.clients);
    }

    void run() {
        const auto days = workingDays();
        for (std::size_t i = 0; i < days.size(); ++i) {
            if (i == 0 || monthOf(days[i].begin) != monthOf(days[i - 1].begin)) {
                if (i > 0) billMonth(days[i].begin);
                takeOnClients(days[i].begin, i, days.size());
            }
            work(days[i]);
        }
        if (monthOf(shape_.now) != monthOf(days.back().begin)) billMonth(shape_.now);
        addEntry(anyProject(), shape_.now - 47min, std::nullopt);
        save();
    }

 private:
    struct Customer {
        Ref<Client> client;
        std::vector<Ref<Project>> projects;
    };

    [[nodiscard]] std::pair<int, int> monthOf(Instant instant) const {
        const auto fields = calendar_.components(instant);
        return {fields.year, fields.month};
    }

    /// Monday to Friday, and the nights on which the clocks change.
    [[nodiscard]] std::optional<Instant> beginOfWork(Instant day) const {
        const auto whole = calendar_.interval(CalendarUnit::day, day);
        if (whole && whole->end - whole->start != 24h) {
            return calendar_.settingTime(1, 30, 0, day);
        }
        const int weekday = calendar_.components(day).weekday;
        if (weekday == 1 || weekday == 7) return std::nullopt;
        return calendar_.settingTime(8, 30, 0, day);
    }

    /// The days back from yesterday that hold all finished entries, in the order of time.
    std::vector<WorkingDay> workingDays() {
        std::vector<WorkingDay> days;
        std::size_t left = shape_.entries - 1;
        for (int ago = 1; left > 0; ++ago) {
            const auto day = calendar_.adding(-ago, CalendarUnit::day, shape_.now);
            const auto begin = day ? beginOfWork(*day) : std::nullopt;
            if (!begin) continue;
            const double wanted = shape_.entriesPerDay * dice_.between(0.4, 1.6);
            const auto count =
                std::clamp<std::size_t>(static_cast<std::size_t>(std::lround(wanted)), 1, left);
            days.push_back({*begin, count});
            left -= count;
        }
        std::reverse(days.begin(), days.end());
        return days;
    }

    /// Moves on among the clients, so that each has work for some years.
    void takeOnClients(Instant now, std::size_t day, std::size_t dayCount) {
        const std::size_t changes = shape_.clients - shape_.busyClients;
        firstBusy_ = dayCount > 1 ? day * (changes + 1) / dayCount : 0;
        for (std::size_t i = 0; i < firstBusy_; ++i) {
            for (const auto& project : clients_[i].projects) project->isArchived = true;
        }
        for (std::size_t i = firstBusy_; i < firstBusy_ + shape_.busyClients; ++i) {
            if (!clients_[i].client) clients_[i] = newCustomer(i, now);
        }
    }

    Customer newCustomer(std::size_t index, Instant now) {
        Customer customer{std::make_shared<Client>(dice_.identity(now)), {}};
        auto& client = *customer.client;
        client.name = customerName(index);
        client.email = "client" + std::to_string(index) + "@example.com";
        client.address = "100 Market Street\nSan Francisco, CA 94105";
        client.hourlyRateCents = static_cast<std::int64_t>(8000 + 500 * dice_.below(17));
        client.createdAt = now;
        container_.mainContext().insert(customer.client);
        for (std::size_t i = 0; i < shape_.projectsPerClient; ++i) {
            const auto project = std::make_shared<Project>(dice_.identity(now));
            project->name = std::string(works[i % works.size()]);
            project->client = customer.client;
            project->colorHex = dice_.oneOf(colors);
            if (i % 4 == 0) project->rateOverrideCents = 12500;
            if (i % 3 == 0) project->budgetHours = 400;
            container_.mainContext().insert(project);
            customer.projects.push_back(project);
        }
        return customer;
    }

    Ref<Project> anyProject() {
        const auto& customer = clients_[firstBusy_ + dice_.below(shape_.busyClients)];
        return customer.projects[dice_.below(customer.projects.size())];
    }

    void work(const WorkingDay& day) {
        const double slot = workSeconds / static_cast<double>(day.entries);
        for (std::size_t i = 0; i < day.entries; ++i) {
            const Instant start = day.begin + cutToSeconds(slot * static_cast<double>(i));
            const auto length = cutToSeconds(std::max(1.0, slot * dice_.between(0.5, 1)));
            month_.push_back(addEntry(anyProject(), start, start + length));
        }
    }

    Ref<TimeEntry> addEntry(const Ref<Project>& project, Instant start,
                            std::optional<Instant> end) {
        const auto entry = std::make_shared<TimeEntry>(dice_.identity(start));
        entry->start = start;
        entry->end = end;
        entry->notes = dice_.oneOf(notes);
        entry->project = project;
        container_.mainContext().insert(entry);
        return entry;
    }

    /// An invoice for each client with work in the month that has just ended, and the save of all.
    void billMonth(Instant issue) {
        std::map<std::string, std::vector<Ref<TimeEntry>>> byClient;
        for (const auto& entry : std::exchange(month_, {})) {
            byClient[entry->project->client->name].push_back(entry);
        }
        for (const auto& [name, entries] : byClient) bill(entries, issue);
        save();
    }

    void bill(const std::vector<Ref<TimeEntry>>& entries, Instant issue) {
        const auto month = calendar_.interval(CalendarUnit::month, entries.front()->start);
        const int year = calendar_.components(issue).year;
        profile_.applyYearlyReset(year);
        const auto invoice = std::make_shared<Invoice>(dice_.identity(issue));
        invoice->number = profile_.formattedInvoiceNumber(year);
        invoice->client = entries.front()->project->client.get();
        invoice->issueDate = issue;
        invoice->dueDate = calendar_.adding(14, CalendarUnit::day, issue).value_or(issue);
        invoice->periodStart = month->start;
        invoice->periodEnd = month->end;
        invoice->taxRateBasisPoints = 1900;
        invoice->currencyCode = "USD";
        invoice->businessSnapshot = Blob{encodeProfile(profile_)};
        setStatus(*invoice, issue);
        container_.mainContext().insert(invoice);
        for (const auto& entry : entries) {
            entry->billedRateCents = entry->project->effectiveRateCents();
            entry->invoice = invoice;
        }
        ++profile_.nextInvoiceNumber;
    }

    /// Old invoices are paid but for a few; of the latest some are still drafts.
    void setStatus(Invoice& invoice, Instant issue) {
        const bool isLatest = shape_.now - issue < 24h * 40;
        if (isLatest) {
            invoice.setStatus(dice_.below(3) == 0 ? InvoiceStatus::draft : InvoiceStatus::sent,
                              issue);
        } else {
            invoice.setStatus(dice_.below(50) == 0 ? InvoiceStatus::sent : InvoiceStatus::paid,
                              issue + 24h * 10);
        }
    }

    void save() {
        container_.mainContext().save();
        loop_.turn();
    }

    const LibraryShape& shape_;
    const Calendar calendar_{Locale("en_GB"), "Europe/Berlin"};
    Dice dice_;
    BusinessProfile profile_;
    TurningLoop loop_;
    Library container_;
    std::vector<Customer> clients_;
    std::size_t firstBusy_ = 0;
    std::vector<Ref<TimeEntry>> month_;  ///< finished entries not yet billed
};

}  // namespace

LibraryShape LibraryShape::ofEntries(std::size_t entries, Instant now) {
    constexpr double workingDaysInYear = 263;  // with two nights of changing clocks
    constexpr double usualEntriesPerDay = 5;
    constexpr double longestCareer = 20;
    const auto count = static_cast<double>(entries);
    const double years = std::min(count / (workingDaysInYear * usualEntriesPerDay), longestCareer);
    const auto clients = std::max<std::size_t>(2, static_cast<std::size_t>(std::lround(2 * years)));
    return {entries,
            clients,
            std::max<std::size_t>(2, clients / 4),
            10,
            std::max(usualEntriesPerDay, count / (workingDaysInYear * longestCareer)),
            now};
}

void generateLibrary(const std::filesystem::path& file, const LibraryShape& shape) {
    Generator(file, shape).run();
}

}  // namespace elmworth::bench
