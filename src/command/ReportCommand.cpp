// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/JSONOutput.h"
#include "command/TextTable.h"
#include "command/TimesheetArguments.h"
#include "invoicing/TimesheetStatistics.h"
#include "platform/DateFormatter.h"
#include "platform/DurationFormat.h"
#include "platform/MoneyFormat.h"
#include "records/Invoice.h"
#include "tracking/TimesheetDays.h"

namespace elmworth {

namespace {

struct Report {
    Instant now;
    TimesheetFilter filter;
    std::vector<Ref<TimeEntry>> entries;
    TimesheetListing listing;  ///< of a single piece, in which they stand in the same order
    TimesheetStatistics statistics;
};

Report makeReport(const TimesheetArguments& arguments, CommandEnvironment& environment) {
    Report report;
    report.now = environment.now();
    report.filter = arguments.filter(environment);
    const auto& range = report.filter.range;
    report.entries = TimesheetReader(environment.context, report.filter, report.now).entries();
    TimesheetSums sums(range);
    const auto piece = std::make_shared<TimesheetPiece>();
    for (const auto& entry : report.entries) {
        piece->add(*entry);
        sums.add(piece->entry(piece->size() - 1));
    }
    report.listing =
        listTimesheet({piece}, range, report.now, environment.calendar, TimesheetSearch(""));
    report.statistics = sums.statistics(report.now);
    return report;
}

void writeEntry(JSONOutput& json, const TimeEntry& entry, Instant now) {
    const auto& project = entry.project.get();
    json.beginObject();
    json.field("id", entry.id().string());
    json.field("start", entry.start.get());
    json.field("end", entry.end.get());
    json.field("seconds", entry.duration(now));
    if (project) json.field("project", project->name.get());
    const auto client = project ? project->client.get() : nullptr;
    if (client) json.field("client", client->name.get());
    json.field("notes", entry.notes.get());
    if (const auto& invoice = entry.invoice.get()) json.field("invoice", invoice->number.get());
    json.endObject();
}

std::string dayText(Instant day, const Calendar& calendar) {
    return formatISO8601(day, calendar.secondsFromUTC(day)).substr(0, 10);
}

void writeDay(JSONOutput& json, const TimesheetDay& day, Instant now, const Calendar& calendar) {
    json.beginObject();
    json.field("day", dayText(day.start, calendar));
    json.field("seconds", day.seconds(now));
    json.key("entries");
    json.beginArray();
    for (const auto& place : day.entries) json.value(place.entry().id.string());
    json.endArray();
    json.endObject();
}

void writeStatistics(JSONOutput& json, const TimesheetStatistics& statistics) {
    json.key("statistics");
    json.beginObject();
    json.field("trackedSeconds", statistics.trackedSeconds);
    json.field("unbilledSeconds", statistics.unbilledSeconds);
    if (statistics.currencyCode) {
        json.field("currencyCode", *statistics.currencyCode);
        json.field("billableCents", statistics.billableCents);
        json.field("unbilledCents", statistics.unbilledCents);
    }
    json.endObject();
}

void printJSON(const Report& report, CommandEnvironment& environment, CommandOutput& output) {
    JSONOutput json;
    json.beginObject();
    json.key("period");
    json.beginObject();
    json.field("start", report.filter.range.start);
    json.field("end", report.filter.range.end);
    json.endObject();
    json.key("entries");
    json.beginArray();
    for (const auto& entry : report.entries) writeEntry(json, *entry, report.now);
    json.endArray();
    json.key("days");
    json.beginArray();
    for (const auto& day : report.listing.days) {
        writeDay(json, *day, report.now, environment.calendar);
    }
    json.endArray();
    writeStatistics(json, report.statistics);
    json.endObject();
    output.text += json.document();
}

std::string statisticsText(const TimesheetStatistics& statistics, const Locale& locale) {
    std::string text = "Tracked " + formatHoursMinutes(statistics.trackedSeconds);
    if (!statistics.currencyCode) {
        return text + " · Billable Mixed · Unbilled " +
               formatHoursMinutes(statistics.unbilledSeconds);
    }
    const auto money = [&](std::int64_t cents) {
        return formatCents(cents, *statistics.currencyCode, locale);
    };
    return text + " · Billable " + money(statistics.billableCents) + " · Unbilled " +
           money(statistics.unbilledCents) + " (" + formatHoursMinutes(statistics.unbilledSeconds) +
           ")";
}

void printText(const Report& report, CommandEnvironment& environment, CommandOutput& output) {
    const auto formatter = [&](DateFormatter::Style style) {
        return DateFormatter(style, environment.locale, environment.calendar.zoneID());
    };
    const auto weekdays = formatter(DateFormatter::Style::weekday);
    const auto dates = formatter(DateFormatter::Style::mediumDate);
    const auto times = formatter(DateFormatter::Style::shortTime);
    for (const auto& day : report.listing.days) {
        output.line(weekdays.string(day->start) + ", " + dates.string(day->start) + "  " +
                    formatHoursMinutes(day->seconds(report.now)));
        TextTable table({{""}, {""}, {"", TextTable::Alignment::right}, {""}, {""}, {""}});
        for (const auto& place : day->entries) {
            const auto& entry = report.entries[place.index];
            const auto& project = entry->project.get();
            const auto client = project ? project->client.get() : nullptr;
            table.add({"  " + times.string(entry->start),
                       entry->isRunning() ? "now" : times.string(*entry->end.get()),
                       formatHoursMinutes(entry->duration(report.now)),
                       project ? project->name.get() : NoProject::name,
                       client ? client->name.get() : "", entry->notes});
        }
        output.text += table.rowsText() + '\n';
    }
    if (report.listing.days.empty()) output.line("No time matches this period and filter.");
    output.line(statisticsText(report.statistics, environment.moneyLocale));
}

}  // namespace

void addReportCommand(CommandSyntax& syntax) {
    auto command =
        syntax.program.subcommand("report", "Shows the time of a period by day, with its totals");
    auto arguments = std::make_shared<TimesheetArguments>();
    arguments->addTo(command);
    syntax.runs(command, [arguments](CommandEnvironment& environment, CommandOutput& output) {
        const auto report = makeReport(*arguments, environment);
        if (output.isJSON()) {
            printJSON(report, environment, output);
        } else {
            printText(report, environment, output);
        }
    });
}

}  // namespace elmworth
