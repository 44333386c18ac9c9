// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/welcome/WelcomeModel.h"

#include <array>
#include <string_view>

namespace elmworth {

namespace {

constexpr std::string_view seenKey = "didOnboard";

struct Panel {
    const char* icon;
    const char* title;
    const char* accent;
    const char* text;
};

constexpr std::array panels{
    Panel{"window", "Track from the ", "tray",
          "Click the clock in your tray and press play on a project. The timer survives quits and "
          "restarts."},
    Panel{"people-filled", "Organize by ", "client",
          "Clients carry your rate and currency. Projects live under them, each with its own "
          "color."},
    Panel{"document", "Invoice in ", "one click",
          "Pick a client and a period. Elmworth rounds your time, adds tax, and renders a clean "
          "PDF."},
};

constexpr Panel withoutTray{
    "window", "Track from the ", "panel",
    "Choose Open Panel in the menu and press play on a project. The timer survives quits and "
    "restarts."};

constexpr int lastPage = static_cast<int>(panels.size()) - 1;

const Panel& panelAt(int page, bool isTrayShown) {
    if (page == 0 && !isTrayShown) return withoutTray;
    return panels.at(static_cast<std::size_t>(page));
}

}  // namespace

void WelcomeModel::greet() {
    if (isOpen_ || defaults_.boolean(seenKey).value_or(false)) return;
    setPage(0);
    setOpen(true);
}

void WelcomeModel::next() {
    page_ == lastPage ? dismiss() : setPage(page_ + 1);
}

void WelcomeModel::back() {
    page_ == 0 ? dismiss() : setPage(page_ - 1);
}

void WelcomeModel::dismiss() {
    if (!isOpen_) return;
    defaults_.setBoolean(seenKey, true);
    setOpen(false);
}

void WelcomeModel::setOpen(bool isOpen) {
    isOpen_ = isOpen;
    Q_EMIT isOpenChanged();
}

void WelcomeModel::setPage(int page) {
    page_ = page;
    Q_EMIT pageChanged();
}

void WelcomeModel::setTrayShown(bool isShown) {
    isTrayShown_ = isShown;
    Q_EMIT pageChanged();
}

int WelcomeModel::pageCount() noexcept {
    return lastPage + 1;
}

QString WelcomeModel::backText() const {
    return page_ == 0 ? QStringLiteral("Skip") : QStringLiteral("Back");
}

QString WelcomeModel::nextText() const {
    return page_ == lastPage ? QStringLiteral("Get Started") : QStringLiteral("Continue");
}

QString WelcomeModel::kicker() const {
    return QStringLiteral("STEP %1").arg(page_ + 1);
}

QString WelcomeModel::icon() const {
    return QString::fromUtf8(panelAt(page_, isTrayShown_).icon);
}

QString WelcomeModel::title() const {
    return QString::fromUtf8(panelAt(page_, isTrayShown_).title);
}

QString WelcomeModel::accent() const {
    return QString::fromUtf8(panelAt(page_, isTrayShown_).accent);
}

QString WelcomeModel::text() const {
    return QString::fromUtf8(panelAt(page_, isTrayShown_).text);
}

}  // namespace elmworth
