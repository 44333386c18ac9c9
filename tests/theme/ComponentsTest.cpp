// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the tst_*.qml files of this folder.

#include <QtQuickTest/quicktest.h>
#include <QObject>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>

#include "theme/AppAppearance.h"
#include "theme/ChoiceModel.h"
#include "theme/SampleRows.h"
#include "theme/fonts/Fonts.h"
#include "theme/icons/AppIcon.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)

namespace elmworth {

class ComponentsSetup : public QObject {
    Q_OBJECT

 public Q_SLOTS:
    void applicationAvailable() {
        loadEmbeddedFonts();
        (void)appIcon();
        AppAppearance::instance().setSetting(AppearanceSetting::dark);
        // States are reached at once.
        AppAppearance::instance().setReducedMotion(true);
    }
    void qmlEngineAvailable(QQmlEngine* engine) {
        choices_.offer({{1, QStringLiteral("App")}, {2, QStringLiteral("Website")}});
        choices_.setChosen(2);
        engine->rootContext()->setContextProperty(QStringLiteral("choices"), &choices_);
        engine->rootContext()->setContextProperty(QStringLiteral("sample"), &sample_);
    }

 private:
    Choices<int> choices_;
    test::SampleRows sample_;
};

}  // namespace elmworth

QUICK_TEST_MAIN_WITH_SETUP(components, elmworth::ComponentsSetup)

#include "ComponentsTest.moc"
