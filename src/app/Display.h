// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QGuiApplication>
#include <memory>

namespace elmworth {

/// The application object of a program with windows. A display that cannot be used ends the process
/// with a sentence on standard error and status 1, where Qt would end it by a signal.
[[nodiscard]] std::unique_ptr<QGuiApplication> openDisplay(int& argc, char** argv);

}  // namespace elmworth
