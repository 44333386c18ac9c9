// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QAbstractItemModel>
#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <optional>

#include "livelist/LiveListModel.h"
#include "screens/AppServices.h"
#include "screens/panel/DurationChip.h"
#include "screens/panel/ProjectChoicesModel.h"
#include "theme/DateTimeInput.h"
#include "tracking/EntryForm.h"

namespace elmworth {

/// The sheet in which an entry is added or changed. It works on copies: nothing touches a record
/// before `save`.
///
/// While it is open it follows its entry. What nobody touched here takes on what changes elsewhere,
/// so that a save never takes that back; an entry that is billed meanwhile can only be read, one
/// that is stopped gets its end, and one that is deleted is saved as a new one.
class EntryEditorModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen's model has it")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged FINAL)
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(QString icon READ icon NOTIFY changed FINAL)
    Q_PROPERTY(QString iconColor READ iconColor NOTIFY changed FINAL)  ///< "#RRGGBB"
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed FINAL)
    /// An entry on an invoice, which can only be read.
    Q_PROPERTY(bool isBilled READ isBilled NOTIFY changed FINAL)
    Q_PROPERTY(elmworth::ChoiceModel* projects READ projects CONSTANT FINAL)
    Q_PROPERTY(elmworth::DateTimeInput* start READ start CONSTANT FINAL)
    Q_PROPERTY(elmworth::DateTimeInput* end READ end CONSTANT FINAL)
    Q_PROPERTY(bool isRunning READ isRunning NOTIFY changed FINAL)  ///< has no end to show
    /// The roles are the properties of `DurationChip`.
    Q_PROPERTY(QAbstractItemModel* chips READ chipsModel CONSTANT FINAL)
    Q_PROPERTY(QString notes READ notes WRITE setNotes NOTIFY notesChanged FINAL)
    /// Sentences under the form; each is empty when there is nothing to say.
    Q_PROPERTY(QString billedText READ billedText NOTIFY changed FINAL)
    Q_PROPERTY(QString problem READ problem NOTIFY changed FINAL)  ///< why it can't be saved
    Q_PROPERTY(QString notice READ notice NOTIFY changed FINAL)    ///< what happened elsewhere
    Q_PROPERTY(QString cancelText READ cancelText NOTIFY changed FINAL)
    Q_PROPERTY(bool canSave READ canSave NOTIFY changed FINAL)

 public:
    /// Carries out `EntryForm::save`.
    using Save = std::function<Ref<TimeEntry>(const EntryForm&, const Ref<TimeEntry>&)>;

    /// Without `save` an entry is saved by `EntryForm::save` and nothing more.
    explicit EntryEditorModel(AppServices services, Save save = {});
    ~EntryEditorModel() override;

    [[nodiscard]] bool isOpen() const noexcept { return isOpen_; }
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString icon() const;
    [[nodiscard]] QString iconColor() const;
    [[nodiscard]] QString subtitle() const;
    [[nodiscard]] bool isBilled() const;
    [[nodiscard]] ProjectChoicesModel* projects() noexcept { return &projects_; }
    [[nodiscard]] DateTimeInput* start() noexcept { return &start_; }
    [[nodiscard]] DateTimeInput* end() noexcept { return &end_; }
    [[nodiscard]] bool isRunning() const noexcept { return isRunning_; }
    [[nodiscard]] QAbstractItemModel* chipsModel() noexcept { return &chips_; }
    [[nodiscard]] const std::vector<DurationChip>& chips() const noexcept { return chips_.rows(); }
    [[nodiscard]] const QString& notes() const noexcept { return notes_; }
    void setNotes(const QString& notes);
    [[nodiscard]] QString billedText() const;
    [[nodiscard]] QString problem() const;
    [[nodiscard]] QString notice() const;
    [[nodiscard]] QString cancelText() const;
    [[nodiscard]] bool canSave() const;

    /// Opens the sheet on `entry`, or on a new one when that is null: for the day that holds `day`,
    /// or today. A sheet that is open is dismissed first.
    void open(Ref<TimeEntry> entry, std::optional<Instant> day = {});

    /// Makes the end so much later than the start as chip `row` says; any other number does
    /// nothing.
    Q_INVOKABLE void chooseDuration(int row);
    /// Saves and dismisses the sheet. Does nothing while `canSave` does not hold, but say why.
    Q_INVOKABLE void save();
    /// Closes the sheet without changes.
    Q_INVOKABLE void dismiss();

 Q_SIGNALS:
    void opened();
    void dismissed();
    void isOpenChanged();
    void changed();
    void notesChanged();

 private:
    [[nodiscard]] EntryForm form() const;
    void fill(const EntryForm& form);
    void observe();
    void recordsChanged();
    void follow(const EntryForm& fresh);
    void loseEntry();
    void refresh();

    AppServices services_;
    Save save_;
    bool isOpen_ = false;
    Ref<TimeEntry> entry_;  ///< null for a new one
    EntryForm seen_;        ///< what `entry_` held when it was last looked at
    bool isRunning_ = false;
    bool wasBilled_ = false;  ///< when the sheet was opened
    bool wasDeleted_ = false;
    QString notes_;
    ProjectChoicesModel projects_;
    DateTimeInput start_;
    DateTimeInput end_;
    LiveListModel<DurationChip> chips_;
    std::vector<UnitOfWork::Observation> observations_;
    RunLoop::Handle wait_;  ///< for a start in the future
};

}  // namespace elmworth
