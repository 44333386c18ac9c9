// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQmlIntegration>

#include "screens/AppServices.h"
#include "theme/Confirmation.h"

namespace elmworth {

/// The section of the projects, by client, with their time and budgets.
class ProjectsModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")

 public:
    /// Asks in `confirmation`, which outlives it.
    ProjectsModel(const AppServices& services, Confirmation& confirmation);

 private:
    AppServices services_;
    Confirmation& confirmation_;
};

}  // namespace elmworth
