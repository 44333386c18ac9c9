// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/BusinessProfile.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <limits>

#include "records/FieldJSON.h"

namespace elmworth {

template <>
struct FieldTraits<PaperSize> {
    static constexpr FieldKind kind = FieldKind::paperSize;
    static Value toValue(PaperSize size) { return std::string(rawValue(size)); }
    static PaperSize fromValue(const Value& value) {
        return paperSizeFromRawValue(std::get<std::string>(value)).value_or(PaperSize::letter);
    }
};

namespace {

using Json = rapidjson::Value;

template <auto Member>
constexpr ProfileField field(std::string_view name, std::int64_t highest = 0) {
    using Traits = FieldTraits<std::decay_t<decltype(BusinessProfile{}.*Member)>>;
    return {name, Traits::kind,
            [](const BusinessProfile& profile) { return Traits::toValue(profile.*Member); },
            [](BusinessProfile& profile, const Value& value) {
                profile.*Member = Traits::fromValue(value);
            },
            highest};
}

/// All there is to say of a new field.
constexpr ProfileField fields[] = {
    field<&BusinessProfile::name>("name"),
    field<&BusinessProfile::address>("address"),
    field<&BusinessProfile::taxID>("taxID"),
    field<&BusinessProfile::email>("email"),
    field<&BusinessProfile::paymentInstructions>("paymentInstructions"),
    field<&BusinessProfile::invoicePrefix>("invoicePrefix"),
    field<&BusinessProfile::nextInvoiceNumber>("nextInvoiceNumber",
                                               std::numeric_limits<std::int64_t>::max()),
    field<&BusinessProfile::paperSize>("paperSize"),
    field<&BusinessProfile::roundingMinutes>("roundingMinutes", 1440),
    field<&BusinessProfile::defaultDueDays>("defaultDueDays", 120),
    field<&BusinessProfile::defaultTaxBasisPoints>("defaultTaxBasisPoints", 10000),
    field<&BusinessProfile::taxLabel>("taxLabel"),
    field<&BusinessProfile::resetNumberingYearly>("resetNumberingYearly"),
    field<&BusinessProfile::numberingYear>("numberingYear", 9999),
};

JSONScalar scalarOf(const Json& json) {
    using Kind = JSONScalar::Kind;
    if (json.IsBool()) return {Kind::boolean, json.GetBool() ? 1 : 0};
    if (json.IsInt64()) return {Kind::integer, json.GetInt64()};
    if (json.IsDouble()) return JSONScalar::ofNumber(json.GetDouble());
    if (json.IsString()) return {Kind::text, 0, {json.GetString(), json.GetStringLength()}};
    return {json.IsNull() ? Kind::null : Kind::other};
}

/// Of a key that stands there twice the last value counts. Null when there is none.
const Json* valueOf(const Json& object, std::string_view key) {
    for (auto member = object.MemberEnd(); member != object.MemberBegin();) {
        --member;
        const std::string_view name(member->name.GetString(), member->name.GetStringLength());
        if (name == key) return &member->value;
    }
    return nullptr;
}

/// Parses exactly one JSON object with nothing but white space around it.
bool parseObject(rapidjson::Document& document, std::string_view json) {
    // Parsing without recursion, so that no depth of nesting overflows the stack.
    constexpr unsigned flags =
        rapidjson::kParseValidateEncodingFlag | rapidjson::kParseIterativeFlag;
    rapidjson::MemoryStream stream(json.data(), json.size());
    document.ParseStream<flags>(stream);
    // A NUL byte ends the text for the parser; what follows it would go unseen.
    return !document.HasParseError() && stream.Tell() == json.size() && document.IsObject();
}

}  // namespace

std::string_view rawValue(PaperSize size) noexcept {
    return size == PaperSize::a4 ? "a4" : "letter";
}

std::optional<PaperSize> paperSizeFromRawValue(std::string_view raw) noexcept {
    for (const PaperSize size : allPaperSizes)
        if (rawValue(size) == raw) return size;
    return std::nullopt;
}

void BusinessProfile::applyYearlyReset(std::int64_t year) {
    if (resetNumberingYearly && numberingYear != 0 && numberingYear != year) nextInvoiceNumber = 1;
    numberingYear = year;
}

void BusinessProfile::setNextInvoiceNumber(std::int64_t number, std::int64_t year) {
    nextInvoiceNumber = std::max<std::int64_t>(number, 1);
    numberingYear = year;
}

std::string BusinessProfile::formattedInvoiceNumber(std::int64_t year) const {
    char number[32];
    std::snprintf(number, sizeof number, "%03" PRId64, nextInvoiceNumber);
    return invoicePrefix + "-" + std::to_string(year) + "-" + number;
}

std::span<const ProfileField> profileFields() {
    return fields;
}

std::string encodeProfile(const BusinessProfile& profile) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer writer(buffer);
    writer.StartObject();
    for (const auto& field : fields) {
        writeText(writer, field.name);
        writeValue(writer, field.kind, field.read(profile));
    }
    writer.EndObject();
    return {buffer.GetString(), buffer.GetSize()};
}

std::optional<BusinessProfile> decodeProfile(std::string_view json) {
    rapidjson::Document document;
    if (!parseObject(document, json)) return std::nullopt;
    BusinessProfile profile;
    for (const auto& field : fields) {
        const Json* given = valueOf(document, field.name);
        if (given == nullptr || given->IsNull()) continue;
        const auto value = fieldValue(field.kind, scalarOf(*given));
        if (!value) return std::nullopt;
        field.write(profile, *value);
    }
    return profile;
}

}  // namespace elmworth
