// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "records/Invoice.h"

namespace elmworth {

/// What is to be said of an invoice's due date at `now`: "Paid Mar 1" in `locale`, or how many
/// calendar days are left or have passed, "In 3 days", "Due today", "1 days late". There is no
/// singular.
[[nodiscard]] std::string dueText(const Invoice& invoice, Instant now, const Calendar& calendar,
                                  const Locale& locale);

}  // namespace elmworth
