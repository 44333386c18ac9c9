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

namespace elmworth {

namespace {

struct Report {
    TimesheetFilter filter;
    std::vector<Ref<TimeEntry>> entries;
    std::vector<DayGroup> days;
    TimesheetStatistics statistics;
};

TimesheetStatistics statisticsOf(const std::vector<Ref<TimeEntry>>& entries,
                                 const DateInterval& range, Instant now) {
    TimesheetSums sums(range);
    for (const auto& entry : entries) sums.add(TimesheetEntry::of(*entry));
    return sums.statistics(now);
}

Report makeReport(const TimesheetArguments& arguments, CommandEnvironment& environment) {
    const Instant now = environment.now();
    Report report;
    report.filter = arguments.filter(environment);
    report.entries = filteredEntries(environment.context, report.filter, now);
    report.days = dayGroups(report.entries, report.filter.range, now, environment.calendar);
    report.statistics = statisticsOf(report.entries, report.filter.range, now);
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

void writeDay(JSONOutput& json, const DayGroup& group, const Calendar& calendar) {
    json.beginObject();
    json.field("day", dayText(group.day, calendar));
    json.field("seconds", group.seconds);
    json.key("entries");
    json.beginArray();
    for (const auto& entry : group.entries) json.value(entry->id().string());
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
    for (const auto& entry : report.entries) writeEntry(json, *entry, environment.now());
    json.endArray();
    json.key("days");
    json.beginArray();
    for (const auto& day : report.days) writeDay(json, day, environment.calendar);
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
    for (const auto& day : report.days) {
        output.line(weekdays.string(day.day) + ", " + dates.string(day.day) + "  " +
                    formatHoursMinutes(day.seconds));
        TextTable table({{""}, {""}, {"", TextTable::Alignment::right}, {""}, {""}, {""}});
        for (const auto& entry : day.entries) {
            const auto& project = entry->project.get();
            const auto client = project ? project->client.get() : nullptr;
            table.add({"  " + times.string(entry->start),
                       entry->isRunning() ? "now" : times.string(*entry->end.get()),
                       formatHoursMinutes(entry->duration(environment.now())),
                       project ? project->name.get() : NoProject::name,
                       client ? client->name.get() : "", entry->notes});
        }
        output.text += table.rowsText() + '\n';
    }
    if (report.days.empty()) output.line("No time matches this period and filter.");
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
