// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gtest/gtest.h>

#include <QColor>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>
#include <memory>

#include "theme/AppAppearance.h"
#include "theme/Contrast.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)

namespace elmworth {
namespace {

/// The tokens as the components read them.
class Theme : public testing::TestWithParam<AppearanceSetting> {
 protected:
    Theme() {
        AppAppearance::instance().setSetting(GetParam());
        QQmlComponent component(&engine_);
        component.setData(
            "import Elmworth.Theme\nimport QtQml\nQtObject {"
            "readonly property QtObject tokens: Theme }",
            QUrl());
        holder_.reset(component.create());
        EXPECT_TRUE(holder_) << component.errorString().toStdString();
    }
    ~Theme() override { AppAppearance::instance().setSetting(AppearanceSetting::system); }

    [[nodiscard]] QVariant token(const char* name) const {
        const QVariant value = holder_->property("tokens").value<QObject*>()->property(name);
        EXPECT_TRUE(value.isValid()) << name;
        return value;
    }
    [[nodiscard]] QColor color(const char* name) const { return token(name).value<QColor>(); }

    QQmlEngine engine_;
    std::unique_ptr<QObject> holder_;
};

TEST_P(Theme, everyTextIsLegibleOnEveryGround) {
    for (const char* groundName :
         {"backgroundTop", "backgroundBottom", "cardFill", "cardFillHover", "panelFill"}) {
        const QColor ground = color(groundName);
        for (const char* textName : {"primaryText", "secondaryText", "tertiaryText", "accentText",
                                     "warningText", "dangerText", "successText"}) {
            EXPECT_GE(contrastRatio(composed(color(textName), ground), ground), textContrast)
                << textName << " on " << groundName;
        }
    }
}

TEST_P(Theme, aProminentButtonIsLegible) {
    EXPECT_GE(contrastRatio(color("inverseFill"), color("inverseText")), textContrast);
}

TEST_P(Theme, aMenuItemIsLegibleWhileItIsChosen) {
    for (const char* textName : {"primaryText", "secondaryText", "dangerText"}) {
        const QColor ground = color("cardBorder");
        EXPECT_GE(contrastRatio(composed(color(textName), ground), ground), textContrast)
            << textName;
    }
}

TEST_P(Theme, selectedTextIsLegible) {
    const QColor ground = composed(color("selectionFill"), color("cardFill"));
    EXPECT_GE(contrastRatio(color("primaryText"), ground), textContrast);
}

TEST_P(Theme, theFocusRingStandsOutFromEveryGround) {
    for (const char* ground : {"backgroundTop", "backgroundBottom", "cardFill", "cardFillHover"}) {
        EXPECT_GE(contrastRatio(color("focusRing"), color(ground)), signContrast) << ground;
    }
}

TEST_P(Theme, whatStandsOnATileIsLegible) {
    for (const QVariant& gradient : token("tilePalette").toList()) {
        QList<QColor> colors;
        for (const QVariant& value : gradient.toList()) colors << value.value<QColor>();
        ASSERT_EQ(colors.size(), 2);
        for (const QColor& ground : colors) {
            EXPECT_GE(contrastRatio(inkOn(colors), ground), textContrast);
        }
    }
}

TEST_P(Theme, whiteStandsOnTheTwoColoursOfDecisionsWithoutAScrim) {
    for (const char* name : {"dangerGradient", "successGradient"}) {
        const auto gradient = token(name).toList();
        ASSERT_EQ(gradient.size(), 1);
        EXPECT_EQ(scrimOpacity({gradient.first().value<QColor>()}), 0) << name;
    }
}

TEST_P(Theme, surfacesFollowTheAppearance) {
    const bool dark = GetParam() == AppearanceSetting::dark;
    EXPECT_EQ(color("backgroundTop").rgb(), dark ? 0xFF000000 : 0xFFFFFFFF);
    EXPECT_EQ(color("cardFillHover").rgb(), dark ? 0xFF141418 : 0xFFEFEFF2);
    EXPECT_EQ(color("inverseText").rgb(), dark ? 0xFFFFFFFF : 0xFF111114);
}

INSTANTIATE_TEST_SUITE_P(Appearances, Theme,
                         testing::Values(AppearanceSetting::dark, AppearanceSetting::light),
                         [](const auto& row) {
                             return row.param == AppearanceSetting::dark ? "Dark" : "Light";
                         });

}  // namespace
}  // namespace elmworth
