// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What the programs share that measure from an event to the painted window, where no graphics card
// helps.

#pragma once

#include <QByteArray>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQuickItem>
#include <QQuickStyle>
#include <QQuickWindow>
#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "theme/fonts/Fonts.h"

namespace elmworth::bench {

/// Qt without a display, drawing on the processor.
class Offscreen {
 public:
    Offscreen(int& argc, char** argv) : application_((prepare(), argc), argv) {
        loadEmbeddedFonts();
        QQuickWindow::setTextRenderType(QQuickWindow::NativeTextRendering);
    }

 private:
    static void prepare() {
        qputenv("QT_QPA_PLATFORM", "offscreen");
        qputenv("QT_QUICK_BACKEND", "software");
        QQuickStyle::setStyle(QStringLiteral("Basic"));
    }

    QGuiApplication application_;
};

/// How long `act` takes, in milliseconds.
template <class Act>
double timed(const Act& act) {
    const auto began = std::chrono::steady_clock::now();
    act();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - began)
        .count();
}

/// Prints a line that bench/run reads. `times` are milliseconds, in a library of `entries` entries;
/// `aim` is what they may be at most, or 0.
inline void report(const std::string& figure, std::int64_t entries, std::vector<double> times,
                   double aim = 0) {
    std::sort(times.begin(), times.end());
    const auto at = [&](double share) {
        return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
    };
    std::printf("%-40s | %6lld entries | median %7.2f ms | 95%% %7.2f ms | slowest %7.2f ms",
                figure.c_str(), static_cast<long long>(entries), at(0.5), at(0.95), times.back());
    if (aim > 0) std::printf(" | aim %.3g ms", aim);
    std::printf("\n");
    std::fflush(stdout);
}

/// A view in a window of its own, of 1226 by 900 pixels.
class Shown {
 public:
    /// `type` of the QML module `module`, on `model`.
    Shown(QQmlEngine& engine, const char* module, const char* type, QObject* model) {
        QQmlComponent component(&engine);
        component.setData(
            QByteArray("import QtQuick\nimport Elmworth.Theme\nimport ") + module +
                "\nWindow { id: window; required property var sectionModel; width: 1226;"
                " height: 900; visible: true; color: Theme.backgroundTop\n" +
                type + " { anchors.fill: parent; model: window.sectionModel } }",
            QUrl());
        window_.reset(qobject_cast<QQuickWindow*>(component.createWithInitialProperties(
            {{QStringLiteral("sectionModel"), QVariant::fromValue(model)}})));
        if (!window_) std::fprintf(stderr, "%s\n", qPrintable(component.errorString()));
    }
    void paint() {
        QCoreApplication::processEvents();
        window_->grabWindow();
    }
    /// From `event` to the painted window, in milliseconds.
    template <class Event>
    double frameOf(const Event& event) {
        return timed([&] {
            event();
            paint();
        });
    }
    /// The first item of the C++ type `type`.
    [[nodiscard]] QQuickItem* item(const char* type) const {
        return in(window_->contentItem(), type);
    }

 private:
    [[nodiscard]] static QQuickItem* in(QQuickItem* item, const char* type) {
        if (item->inherits(type)) return item;
        for (auto* child : item->childItems()) {
            if (auto* found = in(child, type)) return found;
        }
        return nullptr;
    }

    std::unique_ptr<QQuickWindow> window_;
};

}  // namespace elmworth::bench
