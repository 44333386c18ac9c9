// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoiceDatesModel.h"

#include <utility>

#include "invoicing/InvoiceService.h"

namespace elmworth {

namespace {

/// A text that is no date gives way only to another date.
void follow(DateTimeInput& input, Instant date, bool isOtherInvoice) {
    if (isOtherInvoice || (!input.isTyped() && input.value() != date)) input.setValue(date);
}

}  // namespace

InvoiceDatesModel::InvoiceDatesModel(const AppServices& services,
                                     std::function<void(const std::function<void()>&)> attempt)
    : services_(services),
      attempt_(std::move(attempt)),
      issued_(services.calendar, services.now, services.locale),
      due_(services.calendar, services.now, services.locale) {
    connect(&issued_, &DateTimeInput::changed, this, &InvoiceDatesModel::takeLater);
    connect(&due_, &DateTimeInput::changed, this, &InvoiceDatesModel::takeLater);
}

void InvoiceDatesModel::show(const Ref<Invoice>& invoice) {
    taking_.reset();
    invoice_ = invoice;
    if (!invoice_) return;
    isFollowing_ = true;
    follow(issued_, invoice_->issueDate, true);
    follow(due_, invoice_->dueDate, true);
    isFollowing_ = false;
}

void InvoiceDatesModel::refresh() {
    const bool canChange = invoice_ && canChangeDates(*invoice_);
    if (canChange != canChange_) {
        canChange_ = canChange;
        Q_EMIT canChangeChanged();
    }
    if (!invoice_ || taking_) return;
    isFollowing_ = true;
    follow(issued_, invoice_->issueDate, !canChange_);
    follow(due_, invoice_->dueDate, !canChange_);
    isFollowing_ = false;
}

/// A day that is picked or stepped to counts at once; of one that is typed nobody knows yet whether
/// it is all.
void InvoiceDatesModel::takeLater() {
    if (isFollowing_ || !invoice_) return;
    taking_ = services_.runLoop.post([this] {
        taking_.reset();
        take();
    });
}

void InvoiceDatesModel::commit() {
    issued_.finish();
    due_.finish();
    taking_.reset();
    take();
}

void InvoiceDatesModel::take() {
    if (!invoice_ || invoice_->isDeleted() || issued_.isTyped() || due_.isTyped()) return;
    const auto service = [this] {
        return InvoiceService(services_.context, services_.history, services_.profiles,
                              services_.now, services_.calendar());
    };
    if (isOtherDay(issued_, invoice_->issueDate)) {
        attempt_([&] { service().setIssueDay(invoice_, issued_.value()); });
    } else if (isOtherDay(due_, invoice_->dueDate)) {
        attempt_([&] { service().setDueDay(invoice_, due_.value()); });
    }
    refresh();
}

bool InvoiceDatesModel::isOtherDay(const DateTimeInput& input, Instant date) const {
    const Calendar calendar = services_.calendar();
    return calendar.startOfDay(input.value()) != calendar.startOfDay(date);
}

}  // namespace elmworth
