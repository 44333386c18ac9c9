// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandTest.h"

namespace elmworth {
namespace {

using test::Arguments;
using test::keys;
using testing::ElementsAre;
using testing::HasSubstr;

/// Time on three days of March; the first entry is billed, the last one runs.
class ReportCommand : public test::CommandTest {
 protected:
    void addTime() {
        first_ = addEntry(design_, "2026-03-30T23:00+02:00", 120, "Over midnight");
        second_ = addEntry(otherWebsite_, "2026-03-29T10:00+02:00", 30);
        addEntry(website_, "2026-02-10T10:00+01:00", 60, "Long ago");
    }
    /// The notes of the entries that a report with these options shows.
    std::vector<std::string> notes(const Arguments& options) {
        Arguments arguments{"report", "--period", "This Year"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        const auto report = json(arguments);
        std::vector<std::string> found;
        for (const auto& entry : report["entries"].GetArray()) {
            found.emplace_back(entry["notes"].GetString());
        }
        return found;
    }

    Ref<TimeEntry> first_, second_;
};

TEST_F(ReportCommand, tellsThePeriodTheEntriesTheDaysAndTheStatistics) {
    addTime();
    const auto report = json({"report"});
    EXPECT_THAT(keys(report), ElementsAre("period", "entries", "days", "statistics"));
    EXPECT_STREQ(report["period"]["start"].GetString(), "2026-03-28T23:00:00Z");
    EXPECT_STREQ(report["period"]["end"].GetString(), "2026-04-04T22:00:00Z");

    ASSERT_EQ(report["entries"].Size(), 2U);
    const auto& entry = report["entries"][0];
    EXPECT_THAT(keys(entry),
                ElementsAre("id", "start", "end", "seconds", "project", "client", "notes"));
    EXPECT_EQ(entry["id"].GetString(), first_->id().string());
    EXPECT_STREQ(entry["start"].GetString(), "2026-03-30T21:00:00Z");
    EXPECT_STREQ(entry["end"].GetString(), "2026-03-30T23:00:00Z");
    EXPECT_EQ(entry["seconds"].GetInt(), 7200);
    EXPECT_STREQ(entry["project"].GetString(), "Design");
    EXPECT_STREQ(entry["client"].GetString(), "Acme Co");
    EXPECT_STREQ(entry["notes"].GetString(), "Over midnight");

    ASSERT_EQ(report["days"].Size(), 3U);
    const auto& day = report["days"][0];
    EXPECT_THAT(keys(day), ElementsAre("day", "seconds", "entries"));
    EXPECT_STREQ(day["day"].GetString(), "2026-03-31");
    EXPECT_EQ(day["seconds"].GetInt(), 3600);
    EXPECT_EQ(day["entries"][0].GetString(), first_->id().string());
    EXPECT_STREQ(report["days"][1]["day"].GetString(), "2026-03-30");
    EXPECT_STREQ(report["days"][2]["day"].GetString(), "2026-03-29");

    const auto& statistics = report["statistics"];
    EXPECT_THAT(keys(statistics), ElementsAre("trackedSeconds", "unbilledSeconds", "currencyCode",
                                              "billableCents", "unbilledCents"));
    EXPECT_EQ(statistics["trackedSeconds"].GetInt(), 9000);
    EXPECT_EQ(statistics["unbilledSeconds"].GetInt(), 9000);
    EXPECT_EQ(statistics["billableCents"].GetInt(), 25000);
}

TEST_F(ReportCommand, ofARunningEntryHasNoEndAndCountsUpToNow) {
    timer_.start(design_);
    now_ += std::chrono::minutes(30);
    const auto report = json({"report", "--period", "today"});
    EXPECT_FALSE(report["entries"][0].HasMember("end"));
    EXPECT_EQ(report["entries"][0]["seconds"].GetInt(), 1800);
    EXPECT_EQ(report["statistics"]["unbilledSeconds"].GetInt(), 0);
    EXPECT_THAT(output({"report", "--period", "today"}), HasSubstr("now"));
}

TEST_F(ReportCommand, ofABilledEntryNamesItsInvoice) {
    addTime();
    const std::string number = billMarch();
    const auto report = json({"report"});
    EXPECT_EQ(report["entries"][0]["invoice"].GetString(), number);
    EXPECT_EQ(report["statistics"]["unbilledSeconds"].GetInt(), 1800);
}

TEST_F(ReportCommand, ofSeveralCurrenciesLeavesTheAmountsOut) {
    globex_->currencyCode = "EUR";
    addTime();
    EXPECT_THAT(keys(json({"report"})["statistics"]),
                ElementsAre("trackedSeconds", "unbilledSeconds"));
    EXPECT_THAT(output({"report"}), HasSubstr("Billable Mixed"));
}

TEST_F(ReportCommand, optionsChooseTheEntries) {
    addTime();
    EXPECT_THAT(notes({}), ElementsAre("Over midnight", "", "Long ago"));
    EXPECT_THAT(notes({"--client", "acme co"}), ElementsAre("Over midnight", "Long ago"));
    EXPECT_THAT(notes({"--project", "design"}), ElementsAre("Over midnight"));
    EXPECT_THAT(notes({"--project", "website", "--client", "globex"}), ElementsAre(""));
    EXPECT_THAT(notes({"--search", " LONG "}), ElementsAre("Long ago"));
    billMarch();
    EXPECT_THAT(notes({"--unbilled"}), ElementsAre("", "Long ago"));
}

TEST_F(ReportCommand, ofDaysTakesTheWholeLastDay) {
    addTime();
    const auto report = json({"report", "--from", "2026-03-30", "--through", "2026-03-30"});
    EXPECT_STREQ(report["period"]["start"].GetString(), "2026-03-29T22:00:00Z");
    EXPECT_STREQ(report["period"]["end"].GetString(), "2026-03-30T22:00:00Z");
    EXPECT_EQ(report["days"].Size(), 1U);
    EXPECT_EQ(report["days"][0]["seconds"].GetInt(), 3600);
    EXPECT_EQ(report["entries"][0]["seconds"].GetInt(), 7200);
}

TEST_F(ReportCommand, ofNothingSaysSo) {
    EXPECT_THAT(output({"report"}), HasSubstr("No time matches this period and filter.\n"));
    const auto report = json({"report"});
    EXPECT_EQ(report["entries"].Size(), 0U);
    EXPECT_EQ(report["days"].Size(), 0U);
    EXPECT_STREQ(report["statistics"]["currencyCode"].GetString(), "USD");
}

TEST_F(ReportCommand, asTextHasALineForEachEntryUnderItsDay) {
    addTime();
    const auto text = output({"report"});
    EXPECT_THAT(text, HasSubstr("Tuesday, Mar 31, 2026  1:00\n"));
    EXPECT_THAT(text, HasSubstr("Design"));
    EXPECT_THAT(text, testing::EndsWith("Tracked 2:30 · Billable $250.00 · Unbilled $250.00 "
                                        "(2:30)\n"));
}

TEST_F(ReportCommand, ofAnUnknownClientProjectOrPeriodIsRefused) {
    expectRefusal({"report", "--client", "acme"}, 1,
                  "There is no client “acme”. Candidates: Acme Co.");
    expectUsageError({"report", "--period", "Someday"}, "is no period");
    expectUsageError({"report", "--from", "2026-03-01"}, "--through");
    expectUsageError({"report", "--from", "2026-03-32", "--through", "2026-03-31"}, "2026-03-32");
}

}  // namespace
}  // namespace elmworth
