// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/PanelPlace.h"

#include <gtest/gtest.h>

#include <QWindow>

#include "support/Rows.h"

namespace elmworth {
namespace {

// Each has a bar of 40 logical pixels at its lower edge.
PanelScreen screen(QPoint corner, QSize size, double ratio = 1) {
    const QRect geometry(corner, size);
    return {geometry, geometry.adjusted(0, 0, 0, -40), ratio};
}

const PanelScreen plain = screen({0, 0}, {1920, 1080});
const PanelScreen fine = screen({0, 0}, {1920, 1080}, 2);  // 3840 by 2160 device pixels
const PanelScreen beside = screen({3840, 200}, {1280, 1024});
const PanelScreen left = screen({-1280, 0}, {1280, 1024});
const PanelScreen fineBeside = screen({1920, 0}, {1440, 900}, 2);

struct Place {
    const char* name;
    std::vector<PanelScreen> screens;
    std::optional<QPointF> item;
    QPoint corner;
};

void PrintTo(const Place& row, std::ostream* out) {
    *out << row.name;
}

class PanelCorner : public testing::TestWithParam<Place> {};

TEST_P(PanelCorner, isBesideTheItemOnItsScreen) {
    const auto& [name, screens, item, corner] = GetParam();
    const auto& screen = screens[item ? screenAt(screens, *item) : 0];
    const auto place = item ? std::optional(screen.logical(*item)) : std::nullopt;
    const QPoint found = panelCorner(screen, place, {340, 500});
    EXPECT_EQ(found, corner) << found.x() << ", " << found.y();
}

INSTANTIATE_TEST_SUITE_P(
    Desktops, PanelCorner,
    testing::Values(Place{"overABarBelow", {plain}, QPointF(1000, 1060), {830, 532}},
                    Place{"underABarAbove", {plain}, QPointF(1000, 20), {830, 28}},
                    Place{"atTheEdge", {plain}, QPointF(1910, 1060), {1572, 532}},
                    Place{"withoutAPlace", {plain}, std::nullopt, {1572, 8}},
                    Place{"twoPixelsForOne", {fine}, QPointF(2000, 2120), {830, 532}},
                    Place{"twoPixelsForOneAbove", {fine}, QPointF(2000, 40), {830, 28}},
                    Place{"theSecondScreen", {fine, beside}, QPointF(4840, 1210), {4670, 676}},
                    Place{"theSecondScreenAbove", {fine, beside}, QPointF(5110, 210), {4772, 218}},
                    Place{"theFirstOfTwo", {fine, beside}, QPointF(3800, 2120), {1572, 532}},
                    Place{"withoutAPlaceTheFirst", {fine, beside}, std::nullopt, {1572, 8}},
                    Place{"onTheLeft", {plain, left}, QPointF(-20, 1000), {-348, 476}},
                    Place{"fineOnTheRight", {plain, fineBeside}, QPointF(4720, 1780), {3012, 352}},
                    Place{"offTheDesktop", {plain, left}, QPointF(-5000, 500), {-1272, 476}}),
    test::rowName);

TEST(PanelCorner, beginsOnTheScreenHoweverLargeThePanelIs) {
    EXPECT_EQ(panelCorner(plain, QPoint(1000, 1060), {4000, 3000}), QPoint(8, 8));
    EXPECT_EQ(panelCorner(plain, std::nullopt, {4000, 3000}), QPoint(8, 8));
}

TEST(PanelPlace, theSizeIsTheLeastAndTheGreatestSoThatTilingDesktopsLetItFloat) {
    QWindow window;
    const PanelPlace place;
    for (const QSize size : {QSize(340, 500), QSize(340, 620), QSize(340, 320)}) {
        place.stand(&window, size);
        EXPECT_EQ(window.size(), size);
        EXPECT_EQ(window.minimumSize(), size);
        EXPECT_EQ(window.maximumSize(), size);
    }
}

TEST(PanelPlace, waitsForThePointerOnlyWhereTheDesktopPlacesIt) {
    using namespace std::chrono_literals;
    EXPECT_GT(panelPatience(QStringLiteral("wayland"), false), 500ms);
    EXPECT_GT(panelPatience(QStringLiteral("wayland-egl"), false), 500ms);
    EXPECT_EQ(panelPatience(QStringLiteral("wayland"), true), 0ms);
    EXPECT_EQ(panelPatience(QStringLiteral("xcb"), false), 0ms);
    EXPECT_EQ(panelPatience(QStringLiteral("xcb"), true), 0ms);
}

}  // namespace
}  // namespace elmworth
