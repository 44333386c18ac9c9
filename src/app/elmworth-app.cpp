// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// The program "elmworth-app": the desktop application, and commands that draw.

#include <QGuiApplication>
#include <QLoggingCategory>
#include <QQuickStyle>
#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include "app/DetachedStart.h"
#include "app/Display.h"
#include "app/ElmworthApp.h"
#include "app/GalleryApp.h"
#include "app/LibraryProblem.h"
#include "app/OpenInApplication.h"
#include "app/Renderer.h"
#include "app/SessionBus.h"
#include "app/StandardStreams.h"
#include "app/TerminalCommand.h"
#include "platform/LibraryLock.h"
#include "platform/StandardFolders.h"

namespace {

using namespace std::chrono_literals;
using namespace elmworth;

void describeApplication() {
    QGuiApplication::setApplicationName(QStringLiteral("Elmworth"));
    QGuiApplication::setApplicationVersion(QStringLiteral(ELMWORTH_VERSION));
    QGuiApplication::setDesktopFileName(QStringLiteral("org.elmworth.Elmworth"));
}

int runCommandWithPainter(int argc, char** argv, std::vector<std::string> arguments) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    // Standard error is for the command's own sentences, not for Qt's remarks on the surroundings.
    QLoggingCategory::setFilterRules(QStringLiteral("*.warning=false"));
    const QGuiApplication application(argc, argv);
    describeApplication();
    arguments.erase(arguments.begin());
    const auto commandLine = parseCommandLine(arguments);
    if (commandLine.answer) return printResult(*commandLine.answer);
    if (!commandLine.isCommand())
        return printResult(failedCommand("There is no command to carry out."));
    QtInvoicePainter painter;
    return finishTerminalCommand(commandLine, arguments, &painter);
}

/// Waits for a command that has the library; an application that has it comes to the front instead.
enum class Start { ours, activatedOther, refused };
Start takeLibrary(LibraryLock& lock, const std::string& action) {
    const auto deadline = std::chrono::steady_clock::now() + 5s;
    while (!lock.tryAcquire()) {
        if (activateRunningApplication(action)) return Start::activatedOther;
        if (std::chrono::steady_clock::now() >= deadline) return Start::refused;
        std::this_thread::sleep_for(20ms);
    }
    return Start::ours;
}

int showGallery(int argc, char** argv, const std::vector<std::string>& arguments) {
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    const auto application = openDisplay(argc, argv);
    describeApplication();
    chooseRenderer();
    return runGallery(arguments);
}

bool isGiven(const std::vector<std::string>& arguments, const std::string& argument) {
    return std::find(arguments.begin(), arguments.end(), argument) != arguments.end();
}

constexpr const char* panel = "panel";
constexpr const char* newInvoice = "new-invoice";

/// What an application that runs already is asked for instead; empty: to come to the front.
std::string actionFor(ElmworthApp::Opening opening) {
    if (opening == ElmworthApp::Opening::panel) return panel;
    if (opening == ElmworthApp::Opening::newInvoice) return newInvoice;
    return "";
}

ElmworthApp::Opening openingOf(const std::vector<std::string>& arguments) {
    if (isGiven(arguments, openingSwitch(panel))) return ElmworthApp::Opening::panel;
    if (isGiven(arguments, openingSwitch(newInvoice))) return ElmworthApp::Opening::newInvoice;
    // The bus starts the program with this, and sends a message that says what to show.
    if (isGiven(arguments, "--activated")) return ElmworthApp::Opening::nothing;
    return ElmworthApp::Opening::mainWindow;
}

int runOnLibrary(const std::vector<std::string>& arguments) {
    const bool isDemo = isGiven(arguments, "-demo");
    const auto opening = openingOf(arguments);
    LibraryLock lock(dataFolder());
    if (!isDemo && !isHostedRun()) {
        const Start start = takeLibrary(lock, actionFor(opening));
        if (start == Start::activatedOther) return 0;
        if (start == Start::refused) {
            std::fputs("The library is in use by another Elmworth process.\n", stderr);
            return 1;
        }
    }
    chooseRenderer();
    ElmworthApp app(isDemo, opening);
    if (isGiven(arguments, detachedSwitch)) tellStarterReady();
    return QGuiApplication::exec();
}

int runApplication(int argc, char** argv, const std::vector<std::string>& arguments) {
    QQuickStyle::setStyle(QStringLiteral("Basic"));
    const auto application = openDisplay(argc, argv);
    describeApplication();
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const bool isInTerminal = isGiven(arguments, terminalSwitch);
    try {
        return runOnLibrary(arguments);
    } catch (const LibraryError& error) {
        tellLibraryProblem(error.what(), isInTerminal);
    } catch (const std::filesystem::filesystem_error& error) {
        tellLibraryProblem(
            LibraryError(error.path1().string() + ": " + error.code().message()).what(),
            isInTerminal);
    }
    return 1;
}

}  // namespace

int main(int argc, char** argv) {
    reserveStandardStreams();
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    if (!arguments.empty() && arguments.front() == "--command") {
        return runCommandWithPainter(argc, argv, arguments);
    }
    if (!arguments.empty() && arguments.front() == "--gallery") {
        return showGallery(argc, argv, arguments);
    }
    return runApplication(argc, argv, arguments);
}
