// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQuickWindow>
#include <memory>

#include "app/LibraryServices.h"
#include "screens/settings/SettingsModel.h"

class QQmlEngine;

namespace elmworth {

/// The settings window, which is made when it is first shown.
class SettingsItem {
 public:
    /// `engine` makes the window, and outlives this object, as all else does.
    SettingsItem(LibraryServices& services, RunLoop& runLoop, QQmlEngine& engine, bool isDemo,
                 Updater& updater, std::function<void()> lookForUpdates);
    SettingsItem(const SettingsItem&) = delete;
    SettingsItem& operator=(const SettingsItem&) = delete;

    /// Shows the window and puts it in front of the others.
    void show();
    /// Null before it is first shown.
    [[nodiscard]] QQuickWindow* window() const noexcept { return window_.get(); }

 private:
    QQmlEngine& engine_;
    SettingsModel model_;
    std::unique_ptr<QQuickWindow> window_;
};

}  // namespace elmworth
