// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <string_view>

namespace elmworth {

/// The texts that name the platform: its machines, its programs, or the keys of its keyboards. All
/// of them stand in one table, in both wordings; every other text reads the same everywhere.
enum class PlatformText {
    awayQuestion,         ///< with {duration}
    startRowHint,         ///< with {n}, the digit that starts a row of the panel
    stopTimerHelp,        ///< of the stop button in the window
    newInvoiceHelp,       ///< of the button "New" above the invoices
    exportPDFHelp,        ///< of the button "Export PDF…"
    revealPDF,            ///< an item of an invoice's menu
    renumberHelp,         ///< of the field of a draft's number
    nothingTrackedYet,    ///< in a timesheet without any entry
    firstProject,         ///< in the projects while there are none
    trayLabelStyleLabel,  ///< of the setting "menuBarStyle"
    everythingStays,      ///< title of the row for backups in the settings
    showBackups,          ///< button that opens the folder of the snapshots
    restoreBackupNote,    ///< under the row for restoring in the settings
    welcomeTrackAccent,   ///< the end of the first welcome page's title "Track from the "
    welcomeTrackText,     ///< the first welcome page
};

/// A text as it reads on macOS, where the program was first thought out, and on this desktop.
struct PlatformWordings {
    PlatformText text;
    std::string_view original;
    std::string_view desktop;
};

/// Both wordings of `text`, in UTF-8.
[[nodiscard]] const PlatformWordings& wordings(PlatformText text);

/// `text` in the wording of the platform that the program runs on. The overload puts `value` where
/// the text has its {placeholder}.
[[nodiscard]] std::string_view platformText(PlatformText text);
[[nodiscard]] std::string platformText(PlatformText text, std::string_view value);

}  // namespace elmworth
