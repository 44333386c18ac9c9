// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/SaveDialogKeys.h"

#include <QMetaObject>
#include <QQuickWindow>
#include <QVariant>

namespace elmworth {

namespace {

/// The item at or below `root` that shows and is `wanted`, or null.
template <class Wanted>
QQuickItem* itemIn(QQuickItem* root, const Wanted& wanted) {
    if (!root->isVisible()) return nullptr;
    if (wanted(*root)) return root;
    for (auto* child : root->childItems()) {
        if (auto* found = itemIn(child, wanted)) return found;
    }
    return nullptr;
}

bool isName(const QQuickItem& item) {
    return item.objectName() == QLatin1String("fileNameTextField");
}

}  // namespace

void SaveDialogKeys::take(QWindow* window, const QString& saveText) {
    saveText_ = saveText;
    auto* quickWindow = qobject_cast<QQuickWindow*>(window);
    root_ = quickWindow ? quickWindow->contentItem() : nullptr;
    // The dialog gives the keyboard to its list once this is done.
    QMetaObject::invokeMethod(this, &SaveDialogKeys::takeName, Qt::QueuedConnection);
}

void SaveDialogKeys::takeName() {
    auto* name = root_ ? itemIn(root_, isName) : nullptr;
    if (!name) return;
    name->forceActiveFocus(Qt::TabFocusReason);
    QMetaObject::invokeMethod(name, "selectAll");
    // The type is known to Qt alone, and so is its signal.
    connect(name, SIGNAL(accepted()), this, SLOT(save()), Qt::UniqueConnection);
}

void SaveDialogKeys::save() {
    const auto isSave = [this](const QQuickItem& item) {
        return item.inherits("QQuickAbstractButton") &&
               item.property("text").toString() == saveText_;
    };
    auto* button = root_ ? itemIn(root_, isSave) : nullptr;
    if (button && button->isEnabled()) QMetaObject::invokeMethod(button, "clicked");
}

}  // namespace elmworth
