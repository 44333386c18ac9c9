// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/PlatformText.h"

#include <algorithm>
#include <iterator>

namespace elmworth {

namespace {

// clang-format off
constexpr PlatformWordings table[] = {
    {PlatformText::awayQuestion,
     "Mac slept for {duration}. Keep that time?",
     "Computer slept for {duration}. Keep that time?"},
    {PlatformText::startRowHint,
     "⌃{n}",
     "Ctrl+{n}"},
    {PlatformText::stopTimerHelp,
     "Stop timer (⌥⌘.)",
     "Stop timer (Ctrl+Alt+.)"},
    {PlatformText::newInvoiceHelp,
     "New Invoice (⇧⌘N)",
     "New Invoice (Ctrl+Shift+N)"},
    {PlatformText::exportPDFHelp,
     "Export PDF (⌘E)",
     "Export PDF (Ctrl+E)"},
    {PlatformText::revealPDF,
     "Reveal PDF in Finder",
     "Show PDF in Files"},
    {PlatformText::renumberHelp,
     "Drafts can be renumbered — press Return to apply",
     "Drafts can be renumbered — press Enter to apply"},
    {PlatformText::nothingTrackedYet,
     "Click the clock in your menu bar and press play on a project — or add time by hand with ⌘N.",
     "Click the clock in your system tray and press play on a project — or add time by hand with Ctrl+N."},
    {PlatformText::firstProject,
     "Create a project to start tracking time against it from the menu bar.",
     "Create a project to start tracking time against it from the system tray."},
    {PlatformText::trayLabelStyleLabel,
     "Menu bar while tracking",
     "System tray while tracking"},
    {PlatformText::everythingStays,
     "Everything stays on this Mac.",
     "Everything stays on this computer."},
    {PlatformText::showBackups,
     "Show in Finder",
     "Show in Files"},
    {PlatformText::restoreBackupNote,
     "Load a JSON backup into an empty library, e.g. on a new Mac.",
     "Load a JSON backup into an empty library, e.g. on a new computer."},
    {PlatformText::welcomeTrackAccent,
     "menu bar",
     "system tray"},
    {PlatformText::welcomeTrackText,
     "Click the clock in your menu bar and press play on a project. The timer survives quits and restarts.",
     "Click the clock in your system tray and press play on a project. The timer survives quits and restarts."},
};
// clang-format on

}  // namespace

const PlatformWordings& wordings(PlatformText text) {
    return *std::find_if(std::begin(table), std::end(table),
                         [=](const auto& row) { return row.text == text; });
}

std::string_view platformText(PlatformText text) {
#ifdef __APPLE__
    return wordings(text).original;
#else
    return wordings(text).desktop;
#endif
}

std::string platformText(PlatformText text, std::string_view value) {
    std::string filled(platformText(text));
    const auto begin = filled.find('{');
    return filled.replace(begin, filled.find('}') + 1 - begin, value);
}

}  // namespace elmworth
