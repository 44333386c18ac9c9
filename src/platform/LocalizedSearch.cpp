// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/LocalizedSearch.h"

#include <unicode/coll.h>
#include <unicode/stsearch.h>
#include <unicode/tblcoll.h>
#include <unicode/uniset.h>
#include <unicode/usetiter.h>

#include <algorithm>
#include <functional>
#include <map>
#include <new>
#include <utility>

namespace elmworth {

namespace {

std::unique_ptr<icu::RuleBasedCollator> collatorIgnoringCase(const Locale& locale) {
    UErrorCode status = U_ZERO_ERROR;
    std::unique_ptr<icu::Collator> made(
        icu::Collator::createInstance(icu::Locale(locale.identifier().c_str()), status));
    if (U_FAILURE(status)) throw std::bad_alloc();
    made->setStrength(icu::Collator::SECONDARY);
    return std::unique_ptr<icu::RuleBasedCollator>(
        dynamic_cast<icu::RuleBasedCollator*>(made.release()));
}

icu::UnicodeString unicode(std::string_view utf8) {
    return icu::UnicodeString::fromUTF8({utf8.data(), static_cast<int>(utf8.size())});
}

bool isASCII(const icu::UnicodeString& text) {
    for (int i = 0; i < text.length(); ++i) {
        if (text[i] > 0x7f) return false;
    }
    return true;
}

/// Whether the locale gives letters of ASCII, or groups of them such as "ch", a place of their own,
/// or does not look at punctuation.
bool tailorsASCII(const icu::RuleBasedCollator& collator) {
    UErrorCode status = U_ZERO_ERROR;
    if (collator.getAttribute(UCOL_ALTERNATE_HANDLING, status) != UCOL_NON_IGNORABLE) return true;
    const std::unique_ptr<icu::UnicodeSet> tailored(collator.getTailoredSet(status));
    if (U_FAILURE(status) || !tailored) return true;
    icu::UnicodeSetIterator strings(*tailored);
    while (strings.next()) {
        if (isASCII(strings.getString())) return true;
    }
    return false;
}

constexpr char lower(char c) noexcept {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Whether collation tells each character of `text` from the others but for its case. Control
/// characters it does not see at all, and line breaks may belong together.
bool isPlain(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(), [](char c) { return c >= ' ' && c <= '~'; });
}

bool isPlainText(std::string_view text) noexcept {
    return std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= ' ' && c <= '~') || c == '\t' || c == '\n' || c == '\r';
    });
}

bool standsIn(std::string_view text, std::string_view lowered) noexcept {
    return std::search(text.begin(), text.end(), lowered.begin(), lowered.end(),
                       [](char a, char b) { return lower(a) == b; }) != text.end();
}

}  // namespace

/// What a locale has to say, made once for each.
struct LocalizedSearch::Rules {
    std::unique_ptr<icu::RuleBasedCollator> collator;
    bool asciiIsPlain;  ///< ASCII texts compare byte by byte but for their case
};

const LocalizedSearch::Rules& LocalizedSearch::rulesOf(const Locale& locale) {
    static std::map<std::string, Rules, std::less<>> known;
    const auto found = known.find(locale.identifier());
    if (found != known.end()) return found->second;
    auto collator = collatorIgnoringCase(locale);
    const bool asciiIsPlain = !tailorsASCII(*collator);
    return known.emplace(locale.identifier(), Rules{std::move(collator), asciiIsPlain})
        .first->second;
}

struct LocalizedSearch::Collation {
    icu::UnicodeString text{u" "};
    UErrorCode status = U_ZERO_ERROR;
    icu::StringSearch search;

    Collation(std::string_view wanted, const Rules& rules)
        : search(unicode(wanted), text, rules.collator.get(), nullptr, status) {}
};

LocalizedSearch::LocalizedSearch(std::string_view wanted, const Locale& locale)
    : rules_(&rulesOf(locale)), wanted_(wanted) {
    if (!rules_->asciiIsPlain || !isPlain(wanted)) return;
    lowerASCII_ = wanted_;
    std::transform(lowerASCII_.begin(), lowerASCII_.end(), lowerASCII_.begin(), lower);
}

LocalizedSearch::LocalizedSearch(LocalizedSearch&& other) noexcept = default;
LocalizedSearch& LocalizedSearch::operator=(LocalizedSearch&& other) noexcept = default;
LocalizedSearch::~LocalizedSearch() = default;

bool LocalizedSearch::findsIn(std::string_view text) const {
    if (wanted_.empty()) return true;
    if (text.empty()) return false;
    if (!lowerASCII_.empty() && isPlainText(text)) return standsIn(text, lowerASCII_);
    return findsByCollation(text);
}

bool LocalizedSearch::findsByCollation(std::string_view text) const {
    if (wanted_.empty()) return true;
    if (text.empty()) return false;
    if (!collation_) collation_ = std::make_unique<Collation>(wanted_, *rules_);
    auto& [held, status, search] = *collation_;
    if (U_FAILURE(status)) return false;
    held = unicode(text);
    search.setText(held, status);
    return U_SUCCESS(status) && search.first(status) != USEARCH_DONE && U_SUCCESS(status);
}

bool containsLocalized(std::string_view text, std::string_view wanted) {
    return LocalizedSearch(wanted).findsIn(text);
}

}  // namespace elmworth
