// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace elmworth {

/// Reserves the descriptors of standard streams that were closed before the program began. A file
/// opened later would get one of them, and with it what was meant for a terminal. Reading and
/// writing such a stream still fails.
void reserveStandardStreams();

}  // namespace elmworth
