// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/HistoryModel.h"

namespace elmworth {

HistoryModel::HistoryModel(UndoHistory& history) : history_(history) {
    observation_ = history_.observe([this] {
        if (noticeOffersUndo_) dismissNotice();  // another step is the newest now
        Q_EMIT historyChanged();
    });
}

QString HistoryModel::undoText() const {
    return QString::fromStdString(history_.undoText());
}

QString HistoryModel::redoText() const {
    return QString::fromStdString(history_.redoText());
}

void HistoryModel::undo() {
    reverse(&UndoHistory::undo);
}

void HistoryModel::redo() {
    reverse(&UndoHistory::redo);
}

void HistoryModel::reverse(UndoResult (UndoHistory::*direction)()) {
    try {
        say(QString::fromStdString((history_.*direction)().notice()));
    } catch (const StoreError&) {
        say(QStringLiteral("The library can't be read. Nothing was changed."));
    }
}

void HistoryModel::say(const QString& sentence) {
    setNotice(sentence, false);
}

void HistoryModel::tellOfStep(const QString& sentence) {
    setNotice(sentence, true);
}

void HistoryModel::dismissNotice() {
    setNotice({}, false);
}

void HistoryModel::setNotice(const QString& sentence, bool offersUndo) {
    if (sentence == notice_ && offersUndo == noticeOffersUndo_) return;
    notice_ = sentence;
    noticeOffersUndo_ = offersUndo;
    Q_EMIT noticeChanged();
}

}  // namespace elmworth
