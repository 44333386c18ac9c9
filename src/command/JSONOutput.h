// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <rapidjson/prettywriter.h>
#include <rapidjson/stringbuffer.h>

#include <cmath>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "command/CommandSyntax.h"
#include "platform/ISO8601.h"
#include "records/FieldJSON.h"

namespace elmworth {

/// Writes one JSON document. Absent values are left out with their key; instants are ISO 8601 in
/// UTC with whole seconds.
class JSONOutput {
 public:
    JSONOutput() { writer_.SetIndent(' ', 2); }

    void beginObject() { writer_.StartObject(); }
    void endObject() { writer_.EndObject(); }
    void beginArray() { writer_.StartArray(); }
    void endArray() { writer_.EndArray(); }
    void key(std::string_view name) {
        writer_.Key(name.data(), static_cast<rapidjson::SizeType>(name.size()));
    }

    /// What was typed in another encoding must not spoil the document.
    void value(std::string_view text) { writeText(writer_, text); }
    void value(const std::string& text) { value(std::string_view(text)); }
    void value(const char* text) { value(std::string_view(text)); }
    void value(std::int64_t number) { writer_.Int64(number); }
    void value(int number) { writer_.Int(number); }
    void value(bool flag) { writer_.Bool(flag); }
    void value(Instant instant) { value(formatISO8601(instant)); }
    void value(double number) {
        constexpr double exact = 9007199254740992.0;  // 2^53
        if (std::trunc(number) == number && std::abs(number) < exact) {
            value(static_cast<std::int64_t>(number));
        } else {
            writer_.Double(number);
        }
    }

    template <class T>
    void field(std::string_view name, const T& content) {
        key(name);
        value(content);
    }
    template <class T>
    void field(std::string_view name, const std::optional<T>& content) {
        if (content) field(name, *content);
    }

    /// The value of a record's or the profile's field of `kind`, which is a scalar.
    void field(std::string_view name, FieldKind kind, const Value& content) {
        if (std::holds_alternative<std::monostate>(content)) return;
        key(name);
        writeValue(writer_, kind, content);
    }

    /// The finished document with a line break.
    [[nodiscard]] std::string document() const {
        return std::string(buffer_.GetString(), buffer_.GetSize()) + '\n';
    }

 private:
    rapidjson::StringBuffer buffer_;
    rapidjson::PrettyWriter<rapidjson::StringBuffer> writer_{buffer_};
};

/// Tells of a deletion: `sentence` as text, or whether there was one as JSON.
inline void printDeletion(CommandOutput& output, bool deleted, const std::string& sentence) {
    if (!output.isJSON()) return output.line(sentence);
    JSONOutput json;
    json.beginObject();
    json.field("deleted", deleted);
    json.endObject();
    output.text += json.document();
}

}  // namespace elmworth
