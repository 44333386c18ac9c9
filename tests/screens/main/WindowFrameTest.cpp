// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/WindowFrame.h"

#include <gtest/gtest.h>

namespace elmworth {
namespace {

const QRect screen(0, 0, 1920, 1080);
const QRect secondScreen(1920, 0, 1280, 1024);
const QSize smallest(1020, 600);

TEST(WindowFrame, isReadAsItIsWritten) {
    for (const WindowFrame& frame :
         {WindowFrame{{10, -20, 1080, 720}, false}, WindowFrame{{0, 0, 1920, 1040}, true}}) {
        EXPECT_EQ(WindowFrame::parse(frame.text()), frame) << frame.text().toStdString();
    }
}

TEST(WindowFrame, anythingElseIsNotRead) {
    for (const char* text : {"", "1 2 3", "1 2 3 4 5", "1 2 3 4 full", "a b c d", "0 0 0 0",
                             "0 0 -5 10", "0 0 9999999 10", "1  2 3 4"}) {
        EXPECT_FALSE(WindowFrame::parse(QString::fromLatin1(text))) << text;
    }
}

struct Row {
    const char* name;
    QRect before;
    QRect after;
};

class FrameOnScreens : public testing::TestWithParam<Row> {};

TEST_P(FrameOnScreens, showsWhole) {
    const WindowFrame frame{GetParam().before};
    EXPECT_EQ(frame.areaOn({screen, secondScreen}, smallest), GetParam().after);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, FrameOnScreens,
    testing::Values(Row{"Fits", {100, 100, 1080, 720}, {100, 100, 1080, 720}},
                    Row{"OnTheSecondScreen", {2000, 50, 1100, 700}, {2000, 50, 1100, 700}},
                    Row{"OverTheRightEdge", {2900, 50, 1100, 700}, {2100, 50, 1100, 700}},
                    Row{"AboveTheScreen", {100, -300, 1080, 720}, {100, 0, 1080, 720}},
                    Row{"OnAScreenThatIsGone", {5000, 5000, 1080, 720}, {840, 360, 1080, 720}},
                    Row{"LargerThanTheScreen", {0, 0, 4000, 3000}, {0, 0, 1920, 1080}},
                    Row{"SmallerThanAllowed", {10, 10, 300, 200}, {10, 10, 1020, 600}}),
    [](const auto& row) { return row.param.name; });

TEST(WindowFrame, aSmallScreenDoesNotMakeItSmallerThanAllowed) {
    EXPECT_EQ((WindowFrame{{0, 0, 1080, 720}}.areaOn({{0, 0, 800, 600}}, smallest)),
              QRect(0, 0, 1020, 600));
}

}  // namespace
}  // namespace elmworth
