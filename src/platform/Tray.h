// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace elmworth {

/// One line of a tray item's menu. Texts are UTF-8 and shown as they are.
struct TrayMenuItem {
    std::string text = {};
    bool isEnabled = true;
    std::optional<bool> isChecked = {};  ///< absent: nothing to check
    bool isSeparator = false;            ///< a line without text
    std::function<void()> action = {};   ///< what choosing it does
    std::vector<TrayMenuItem> submenu = {};
    /// What the item stands for. An item of the same identity under the same parent is the same
    /// one, with other properties; an open menu then changes in place. Empty: its text.
    std::string identity = {};

    [[nodiscard]] static TrayMenuItem separator() { return {.isSeparator = true}; }
};

/// What the tray item shows of the timer.
struct TrayFace {
    enum class Icon { idle, running };
    Icon icon = Icon::idle;
    std::string label = {};  ///< beside the icon, where the desktop shows labels; may be empty
    /// In the icon, where the desktop shows no labels; of at most six characters, may be empty.
    std::string iconText = {};
    std::string toolTip = {};

    friend bool operator==(const TrayFace&, const TrayFace&) = default;
};

/// A place on the screen, in the units of the desktop that told it.
struct TrayPoint {
    int x = 0;
    int y = 0;

    friend bool operator==(const TrayPoint&, const TrayPoint&) = default;
};

/// The program's item in the desktop's tray. A desktop without a tray shows nothing; that is no
/// error, and the item appears as soon as there is one. All calls are made, and all functions are
/// called, on the main thread. What is set to what it was costs nothing.
class Tray {
 public:
    virtual ~Tray() = default;

    virtual void setFace(const TrayFace& face) = 0;
    virtual void setMenu(std::vector<TrayMenuItem> items) = 0;

    /// Whether a tray shows the item now.
    [[nodiscard]] virtual bool isShown() const = 0;

    /// What the desktop tells. Functions that are not set are not called.
    struct Events {
        std::function<void(TrayPoint)> activated = {};           ///< pressed, about there
        std::function<void(TrayPoint)> secondaryActivated = {};  ///< with the middle button
        std::function<void()> menuAboutToShow = {};  ///< the time to set a menu that is up to date
        std::function<void(bool isShown)> shownChanged = {};
    };
    virtual void setEvents(Events events) = 0;
};

}  // namespace elmworth
