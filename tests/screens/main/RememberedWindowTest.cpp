// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/RememberedWindow.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>

#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

class Remembered : public testing::Test {
 protected:
    Remembered() {
        window.setMinimumSize({300, 200});
        window.setGeometry(0, 0, 400, 300);
    }
    [[nodiscard]] std::string stored() const { return defaults.string("frame").value_or("none"); }

    test::TemporaryFolder folder;
    Settings defaults{folder.path() / "defaults.ini"};
    QWindow window;
};

TEST_F(Remembered, aWindowThatDoesNotChangeIsNotNoted) {
    const RememberedWindow remembered(window, defaults, "frame");
    EXPECT_EQ(stored(), "none");
    EXPECT_EQ(window.geometry(), QRect(0, 0, 400, 300));
}

TEST_F(Remembered, theFirstWindowIsNoLargerThanItsScreen) {
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    window.resize(screen.width() + 200, 300);
    const RememberedWindow remembered(window, defaults, "frame");
    EXPECT_EQ(window.size(), QSize(screen.width(), 300));
}

TEST_F(Remembered, theLastFrameIsNotedAtTheEnd) {
    {
        const RememberedWindow remembered(window, defaults, "frame");
        window.setGeometry(10, 20, 500, 350);
        window.setGeometry(30, 40, 600, 450);
    }
    EXPECT_EQ(stored(), "30 40 600 450");
}

TEST_F(Remembered, theNextWindowIsWhereTheLastOneWas) {
    defaults.setString("frame", "30 40 500 400");
    const RememberedWindow remembered(window, defaults, "frame");
    EXPECT_EQ(window.geometry(), QRect(30, 40, 500, 400));
}

TEST_F(Remembered, aMaximizedWindowKeepsTheAreaThatItHadBefore) {
    defaults.setString("frame", "30 40 500 400");
    {
        const RememberedWindow remembered(window, defaults, "frame");
        window.setWindowStates(Qt::WindowMaximized);
        window.setGeometry(QGuiApplication::primaryScreen()->availableGeometry());
    }
    EXPECT_EQ(stored(), "30 40 500 400 maximized");
    QWindow next;
    const RememberedWindow remembered(next, defaults, "frame");
    EXPECT_TRUE(next.windowStates().testFlag(Qt::WindowMaximized));
}

TEST_F(Remembered, aMinimizedWindowIsNotNoted) {
    defaults.setString("frame", "30 40 500 400");
    {
        const RememberedWindow remembered(window, defaults, "frame");
        window.setWindowStates(Qt::WindowMinimized);
    }
    EXPECT_EQ(stored(), "30 40 500 400");
}

TEST_F(Remembered, nonsenseIsLeftAloneUntilTheWindowChanges) {
    defaults.setString("frame", "nonsense");
    {
        const RememberedWindow remembered(window, defaults, "frame");
        EXPECT_EQ(window.geometry(), QRect(0, 0, 400, 300));
    }
    EXPECT_EQ(stored(), "nonsense");
}

}  // namespace
}  // namespace elmworth
