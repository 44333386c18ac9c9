// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <utility>

namespace elmworth {

/// A value of a form. What nobody touched in the form follows the record that is edited.
template <class T>
class FormValue {
 public:
    [[nodiscard]] const T& value() const noexcept { return value_; }
    /// Whether the form says something else than the record.
    [[nodiscard]] bool isTouched() const { return !(value_ == known_); }

    /// A person set it.
    void set(T value) { value_ = std::move(value); }
    /// A form begins with what the record holds.
    void load(T known) {
        known_ = std::move(known);
        value_ = known_;
    }
    /// The record holds something else now, which shows unless the value was touched.
    void follow(T known) {
        if (!isTouched()) value_ = known;
        known_ = std::move(known);
    }

 private:
    T value_{};
    T known_{};
};

/// A text of a form, to be typed into an input (see FormTextLink).
class FormText : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("A form's model has it")
    Q_PROPERTY(QString text READ text WRITE setText NOTIFY changed FINAL)

 public:
    using QObject::QObject;

    [[nodiscard]] const QString& text() const noexcept { return value_.value(); }
    [[nodiscard]] bool isTouched() const { return value_.isTouched(); }

    /// A person typed it. A no-op while the text is read-only.
    void setText(const QString& text) {
        if (!isReadOnly_) update([&] { value_.set(text); });
    }
    void setReadOnly(bool isReadOnly) { isReadOnly_ = isReadOnly; }
    /// See FormValue.
    void load(const QString& known) {
        update([&] { value_.load(known); });
    }
    void follow(const QString& known) {
        update([&] { value_.follow(known); });
    }

 Q_SIGNALS:
    void changed();

 private:
    template <class Change>
    void update(const Change& change) {
        const QString before = text();
        change();
        if (text() != before) Q_EMIT changed();
    }

    FormValue<QString> value_;
    bool isReadOnly_ = false;
};

}  // namespace elmworth
