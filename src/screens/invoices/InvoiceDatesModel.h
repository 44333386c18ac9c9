// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QtQmlIntegration>
#include <functional>

#include "records/Invoice.h"
#include "screens/AppServices.h"
#include "theme/DateTimeInput.h"

namespace elmworth {

/// The days on which an invoice is issued and due, to be changed while it is a draft. A day that is
/// being typed counts once its field is left.
class InvoiceDatesModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The invoice's model has it")
    Q_PROPERTY(elmworth::DateTimeInput* issued READ issued CONSTANT FINAL)
    Q_PROPERTY(elmworth::DateTimeInput* due READ due CONSTANT FINAL)
    Q_PROPERTY(bool canChange READ canChange NOTIFY canChangeChanged FINAL)

 public:
    /// Has each change carried out by `attempt`, which says what goes wrong.
    InvoiceDatesModel(const AppServices& services,
                      std::function<void(const std::function<void()>&)> attempt);

    /// Is about `invoice` from now on; null for none.
    void show(const Ref<Invoice>& invoice);
    /// Shows what became of its dates. What is being typed stays.
    void refresh();

    [[nodiscard]] DateTimeInput* issued() noexcept { return &issued_; }
    [[nodiscard]] DateTimeInput* due() noexcept { return &due_; }
    [[nodiscard]] bool canChange() const noexcept { return canChange_; }

    /// Somebody is done typing: takes the days that stand in the fields.
    Q_INVOKABLE void commit();

 Q_SIGNALS:
    void canChangeChanged();

 private:
    void takeLater();
    void take();
    [[nodiscard]] bool isOtherDay(const DateTimeInput& input, Instant date) const;

    AppServices services_;
    std::function<void(const std::function<void()>&)> attempt_;
    Ref<Invoice> invoice_;
    DateTimeInput issued_;
    DateTimeInput due_;
    bool canChange_ = false;
    bool isFollowing_ = false;  ///< the fields are set to what the invoice has
    RunLoop::Handle taking_;
};

}  // namespace elmworth
