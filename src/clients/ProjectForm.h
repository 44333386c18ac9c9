// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "clients/ClientForm.h"
#include "records/Project.h"
#include "records/ProjectColors.h"

namespace elmworth {

/// Hours of a budget, above 0, rounded to whole hours: "40", "37.5", "40,". Empty text is absent.
Parsed<std::optional<std::int64_t>> parseBudget(std::string_view text);

/// What stands below a budget that can't be taken; nothing below one that can.
[[nodiscard]] std::string_view budgetProblem(std::string_view text);

/// A colour in the form #RRGGBB.
Parsed<std::string> parseColor(std::string_view text);

/// What a person fills in to add or change a project. Nothing touches a record before `apply`.
struct ProjectForm {
    std::string name{};
    Ref<Client> client{};
    bool overridesRate = false;  ///< else the client's rate holds, whatever `rateText` says
    std::string rateText{};
    std::string colorHex = projectColors.front();
    bool isArchived = false;
    std::string budgetText{};  ///< empty: none

    [[nodiscard]] static ProjectForm of(const Project& project);

    /// Whether it has a name and a client, and the numbers can be read.
    [[nodiscard]] bool canSave() const;
    /// Writes all fields into `project`, a name of several lines as one. Throws Refused unless
    /// `canSave`; nothing is written then.
    void apply(Project& project) const;

    friend bool operator==(const ProjectForm&, const ProjectForm&) = default;
};

}  // namespace elmworth
