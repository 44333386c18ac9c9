// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <functional>

namespace elmworth {

/// What a window asks before anything goes on, one question at a time. The window's frame shows it
/// as a ConfirmSheet, whichever screen asks.
class Confirmation : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged FINAL)
    Q_PROPERTY(QString icon READ icon NOTIFY asked FINAL)
    Q_PROPERTY(QString title READ title NOTIFY asked FINAL)
    Q_PROPERTY(QString message READ message NOTIFY asked FINAL)
    Q_PROPERTY(QString acceptText READ acceptText NOTIFY asked FINAL)
    /// Empty for what can only be read.
    Q_PROPERTY(QString rejectText READ rejectText NOTIFY asked FINAL)
    Q_PROPERTY(bool isDestructive READ isDestructive NOTIFY asked FINAL)

 public:
    struct Question {
        QString icon{};
        QString title;
        QString message{};
        QString acceptText = QStringLiteral("OK");
        QString rejectText = QStringLiteral("Cancel");
        bool isDestructive = false;  ///< takes something away
    };

    using QObject::QObject;

    /// Asks `question`, and calls `accepted` when a person agrees. A question that is open counts
    /// as rejected.
    void ask(Question question, std::function<void()> accepted);
    /// Says something that can only be read: `acceptText` closes it.
    void tell(Question message);

    Q_INVOKABLE void accept();
    Q_INVOKABLE void reject();

    [[nodiscard]] bool isOpen() const noexcept { return isOpen_; }
    [[nodiscard]] const QString& icon() const noexcept { return question_.icon; }
    [[nodiscard]] const QString& title() const noexcept { return question_.title; }
    [[nodiscard]] const QString& message() const noexcept { return question_.message; }
    [[nodiscard]] const QString& acceptText() const noexcept { return question_.acceptText; }
    [[nodiscard]] const QString& rejectText() const noexcept { return question_.rejectText; }
    [[nodiscard]] bool isDestructive() const noexcept { return question_.isDestructive; }

 Q_SIGNALS:
    void isOpenChanged();
    void asked();

 private:
    void close();

    bool isOpen_ = false;
    Question question_;  ///< the last one, which stands while its sheet fades
    std::function<void()> accepted_;
};

}  // namespace elmworth
