// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/TrayLabelStyle.h"

namespace elmworth {

TrayLabelStyle trayLabelStyle(std::string_view raw) {
    for (const auto style : {TrayLabelStyle::timeAndProject, TrayLabelStyle::icon}) {
        if (raw == rawValue(style)) return style;
    }
    return TrayLabelStyle::time;
}

std::string_view rawValue(TrayLabelStyle style) {
    switch (style) {
        case TrayLabelStyle::timeAndProject:
            return "timeAndProject";
        case TrayLabelStyle::icon:
            return "icon";
        case TrayLabelStyle::time:
            break;
    }
    return "time";
}

}  // namespace elmworth
