// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <vector>

#include "screens/AppServices.h"
#include "tracking/TimesheetEditing.h"

namespace elmworth {

/// What can be done to the entries of a timesheet, what is said about it, and how it is taken
/// back.
class EntryCommandsModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The timesheet's model has it")
    /// A sentence on what was done, until it is dismissed; empty for none.
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged FINAL)
    /// Whether the notice is of something that "Undo" takes back.
    Q_PROPERTY(bool noticeOffersUndo READ noticeOffersUndo NOTIFY noticeChanged FINAL)
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY historyChanged FINAL)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY historyChanged FINAL)
    /// "Undo Delete Entry".
    Q_PROPERTY(QString undoText READ undoText NOTIFY historyChanged FINAL)
    Q_PROPERTY(QString redoText READ redoText NOTIFY historyChanged FINAL)

 public:
    using IDs = std::vector<PersistentID>;

    explicit EntryCommandsModel(const AppServices& services);

    [[nodiscard]] const QString& notice() const noexcept { return notice_; }
    [[nodiscard]] bool noticeOffersUndo() const noexcept { return noticeOffersUndo_; }
    [[nodiscard]] bool canUndo() const noexcept;
    [[nodiscard]] bool canRedo() const noexcept;
    [[nodiscard]] QString undoText() const;
    [[nodiscard]] QString redoText() const;

    void deleteEntries(const IDs& ids);
    /// Says so when the project was deleted meanwhile; nothing is moved then.
    void moveEntries(const IDs& ids, const PersistentID& project);
    void duplicateToToday(const PersistentID& id);
    void continueEntry(const PersistentID& id);
    /// As TimesheetEditing::save.
    Ref<TimeEntry> save(const EntryForm& form, const Ref<TimeEntry>& entry);

    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();
    Q_INVOKABLE void dismissNotice();
    /// Says what could not be done.
    void say(const QString& sentence);

    /// The entry of an identity; null when it is gone, and when it can't be read, which is said.
    [[nodiscard]] Ref<TimeEntry> entry(const PersistentID& id);

 Q_SIGNALS:
    void noticeChanged();
    void historyChanged();
    /// Some of the entries are billed, and were left alone.
    void billedNotice();
    /// The entries are deleted, as far as they could be.
    void deleted();

 private:
    void setNotice(const QString& sentence, bool offersUndo);
    void tellOfBilled(const EntryTally& tally);

    UnitOfWork& context_;
    UndoHistory& history_;
    TimesheetEditing editing_;
    QString notice_;
    bool noticeOffersUndo_ = false;
    UndoHistory::Observation historyObservation_;
};

}  // namespace elmworth
