// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "invoicing/InvoiceRenderModel.h"

namespace elmworth {

/// The e-mail that goes with an invoice, as plain text. An empty `clientName` is greeted as
/// "there".
[[nodiscard]] std::string emailText(const InvoiceRenderModel& model, const std::string& clientName);

}  // namespace elmworth
