// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/BusinessProfile.h"

#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <cinttypes>
#include <cmath>
#include <cstdio>

#include "platform/Text.h"

namespace elmworth {
namespace {

using Json = rapidjson::Value;
using JsonWriter = rapidjson::Writer<rapidjson::StringBuffer>;

/// All fields by their JSON keys, in declaration order: a new field is one line here.
template <typename Profile, typename Visit>
void forEachField(Profile& profile, Visit visit) {
    visit("name", profile.name);
    visit("address", profile.address);
    visit("taxID", profile.taxID);
    visit("email", profile.email);
    visit("paymentInstructions", profile.paymentInstructions);
    visit("invoicePrefix", profile.invoicePrefix);
    visit("nextInvoiceNumber", profile.nextInvoiceNumber);
    visit("paperSize", profile.paperSize);
    visit("roundingMinutes", profile.roundingMinutes);
    visit("defaultDueDays", profile.defaultDueDays);
    visit("defaultTaxBasisPoints", profile.defaultTaxBasisPoints);
    visit("taxLabel", profile.taxLabel);
    visit("resetNumberingYearly", profile.resetNumberingYearly);
    visit("numberingYear", profile.numberingYear);
}

void write(JsonWriter& writer, std::string_view text) {
    const std::string valid = validUTF8(text);
    writer.String(valid.data(), static_cast<rapidjson::SizeType>(valid.size()));
}
void write(JsonWriter& writer, std::int64_t number) {
    writer.Int64(number);
}
void write(JsonWriter& writer, bool flag) {
    writer.Bool(flag);
}
void write(JsonWriter& writer, PaperSize size) {
    write(writer, rawValue(size));
}

bool read(const Json& json, std::string& text) {
    if (!json.IsString()) return false;
    text.assign(json.GetString(), json.GetStringLength());
    return !holdsLoneSurrogate(text);
}

bool read(const Json& json, std::int64_t& number) {
    const auto whole = json.IsInt64()    ? std::optional(json.GetInt64())
                       : json.IsDouble() ? wholeNumber(json.GetDouble())
                                         : std::nullopt;
    number = whole.value_or(number);
    return whole.has_value();
}

bool read(const Json& json, bool& flag) {
    if (!json.IsBool()) return false;
    flag = json.GetBool();
    return true;
}

bool read(const Json& json, PaperSize& size) {
    std::string raw;
    if (!read(json, raw)) return false;
    const auto known = paperSizeFromRawValue(raw);
    size = known.value_or(size);
    return known.has_value();
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

std::string BusinessProfile::formattedInvoiceNumber(std::int64_t year) const {
    char number[32];
    std::snprintf(number, sizeof number, "%03" PRId64, nextInvoiceNumber);
    return invoicePrefix + "-" + std::to_string(year) + "-" + number;
}

std::string encodeProfile(const BusinessProfile& profile) {
    rapidjson::StringBuffer buffer;
    JsonWriter writer(buffer);
    writer.StartObject();
    forEachField(profile, [&](const char* key, const auto& field) {
        writer.Key(key);
        write(writer, field);
    });
    writer.EndObject();
    return {buffer.GetString(), buffer.GetSize()};
}

std::optional<BusinessProfile> decodeProfile(std::string_view json) {
    rapidjson::Document document;
    if (!parseObject(document, json)) return std::nullopt;
    BusinessProfile profile;
    bool isValid = true;
    forEachField(profile, [&](const char* key, auto& field) {
        const Json* value = valueOf(document, key);
        if (value != nullptr && !value->IsNull()) isValid = read(*value, field) && isValid;
    });
    return isValid ? std::optional(profile) : std::nullopt;
}

std::optional<std::int64_t> wholeNumber(double number) noexcept {
    constexpr double largest = 9'007'199'254'740'992;  // 2^53
    if (!(std::abs(number) <= largest) || number != std::trunc(number)) return std::nullopt;
    return static_cast<std::int64_t>(number);
}

}  // namespace elmworth
