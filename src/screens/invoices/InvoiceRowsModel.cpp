// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoiceRowsModel.h"

#include <algorithm>
#include <utility>

namespace elmworth {

namespace {

/// Many more than fit a screen.
constexpr std::size_t mostLooks = 500;

}  // namespace

void InvoiceRowsModel::show(const std::vector<PersistentID>& invoices) {
    std::vector<InvoiceRow> rows;
    rows.reserve(invoices.size());
    for (const auto& id : invoices) rows.push_back({id});
    applyDiff(std::move(rows));
}

void InvoiceRowsModel::refresh(const std::unordered_set<PersistentID>& invoices) {
    for (const auto& id : invoices) looks_.erase(id);
    tell(invoices, {});
}

void InvoiceRowsModel::refreshAll() {
    looks_.clear();
    if (!rows().empty()) Q_EMIT dataChanged(index(0), index(rowCount() - 1));
}

void InvoiceRowsModel::showSelection(const std::unordered_set<PersistentID>& selection) {
    std::unordered_set<PersistentID> others;
    for (const auto& id : selection_) {
        if (!selection.contains(id)) others.insert(id);
    }
    for (const auto& id : selection) {
        if (!selection_.contains(id)) others.insert(id);
    }
    selection_ = selection;
    tell(others, {isSelected});
}

void InvoiceRowsModel::tell(const std::unordered_set<PersistentID>& invoices,
                            const QList<int>& roles) {
    if (invoices.empty()) return;
    for (int row = 0; row < rowCount(); ++row) {
        if (!invoices.contains(rows()[static_cast<std::size_t>(row)].id)) continue;
        Q_EMIT dataChanged(index(row), index(row), roles);
    }
}

int InvoiceRowsModel::position(const PersistentID& invoice) const {
    const auto found = std::ranges::find(rows(), invoice, &InvoiceRow::id);
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

const InvoiceLook& InvoiceRowsModel::lookAt(const PersistentID& invoice) const {
    const auto found = looks_.find(invoice);
    if (found != looks_.end()) return found->second;
    if (looks_.size() >= mostLooks) looks_.clear();
    return looks_.emplace(invoice, look_(invoice).value_or(InvoiceLook{})).first->second;
}

QVariant InvoiceRowsModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    const auto& id = rows()[static_cast<std::size_t>(index.row())].id;
    if (role == isSelected) return selection_.contains(id);
    const auto& look = lookAt(id);
    switch (role) {
        case number:
            return look.number;
        case client:
            return look.client;
        case caption:
            return look.caption;
        case amount:
            return look.amount;
        case badge:
            return badgeText(look.badge);
        case summary:
            return look.summary();
        default:
            return {};
    }
}

QHash<int, QByteArray> InvoiceRowsModel::roleNames() const {
    return {{number, "number"},  {client, "client"}, {caption, "caption"},
            {amount, "amount"},  {badge, "badge"},   {isSelected, "isSelected"},
            {summary, "summary"}};
}

}  // namespace elmworth
