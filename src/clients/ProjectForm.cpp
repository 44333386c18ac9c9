// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ProjectForm.h"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "platform/MoneyFormat.h"
#include "platform/Text.h"

namespace elmworth {

namespace {

constexpr double largestBudget = 1e9;

bool isHexDigit(char c) {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

}  // namespace

Parsed<std::optional<std::int64_t>> parseBudget(std::string_view text) {
    std::string number(trimmedBlanks(text));
    if (number.empty()) return std::optional<std::int64_t>();
    std::replace(number.begin(), number.end(), ',', '.');
    double hours = 0;
    const auto result = std::from_chars(number.data(), number.data() + number.size(), hours);
    const bool isNumber = result.ec == std::errc{} && result.ptr == number.data() + number.size();
    if (isNumber && hours > 0 && hours <= largestBudget)
        return std::optional(static_cast<std::int64_t>(std::round(hours)));
    return Refused("“" + std::string(text) + "” is no budget. Enter hours like 40 or 37.5.");
}

std::string_view budgetProblem(std::string_view text) {
    return parseBudget(text) ? "" : "Enter a number like 40 or 37.5";
}

Parsed<std::string> parseColor(std::string_view text) {
    const bool isHex = text.size() == 7 && text[0] == '#' &&
                       std::all_of(text.begin() + 1, text.end(), &isHexDigit);
    if (isHex) return std::string(text);
    return Refused("“" + std::string(text) + "” is no color. Write it like #7C6CFF.");
}

ProjectForm ProjectForm::of(const Project& project) {
    const auto& rate = project.rateOverrideCents.get();
    const auto& budget = project.budgetHours.get();
    return {project.name,
            project.client,
            rate.has_value(),
            rate ? formatBasisPoints(*rate) : "",
            project.colorHex,
            project.isArchived,
            budget ? std::to_string(*budget) : ""};
}

bool ProjectForm::canSave() const {
    return !trimmedBlanks(name).empty() && client && (!overridesRate || parseRate(rateText)) &&
           parseBudget(budgetText);
}

void ProjectForm::apply(Project& project) const {
    const auto newName = parseName(oneLine(name)).value();
    const auto rate = overridesRate ? std::optional(parseRate(rateText).value()) : std::nullopt;
    const auto budget = parseBudget(budgetText).value();
    if (!client) throw Refused("Choose a client.");
    project.name = newName;
    project.client = client;
    project.rateOverrideCents = rate;
    project.colorHex = colorHex;
    project.isArchived = isArchived;
    project.budgetHours = budget;
}

}  // namespace elmworth
