// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Locale.h"

#include <unicode/locid.h>

#include <cstdlib>
#include <initializer_list>

namespace elmworth {
namespace {

/// "sr_RS.UTF-8@latin" taken apart; ICU keywords ("@calendar=buddhist") are left in `base`.
struct PosixName {
    std::string base;
    std::string_view modifier;
};

PosixName parsePosix(std::string_view name) {
    const auto at = name.find('@');
    const std::string_view tail = at == std::string_view::npos ? "" : name.substr(at + 1);
    const std::string_view head = name.substr(0, at);
    PosixName parsed{std::string(head.substr(0, head.find('.'))), tail};
    if (tail.find('=') != std::string_view::npos) {
        parsed.base.append("@").append(tail);
        parsed.modifier = {};
    }
    return parsed;
}

/// POSIX names the script as a modifier behind the region, ICU as a part before it.
std::string_view scriptOfModifier(std::string_view modifier) {
    if (modifier == "latin") return "Latn";
    if (modifier == "cyrillic") return "Cyrl";
    if (modifier == "devanagari") return "Deva";
    return {};
}

std::string canonicalIdentifier(std::string_view identifier) {
    auto [base, modifier] = parsePosix(identifier);
    if (base.empty() || base == "C" || base == "POSIX") base = "en_US";
    if (const auto script = scriptOfModifier(modifier); !script.empty())
        base.insert(std::min(base.find('_'), base.size()), "_" + std::string(script));

    UErrorCode status = U_ZERO_ERROR;
    const bool isTag = base.find_first_of("_@") == std::string::npos;
    const icu::Locale locale = isTag ? icu::Locale::forLanguageTag(base, status)
                                     : icu::Locale::createCanonical(base.c_str());
    const bool known = U_SUCCESS(status) && !locale.isBogus() && *locale.getLanguage() != '\0';
    return known ? locale.getName() : "root";
}

const char* variableOf(LocaleCategory category) {
    switch (category) {
        case LocaleCategory::monetary:
            return "LC_MONETARY";
        case LocaleCategory::numeric:
            return "LC_NUMERIC";
        case LocaleCategory::collate:
            return "LC_COLLATE";
        default:
            return "LC_TIME";
    }
}

std::string_view firstSet(std::initializer_list<const char*> variables) {
    for (const char* variable : variables) {
        const char* value = std::getenv(variable);
        if (value != nullptr && *value != '\0') return value;
    }
    return {};
}

}  // namespace

Locale::Locale(std::string_view identifier) : identifier_(canonicalIdentifier(identifier)) {}

Locale Locale::current() {
    return environmentLocale(LocaleCategory::time);
}

Locale Locale::currentForCollation() {
    return environmentLocale(LocaleCategory::collate);
}

Locale environmentLocale(LocaleCategory category) {
    return Locale(firstSet({"LC_ALL", variableOf(category), "LANG"}));
}

}  // namespace elmworth
