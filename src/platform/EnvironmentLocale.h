// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Locale.h"

namespace elmworth {

/// What the environment gives a locale of its own.
enum class LocaleCategory {
    time,      ///< LC_TIME: dates and times, and the calendar
    monetary,  ///< LC_MONETARY: amounts of money
    numeric,   ///< LC_NUMERIC: other numbers
    collate,   ///< LC_COLLATE: the order of names
};

/// The user's locale for `category`, read at each call: the first of LC_ALL, the category's own
/// variable and LANG that is set and not empty.
[[nodiscard]] Locale environmentLocale(LocaleCategory category);

}  // namespace elmworth
