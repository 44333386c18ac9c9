// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "exchange/CSVDocument.h"

#include "platform/DurationFormat.h"
#include "platform/ISO8601.h"
#include "platform/Text.h"
#include "records/Client.h"
#include "records/Project.h"

namespace elmworth {

namespace {

constexpr std::size_t pieceSize = 1 << 16;

bool isBreakOfItsOwn(std::string_view value, std::size_t position) {
    if (value[position] == '\r') {
        return position + 1 >= value.size() || value[position + 1] != '\n';
    }
    return position == 0 || value[position - 1] != '\r';
}

/// Whether the ASCII character at `position` is a user-perceived character by itself.
bool standsAlone(std::string_view value, std::size_t position) {
    return isCharacterBoundary(value, position) && isCharacterBoundary(value, position + 1);
}

/// The first place from `position` on of what may need quotes. Nearly all values have none.
std::size_t nextSpecial(std::string_view value, std::size_t position) {
    const auto isSpecial = [](char c) { return c == '"' || c == ',' || c == '\r' || c == '\n'; };
    while (position < value.size() && !isSpecial(value[position])) ++position;
    return position < value.size() ? position : std::string_view::npos;
}

bool needsQuotes(std::string_view value) {
    std::size_t position = nextSpecial(value, 0);
    while (position != std::string_view::npos) {
        const char c = value[position];
        const bool isBreak = c == '\r' || c == '\n';
        if (isBreak ? isBreakOfItsOwn(value, position) : standsAlone(value, position)) return true;
        position = nextSpecial(value, position + 1);
    }
    return false;
}

}  // namespace

std::string csvField(std::string_view value) {
    if (!needsQuotes(value)) return std::string(value);
    std::string field = "\"";
    std::size_t begin = 0;
    for (auto quote = value.find('"'); quote != std::string_view::npos;
         quote = value.find('"', quote + 1)) {
        if (!standsAlone(value, quote)) continue;
        field.append(value, begin, quote - begin) += '"';
        begin = quote;
    }
    return field.append(value, begin) + '"';
}

CSVDocument::CSVDocument(const std::string& zoneID, std::function<void(std::string_view)> sink)
    : offsets_(zoneID), sink_(std::move(sink)) {
    addLine({"Date", "Start", "End", "Client", "Project", "Notes", "Hours"});
}

void CSVDocument::add(Instant start, Instant end, std::string_view client, std::string_view project,
                      std::string_view notes) {
    const std::string startText = formatISO8601(start, offsets_.secondsAt(start));
    const std::string endText = formatISO8601(end, offsets_.secondsAt(end));
    addLine({std::string_view(startText).substr(0, 10), startText, endText, client, project, notes,
             formatDecimalHours(secondsBetween(start, end))});
}

bool CSVDocument::add(const TimeEntry& entry) {
    if (entry.isRunning()) return false;
    const auto& project = entry.project.get();
    const auto client = project ? project->client.get() : nullptr;
    add(entry.start, *entry.end.get(), client ? std::string_view(client->name.get()) : "",
        project ? std::string_view(project->name.get()) : "", entry.notes.get());
    return true;
}

void CSVDocument::addLine(std::initializer_list<std::string_view> values) {
    bool isFirst = true;
    for (const auto value : values) {
        if (!isFirst) gathered_ += ',';
        if (needsQuotes(value)) {
            gathered_ += csvField(value);
        } else {
            gathered_ += value;
        }
        isFirst = false;
    }
    gathered_ += "\r\n";
    if (gathered_.size() < pieceSize) return;
    sink_(gathered_);
    gathered_.clear();
}

void CSVDocument::finish() {
    sink_(gathered_);
    gathered_.clear();
}

}  // namespace elmworth
