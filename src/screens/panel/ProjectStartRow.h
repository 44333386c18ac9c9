// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QColor>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <cstddef>

#include "records/Project.h"

namespace elmworth {

/// A project that one click starts.
struct ProjectStartRow {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(QString client MEMBER client)  ///< empty without one
    Q_PROPERTY(QColor projectColor MEMBER projectColor)
    Q_PROPERTY(bool isRunning MEMBER isRunning)  ///< the row is disabled then
    Q_PROPERTY(int shortcut MEMBER shortcut)     ///< the digit that starts it; 0 for none
    Q_PROPERTY(QString hint MEMBER hint)         ///< the keys of the shortcut, "Ctrl+1"
    Q_PROPERTY(QString status MEMBER status)     ///< "Running" or nothing
    Q_PROPERTY(QString image MEMBER image)       ///< "play", or nothing while running
    Q_PROPERTY(QString help MEMBER help)
    Q_PROPERTY(QString accessibilityLabel MEMBER accessibilityLabel)

 public:
    /// The row of `project` at `position`, from 0.
    [[nodiscard]] static ProjectStartRow of(const Project& project, std::size_t position,
                                            bool isRunning);

    PersistentID id;  ///< the project's
    QString name;
    QString client;
    QColor projectColor;
    bool isRunning = false;
    int shortcut = 0;
    QString hint;
    QString status;
    QString image;
    QString help;
    QString accessibilityLabel;

    friend bool operator==(const ProjectStartRow&, const ProjectStartRow&) = default;
};

}  // namespace elmworth
