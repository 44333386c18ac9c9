// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QPointer>
#include <QQuickItem>
#include <QQuickWindow>
#include <QtQmlIntegration>

namespace elmworth {

/// Keeps the lines of a list, or the cards of a grid, in visual order for assistive technology,
/// which reads the children of an item in the order of their creation: a list that reuses its lines
/// would be read out of order. Sorted before each frame shows.
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
