// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "livelist/LiveRowModel.h"
#include "screens/invoices/InvoiceLook.h"

namespace elmworth {

struct InvoiceRow {
    PersistentID id;

    friend bool operator==(const InvoiceRow&, const InvoiceRow&) = default;
};

/// The rows of a list of invoices. What a row shows is made when a view asks for it, and kept while
/// it holds.
class InvoiceRowsModel final : public LiveRowModel<InvoiceRow> {
 public:
    enum Role {
        number = Qt::UserRole + 1,
        client,   ///< its name, empty without one
        caption,  ///< "Acme Co · Mar 1"
        amount,
        badge,  ///< "Draft", "Sent", "Overdue" or "Paid"
        isSelected,
        summary,  ///< all of it in a sentence, for assistive technology
    };

    /// Absent for an invoice that is gone or can't be read.
    using Look = std::function<std::optional<InvoiceLook>(const PersistentID&)>;

    explicit InvoiceRowsModel(Look look) : look_(std::move(look)) {}

    /// Shows `invoices`, in this order.
    void show(const std::vector<PersistentID>& invoices);
    /// The looks of these invoices, or of all, are others now.
    void refresh(const std::unordered_set<PersistentID>& invoices);
    void refreshAll();
    void showSelection(const std::unordered_set<PersistentID>& selection);

    /// Where the row of `invoice` stands, or -1.
    [[nodiscard]] int position(const PersistentID& invoice) const;

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 protected:
    [[nodiscard]] QList<int> changedRoles(const InvoiceRow& /*shown*/,
                                          const InvoiceRow& /*next*/) const override {
        return {};
    }

 private:
    [[nodiscard]] const InvoiceLook& lookAt(const PersistentID& invoice) const;
    void tell(const std::unordered_set<PersistentID>& invoices, const QList<int>& roles);

    Look look_;
    std::unordered_set<PersistentID> selection_;
    mutable std::unordered_map<PersistentID, InvoiceLook> looks_;  ///< of rows that were shown
};

}  // namespace elmworth
