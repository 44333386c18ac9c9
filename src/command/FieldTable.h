// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <span>
#include <string>
#include <string_view>

#include "command/CommandError.h"

namespace elmworth {

/// What to throw where `set` is given a name that no field has; `names` are those there are.
inline CommandError noSuchField(const std::string& name, const std::string& names) {
    return CommandError("There is no field “" + name + "”. The fields are " + names + ".",
                        CommandError::Kind::usage);
}

/// A field that `set NAME FIELD VALUE` can change on a `Target`.
template <class Target>
struct SettableField {
    std::string_view name;
    void (*set)(Target&, const std::string& value);
};

/// Sets the field called `name`. Throws CommandError (usage) with all names when there is none.
template <class Target>
void setField(std::span<const SettableField<Target>> fields, Target& target,
              const std::string& name, const std::string& value) {
    std::string names;
    for (const auto& field : fields) {
        if (field.name == name) return field.set(target, value);
        names += (names.empty() ? "" : ", ") + std::string(field.name);
    }
    throw noSuchField(name, names);
}

}  // namespace elmworth
