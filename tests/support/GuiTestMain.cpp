// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>

#include <QGuiApplication>
#include <QtGlobal>

/// The main function of tests that draw.
int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    testing::InitGoogleMock(&argc, argv);
    const QGuiApplication application(argc, argv);
    return RUN_ALL_TESTS();
}
