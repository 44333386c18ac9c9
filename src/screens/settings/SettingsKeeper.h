// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <functional>

#include "records/FieldText.h"

namespace elmworth {

/// Makes the changes of the settings window, and tells of the last one that could not be kept.
class SettingsKeeper final : public QObject {
    Q_OBJECT

 public:
    using QObject::QObject;

    /// Why the last change was not kept, as a sentence; empty when it was.
    [[nodiscard]] const QString& problem() const noexcept { return problem_; }

    /// Runs `change`. False when it throws Refused, having changed nothing.
    bool keep(const std::function<void()>& change) {
        try {
            change();
            setProblem({});
            return true;
        } catch (const Refused& error) {
            setProblem(QString::fromUtf8(error.what()));
            return false;
        }
    }
    void forgetProblem() { setProblem({}); }

 Q_SIGNALS:
    void problemChanged();

 private:
    void setProblem(const QString& problem) {
        if (problem == problem_) return;
        problem_ = problem;
        Q_EMIT problemChanged();
    }

    QString problem_;
};

}  // namespace elmworth
