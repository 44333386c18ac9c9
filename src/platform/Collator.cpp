// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/Collator.h"

#include <unicode/coll.h>

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

}  // namespace elmworth
