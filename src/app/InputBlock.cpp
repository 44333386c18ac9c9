// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/InputBlock.h"

#include <QEvent>
#include <QGuiApplication>
#include <QQuickItem>

namespace elmworth {

namespace {

bool isInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
        case QEvent::TabletPress:
        case QEvent::TabletRelease:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::Shortcut:
        case QEvent::ShortcutOverride:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

}  // namespace

InputBlock::InputBlock(QWindow* open) : open_(open) {
    // Assistive technology presses without an event.
    for (auto* window : QGuiApplication::topLevelWindows()) {
        auto* quick = qobject_cast<QQuickWindow*>(window);
        if (!quick || quick == open || !quick->contentItem()->isEnabled()) continue;
        quick->contentItem()->setEnabled(false);
        blocked_.append(quick);
    }
    qApp->installEventFilter(this);
}

InputBlock::~InputBlock() {
    for (const auto& window : blocked_) {
        if (window) window->contentItem()->setEnabled(true);
    }
}

bool InputBlock::eventFilter(QObject* watched, QEvent* event) {
    if (!isInput(event->type()) || !watched->isWindowType()) return false;
    return watched != open_ && qobject_cast<QWindow*>(watched)->transientParent() != open_;
}

}  // namespace elmworth
