// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/projects/ChangeAttempt.h"

#include "records/FieldText.h"
#include "store/StoreError.h"

namespace elmworth {

QString attempt(const std::function<void()>& change) {
    try {
        change();
    } catch (const Refused& refused) {
        return QString::fromUtf8(refused.what());
    } catch (const StoreError& error) {
        QString reason = QString::fromUtf8(error.what());
        while (reason.endsWith(u'.')) reason.chop(1);
        return QStringLiteral("The library can't be changed: %1. Nothing was changed.").arg(reason);
    }
    return {};
}

}  // namespace elmworth
