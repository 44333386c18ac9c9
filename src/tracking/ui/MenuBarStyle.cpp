// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/ui/MenuBarStyle.h"

namespace elmworth {

MenuBarStyle menuBarStyle(std::string_view raw) {
    for (const auto style : {MenuBarStyle::timeAndProject, MenuBarStyle::icon}) {
        if (raw == rawValue(style)) return style;
    }
    return MenuBarStyle::time;
}

std::string_view rawValue(MenuBarStyle style) {
    switch (style) {
        case MenuBarStyle::timeAndProject:
            return "timeAndProject";
        case MenuBarStyle::icon:
            return "icon";
        case MenuBarStyle::time:
            break;
    }
    return "time";
}

}  // namespace elmworth
