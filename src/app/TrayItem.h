// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickWindow>
#include <functional>
#include <memory>

#include "app/LibraryServices.h"
#include "platform/linux/StatusNotifierItem.h"
#include "screens/panel/PanelModel.h"
#include "screens/panel/TrayLabel.h"

class QQmlEngine;

namespace elmworth {

/// The item in the desktop's tray and the panel that it opens. On a desktop without a tray only the
/// panel exists.
class TrayItem {
 public:
    struct Ways {
        std::function<void()> toMainWindow;
        std::function<void()> toSettings;
        std::function<void(bool isShown)> trayChanged;  ///< a tray shows the item, or none does now
    };

    /// Shows the item. `engine` makes the panel when it is first opened, and outlives this object.
    TrayItem(LibraryServices& services, RunLoop& runLoop, QQmlEngine& engine, const Ways& ways);
    TrayItem(const TrayItem&) = delete;
    TrayItem& operator=(const TrayItem&) = delete;

    /// Opens the panel in the corner of the screen. A press on the item opens it beside the item,
    /// or closes it.
    void showPanel();

    /// Whether a tray shows the item now; false too in the moment before the desktop has answered.
    [[nodiscard]] bool isShown() const { return tray_.isShown(); }

 private:
    void leadOn(const Ways& ways);
    void watchTray(std::function<void(bool)> changed);
    void updateFace();
    void updateMenu();
    [[nodiscard]] bool isBusy() const { return longWork_.isRunning(); }
    [[nodiscard]] QQuickWindow* panelWindow();

    QQmlEngine& engine_;
    LongWork& longWork_;
    TrayLabel label_;
    PanelModel panel_;
    StatusNotifierItem tray_;
    std::unique_ptr<QQuickWindow> window_;
    LongWork::Observation workObservation_;
};

}  // namespace elmworth
