// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "livelist/LiveRowModel.h"
#include "screens/clients/ClientCardTexts.h"

namespace elmworth {

/// A client in the grid.
struct ClientRow {
    PersistentID id;

    friend bool operator==(const ClientRow&, const ClientRow&) = default;
};

/// The cards of clients. Their texts are made when a view asks for them, so that those that nobody
/// sees cost nothing. The roles are the properties of `ClientCardTexts`.
class ClientCardsModel final : public LiveRowModel<ClientRow> {
 public:
    static constexpr int firstRole = Qt::UserRole + 1;

    /// Makes the texts of a client's card; absent for one that is gone.
    using Make = std::function<std::optional<ClientCardTexts>(const PersistentID&)>;

    explicit ClientCardsModel(Make make) : make_(std::move(make)) {}

    /// Shows `clients`, and what they are now.
    void show(std::vector<ClientRow> clients) { applyDiff(std::move(clients)); }
    /// All texts may be others now.
    void forgetTexts();
    /// Likewise, those of `clients` alone.
    void forgetTexts(const std::unordered_set<PersistentID>& clients);

    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

 protected:
    [[nodiscard]] QList<int> changedRoles(const ClientRow& /*shown*/,
                                          const ClientRow& /*next*/) const override {
        return {};
    }

 private:
    Make make_;
    mutable std::unordered_map<PersistentID, ClientCardTexts> made_;
};

}  // namespace elmworth
