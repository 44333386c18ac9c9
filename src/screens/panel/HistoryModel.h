// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "store/UndoHistory.h"

namespace elmworth {

/// What can be undone and redone, wherever it was done, and a sentence on what was done last. The
/// window's frame has one for all of its screens.
class HistoryModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")
    Q_PROPERTY(bool canUndo READ canUndo NOTIFY historyChanged FINAL)
    Q_PROPERTY(bool canRedo READ canRedo NOTIFY historyChanged FINAL)
    /// "Undo Delete Entry".
    Q_PROPERTY(QString undoText READ undoText NOTIFY historyChanged FINAL)
    Q_PROPERTY(QString redoText READ redoText NOTIFY historyChanged FINAL)
    /// A sentence on what was done, until it is dismissed; empty for none.
    Q_PROPERTY(QString notice READ notice NOTIFY noticeChanged FINAL)
    /// Whether the notice is of something that "Undo" takes back.
    Q_PROPERTY(bool noticeOffersUndo READ noticeOffersUndo NOTIFY noticeChanged FINAL)

 public:
    /// `history` outlives this.
    explicit HistoryModel(UndoHistory& history);

    [[nodiscard]] bool canUndo() const noexcept { return history_.canUndo(); }
    [[nodiscard]] bool canRedo() const noexcept { return history_.canRedo(); }
    [[nodiscard]] QString undoText() const;
    [[nodiscard]] QString redoText() const;
    [[nodiscard]] const QString& notice() const noexcept { return notice_; }
    [[nodiscard]] bool noticeOffersUndo() const noexcept { return noticeOffersUndo_; }

    /// Says what could not be done.
    void say(const QString& sentence);
    /// Says what the newest step did, which can be undone.
    void tellOfStep(const QString& sentence);

    Q_INVOKABLE void undo();
    Q_INVOKABLE void redo();
    Q_INVOKABLE void dismissNotice();

 Q_SIGNALS:
    void historyChanged();
    void noticeChanged();

 private:
    void reverse(UndoResult (UndoHistory::*direction)());
    void setNotice(const QString& sentence, bool offersUndo);

    UndoHistory& history_;
    QString notice_;
    bool noticeOffersUndo_ = false;
    UndoHistory::Observation observation_;
};

}  // namespace elmworth
