// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "platform/Calendar.h"
#include "platform/Settings.h"
#include "store/UnitOfWork.h"

namespace elmworth::DemoData {

/// Fills the empty library of `context` with a believable sample: three clients, five projects,
/// entries of the ten days before `now`, a running timer and two invoices. Writes the sample
/// business profile to `defaults`.
void seed(UnitOfWork& context, Settings& defaults, Instant now, const Calendar& calendar);

}  // namespace elmworth::DemoData
