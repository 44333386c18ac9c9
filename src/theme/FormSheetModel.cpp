// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/FormSheetModel.h"

#include <QScopedValueRollback>

namespace elmworth {

QString FormSheetModel::lostText(const QString& kind) {
    return QStringLiteral("This %1 was deleted elsewhere. Save adds it as a new one.").arg(kind);
}

void FormSheetModel::show() {
    failure_.clear();
    isOpen_ = true;
    Q_EMIT changed();
    Q_EMIT isOpenChanged();
    Q_EMIT opened();
}

void FormSheetModel::fieldsChanged() {
    failure_.clear();
    Q_EMIT changed();
}

void FormSheetModel::recordsChanged() {
    if (!isOpen_ || isSaving_) return;
    catchUp();
    Q_EMIT changed();
}

void FormSheetModel::save() {
    if (!isOpen_) return;
    endTyping();
    recordsChanged();  // those of this turn are not told yet
    if (canSave()) tryToSave();
}

void FormSheetModel::tryToSave() {
    {
        const QScopedValueRollback saving(isSaving_, true);
        failure_ = carryOut();
    }
    if (failure_.isEmpty()) return dismiss();
    Q_EMIT changed();
}

void FormSheetModel::dismiss() {
    if (!isOpen_) return;
    isOpen_ = false;
    rest();
    Q_EMIT isOpenChanged();
    Q_EMIT dismissed();
}

}  // namespace elmworth
