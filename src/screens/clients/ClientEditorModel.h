// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QString>
#include <QtQmlIntegration>
#include <string>

#include "clients/ClientService.h"
#include "screens/AppServices.h"
#include "screens/EditedRecord.h"
#include "theme/ChoiceModel.h"
#include "theme/FormFields.h"
#include "theme/FormSheetModel.h"

namespace elmworth {

/// The sheet in which a client is added or changed. While it is open, what nobody touched here
/// takes on what changes elsewhere, and a client that is deleted is saved as a new one.
class ClientEditorModel final : public elmworth::FormSheetModel {  // so spelt for qmllint
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen's model has it")
    Q_PROPERTY(elmworth::FormText* name READ name CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* email READ email CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* address READ address CONSTANT FINAL)
    Q_PROPERTY(elmworth::ChoiceModel* currencies READ currencies CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* rate READ rate CONSTANT FINAL)
    Q_PROPERTY(QString rateProblem READ rateProblem NOTIFY changed FINAL)
    Q_PROPERTY(bool hasOwnTerms READ hasOwnTerms WRITE setHasOwnTerms NOTIFY changed FINAL)
    Q_PROPERTY(int dueDays READ dueDays WRITE setDueDays NOTIFY changed FINAL)
    Q_PROPERTY(int longestTerm READ longestTermInDays CONSTANT FINAL)
    Q_PROPERTY(QString dueText READ dueText NOTIFY changed FINAL)  ///< "Due in 14 days"
    Q_PROPERTY(elmworth::FormText* tax READ tax CONSTANT FINAL)
    Q_PROPERTY(QString taxProblem READ taxProblem NOTIFY changed FINAL)
    /// "Due in 14 days · Tax 8.25%": what holds for clients without terms of their own.
    Q_PROPERTY(QString defaultTerms READ defaultTerms NOTIFY changed FINAL)

 public:
    /// `clients` carries out what is saved, and outlives it.
    ClientEditorModel(const AppServices& services, ClientService& clients);

    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString subtitle() const override;
    [[nodiscard]] QString notice() const override;
    [[nodiscard]] FormText* name() noexcept { return &name_; }
    [[nodiscard]] FormText* email() noexcept { return &email_; }
    [[nodiscard]] FormText* address() noexcept { return &address_; }
    [[nodiscard]] ChoiceModel* currencies() noexcept { return &currencies_; }
    [[nodiscard]] FormText* rate() noexcept { return &rate_; }
    [[nodiscard]] QString rateProblem() const;
    [[nodiscard]] bool hasOwnTerms() const noexcept { return hasOwnTerms_.value(); }
    void setHasOwnTerms(bool hasOwnTerms);
    [[nodiscard]] int dueDays() const noexcept;
    void setDueDays(int days);
    [[nodiscard]] static int longestTermInDays() noexcept { return longestTerm; }
    [[nodiscard]] QString dueText() const;
    [[nodiscard]] FormText* tax() noexcept { return &tax_; }
    [[nodiscard]] QString taxProblem() const;
    [[nodiscard]] QString defaultTerms() const;

    /// Opens the sheet on `client`, or on a new one when that is null. A sheet that is open is
    /// dismissed first.
    void open(Ref<Client> client);

 Q_SIGNALS:
    /// The client is added or changed.
    void saved(const elmworth::PersistentID& client);

 private:
    [[nodiscard]] ClientForm form() const;
    void fill(const ClientForm& form);
    void offerCurrencies();
    void setCurrency(const std::string& code);

    [[nodiscard]] bool isComplete() const override { return form().canSave(); }
    void catchUp() override;
    [[nodiscard]] QString carryOut() override;
    void rest() override;

    AppServices services_;
    ClientService& clients_;
    EditedRecord<Client> client_;
    FormText name_;
    FormText email_;
    FormText address_;
    Choices<std::string> currencies_;
    FormValue<std::string> currency_;  ///< what is chosen of them
    FormText rate_;
    FormValue<bool> hasOwnTerms_;
    FormValue<std::int64_t> dueDays_;
    FormText tax_;
    ProfileStore::Observation profileObservation_;
};

}  // namespace elmworth
