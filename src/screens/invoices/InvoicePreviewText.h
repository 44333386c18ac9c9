// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

#include "invoicing/InvoicePages.h"

namespace elmworth {

/// What stands on a page, in reading order and a line each, for those who have it read to them.
[[nodiscard]] std::string previewText(const InvoicePage& page, const InvoiceRenderModel& model);

}  // namespace elmworth
