// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "rescue/RecordRules.h"

#include <algorithm>
#include <limits>
#include <string_view>

#include "platform/ISO8601.h"
#include "platform/Text.h"
#include "records/BusinessProfile.h"
#include "records/Client.h"
#include "records/Invoice.h"
#include "records/InvoiceStatus.h"
#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

namespace {

constexpr std::int64_t anyNumber = std::numeric_limits<std::int64_t>::max();

bool is(const RecordSchema& schema, const FieldDescription& field, const RecordSchema& ofSchema,
        std::string_view name) {
    return schema.ordinal == ofSchema.ordinal && field.name == name;
}

/// The highest that a number can be; the lowest is 0.
std::int64_t highestOf(const RecordSchema& schema, const FieldDescription& field) {
    constexpr std::int64_t wholeTax = 10'000;
    constexpr std::int64_t dayInMinutes = 1440;
    constexpr std::int64_t centuryInDays = 36'525;
    if (field.input == FieldInput::percent) return wholeTax;
    if (field.input == FieldInput::days) return centuryInDays;
    if (is(schema, field, Invoice::schema(), "taxRateBasisPoints")) return wholeTax;
    if (is(schema, field, Invoice::schema(), "roundingMinutes")) return dayInMinutes;
    return anyNumber;
}

std::optional<Correction> checkNumber(std::string_view word, std::int64_t number,
                                      std::int64_t highest) {
    const std::string start = std::string(word) + " is " + std::to_string(number);
    if (number < 0) return Correction{start + ", below 0", std::int64_t{0}};
    if (number > highest) return Correction{start + ", above " + std::to_string(highest), highest};
    return std::nullopt;
}

std::optional<Correction> checkInstant(std::string_view word, std::int64_t number) {
    const Instant instant{std::chrono::microseconds{number}};
    if (hasISO8601(instant)) return std::nullopt;
    return Correction{std::string(word) + " lies outside the years 0 to 9999",
                      FieldTraits<Instant>::toValue(clampedToISO8601(instant))};
}

std::optional<Correction> checkFlag(std::string_view word, std::int64_t number) {
    if (number == 0 || number == 1) return std::nullopt;
    return Correction{std::string(word) + " is " + std::to_string(number) + ", not yes or no",
                      std::int64_t{1}};
}

bool isColor(const std::string& text) {
    return text.size() == 7 && text[0] == '#' &&
           text.find_first_not_of("0123456789abcdefABCDEF", 1) == std::string::npos;
}

bool isCurrency(const std::string& text) {
    return text.size() == 3 &&
           std::all_of(text.begin(), text.end(), [](char c) { return c >= 'A' && c <= 'Z'; });
}

/// A text that has to be of some form, and what stands in for another one.
struct Form {
    bool isRight;
    const char* problem;
    const char* instead;
};

Form formOf(const RecordSchema& schema, const FieldDescription& field, const std::string& text) {
    if (field.input == FieldInput::name)
        return {!trimmedWhitespace(text).empty(), "is empty", "Unnamed"};
    if (field.input == FieldInput::color) return {isColor(text), "is no colour", "#4F7CFF"};
    if (field.input == FieldInput::currency) return {isCurrency(text), "is no currency", "USD"};
    if (is(schema, field, Invoice::schema(), "currencyCode"))
        return {text.empty() || isCurrency(text), "is no currency", ""};
    if (is(schema, field, Invoice::schema(), "number"))
        return {!trimmedWhitespace(text).empty(), "is empty", "Unnumbered"};
    if (is(schema, field, Invoice::schema(), "statusRaw")) {
        return {invoiceStatusFromRawValue(text).has_value(), "is none of draft, sent and paid",
                "draft"};
    }
    return {true, "", ""};
}

std::optional<Correction> checkText(const RecordSchema& schema, const FieldDescription& field,
                                    std::string_view word, const std::string& text) {
    const bool isDamaged = !isUTF8(text);
    const std::string valid = isDamaged ? validUTF8(text) : text;
    const auto form = formOf(schema, field, valid);
    if (!form.isRight) {
        const std::string quoted = valid.empty() ? "" : " “" + oneLine(valid) + "”";
        return Correction{std::string(word) + quoted + ' ' + form.problem,
                          std::string(form.instead)};
    }
    if (!isDamaged) return std::nullopt;
    return Correction{std::string(word) + " holds damaged bytes", valid};
}

std::optional<Correction> checkProfile(std::string_view word, const Blob& blob) {
    if (decodeProfile(blob.bytes)) return std::nullopt;
    return Correction{std::string(word) + " can't be read", Value{}};
}

template <class T>
const T* valueOf(const std::vector<Value>& values, const RecordSchema& schema,
                 std::string_view field) {
    return std::get_if<T>(&values[schema.fieldIndex(field)]);
}

std::string textOf(const std::vector<Value>& values, const RecordSchema& schema,
                   std::string_view field) {
    const auto* text = valueOf<std::string>(values, schema, field);
    return text ? oneLine(validUTF8(*text)) : std::string();
}

}  // namespace

std::optional<Correction> correctionOf(const RecordSchema& schema, const FieldDescription& field,
                                       const Value& value) {
    const std::string_view word = field.word.empty() ? field.key : field.word;
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        if (field.kind == FieldKind::instant) return checkInstant(word, *number);
        if (field.kind == FieldKind::boolean) return checkFlag(word, *number);
        return checkNumber(word, *number, highestOf(schema, field));
    }
    if (const auto* text = std::get_if<std::string>(&value))
        return checkText(schema, field, word, *text);
    if (const auto* blob = std::get_if<Blob>(&value)) return checkProfile(word, *blob);
    return std::nullopt;
}

std::optional<EntryCorrection> entryCorrectionOf(const std::vector<Value>& values) {
    const auto& schema = TimeEntry::schema();
    const auto* start = valueOf<std::int64_t>(values, schema, "start");
    const auto* end = valueOf<std::int64_t>(values, schema, "end");
    if (start && end && *end < *start)
        return EntryCorrection{{"ends before it starts", *start}, schema.fieldIndex("end")};
    if (!end && valueOf<PersistentID>(values, schema, "invoice"))
        return EntryCorrection{{"runs, but is on an invoice", Value{}},
                               schema.fieldIndex("invoice")};
    return std::nullopt;
}

std::string recordTitle(const RecordSchema& schema, const std::vector<Value>& values) {
    if (schema.ordinal == TimeEntry::schema().ordinal) {
        const auto* start = valueOf<std::int64_t>(values, schema, "start");
        const Instant instant{std::chrono::microseconds{start ? *start : 0}};
        return "Entry of " + formatISO8601(clampedToISO8601(instant));
    }
    if (schema.ordinal == Invoice::schema().ordinal)
        return "Invoice " + textOf(values, schema, "number");
    return std::string(schema.name) + " “" + textOf(values, schema, "name") + "”";
}

}  // namespace elmworth
