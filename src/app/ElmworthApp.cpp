// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ElmworthApp.h"

#include <QDBusConnection>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QUrl>
#include <QVariant>
#include <QtQml/QQmlExtensionPlugin>
#include <chrono>

#include "app/MakeWindow.h"
#include "app/ScreenServices.h"
#include "screens/main/LeastSize.h"
#include "theme/fonts/Fonts.h"
#include "theme/icons/AppIcon.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_MainPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_WelcomePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_TimesheetPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_ClientsPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_ProjectsPlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_InvoicesPlugin)

namespace elmworth {

using namespace std::chrono_literals;

namespace {

/// After the window's first frame: its section comes before what stands beside the window.
constexpr auto sectionIsMade = 200ms;

/// Between two attempts to end.
constexpr auto refusalIsOver = 250ms;

QUrl mainWindowFile() {
    return QUrl(QStringLiteral("qrc:/qt-project.org/imports/Elmworth/Main/MainWindow.qml"));
}

}  // namespace

ElmworthApp::ElmworthApp(bool isDemo, Opening opening)
    : isInMemory_(isDemo || isHostedRun()),
      fonts_(loadFontsMeanwhile()),
      services_(isDemo, currentInstant, runLoop_),
      settingsWatch_(services_.defaults().file(), [this] { services_.defaults().reload(); }),
      activation_({[this] { showMainWindowForOthers(); }, [this] { showPanel(); },
                   [this] { showNewInvoice(); }},
                  services_.timer(), services_.longWork()),
      commandService_(services_, painter_, activation_),
      terminationSignals_([this] { endSoon(); }),
      colorScheme_(QDBusConnection::sessionBus()),
      appearance_(services_.defaults(), colorScheme_),
      updates_(services_.defaults(), runLoop_, services_.clock(), isInMemory_),
      desktopFiles_(QDBusConnection::sessionBus()),
      mainViewModel_(screenServices(services_, runLoop_), {painter_, desktopFiles_},
                     &updates_.updater()),
      settings_(services_, runLoop_, engine_, isDemo, updates_.updater(),
                [this] {
                    showMainWindow();
                    mainViewModel_.checkForUpdates();
                }),
      notice_(QDBusConnection::sessionBus(), [this] { showMainWindow(); }),
      closedWindowNotice_({[this] { return tray().isShown(); },
                           [this] { return services_.timer().running() != nullptr; },
                           [this](const ClosedWindowNotice::Sentence& sentence) {
                               notice_.show(QString::fromStdString(sentence.title),
                                            QString::fromStdString(sentence.text));
                           }}),
      lastSave_(services_.context(), services_.longWork()) {
    if (!isHostedRun()) {
        services_.timer().installSleepObservers(powerEvents_);
        saveBeforeInterruptions();
    }
    if (!isInMemory_) {
        autoBackup_.emplace(services_.context(), services_.defaults(), services_.clock(), runLoop_,
                            powerEvents_);
    }
    // Controls ask for the default font before their own is set; the system's would be read for it.
    QFont font(textFontFamily());
    font.setPixelSize(13);
    QGuiApplication::setFont(font);
    QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    QObject::connect(&engine_, &QQmlEngine::quit, qGuiApp, &QGuiApplication::quit);
    QObject::connect(&end_, &QTimer::timeout, qGuiApp, &QGuiApplication::quit);
    QObject::connect(&mainViewModel_, &MainViewModel::panelRequested, [this] { showPanel(); });
    QObject::connect(&mainViewModel_, &MainViewModel::settingsRequested,
                     [this] { showSettings(); });
    workObservation_ = services_.longWork().observe([this] { keepOthersOff(); });
    open(opening);
}

ElmworthApp::~ElmworthApp() = default;

/// A window refuses to close as long as its work goes on, and a quit before the loop runs is lost:
/// who asks by a signal asks once.
void ElmworthApp::endSoon() {
    end_.start(refusalIsOver);
    QGuiApplication::quit();
}

/// A window first: what stands beside it waits until the window has been drawn. That may never be,
/// as where it starts minimized.
void ElmworthApp::open(Opening opening) {
    standBeside_.setSingleShot(true);
    QObject::connect(&standBeside_, &QTimer::timeout, qGuiApp, [this] { standBesideWindow(); });
    // The types of a window are read while the fonts are.
    std::optional<QQmlComponent> types;
    if (opening == Opening::mainWindow) types.emplace(&engine_, mainWindowFile());
    fonts_.get();
    if (opening == Opening::mainWindow) makeMainWindow();
    if (opening == Opening::panel) showPanel();
    if (opening == Opening::newInvoice) showNewInvoice();
    if (opening == Opening::nothing) standBesideWindow();
    if (!mainWindow_) return;
    standBeside_.start(1s);
    QObject::connect(
        mainWindow_.get(), &QQuickWindow::frameSwapped, &standBeside_,
        [this] { standBeside_.start(sectionIsMade); }, Qt::SingleShotConnection);
}

/// The item in the tray, the way for commands, and the icon of the windows.
void ElmworthApp::standBesideWindow() {
    standBeside_.stop();
    if (trayItem_) return;
    if (!isInMemory_) commandService_.publish(QDBusConnection::sessionBus());
    QGuiApplication::setWindowIcon(appIcon());
    trayItem_.emplace(
        services_, runLoop_, engine_,
        TrayItem::Ways{[this] { showMainWindow(); }, [this] { showSettings(); },
                       [this](bool isShown) { mainViewModel_.setTrayShown(isShown); }});
    followTray();
}

TrayItem& ElmworthApp::tray() {
    standBesideWindow();
    return *trayItem_;
}

/// A tray tells when it shows the item; that there is none shows only in that nothing is told.
void ElmworthApp::followTray() {
    trayWait_.setSingleShot(true);
    QObject::connect(&trayWait_, &QTimer::timeout, qGuiApp,
                     [this] { mainViewModel_.setTrayShown(tray().isShown()); });
    trayWait_.start(2s);
}

/// Save before sleep and at logout: the machine may not wake, and a logout may not wait.
void ElmworthApp::saveBeforeInterruptions() {
    const auto save = [this] {
        if (!services_.longWork().isRunning()) services_.context().saveQuietly();
    };
    saves_ = {powerEvents_.onWillSleep(save), powerEvents_.onWillShutDown(save)};
    QObject::connect(
        qGuiApp, &QGuiApplication::commitDataRequest, &terminationSignals_,
        [save](QSessionManager& /*manager*/) { save(); }, Qt::DirectConnection);
}

void ElmworthApp::showSettings() {
    settings_.show();
}

/// While the library is half changed, nothing but the window of the work may go on.
void ElmworthApp::keepOthersOff() {
    const bool isWorking = services_.longWork().isRunning();
    runLoop_.setHeld(isWorking);
    inputBlock_.reset();
    if (isWorking) inputBlock_.emplace(settings_.window());
}

void ElmworthApp::showPanel() {
    tray().showPanel();
}

void ElmworthApp::showNewInvoice() {
    showMainWindow();
    mainViewModel_.openNewInvoice();
}

void ElmworthApp::makeMainWindow() {
    mainWindow_ = makeWindow(engine_, mainWindowFile(), QVariant::fromValue(&mainViewModel_));
    lowerLeastSize(*mainWindow_);
    rememberedWindow_.emplace(*mainWindow_, services_.defaults(), "mainWindowFrame");
    inFront_.setSingleShot(true);
    QObject::connect(&inFront_, &QTimer::timeout, mainWindow_.get(), [this] {
        if (mainWindow_->isActive()) return;
        notice_.show(QStringLiteral("Elmworth is open already"),
                     QStringLiteral("This desktop lets no program come to the front by itself. "
                                    "Press here to go to its window."));
    });
    // At the end of the program all windows go, and the loop doesn't turn again.
    afterClose_.setSingleShot(true);
    QObject::connect(&afterClose_, &QTimer::timeout, qGuiApp, [this] { mainWindowClosed(); });
    QObject::connect(mainWindow_.get(), &QWindow::visibleChanged, &afterClose_,
                     [this](bool isVisible) {
                         if (!isVisible) afterClose_.start(0);
                     });
    // show() would undo "maximized".
    mainWindow_->setVisible(true);
}

/// Another start reaches only the application with the real library: without a tray nothing would
/// bring back the window of one in memory.
void ElmworthApp::mainWindowClosed() {
    if (isInMemory_ && !tray().isShown()) return QGuiApplication::quit();
    closedWindowNotice_.windowClosed();
}

/// Under Wayland a program comes to the front by the leave of another one alone, and a start from a
/// terminal has none to give.
void ElmworthApp::showMainWindowForOthers() {
    const bool wasVisible = mainWindow_ && mainWindow_->isVisible();
    showMainWindow();
    if (wasVisible && QGuiApplication::platformName().startsWith(QLatin1String("wayland")))
        inFront_.start(1s);
}

void ElmworthApp::showMainWindow() {
    if (!mainWindow_) makeMainWindow();
    // Keeps a maximized window maximized and restores a minimized one.
    mainWindow_->setWindowStates(mainWindow_->windowStates() & ~Qt::WindowMinimized);
    mainWindow_->setVisible(true);
    mainWindow_->raise();
    mainWindow_->requestActivate();
}

}  // namespace elmworth
