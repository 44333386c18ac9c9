// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// A program with nothing but a tray item, for tests of the bus protocols and for looking at it in a
// real panel. Reads lines: "face idle|running LABEL|ICONTEXT|TOOLTIP", "menu ITEM;ITEM;…" and
// "refresh ITEM;…", the menu from the next time that it is about to show. An item is a text, with
// "!" before it disabled, with "*" checked, "-" a separator, "A>B,C" a submenu, "#id=" before the
// text its identity. Writes a line for what the desktop tells.

#include <QGuiApplication>
#include <QSocketNotifier>
#include <cstdio>
#include <iostream>

#include "platform/linux/StatusNotifierItem.h"
#include "theme/fonts/Fonts.h"

namespace {

using namespace elmworth;

void tell(const std::string& line) {
    std::cout << line << std::endl;
}

TrayMenuItem parseItem(QString text) {
    if (text == QLatin1String("-")) return TrayMenuItem::separator();
    TrayMenuItem item;
    if (text.startsWith(u'#')) {
        item.identity = text.section(u'=', 0, 0).toStdString();
        text = text.section(u'=', 1);
    }
    item.isEnabled = !text.startsWith(u'!');
    if (text.startsWith(u'*')) item.isChecked = true;
    if (!item.isEnabled || item.isChecked) text.remove(0, 1);
    item.text = text.section(u'>', 0, 0).toStdString();
    for (const auto& below : text.section(u'>', 1).split(u',', Qt::SkipEmptyParts)) {
        item.submenu.push_back(parseItem(below));
    }
    item.action = [chosen = item.text] { tell("chosen " + chosen); };
    return item;
}

std::vector<TrayMenuItem> parseMenu(const QString& text) {
    std::vector<TrayMenuItem> items;
    for (const auto& item : text.split(u';', Qt::SkipEmptyParts)) items.push_back(parseItem(item));
    return items;
}

TrayFace parseFace(const QString& text) {
    const auto field = [&text](int index) {
        return text.section(u' ', 1).section(u'|', index, index).toStdString();
    };
    const bool isRunning = text.startsWith(QLatin1String("running"));
    return {isRunning ? TrayFace::Icon::running : TrayFace::Icon::idle, field(0), field(1),
            field(2)};
}

class Driver {
 public:
    Driver()
        : tray_({QStringLiteral("Elmworth Icons"), QChar(0xe8b5), QChar(0xe837),
                 tabularFontFamily()}),
          input_(0, QSocketNotifier::Read) {
        tray_.setEvents({.activated = [](TrayPoint at) { tell("activated " + textOf(at)); },
                         .secondaryActivated = [](TrayPoint at) { tell("middle " + textOf(at)); },
                         .menuAboutToShow = [this] { refreshMenu(); },
                         .shownChanged = [](bool shown) { tell(shown ? "shown" : "hidden"); }});
        QObject::connect(&input_, &QSocketNotifier::activated, &input_, [this] { readLine(); });
        tell("ready");
    }

 private:
    static std::string textOf(TrayPoint at) {
        return std::to_string(at.x) + ' ' + std::to_string(at.y);
    }

    void refreshMenu() {
        if (!refreshed_.isEmpty()) tray_.setMenu(parseMenu(refreshed_));
    }

    void readLine() {
        std::string read;
        if (!std::getline(std::cin, read)) return QCoreApplication::quit();
        const QString line = QString::fromStdString(read);
        const QString rest = line.section(u' ', 1);
        if (line.startsWith(QLatin1String("face "))) tray_.setFace(parseFace(rest));
        if (line.startsWith(QLatin1String("menu "))) tray_.setMenu(parseMenu(rest));
        if (line.startsWith(QLatin1String("refresh "))) refreshed_ = rest;
        tell("done");
    }

    StatusNotifierItem tray_;
    QSocketNotifier input_;
    QString refreshed_;
};

}  // namespace

int main(int argc, char** argv) {
    const QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    loadEmbeddedFonts();
    const Driver driver;
    return QGuiApplication::exec();
}
