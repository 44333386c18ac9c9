// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQmlApplicationEngine>
#include <memory>
#include <optional>

#include "app/CommandService.h"
#include "app/LibraryServices.h"
#include "app/LiveAppearance.h"
#include "app/QtInvoicePainter.h"
#include "exchange/AutoBackup.h"
#include "platform/linux/LogindPowerEvents.h"
#include "platform/linux/PortalColorScheme.h"
#include "platform/linux/QtRunLoop.h"
#include "platform/linux/TerminationSignals.h"
#include "screens/main/MainViewModel.h"
#include "screens/main/RememberedWindow.h"

class QQuickWindow;

namespace elmworth {

/// The desktop application. Its creation is the start-up sequence of the whole program; it owns the
/// long-lived services and hands them to the windows. Nothing of a screen runs before a timer that
/// the last run left open is restored.
class ElmworthApp {
 public:
    /// Throws ModelContainerError when the library cannot be opened. Requires the library's lock
    /// unless it is a demo, and a QGuiApplication.
    explicit ElmworthApp(bool isDemo);
    ElmworthApp(const ElmworthApp&) = delete;
    ElmworthApp& operator=(const ElmworthApp&) = delete;

    /// Makes the last save of the process.
    ~ElmworthApp();

    /// Shows the main window and puts it in front of the others.
    void showMainWindow();

 private:
    void loadMainWindow();
    [[nodiscard]] QQuickWindow* mainWindow() const;

    QtRunLoop runLoop_;
    LibraryServices services_;
    LogindPowerEvents powerEvents_;
    std::optional<AutoBackup> autoBackup_;  ///< none for a demo or a hosted run
    QtInvoicePainter painter_;
    CommandService commandService_;
    TerminationSignals terminationSignals_;
    PortalColorScheme colorScheme_;
    LiveAppearance appearance_;
    MainViewModel mainViewModel_;
    QQmlApplicationEngine engine_;
    std::optional<RememberedWindow> rememberedWindow_;
};

}  // namespace elmworth
