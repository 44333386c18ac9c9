// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/DemoData.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <string>

#include "invoicing/InvoiceBuilder.h"
#include "platform/SystemLog.h"
#include "records/ProfileStore.h"
#include "records/Project.h"

namespace elmworth::DemoData {

namespace {

using namespace std::chrono_literals;

struct ClientRow {
    const char* name;
    std::int64_t hourlyRateCents;
    const char* email;
};

struct ProjectRow {
    const char* name;
    const char* client;
    const char* colorHex;
    std::optional<std::int64_t> rateOverrideCents;
    std::optional<std::int64_t> budgetHours;
};

struct EntryRow {
    const char* project;
    int daysAgo;
    int startHour;
    int minutes;
    const char* notes;
};

constexpr const char* address = "100 Market Street\nSan Francisco, CA 94105";

constexpr std::array clientRows{
    ClientRow{"Acme Co", 12000, "billing@acme.example"},
    ClientRow{"Globex", 15000, "accounts@globex.example"},
    ClientRow{"Initech", 9500, "office@initech.example"},
};

constexpr std::array projectRows{
    ProjectRow{"Website Redesign", "Acme Co", "#7C6CFF", std::nullopt, 40},
    ProjectRow{"Brand Guidelines", "Acme Co", "#FF6B8B", std::nullopt, 5},
    ProjectRow{"iOS App", "Globex", "#2EC4B6", 17500, 4},
    ProjectRow{"API Integration", "Globex", "#4AA8FF", std::nullopt, std::nullopt},
    ProjectRow{"TPS Reports", "Initech", "#FFB400", std::nullopt, std::nullopt},
};

constexpr std::array entryRows{
    EntryRow{"Website Redesign", 0, 9, 95, "Homepage hero and navigation"},
    EntryRow{"iOS App", 0, 13, 120, "Onboarding flow review"},
    EntryRow{"Website Redesign", 1, 9, 180, "Pricing page layout"},
    EntryRow{"API Integration", 1, 14, 75, "Webhook retries"},
    EntryRow{"Brand Guidelines", 2, 10, 110, "Color palette and type scale"},
    EntryRow{"TPS Reports", 2, 15, 45, "New cover sheets"},
    EntryRow{"iOS App", 3, 9, 210, "Settings screen polish"},
    EntryRow{"Website Redesign", 4, 11, 60, "Client feedback round"},
    EntryRow{"API Integration", 6, 10, 150, "OAuth token refresh"},
    EntryRow{"Brand Guidelines", 8, 9, 130, "Logo lockups"},
    EntryRow{"iOS App", 9, 13, 90, "TestFlight build notes"},
    EntryRow{"Website Redesign", 10, 10, 160, "Blog templates"},
};

BusinessProfile sampleProfile() {
    BusinessProfile profile;
    profile.name = "Jane Doe Design";
    profile.address = "12 Elm Street\nSpringfield, IL 62701";
    profile.email = "jane@janedoe.example";
    profile.paymentInstructions = "Bank transfer · IBAN XX00 1234 5678 9000";
    return profile;
}

/// Fills one library; remembers the records by their names.
class Seeder {
 public:
    Seeder(UnitOfWork& context, Instant now, const Calendar& calendar)
        : context_(context), now_(now), calendar_(calendar) {}

    void addClients() {
        for (const auto& row : clientRows) {
            const auto client = std::make_shared<Client>(row.name);
            client->hourlyRateCents = row.hourlyRateCents;
            client->email = row.email;
            client->address = address;
            context_.insert(client);
            clients_[row.name] = client;
        }
    }

    void addProjects() {
        for (const auto& row : projectRows) {
            const auto project = std::make_shared<Project>(row.name, clients_.at(row.client));
            project->colorHex = row.colorHex;
            project->rateOverrideCents = row.rateOverrideCents;
            project->budgetHours = row.budgetHours;
            context_.insert(project);
            projects_[row.name] = project;
        }
    }

    void addEntries() {
        for (const auto& row : entryRows) {
            const Instant day = daysBefore(calendar_.startOfDay(now_), row.daysAgo);
            const auto start = calendar_.settingTime(row.startHour, 0, 0, day);
            if (!start) fatalError("the calendar lacks an hour of the demo library");
            if (*start >= now_) continue;
            const Instant end = std::min<Instant>(*start + row.minutes * 1min, now_ - 60s);
            addEntry(row.project, *start, end, row.notes);
        }
        addEntry("Website Redesign", now_ - 2832s, std::nullopt, "Case study page");
    }

    /// Makes an invoice as if the clock read `clock`; a failure leaves it out.
    void addInvoice(const std::string& client, Instant clock, int fromDaysAgo, int toDaysAgo,
                    std::int64_t taxBasisPoints, InvoiceStatus status, BusinessProfile& profile) {
        const InvoiceBuilder builder{context_, [clock] { return clock; }, calendar_};
        try {
            const auto invoice =
                builder.createInvoice(clients_.at(client), daysBefore(now_, fromDaysAgo),
                                      daysBefore(now_, toDaysAgo), taxBasisPoints, profile);
            invoice->setStatus(status, now_);
        } catch (const BuildError&) {
            return;
        } catch (const StoreError&) {
            return;
        }
    }

    [[nodiscard]] Instant daysBefore(Instant instant, int days) const {
        const auto date = calendar_.adding(-days, CalendarUnit::day, instant);
        if (!date) fatalError("the calendar lacks a day of the demo library");
        return *date;
    }

 private:
    void addEntry(const std::string& project, Instant start, std::optional<Instant> end,
                  const std::string& notes) {
        const auto entry = std::make_shared<TimeEntry>(start, projects_.at(project));
        entry->end = end;
        entry->notes = notes;
        context_.insert(entry);
    }

    UnitOfWork& context_;
    Instant now_;
    const Calendar& calendar_;
    std::map<std::string, Ref<Client>> clients_;
    std::map<std::string, Ref<Project>> projects_;
};

}  // namespace

void seed(UnitOfWork& context, Settings& defaults, Instant now, const Calendar& calendar) {
    Seeder seeder(context, now, calendar);
    seeder.addClients();
    seeder.addProjects();
    seeder.addEntries();
    context.saveQuietly();

    using namespace std::chrono_literals;
    auto profile = sampleProfile();
    seeder.addInvoice("Initech", now - 20 * 24h, 60, 0, 0, InvoiceStatus::sent, profile);
    seeder.addInvoice("Acme Co", now, 12, 7, 825, InvoiceStatus::draft, profile);
    context.saveQuietly();
    ProfileStore(defaults).setProfile(profile);
}

}  // namespace elmworth::DemoData
