// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QtQmlIntegration>
#include <optional>

#include "invoicing/InvoiceService.h"
#include "records/Client.h"
#include "screens/AppServices.h"
#include "screens/PeriodInput.h"
#include "screens/RecordChoices.h"
#include "screens/invoices/NewInvoiceFigures.h"
#include "theme/FormFields.h"
#include "theme/FormSheetModel.h"

namespace elmworth {

/// The sheet that makes an invoice of a client's unbilled time. It begins with the time that is
/// there to be billed, and while it is open it follows the library, the profile and the clock.
class NewInvoiceModel final : public elmworth::FormSheetModel {  // so spelt for qmllint
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")
    Q_PROPERTY(elmworth::ChoiceModel* clients READ clients CONSTANT FINAL)
    Q_PROPERTY(QStringList presets READ presets CONSTANT FINAL)
    Q_PROPERTY(int preset READ preset NOTIFY changed FINAL)  ///< its position in `presets`
    Q_PROPERTY(bool isCustom READ isCustom NOTIFY changed FINAL)
    /// The first and the last day of the period: "Mar 2, 2026 – Mar 8, 2026".
    Q_PROPERTY(QString dates READ dates NOTIFY changed FINAL)
    /// The days of a custom period, in either order; both count whole.
    Q_PROPERTY(elmworth::DateTimeInput* from READ from CONSTANT FINAL)
    Q_PROPERTY(elmworth::DateTimeInput* through READ through CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* tax READ tax CONSTANT FINAL)
    /// Why the tax text can't be taken, as a sentence; empty when it can.
    Q_PROPERTY(QString taxProblem READ taxProblem NOTIFY changed FINAL)
    /// How a tax text is taken that reads differently: "Taken as 19%."; empty for any other.
    Q_PROPERTY(QString taxNote READ taxNote NOTIFY changed FINAL)
    Q_PROPERTY(QString rounding READ rounding NOTIFY changed FINAL)
    Q_PROPERTY(bool lacksBusinessName READ lacksBusinessName NOTIFY changed FINAL)
    /// Whether there is a place where the business is named.
    Q_PROPERTY(bool canOpenSettings READ canOpenSettings NOTIFY changed FINAL)
    Q_PROPERTY(elmworth::NewInvoiceFigures* figures READ figures CONSTANT FINAL)

 public:
    explicit NewInvoiceModel(const AppServices& services);
    ~NewInvoiceModel() override;

    /// Opens the sheet for all unbilled time of `client`; null takes the first client, and the
    /// first of the usual periods that has unbilled time of it.
    void open(const Ref<Client>& client = nullptr);

    /// From now on the sheet offers to open the settings; see `settingsRequested`.
    void offerSettings();

    /// The preset at `position` of `presets`; any other number does nothing.
    Q_INVOKABLE void choosePreset(int position);

    [[nodiscard]] QString title() const override { return QStringLiteral("New Invoice"); }
    [[nodiscard]] QString subtitle() const override;
    [[nodiscard]] QString notice() const override;
    [[nodiscard]] QString problem() const override { return figures_.problem(); }
    [[nodiscard]] ChoiceModel* clients() noexcept { return &clients_; }
    [[nodiscard]] static QStringList presets() { return PeriodInput::titles(); }
    [[nodiscard]] int preset() const noexcept { return static_cast<int>(preset_); }
    [[nodiscard]] bool isCustom() const noexcept { return preset_ == DateRangePreset::custom; }
    [[nodiscard]] QString dates() const;
    [[nodiscard]] DateTimeInput* from() noexcept { return from_; }
    [[nodiscard]] DateTimeInput* through() noexcept { return through_; }
    [[nodiscard]] FormText* tax() noexcept { return &tax_; }
    [[nodiscard]] QString taxProblem() const;
    [[nodiscard]] QString taxNote() const;
    [[nodiscard]] QString rounding() const;
    [[nodiscard]] bool lacksBusinessName() const;
    [[nodiscard]] bool canOpenSettings() const noexcept { return canOpenSettings_; }
    [[nodiscard]] NewInvoiceFigures* figures() noexcept { return &figures_; }

 Q_SIGNALS:
    /// An invoice was made and saved.
    void created(const elmworth::PersistentID& invoice);
    /// The person wants to name the business.
    void settingsRequested();

 private:
    [[nodiscard]] InvoiceService service() const;
    [[nodiscard]] DateInterval period() const { return period_.interval(preset_); }
    [[nodiscard]] std::optional<std::int64_t> taxBasisPoints() const;
    [[nodiscard]] QString usualTax() const;
    [[nodiscard]] std::optional<DateRangePreset> firstPresetWithTime() const;
    void choosePeriod(const Ref<Client>& initialClient);
    void follow();
    void followLibrary(const RecordChanges& changes);
    void clientChanged();
    void formChanged();
    void refresh();
    [[nodiscard]] QString create();

    [[nodiscard]] bool isComplete() const override;
    void endTyping() override;
    void catchUp() override;
    [[nodiscard]] QString carryOut() override;
    void rest() override;

    AppServices services_;
    RecordChoices<Client> clients_;
    DateRangePreset preset_ = DateRangePreset::lastWeek;
    PeriodInput period_;
    DateTimeInput* from_ = &period_.from();
    DateTimeInput* through_ = &period_.to();
    FormText tax_;
    NewInvoiceFigures figures_;
    bool isFilling_ = false;
    bool wasClientLost_ = false;
    bool canOpenSettings_ = false;
    UnitOfWork::Observation libraryObservation_;
    ProfileStore::Observation profileObservation_;
    RunLoop::Handle clock_;
};

}  // namespace elmworth
