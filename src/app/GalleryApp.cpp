// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/GalleryApp.h"

#include <QGuiApplication>
#include <QQmlApplicationEngine>
#include <QtQml/QQmlExtensionPlugin>

#include "theme/fonts/Fonts.h"
#include "theme/gallery/GalleryModel.h"
#include "theme/icons/AppIcon.h"

Q_IMPORT_QML_PLUGIN(Elmworth_GalleryPlugin)

namespace elmworth {

int runGallery(const std::vector<std::string>& arguments) {
    loadEmbeddedFonts();
    QGuiApplication::setWindowIcon(appIcon());
    QGuiApplication::setQuitOnLastWindowClosed(true);
    GalleryModel model(appearanceSetting(arguments.size() > 1 ? arguments[1] : ""));
    QQmlApplicationEngine engine;
    engine.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&model)}});
    engine.load(
        QUrl(QStringLiteral("qrc:/qt-project.org/imports/Elmworth/Gallery/GalleryWindow.qml")));
    return QGuiApplication::exec();
}

}  // namespace elmworth
