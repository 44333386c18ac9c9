// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "reliability/Works.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <stdexcept>

#include "reliability/Session.h"
#include "support/Instants.h"
#include "support/RawDatabase.h"

namespace elmworth::test {

namespace {

namespace fs = std::filesystem;
using namespace std::chrono_literals;

const std::vector<Step> twoClients{
    {"client", "add", "Acme Co", "--rate", "100"},
    {"project", "add", "Website", "--client", "Acme Co"},
    {"project", "add", "Design", "--client", "Acme Co"},
    {"log", "Website", "--from", "2026-03-02T09:00", "--to", "2026-03-02T10:30", "--notes", "Plan"},
    {"log", "Design", "--from", "2026-03-03T09:00", "--to", "2026-03-03T17:15", "--notes", "Draw"},
    {"import", "rows.csv"},
};
const Step marchInvoice{"invoice", "create",     "--client",  "Acme Co",
                        "--from",  "2026-03-01", "--through", "2026-03-31"};

std::vector<Step> twoClientsAnd(const std::vector<Step>& more) {
    auto steps = twoClients;
    steps.insert(steps.end(), more.begin(), more.end());
    return steps;
}

/// Of Globex, which has no other time, for an hour each.
void writeRows(const fs::path& file, int count) {
    std::ofstream table(file);
    table << "Start,End,Hours,Client,Project,Notes\n";
    for (int i = 0; i < count; ++i) {
        const Instant start = at("2025-01-01T00:00Z") + i * 1h;
        table << iso(start) << ',' << iso(start + 50min) << ",,Globex,App,Row " << i << '\n';
    }
}

constexpr const char* moreRows = R"(
WITH RECURSIVE number(value) AS (SELECT 1 UNION ALL SELECT value + 1 FROM number WHERE value < )";
constexpr const char* asEntries = R"()
INSERT INTO "TimeEntry" SELECT randomblob(16), value * 3600000000, value * 3600000000 + 1800000000,
    'Row ' || value, (SELECT "id" FROM "Project" WHERE "name" = 'Website'), NULL, NULL FROM number)";

}  // namespace

const std::vector<Work>& allWorks() {
    static const std::vector<Work> works{
        {.name = "start",
         .before = twoClients,
         .steps = {{"start", "Website", "--notes", "Login"}, {"start", "Design"}}},
        {.name = "stop", .before = twoClientsAnd({{"start", "Website"}}), .steps = {{"stop"}}},
        {.name = "new-invoice", .before = twoClients, .steps = {marchInvoice}},
        {.name = "delete-client",
         .before = twoClients,
         .steps = {{"client", "delete", "Globex"}},
         .rows = 1500},
        {.name = "delete-invoice",
         .before = twoClientsAnd({marchInvoice}),
         .steps = {{"invoice", "delete", "INV-2026-001"}}},
        {.name = "restore", .steps = {{"restore", "backup.json"}}, .rows = 5000},
        {.name = "import",
         .before = {{"client", "add", "Globex"}},
         .steps = {{"import", "rows.csv"}},
         .rows = 5000},
        {.name = "snapshot",
         .before = twoClientsAnd(std::vector<Step>(14, {"snapshot"})),
         .steps = {{"snapshot"}},
         .rows = 500},
        {.name = "settings",
         .before = {{"profile", "set", "name", "Jane"}},
         .steps = {{"settings", "set", "appearance", "dark"},
                   {"settings", "set", "weeklyGoalHours", "40"},
                   {"profile", "set", "name", "Jane Doe"}}},
        {.name = "logo", .before = {{"logo", "old.png"}}, .steps = {{"logo", "new.png"}}},
        {.name = "migration", .opensOlder = true, .rows = 1500},
        // Long enough for its log to be moved into the library in between.
        {.name = "day",
         .before = {{"client", "add", "Acme Co"},
                    {"project", "add", "Website", "--client", "Acme Co"}},
         .steps = {{"start", "Website"},
                   {"stop"},
                   {"import", "rows.csv"},
                   {"start", "App"},
                   {"project", "set", "Website", "name", "Shop"},
                   {"stop"},
                   {"start", "Shop", "--notes", "Evening"}},
         .rows = 5000},
    };
    return works;
}

const Work& workNamed(std::string_view name) {
    for (const auto& work : allWorks()) {
        if (work.name == name) return work;
    }
    throw std::out_of_range("There is no work “" + std::string(name) + "”.");
}

void Home::enter() const {
    ::setenv("XDG_DATA_HOME", (folder_ / "data").c_str(), 1);
    ::setenv("XDG_CONFIG_HOME", (folder_ / "config").c_str(), 1);
}

fs::path Home::library() const {
    return folder_ / "data" / "Elmworth" / "library.sqlite";
}

void Home::prepareOlder() const {
    fs::create_directories(library().parent_path());
    fs::copy_file(fs::path(ELMWORTH_TEST_DATA) / "library" / "library-1.0.0.sqlite", library());
    fs::permissions(library(), fs::perms::owner_read | fs::perms::owner_write);
    RawDatabase database(library());
    if (database.run(moreRows + std::to_string(rows_) + asEntries) != SQLITE_OK)
        throw std::runtime_error(sqlite3_errmsg(database.handle()));
}

void Home::runAll(const std::vector<Step>& steps, Instant begin) const {
    Session session(folder_, begin);
    for (const auto& step : steps) {
        if (const auto refusal = session.run(step); !refusal.empty())
            throw std::runtime_error(step.front() + ": " + refusal);
    }
}

void Home::prepare(const Work& work) const {
    fs::create_directories(folder_);
    enter();
    writeRows(folder_ / "rows.csv", rows_);
    writePicture(folder_ / "old.png", 200);
    writePicture(folder_ / "new.png", 300);
    if (work.opensOlder) return prepareOlder();
    if (work.name == "restore") {
        const Home other(folder_ / "other", 0);
        fs::create_directories(other.folder_);
        other.enter();
        fs::copy_file(folder_ / "rows.csv", other.folder_ / "rows.csv");
        other.runAll(twoClientsAnd({marchInvoice,
                                    {"profile", "set", "name", "Jane"},
                                    {"backup", (folder_ / "backup.json").string()}}),
                     at("2026-04-01T12:00Z"));
        fs::remove_all(other.folder_);
        enter();
    }
    runAll(work.before, at("2026-03-01T12:00Z"));
}

std::string Home::perform(const Work& work, const Announce& announce, Part part) const {
    enter();
    if (work.opensOlder) announce("ready");
    std::string refusal = Session::tryTo([&] {
        const auto stepsDone = static_cast<int>(part.first);
        Session session(folder_, at("2026-03-31T12:00Z") + stepsDone * 24h);
        if (!work.opensOlder) announce("ready");
        const auto end = std::min(work.steps.size() - part.first, part.count) + part.first;
        for (std::size_t i = part.first; i < end; ++i) {
            if (auto reason = session.run(work.steps[i]); !reason.empty()) return reason;
            announce("done");
            session.turn();
        }
        return std::string();
    });
    if (work.opensOlder && refusal.empty()) announce("done");
    return refusal;
}

std::string Home::found() const {
    std::string text = foundOnce();
    if (foundOnce() != text) text += "The second start finds something else.\n";
    if (!fs::exists(library())) return text;
    for (const auto& fault : RawDatabase(library()).faults()) text += "fault: " + fault + '\n';
    return text;
}

std::string Home::foundOnce() const {
    enter();
    std::string text;
    const auto refusal = Session::tryTo([&] {
        text = Session(folder_, at("2026-06-30T12:00Z")).contents();
        return std::string();
    });
    return text + refusal;
}

}  // namespace elmworth::test
