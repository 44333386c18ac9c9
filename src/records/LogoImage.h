// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <memory>

class QImage;

namespace elmworth {

/// A decoded logo, shared between the invoices that show it; null stands for no logo.
using LogoImage = std::shared_ptr<const QImage>;

}  // namespace elmworth
