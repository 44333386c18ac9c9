// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace elmworth {

/// Takes the numbers of standard streams that were closed before the program began, so that no file
/// opened later gets one of them, and with it what was meant for a terminal. Reading and writing
/// such a stream goes on to fail.
void reserveStandardStreams();

}  // namespace elmworth
