// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/settings/InvoiceSettings.h"

#include <algorithm>
#include <array>

#include "platform/MoneyFormat.h"
#include "records/FieldText.h"

namespace elmworth {

namespace {

constexpr std::array<std::int64_t, 3> roundingSteps{1, 6, 15};

template <class Options, class Option>
int positionOf(const Options& options, const Option& option) {
    const auto found = std::find(options.begin(), options.end(), option);
    return found == options.end() ? -1 : static_cast<int>(found - options.begin());
}

template <class Options>
bool isPosition(const Options& options, int position) {
    return position >= 0 && static_cast<std::size_t>(position) < options.size();
}

QString taxText(const BusinessProfile& profile) {
    return QString::fromStdString(formatBasisPoints(profile.defaultTaxBasisPoints));
}

bool takeTax(BusinessProfile& profile, const QString& text) {
    const auto tax = parseTaxRate(text.toStdString());
    if (tax) profile.defaultTaxBasisPoints = tax.value();
    return static_cast<bool>(tax);
}

}  // namespace

InvoiceSettings::InvoiceSettings(ProfileStore& profiles, SettingsKeeper& keeper)
    : profiles_(profiles),
      keeper_(keeper),
      taxName_(profiles, keeper, &BusinessProfile::taxLabel),
      tax_(profiles, keeper, &taxText, &takeTax),
      observation_(profiles.observe([this] { Q_EMIT changed(); })) {}

void InvoiceSettings::reload() {
    taxName_.reload();
    tax_.reload();
    Q_EMIT changed();
}

void InvoiceSettings::keep(const std::function<void(BusinessProfile&)>& change) {
    auto profile = profiles_.profile();
    change(profile);
    keeper_.keep([&] { profiles_.setProfileOrRefuse(profile); });
    Q_EMIT changed();  // a control that was moved goes back
}

int InvoiceSettings::paper() const {
    return positionOf(allPaperSizes, profiles_.profile().paperSize);
}

void InvoiceSettings::setPaper(int position) {
    if (!isPosition(allPaperSizes, position)) return;
    keep([&](auto& profile) {
        profile.paperSize = allPaperSizes.at(static_cast<std::size_t>(position));
    });
}

int InvoiceSettings::rounding() const {
    return positionOf(roundingSteps, profiles_.profile().roundingMinutes);
}

void InvoiceSettings::setRounding(int position) {
    if (!isPosition(roundingSteps, position)) return;
    keep([&](auto& profile) {
        profile.roundingMinutes = roundingSteps.at(static_cast<std::size_t>(position));
    });
}

int InvoiceSettings::dueDays() const {
    return static_cast<int>(
        std::clamp<std::int64_t>(profiles_.profile().defaultDueDays, 0, mostDueDays()));
}

void InvoiceSettings::setDueDays(int days) {
    keep([&](auto& profile) { profile.defaultDueDays = std::clamp(days, 0, mostDueDays()); });
}

QString InvoiceSettings::dueText() const {
    return QStringLiteral("Due in %1 days").arg(profiles_.profile().defaultDueDays);
}

}  // namespace elmworth
