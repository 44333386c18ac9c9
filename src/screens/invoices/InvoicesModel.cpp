// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoicesModel.h"

#include <chrono>
#include <utility>

#include "records/Client.h"
#include "store/StoreError.h"

namespace elmworth {

namespace {

constexpr std::chrono::minutes dayWatch{1};

}  // namespace

InvoicesModel::InvoicesModel(const AppServices& services, const InvoiceOutlets& outlets,
                             Confirmation& confirmation, NewInvoiceModel& newInvoice)
    : services_(services),
      confirmation_(confirmation),
      newInvoice_(newInvoice),
      totals_(services.context),
      rows_([this](const PersistentID& id) { return lookOf(id); }),
      summary_(services, totals_),
      detail_(services, outlets, totals_, confirmation) {
    connect(&selection_, &KeyedSelection::changed, this, &InvoicesModel::selectionChanged);
    connect(&detail_, &InvoiceDetailModel::deleted, &selection_,
            [this] { selection_.clearKeepingPlace(); });
    connect(&newInvoice_, &NewInvoiceModel::created, this, &InvoicesModel::select);
    libraryObservation_ = services_.context.observeAll(
        [this](const RecordChanges& changes) { followLibrary(changes); });
    profileObservation_ = services_.profiles.observe([this] {
        isStale_ = isStale_ || !isShown_;
        if (isShown_) detail_.refresh();
    });
}

QStringList InvoicesModel::filterNames() {
    return {QStringLiteral("All"), QStringLiteral("Open"), QStringLiteral("Overdue"),
            QStringLiteral("Paid")};
}

QString InvoicesModel::countText() const {
    return QStringLiteral("%1 total").arg(list_.size());
}

QString InvoicesModel::noneText() const {
    if (list_.empty() || rows_.rowCount() > 0) return {};
    return QStringLiteral("No %1 invoices").arg(filterNames().at(filter()).toLower());
}

Instant InvoicesModel::startOfToday() const {
    return services_.calendar().startOfDay(services_.now());
}

void InvoicesModel::setShown(bool shown) {
    if (shown == isShown_) return;
    isShown_ = shown;
    if (isShown_) {
        catchUp();
        day_ = services_.runLoop.repeat(dayWatch, [this] { followDay(); });
    } else {
        day_.reset();
        detail_.leaveNotes();
    }
    Q_EMIT isShownChanged();
}

void InvoicesModel::catchUp() {
    if (!isStale_ && startOfToday() == today_) return;
    isStale_ = false;
    relist();
    refreshAll();
}

void InvoicesModel::followDay() {
    if (startOfToday() == today_) return;
    relist();
    refreshAll();
}

void InvoicesModel::refreshAll() {
    rows_.refreshAll();
    detail_.refresh();
}

void InvoicesModel::followLibrary(const RecordChanges& changes) {
    auto outdated = totals_.follow(changes);
    if (!isShown_) {
        isStale_ = true;
        return;
    }
    if (changeList(changes)) relist();
    refreshTouched(changes, std::move(outdated));
}

void InvoicesModel::refreshTouched(const RecordChanges& changes,
                                   std::unordered_set<PersistentID> outdated) {
    detail_.follow(changes, outdated);
    loseGone();
    const auto* named = changes.of(Invoice::schema());
    const bool anyInvoice = changes.touch(Invoice::schema()) && named == nullptr;
    if (changes.touch(Client::schema()) || anyInvoice) {
        rows_.refreshAll();
        return summary_.refresh();
    }
    const bool sumsChange = !outdated.empty();
    if (named != nullptr) {
        for (const auto& [id, change] : *named) outdated.insert(id);
    }
    rows_.refresh(outdated);
    if (sumsChange) summary_.refresh();
}

void InvoicesModel::relist() {
    try {
        list_ = listInvoices(services_.context);
    } catch (const StoreError&) {
        return;  // the window says so
    }
    today_ = startOfToday();
    refilter();
    summary_.show(list_, today_);
}

void InvoicesModel::refilter() {
    std::vector<PersistentID> shown;
    shown.reserve(list_.size());
    for (const auto& invoice : list_) {
        if (passes(invoice, filter_, today_)) shown.push_back(invoice.id);
    }
    rows_.show(shown);
    selection_.rowsChanged();
    Q_EMIT listed();
}

void InvoicesModel::setFilter(int position) {
    if (position < 0 || position >= filterNames().size() || position == filter()) return;
    filter_ = static_cast<InvoiceFilter>(position);
    refilter();
    Q_EMIT filterChanged();
}

std::optional<InvoiceLook> InvoicesModel::lookOf(const PersistentID& invoice) {
    const auto record = services_.context.recordQuietly<Invoice>(invoice);
    if (!record) return std::nullopt;
    const DateFormatter dates(DateFormatter::Style::monthDay, services_.locale,
                              services_.calendar().zoneID());
    return elmworth::lookOf(*record, totals_.cents(record), services_, dates);
}

void InvoicesModel::openNewInvoice() {
    newInvoice_.open();
}

void InvoicesModel::select(const PersistentID& invoice) {
    relist();
    if (rows_.position(invoice) < 0) setFilter(static_cast<int>(InvoiceFilter::all));
    selection_.click(rows_.position(invoice));
}

void InvoicesModel::selectionChanged() {
    rows_.showSelection(selection_.keys());
    const auto& keys = selection_.keys();
    detail_.show(keys.empty() ? nullptr : services_.context.recordQuietly<Invoice>(*keys.begin()));
}

/// One that was deleted elsewhere takes the selection with it.
void InvoicesModel::loseGone() {
    if (!selection_.keys().empty() && !detail_.isOpen()) selection_.clearKeepingPlace();
}

}  // namespace elmworth
