// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/RecordFields.h"

#include <algorithm>
#include <limits>

#include "clients/ProjectForm.h"
#include "records/FieldText.h"

namespace elmworth {

namespace {

bool isSettable(const FieldDescription& field) {
    return !field.isInternal && !field.target && field.input != FieldInput::none;
}

std::string_view wordOf(const FieldDescription& field) {
    return field.word.empty() ? field.key : field.word;
}

/// The key names a field as well, where it does not say another unit than the one that is typed.
bool isCalled(const FieldDescription& field, const std::string& name) {
    const bool hasOtherUnit =
        field.input == FieldInput::amount || field.input == FieldInput::percent;
    return wordOf(field) == name || (field.key == name && !hasOtherUnit);
}

Value parseByKind(const FieldDescription& field, const std::string& text) {
    using Limits = std::numeric_limits<std::int64_t>;
    if (field.kind == FieldKind::boolean) return std::int64_t{parseFlag(text, field.key).value()};
    if (field.kind == FieldKind::integer) {
        return parseWholeNumber(text, field.key, Limits::min(), Limits::max()).value();
    }
    return text;
}

Value parseField(const FieldDescription& field, const std::string& text) {
    if (field.optional && text.empty()) return {};
    switch (field.input) {
        case FieldInput::name:
            return parseName(text).value();
        case FieldInput::color:
            return parseColor(text).value();
        case FieldInput::currency:
            return parseCurrency(text).value();
        case FieldInput::amount:
            return parseRate(text).value();
        case FieldInput::percent:
            return parseTaxRate(text).value();
        case FieldInput::hours:
            return FieldTraits<std::optional<std::int64_t>>::toValue(parseBudget(text).value());
        case FieldInput::days:
            return parseDueDays(text).value();
        default:
            return parseByKind(field, text);
    }
}

}  // namespace

void writeFields(JSONOutput& json, const Record& record,
                 std::initializer_list<std::pair<std::string_view, Value>> instead) {
    for (const auto& field : record.recordSchema().fields) {
        const auto* other = std::find_if(instead.begin(), instead.end(),
                                         [&](const auto& pair) { return pair.first == field.key; });
        if (other != instead.end()) {
            json.field(field.key, field.kind, other->second);
        } else if (!field.isInternal && !field.target && field.kind != FieldKind::profile) {
            json.field(field.key, field.kind, field.read(record));
        }
    }
}

void setField(Record& record, const std::string& name, const std::string& text) {
    for (const auto& field : record.recordSchema().fields) {
        if (!isSettable(field) || !isCalled(field, name)) continue;
        return field.assign(record, parseField(field, text));
    }
    throw noSuchField(name, settableFields(record.recordSchema()));
}

std::string settableFields(const RecordSchema& schema) {
    std::string names;
    for (const auto& field : schema.fields) {
        if (!isSettable(field)) continue;
        names.append(names.empty() ? "" : ", ").append(wordOf(field));
    }
    return names;
}

CommandError noSuchField(const std::string& name, const std::string& names) {
    return CommandError("There is no field “" + name + "”. The fields are " + names + ".",
                        CommandError::Kind::usage);
}

}  // namespace elmworth
