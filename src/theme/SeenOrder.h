// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQmlIntegration>

namespace elmworth {

/// Keeps the lines of a list, or the cards of a grid, in the order in which they are seen.
/// Assistive technology reads items in the order of their parent's children, which is that of their
/// making: a list that uses its lines again would be read across. The order is right in each frame
/// that shows.
class SeenOrder : public QObject {
    Q_OBJECT
    QML_ELEMENT
    /// The parent of the lines.
    Q_PROPERTY(QQuickItem* content READ content WRITE setContent NOTIFY contentChanged FINAL)

 public:
    using QObject::QObject;

    [[nodiscard]] QQuickItem* content() const { return content_; }
    void setContent(QQuickItem* content);

 Q_SIGNALS:
    void contentChanged();

 private:
    void follow(QQuickWindow* window);
    void arrange() const;

    QPointer<QQuickItem> content_;
    QMetaObject::Connection frames_;
};

}  // namespace elmworth
