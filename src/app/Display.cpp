// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Display.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace elmworth {

namespace {

/// Qt tells its reasons in several warnings before the fatal message.
void explainMissingDisplay(QtMsgType type, const QMessageLogContext& /*context*/,
                           const QString& /*message*/) {
    if (type != QtFatalMsg) return;
    std::fputs("The display can't be used. The commands work without one: elmworth --help\n",
               stderr);
    ::_exit(EXIT_FAILURE);
}

}  // namespace

std::unique_ptr<QGuiApplication> openDisplay(int& argc, char** argv) {
    const auto usual = qInstallMessageHandler(&explainMissingDisplay);
    auto application = std::make_unique<QGuiApplication>(argc, argv);
    qInstallMessageHandler(usual);
    return application;
}

}  // namespace elmworth
