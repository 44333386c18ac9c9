// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QtQml/QQmlExtensionPlugin>

#include "support/WindowPicture.h"
#include "theme/fonts/Fonts.h"
#include "theme/gallery/GalleryModel.h"
#include "theme/icons/AppIcon.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_GalleryPlugin)

namespace elmworth {
namespace {

QStringList warnings;

void collect(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
    if (type == QtWarningMsg || type == QtCriticalMsg) warnings << message;
}

TEST(Gallery, showsEveryComponentWithoutAWarningInBothAppearances) {
    loadEmbeddedFonts();
    EXPECT_FALSE(appIcon().isNull());
    warnings.clear();
    const auto usual = qInstallMessageHandler(&collect);
    GalleryModel model(AppearanceSetting::dark);
    QQmlApplicationEngine engine;
    engine.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&model)}});
    engine.load(
        QUrl(QStringLiteral("qrc:/qt-project.org/imports/Elmworth/Gallery/GalleryWindow.qml")));
    QImage dark;
    QImage light;
    if (!engine.rootObjects().isEmpty()) {
        auto* window = qobject_cast<QQuickWindow*>(engine.rootObjects().first());
        dark = test::pictureOf(*window);
        model.setAppearance(2);
        light = test::pictureOf(*window);
    }
    qInstallMessageHandler(usual);
    EXPECT_EQ(warnings.join(u'\n').toStdString(), "");
    ASSERT_FALSE(dark.isNull());
    EXPECT_EQ(dark.pixelColor(2, 2), QColor(Qt::black));
    EXPECT_EQ(light.pixelColor(2, 2), QColor(Qt::white));
}

TEST(Gallery, anAppearanceThatIsNoneChangesNothing) {
    GalleryModel model(AppearanceSetting::light);
    model.setAppearance(3);
    model.setAppearance(-1);
    EXPECT_EQ(model.appearance(), 2);
}

}  // namespace
}  // namespace elmworth
