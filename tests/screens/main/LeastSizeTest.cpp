// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/LeastSize.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>

#include "support/Rows.h"

namespace elmworth {
namespace {

const QSize roomy{1020, 600};
const DesktopManner::Screen wide{{1920, 1080}};
const DesktopManner::Screen dense{{1920, 1080}, 2};
const QSize none{0, 0};
const DesktopManner stacking{QStringLiteral("xcb"), QStringLiteral("XFCE")};

struct Asked {
    const char* name;
    DesktopManner manner;
    QList<DesktopManner::Screen> screens;
    QSize least;
};

void PrintTo(const Asked& row, std::ostream* out) {
    *out << row.name;
}

class LeastSizeAsked : public testing::TestWithParam<Asked> {};

TEST_P(LeastSizeAsked, isWhatTheDesktopAndItsScreensAllow) {
    const auto& [name, manner, screens, least] = GetParam();
    const QSize found = leastSize(roomy, screens, manner);
    EXPECT_EQ(found, least) << found.width() << " by " << found.height();
}

INSTANTIATE_TEST_SUITE_P(
    Desktops, LeastSizeAsked,
    testing::Values(
        Asked{"x11", stacking, {wide}, roomy},
        // Qt draws into what it is given there.
        Asked{"x11ThatTiles", {QStringLiteral("xcb"), QStringLiteral("i3")}, {wide}, roomy},
        Asked{"gnome", {QStringLiteral("wayland"), QStringLiteral("GNOME")}, {wide}, roomy},
        Asked{"gnomeOfADistribution",
              {QStringLiteral("wayland"), QStringLiteral("ubuntu:GNOME")},
              {wide},
              roomy},
        Asked{"plasma", {QStringLiteral("wayland-egl"), QStringLiteral("KDE")}, {wide}, roomy},
        Asked{"sway", {QStringLiteral("wayland"), QStringLiteral("sway")}, {wide}, none},
        Asked{"aWaylandDesktopWithoutAName",
              {QStringLiteral("wayland"), QStringLiteral("")},
              {wide},
              none},
        Asked{"aSmallScreen", stacking, {{{960, 510}}}, {960, 510}},
        Asked{"aLowScreen", stacking, {{{1366, 560}}}, {1020, 560}},
        Asked{"aSmallScreenBesideALargeOne",
              {QStringLiteral("wayland"), QStringLiteral("GNOME")},
              {wide, {{960, 510}}},
              {880, 410}},
        // The window would be cut where the desktop told the screen's own pixels.
        Asked{"gnomeAt200Percent",
              {QStringLiteral("wayland"), QStringLiteral("GNOME")},
              {dense},
              {880, 440}},
        Asked{"plasmaAt200Percent",
              {QStringLiteral("wayland"), QStringLiteral("KDE")},
              {dense},
              roomy},
        Asked{"gnomeOnX11At200Percent",
              {QStringLiteral("xcb"), QStringLiteral("GNOME")},
              {dense},
              roomy},
        Asked{"noScreen", stacking, {}, roomy}),
    test::rowName);

TEST(LeastSize, aWindowAsksForNoMoreThanItsScreenHas) {
    QWindow window;
    window.setMinimumSize({100'000, 200});
    lowerLeastSize(window);
    EXPECT_EQ(window.minimumSize(),
              QSize(QGuiApplication::primaryScreen()->availableSize().width(), 200));
}

}  // namespace
}  // namespace elmworth
