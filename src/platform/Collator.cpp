// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Collator.h"

#include <unicode/coll.h>
#include <unicode/stsearch.h>
#include <unicode/tblcoll.h>

#include <new>

namespace elmworth {

struct Collator::Impl {
    std::unique_ptr<icu::Collator> collator;
};

Collator::Collator(const Locale& locale) : impl_(std::make_unique<Impl>()) {
    UErrorCode status = U_ZERO_ERROR;
    impl_->collator.reset(
        icu::Collator::createInstance(icu::Locale(locale.identifier().c_str()), status));
    if (U_FAILURE(status)) throw std::bad_alloc();  // the root collation is always there
    impl_->collator->setStrength(icu::Collator::SECONDARY);
    impl_->collator->setAttribute(UCOL_NUMERIC_COLLATION, UCOL_ON, status);
}

Collator::Collator(Collator&& other) noexcept = default;
Collator& Collator::operator=(Collator&& other) noexcept = default;
Collator::~Collator() = default;

int Collator::compare(std::string_view a, std::string_view b) const {
    UErrorCode status = U_ZERO_ERROR;
    return impl_->collator->compareUTF8({a.data(), static_cast<int>(a.size())},
                                        {b.data(), static_cast<int>(b.size())}, status);
}

const Collator& Collator::current() {
    static const Collator collator(Locale::currentForCollation());
    return collator;
}

int localizedStandardCompare(std::string_view a, std::string_view b) {
    return Collator::current().compare(a, b);
}

bool containsLocalized(std::string_view text, std::string_view wanted) {
    if (wanted.empty()) return true;
    static const std::unique_ptr<icu::RuleBasedCollator> ignoringCase = [] {
        UErrorCode status = U_ZERO_ERROR;
        std::unique_ptr<icu::Collator> collator(icu::Collator::createInstance(
            icu::Locale(Locale::current().identifier().c_str()), status));
        if (U_FAILURE(status)) throw std::bad_alloc();
        collator->setStrength(icu::Collator::SECONDARY);
        return std::unique_ptr<icu::RuleBasedCollator>(
            dynamic_cast<icu::RuleBasedCollator*>(collator.release()));
    }();
    UErrorCode status = U_ZERO_ERROR;
    const auto unicode = [](std::string_view utf8) {
        return icu::UnicodeString::fromUTF8({utf8.data(), static_cast<int>(utf8.size())});
    };
    const icu::UnicodeString where = unicode(text);
    if (where.isEmpty()) return false;
    icu::StringSearch search(unicode(wanted), where, ignoringCase.get(), nullptr, status);
    return U_SUCCESS(status) && search.first(status) != USEARCH_DONE && U_SUCCESS(status);
}

}  // namespace elmworth
