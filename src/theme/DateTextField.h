// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <optional>
#include <vector>

#include "platform/DateInput.h"

namespace elmworth {

/// Where a part of a field's text stands: from `begin` to before `end`.
struct TextSpan {
    Q_GADGET
    QML_ANONYMOUS
    Q_PROPERTY(int begin MEMBER begin)
    Q_PROPERTY(int end MEMBER end)

 public:
    int begin = 0;
    int end = 0;
};

/// A text that stands for a date or a time, while it is typed. What is understood counts at once;
/// what is not stays as it was typed, and changes nothing.
class DateTextField : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A DateTimeInput has it")
    /// As typed, until `finish` writes what was understood in the locale's form.
    Q_PROPERTY(QString text READ text NOTIFY textChanged FINAL)
    /// What is wrong with the text, as a sentence, once it is finished; empty when nothing is.
    Q_PROPERTY(QString problem READ problem NOTIFY problemChanged FINAL)

 public:
    [[nodiscard]] QString text() const;
    [[nodiscard]] const QString& problem() const noexcept { return problem_; }
    [[nodiscard]] bool isValid() const noexcept { return isValid_; }
    /// Whether it shows what somebody typed, and not the value.
    [[nodiscard]] bool isTyped() const noexcept { return typed_.has_value(); }

    /// Somebody typed: the field has this text now.
    Q_INVOKABLE void edit(const QString& text);
    /// Somebody is done typing.
    Q_INVOKABLE void finish();
    /// Moves the part at the position `cursor` of the text on by `steps`, or back when negative,
    /// and says where that part stands then. A negative `cursor` stands for the whole text, of
    /// which the smallest part moves. A text that is not understood stays.
    Q_INVOKABLE elmworth::TextSpan step(int cursor, int steps);
    /// The same in larger steps, whatever part the cursor is in.
    Q_INVOKABLE elmworth::TextSpan page(int cursor, int steps);

    /// Shows the value that stands now in place of what was typed.
    void show();
    /// Shows it unless somebody is typing.
    void follow();

 Q_SIGNALS:
    void textChanged();
    void problemChanged();
    /// `isValid` changed.
    void validityChanged();

 protected:
    using QObject::QObject;

    /// The text of the value that stands, and the parts of it.
    [[nodiscard]] virtual QString valueText() const = 0;
    [[nodiscard]] virtual std::vector<DatePartSpan> parts() const = 0;
    /// Takes over what `text` means. False when it means nothing.
    virtual bool take(const QString& text) = 0;
    /// What was taken over stays.
    virtual void settle() = 0;
    /// Moves the value by `steps` of `part`.
    virtual void move(DatePart part, int steps) = 0;
    /// The part that `step` moves of a whole text.
    [[nodiscard]] virtual DatePart smallestPart() const = 0;
    /// The part that `page` moves.
    [[nodiscard]] virtual DatePart pagePart() const = 0;
    /// The sentence about a text that is not understood.
    [[nodiscard]] virtual QString complaint() const = 0;

 private:
    void setValid(bool isValid);
    void setProblem(const QString& problem);
    [[nodiscard]] std::optional<DatePart> partAt(int cursor) const;
    [[nodiscard]] TextSpan spanOf(DatePart part, int cursor) const;

    std::optional<QString> typed_;  ///< since the value was last shown
    QString problem_;
    bool isValid_ = true;
};

}  // namespace elmworth
