// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QImage>
#include <QQuickWindow>

#ifdef __has_feature  // Clang, with which the sanitizers are built
#if __has_feature(address_sanitizer)
#include <sanitizer/lsan_interface.h>
#define ELMWORTH_LEAKS_ARE_WATCHED
#endif
#endif

namespace elmworth::test {

/// A picture of a window that was never shown; Qt 6.4's software renderer leaves its textures
/// behind.
inline QImage pictureOf(QQuickWindow& window) {
#ifdef ELMWORTH_LEAKS_ARE_WATCHED
    const __lsan::ScopedDisabler unwatched;
#endif
    return window.grabWindow();
}

}  // namespace elmworth::test
