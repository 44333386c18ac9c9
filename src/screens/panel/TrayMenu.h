// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <vector>

#include "platform/Tray.h"

namespace elmworth {

class TrayLabel;
class PanelModel;

/// The context menu of the tray item: everything that the panel can do, for desktops whose tray
/// hands no click to the program. The first line says what runs. Each text is one line of at most
/// 60 characters.
using TrayMenu = std::vector<TrayMenuItem>;

/// The menu as it is now. To be made again when the panel's offers or the label changed. Its
/// actions work on `panel`, which has to be there when they are called; one whose offer is gone by
/// then does nothing.
[[nodiscard]] TrayMenu makeTrayMenu(PanelModel& panel, const TrayLabel& label);

}  // namespace elmworth
