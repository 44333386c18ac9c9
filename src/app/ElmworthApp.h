// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QQmlEngine>
#include <QQuickWindow>
#include <QTimer>
#include <future>
#include <memory>
#include <optional>
#include <vector>

#include "app/AppUpdates.h"
#include "app/ClosedWindowNotice.h"
#include "app/CommandService.h"
#include "app/InputBlock.h"
#include "app/LibraryServices.h"
#include "app/LiveAppearance.h"
#include "app/QtInvoicePainter.h"
#include "app/SaveAtExit.h"
#include "app/SettingsItem.h"
#include "app/TrayItem.h"
#include "exchange/AutoBackup.h"
#include "platform/linux/DesktopNotice.h"
#include "platform/linux/FileWatch.h"
#include "platform/linux/FreedesktopFiles.h"
#include "platform/linux/LogindPowerEvents.h"
#include "platform/linux/PortalColorScheme.h"
#include "platform/linux/QtRunLoop.h"
#include "platform/linux/TerminationSignals.h"
#include "screens/main/MainViewModel.h"
#include "screens/main/RememberedWindow.h"

namespace elmworth {

/// The desktop application. Its creation is the start-up sequence of the whole program; it owns the
/// long-lived services and hands them to the windows. Nothing of a screen runs before a timer that
/// the last run left open is restored.
class ElmworthApp {
 public:
    /// What shows at the start. Nothing: the session bus starts the program and says what to show.
    enum class Opening { mainWindow, panel, newInvoice, nothing };

    /// Throws LibraryError when the library cannot be opened. Requires the library's lock
    /// unless it is a demo, and a QGuiApplication.
    ElmworthApp(bool isDemo, Opening opening);
    ElmworthApp(const ElmworthApp&) = delete;
    ElmworthApp& operator=(const ElmworthApp&) = delete;
    ~ElmworthApp();

    /// Shows the main window and puts it in front of the others.
    void showMainWindow();

    /// Opens the panel.
    void showPanel();

    /// Shows the main window with its sheet for a new invoice.
    void showNewInvoice();

    /// Shows the settings in front of the other windows.
    void showSettings();

 private:
    void showMainWindowForOthers();
    void keepOthersOff();
    void open(Opening opening);
    void standBesideWindow();
    [[nodiscard]] TrayItem& tray();
    void makeMainWindow();
    void followTray();
    void mainWindowClosed();
    void saveBeforeInterruptions();
    void endSoon();

    /// A library in memory must not take the bus name of the application with the real library.
    bool isInMemory_;
    std::future<void> fonts_;  ///< read while the library is opened
    QTimer afterClose_;
    QTimer inFront_;      ///< for the desktop to bring the window to the front
    QTimer trayWait_;     ///< for a tray to take the item up
    QTimer standBeside_;  ///< until what is not the window may take its time
    QTimer end_;          ///< once it was asked for
    QtRunLoop runLoop_;
    LibraryServices services_;
    FileWatch settingsWatch_;
    LogindPowerEvents powerEvents_;
    std::vector<PowerEvents::Observation> saves_;
    std::optional<AutoBackup> autoBackup_;  ///< none for a demo or a hosted run
    QtInvoicePainter painter_;
    Activation activation_;
    CommandService commandService_;
    TerminationSignals terminationSignals_;
    PortalColorScheme colorScheme_;
    LiveAppearance appearance_;
    AppUpdates updates_;
    FreedesktopFiles desktopFiles_;
    MainViewModel mainViewModel_;
    QQmlEngine engine_;
    SettingsItem settings_;
    std::optional<TrayItem> trayItem_;  ///< none before the window has been drawn
    DesktopNotice notice_;
    ClosedWindowNotice closedWindowNotice_;
    std::unique_ptr<QQuickWindow> mainWindow_;  ///< made when it is first shown
    std::optional<RememberedWindow> rememberedWindow_;
    std::optional<InputBlock> inputBlock_;  ///< during long work
    LongWork::Observation workObservation_;
    SaveAtExit lastSave_;
};

}  // namespace elmworth
