// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QString>
#include <QWindow>
#include <QtQmlIntegration>

namespace elmworth {

/// Lets Return save in the dialog that Qt shows inside a window where the desktop has none of its
/// own: the name of the file has the keyboard there, as in the dialogs of desktops. Does nothing
/// with those.
class SaveDialogKeys : public QObject {
    Q_OBJECT
    QML_ELEMENT

 public:
    using QObject::QObject;

    /// The dialog whose button to save says `saveText` has just opened over `window`.
    Q_INVOKABLE void take(QWindow* window, const QString& saveText);

 private Q_SLOTS:
    void save();

 private:
    void takeName();

    QString saveText_;
    QPointer<QQuickItem> root_;
};

}  // namespace elmworth
