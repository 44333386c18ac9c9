// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "screens/settings/ProfileText.h"
#include "screens/settings/SettingsServices.h"

namespace elmworth {

/// The tab with what new invoices begin with. Each change is kept at once.
class InvoiceSettings final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings' model has it")
    /// A position in `allPaperSizes`.
    Q_PROPERTY(int paper READ paper WRITE setPaper NOTIFY changed FINAL)
    /// A position among 1, 6 and 15 minutes; -1 for another number, which a command can set.
    Q_PROPERTY(int rounding READ rounding WRITE setRounding NOTIFY changed FINAL)
    Q_PROPERTY(int dueDays READ dueDays WRITE setDueDays NOTIFY changed FINAL)
    Q_PROPERTY(int mostDueDays READ mostDueDays CONSTANT FINAL)
    Q_PROPERTY(QString dueText READ dueText NOTIFY changed FINAL)
    Q_PROPERTY(elmworth::FormText* taxName READ taxName CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* tax READ tax CONSTANT FINAL)

 public:
    InvoiceSettings(ProfileStore& profiles, SettingsKeeper& keeper);

    [[nodiscard]] int paper() const;
    void setPaper(int position);
    [[nodiscard]] int rounding() const;
    void setRounding(int position);
    [[nodiscard]] int dueDays() const;
    /// A number outside 0 to 120 becomes the nearest within.
    void setDueDays(int days);
    [[nodiscard]] static int mostDueDays() { return 120; }
    [[nodiscard]] QString dueText() const;
    [[nodiscard]] ProfileText* taxName() { return &taxName_; }
    /// In percent, as people type it; what is no percentage leaves the profile as it was.
    [[nodiscard]] ProfileText* tax() { return &tax_; }

    /// Shows what there is, whatever was typed: for a window that opens.
    void reload();

 Q_SIGNALS:
    void changed();

 private:
    /// Lets `change` set a field, and keeps the profile.
    void keep(const std::function<void(BusinessProfile&)>& change);

    ProfileStore& profiles_;
    SettingsKeeper& keeper_;
    ProfileText taxName_;
    ProfileText tax_;
    ProfileStore::Observation observation_;
};

}  // namespace elmworth
