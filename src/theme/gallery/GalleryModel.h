// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QStringList>
#include <QtQmlIntegration>

#include "livelist/LiveListModel.h"
#include "theme/AppearanceSetting.h"
#include "theme/ChoiceModel.h"
#include "theme/Confirmation.h"
#include "theme/DateTimeInput.h"
#include "theme/FormFields.h"
#include "theme/FormSheetModel.h"
#include "theme/KeyedSelection.h"

namespace elmworth {

/// A form as an example.
class GalleryForm : public elmworth::FormSheetModel {  // so spelt for qmllint
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The gallery's model has it")
    Q_PROPERTY(elmworth::FormText* name READ name CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* email READ email CONSTANT FINAL)

 public:
    GalleryForm();

    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString subtitle() const override;
    [[nodiscard]] QString problem() const override;
    [[nodiscard]] FormText* name() noexcept { return &name_; }
    [[nodiscard]] FormText* email() noexcept { return &email_; }

    Q_INVOKABLE void open();

 private:
    [[nodiscard]] bool isComplete() const override { return !name_.text().isEmpty(); }
    [[nodiscard]] QString carryOut() override { return {}; }

    FormText name_;
    FormText email_;
};

/// A line of a list as an example.
struct GalleryRow {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString text MEMBER id)

 public:
    QString id;

    friend bool operator==(const GalleryRow&, const GalleryRow&) = default;
};

/// What the gallery can show and switch.
class GalleryModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application owns it")
    /// Position in system, dark, light.
    Q_PROPERTY(int appearance READ appearance WRITE setAppearance NOTIFY appearanceChanged FINAL)
    Q_PROPERTY(elmworth::DateTimeInput* date READ date CONSTANT FINAL)
    Q_PROPERTY(elmworth::DateTimeInput* wrongDate READ wrongDate CONSTANT
                   FINAL)  ///< shows a text that is none
    Q_PROPERTY(elmworth::GalleryForm* form READ form CONSTANT FINAL)
    Q_PROPERTY(elmworth::Confirmation* confirmation READ confirmation CONSTANT FINAL)
    Q_PROPERTY(elmworth::ChoiceModel* icons READ icons CONSTANT FINAL)
    Q_PROPERTY(QAbstractItemModel* rows READ rows CONSTANT FINAL)
    Q_PROPERTY(elmworth::KeyedSelection* selection READ selection CONSTANT FINAL)
    Q_PROPERTY(QStringList imageNames READ imageNames CONSTANT FINAL)

 public:
    explicit GalleryModel(AppearanceSetting setting);

    [[nodiscard]] int appearance() const { return static_cast<int>(setting_); }
    void setAppearance(int position);
    [[nodiscard]] DateTimeInput* date() noexcept { return &date_; }
    [[nodiscard]] DateTimeInput* wrongDate() noexcept { return &wrongDate_; }
    [[nodiscard]] GalleryForm* form() noexcept { return &form_; }
    [[nodiscard]] Confirmation* confirmation() noexcept { return &confirmation_; }
    Q_INVOKABLE void ask();
    [[nodiscard]] ChoiceModel* icons() noexcept { return &icons_; }
    [[nodiscard]] QAbstractItemModel* rows() noexcept { return &rows_; }
    [[nodiscard]] KeyedSelection* selection() noexcept { return &selection_; }
    [[nodiscard]] static QStringList imageNames();

 Q_SIGNALS:
    void appearanceChanged();

 private:
    AppearanceSetting setting_;
    DateTimeInput date_{&Calendar::current, &currentInstant};
    DateTimeInput wrongDate_{&Calendar::current, &currentInstant};
    GalleryForm form_;
    Confirmation confirmation_;
    LiveListModel<GalleryRow> rows_;
    RowSelection<PlainRows<GalleryRow>> selection_{rows_};
    Choices<QString> icons_{QStringLiteral("Choose\u2026")};
};

}  // namespace elmworth
