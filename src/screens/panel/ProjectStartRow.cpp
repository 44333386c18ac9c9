// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/ProjectStartRow.h"

#include "records/Client.h"
#include "theme/HexColor.h"

namespace elmworth {

namespace {

constexpr std::size_t shortcuts = 6;

QString hintOf(int shortcut) {
    if (shortcut == 0) return {};
    return QStringLiteral("Ctrl+%1").arg(shortcut);
}

}  // namespace

ProjectStartRow ProjectStartRow::of(const Project& project, std::size_t position, bool isRunning) {
    ProjectStartRow row;
    row.id = project.id();
    row.name = QString::fromStdString(project.name);
    if (const auto& client = project.client.get())
        row.client = QString::fromStdString(client->name);
    row.projectColor = colorFromHex(QString::fromStdString(project.colorHex));
    row.isRunning = isRunning;
    row.shortcut = position < shortcuts ? static_cast<int>(position) + 1 : 0;
    row.hint = hintOf(row.shortcut);
    const auto start = QStringLiteral("Start %1").arg(row.name);
    row.status = isRunning ? QStringLiteral("Running") : QString();
    row.image = isRunning ? QString() : QStringLiteral("play");
    row.help = isRunning ? QStringLiteral("Already running") : start;
    row.accessibilityLabel = isRunning ? start + QStringLiteral(", running") : start;
    return row;
}

}  // namespace elmworth
