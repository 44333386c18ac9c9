// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>

namespace elmworth {

/// Says on standard error that the library can't be opened; `sentence` is that of the LibraryError.
/// Who started the program from a menu doesn't see that, and so a window says it too, until it is
/// closed. There is none where standard error is a terminal, or goes to one (`isInTerminal`).
/// Requires a QGuiApplication.
void tellLibraryProblem(const std::string& sentence, bool isInTerminal);

}  // namespace elmworth
