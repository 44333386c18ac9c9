// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace elmworth {

/// A section of the main window. Its raw value is what the setting "mainSection" holds, and
/// the label that people see.
struct SidebarItem {
    std::string_view rawValue;
    std::string_view iconName;
    std::string_view shortcut;
};

/// The sections, in the order in which they stand.
inline constexpr std::array sidebarItems{
    SidebarItem{"Timesheet", "clock-filled", "Ctrl+1"},
    SidebarItem{"Clients", "people-filled", "Ctrl+2"},
    SidebarItem{"Projects", "folder-filled", "Ctrl+3"},
    SidebarItem{"Invoices", "document", "Ctrl+4"},
};

/// The position of the section that `raw` names; absent for a text that is no raw value.
[[nodiscard]] constexpr std::optional<std::size_t> sidebarPosition(std::string_view raw) noexcept {
    for (std::size_t i = 0; i < sidebarItems.size(); ++i) {
        if (sidebarItems[i].rawValue == raw) return i;
    }
    return std::nullopt;
}

}  // namespace elmworth
