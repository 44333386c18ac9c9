// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <optional>
#include <vector>

#include "livelist/LiveListModel.h"
#include "platform/Instant.h"
#include "screens/AppServices.h"
#include "screens/EditedRecord.h"
#include "screens/RecordChoices.h"
#include "theme/DateTimeInput.h"
#include "theme/FormFields.h"
#include "theme/FormSheetModel.h"
#include "tracking/EntryForm.h"

namespace elmworth {

/// A duration that one click gives an entry.
struct DurationChip {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(QString text MEMBER text)  ///< "30m", "1h", "1h30"
    Q_PROPERTY(bool isChosen MEMBER isChosen)

 public:
    int id = 0;  ///< minutes
    QString text;
    bool isChosen = false;

    [[nodiscard]] std::chrono::minutes duration() const { return std::chrono::minutes(id); }
    /// All of them, with the one chosen that is exactly as long as from `start` to `end`.
    [[nodiscard]] static std::vector<DurationChip> all(Instant start, Instant end);

    friend bool operator==(const DurationChip&, const DurationChip&) = default;
};

/// The sheet in which an entry is added or changed. While it is open it follows its entry. What
/// nobody touched here takes on what changes elsewhere, so that a save never takes that back; an
/// entry that is billed meanwhile can only be read, one that is stopped gets its end, and one that
/// is deleted is saved as a new one.
class EntryEditorModel final : public elmworth::FormSheetModel {  // so spelt for qmllint
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen's model has it")
    Q_PROPERTY(QString icon READ icon NOTIFY changed FINAL)
    Q_PROPERTY(QString iconColor READ iconColor NOTIFY changed FINAL)  ///< "#RRGGBB"
    Q_PROPERTY(elmworth::ChoiceModel* projects READ projects CONSTANT FINAL)
    Q_PROPERTY(elmworth::DateTimeInput* start READ start CONSTANT FINAL)
    Q_PROPERTY(elmworth::DateTimeInput* end READ end CONSTANT FINAL)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed FINAL)  ///< has no end to show
    /// The roles are the properties of `DurationChip`.
    Q_PROPERTY(QAbstractItemModel* chips READ chipsModel CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* notes READ notes CONSTANT FINAL)

 public:
    /// Carries out `EntryForm::save`.
    using Save = std::function<Ref<TimeEntry>(const EntryForm&, const Ref<TimeEntry>&)>;

    /// Without `save` an entry is saved by `EntryForm::save` and nothing more.
    explicit EntryEditorModel(AppServices services, Save save = {});
    ~EntryEditorModel() override;

    [[nodiscard]] QString title() const override;
    [[nodiscard]] QString icon() const;
    [[nodiscard]] QString iconColor() const;
    [[nodiscard]] QString subtitle() const override;
    /// An entry on an invoice can only be read.
    [[nodiscard]] bool isBilled() const;
    [[nodiscard]] ChoiceModel* projects() noexcept { return &projects_; }
    [[nodiscard]] DateTimeInput* start() noexcept { return &start_; }
    [[nodiscard]] DateTimeInput* end() noexcept { return &end_; }
    [[nodiscard]] bool isRunning() const noexcept { return isRunning_; }
    [[nodiscard]] QAbstractItemModel* chipsModel() noexcept { return &chips_; }
    [[nodiscard]] const std::vector<DurationChip>& chips() const noexcept { return chips_.rows(); }
    [[nodiscard]] FormText* notes() noexcept { return &notes_; }
    [[nodiscard]] QString lockText() const override;
    [[nodiscard]] QString problem() const override;
    [[nodiscard]] QString notice() const override;

    /// Opens the sheet on `entry`, or on a new one when that is null: for the day that holds `day`,
    /// or today. A sheet that is open is dismissed first.
    void open(Ref<TimeEntry> entry, std::optional<Instant> day = {});

    /// Makes the end so much later than the start as chip `row` says; any other number does
    /// nothing.
    Q_INVOKABLE void chooseDuration(int row);

 private:
    [[nodiscard]] EntryForm form() const;
    void fill(const EntryForm& form);
    void follow(const EntryForm& fresh);
    void timesChanged();
    void showTimes();

    [[nodiscard]] bool isComplete() const override;
    void endTyping() override;
    void catchUp() override;
    [[nodiscard]] QString carryOut() override;
    void rest() override;

    AppServices services_;
    Save save_;
    EditedRecord<TimeEntry> entry_;
    EntryForm seen_;  ///< what `entry_` held when it was last looked at
    bool isRunning_ = false;
    bool wasBilled_ = false;  ///< when the sheet was opened
    FormText notes_;
    std::optional<PersistentID> entrysOwn_;  ///< a project that is offered though it is archived
    RecordChoices<Project> projects_;
    DateTimeInput start_;
    DateTimeInput end_;
    LiveListModel<DurationChip> chips_;
    RunLoop::Handle wait_;  ///< for a start in the future
};

}  // namespace elmworth
