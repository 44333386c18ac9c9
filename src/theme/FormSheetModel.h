// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

namespace elmworth {

/// A sheet with a form, on a new record or on one that is there already. It works on copies:
/// nothing touches a record before `save`. FormSheet shows it.
///
/// An heir has the fields, calls `show` once they are filled, and `fieldsChanged` after each change
/// of one. While the sheet is open it calls `recordsChanged` when what it edits may have changed.
class FormSheetModel : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A screen's model has it")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged FINAL)
    Q_PROPERTY(QString title READ title NOTIFY changed FINAL)
    Q_PROPERTY(QString subtitle READ subtitle NOTIFY changed FINAL)
    /// Why nothing can be changed or saved, as a sentence under the form; empty when it can.
    Q_PROPERTY(QString lockText READ lockText NOTIFY changed FINAL)
    Q_PROPERTY(bool isLocked READ isLocked NOTIFY changed FINAL)
    /// What happened elsewhere, as a sentence; empty for nothing.
    Q_PROPERTY(QString notice READ notice NOTIFY changed FINAL)
    /// Why it can't be saved, as a sentence; empty when it can, or where the fields say it.
    Q_PROPERTY(QString problem READ shownProblem NOTIFY changed FINAL)
    Q_PROPERTY(bool canSave READ canSave NOTIFY changed FINAL)

 public:
    using QObject::QObject;

    [[nodiscard]] bool isOpen() const noexcept { return isOpen_; }
    [[nodiscard]] virtual QString title() const = 0;
    [[nodiscard]] virtual QString subtitle() const { return {}; }
    [[nodiscard]] virtual QString lockText() const { return {}; }
    [[nodiscard]] bool isLocked() const { return !lockText().isEmpty(); }
    [[nodiscard]] virtual QString notice() const { return {}; }
    [[nodiscard]] virtual QString problem() const { return {}; }
    [[nodiscard]] bool canSave() const { return isOpen_ && !isLocked() && isComplete(); }

    /// Saves and dismisses the sheet. While `canSave` does not hold, or when it fails, the sheet
    /// stays open and says why.
    Q_INVOKABLE void save();
    /// Closes the sheet without changes.
    Q_INVOKABLE void dismiss();

 Q_SIGNALS:
    void opened();
    void dismissed();
    void isOpenChanged();
    void changed();

 protected:
    /// "This client was deleted elsewhere. Save adds it as a new one.", for a `notice`.
    [[nodiscard]] static QString lostText(const QString& kind);

    /// Opens the sheet. One that is open is to be dismissed before its fields are filled anew.
    void show();
    void fieldsChanged();
    /// Brings the form up to date, unless it is the form's own saving that changes records.
    void recordsChanged();

    /// Whether all fields hold what can be saved.
    [[nodiscard]] virtual bool isComplete() const = 0;
    /// Takes what is being typed and was not left yet.
    virtual void endTyping() {}
    /// Lets what nobody touched follow the record; a record that is gone makes it a new one.
    virtual void catchUp() {}
    /// Saves what the fields hold. Returns what went wrong, as a sentence, having changed nothing;
    /// empty when it is saved.
    [[nodiscard]] virtual QString carryOut() = 0;
    /// The sheet was closed: nothing has to be followed any more.
    virtual void rest() {}

 private:
    [[nodiscard]] QString shownProblem() const { return failure_.isEmpty() ? problem() : failure_; }
    void tryToSave();

    bool isOpen_ = false;
    bool isSaving_ = false;
    QString failure_;
};

}  // namespace elmworth
