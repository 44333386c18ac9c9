// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>

#include "platform/Settings.h"

namespace elmworth {

/// The introduction that greets a new user once, page by page. The setting "didOnboard" says that
/// it was seen.
class WelcomeModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The window's model has it")
    Q_PROPERTY(bool isOpen READ isOpen NOTIFY isOpenChanged FINAL)
    Q_PROPERTY(int page READ page NOTIFY pageChanged FINAL)
    Q_PROPERTY(int pageCount READ pageCount CONSTANT FINAL)
    Q_PROPERTY(QString backText READ backText NOTIFY pageChanged FINAL)
    Q_PROPERTY(QString nextText READ nextText NOTIFY pageChanged FINAL)
    Q_PROPERTY(QString kicker READ kicker NOTIFY pageChanged FINAL)
    Q_PROPERTY(QString icon READ icon NOTIFY pageChanged FINAL)
    Q_PROPERTY(QString title READ title NOTIFY pageChanged FINAL)
    /// The end of the title, in the page's colours.
    Q_PROPERTY(QString accent READ accent NOTIFY pageChanged FINAL)
    Q_PROPERTY(QString text READ text NOTIFY pageChanged FINAL)

 public:
    /// `defaults` outlives it.
    explicit WelcomeModel(Settings& defaults) : defaults_(defaults) {}

    /// Opens it on its first page, unless it was seen before.
    Q_INVOKABLE void greet();
    /// One page on; from the last one it closes.
    Q_INVOKABLE void next();
    /// One page back; from the first one it closes.
    Q_INVOKABLE void back();
    /// Closes it for good.
    Q_INVOKABLE void dismiss();

    /// Where no tray shows the program, the first page leads to the panel. One does until this is
    /// called.
    void setTrayShown(bool isShown);

    [[nodiscard]] bool isOpen() const noexcept { return isOpen_; }
    [[nodiscard]] int page() const noexcept { return page_; }
    [[nodiscard]] static int pageCount() noexcept;
    [[nodiscard]] QString backText() const;
    [[nodiscard]] QString nextText() const;
    [[nodiscard]] QString kicker() const;
    [[nodiscard]] QString icon() const;
    [[nodiscard]] QString title() const;
    [[nodiscard]] QString accent() const;
    [[nodiscard]] QString text() const;

 Q_SIGNALS:
    void isOpenChanged();
    void pageChanged();

 private:
    void setOpen(bool isOpen);
    void setPage(int page);

    Settings& defaults_;
    bool isTrayShown_ = true;
    bool isOpen_ = false;
    int page_ = 0;
};

}  // namespace elmworth
