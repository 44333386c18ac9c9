// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/clients/ClientSearch.h"

#include <algorithm>
#include <unordered_map>

#include "platform/LocalizedSearch.h"
#include "platform/Text.h"
#include "records/Project.h"

namespace elmworth {

ClientSearch::ClientSearch(UnitOfWork& context, const std::vector<Ref<Client>>& clients) {
    std::unordered_map<PersistentID, std::size_t> places;
    for (const auto& client : clients) {
        places.emplace(client->id(), texts_.size());
        texts_.push_back({client->id(), {client->name, client->email}});
    }
    try {
        context.forEachValues<&Project::client, &Project::name>(
            std::optional<Predicate<Project>>(),
            [&](const PersistentID& /*project*/, const auto& client, const std::string& name) {
                const auto place = client ? places.find(*client) : places.end();
                if (place != places.end()) texts_[place->second].all.push_back(name);
            });
    } catch (const StoreError&) {
        return;  // found by the rest; the library's faults are told elsewhere
    }
}

std::vector<PersistentID> ClientSearch::matches(std::string_view typed) const {
    const LocalizedSearch search(trimmedBlanks(typed));
    std::vector<PersistentID> found;
    for (const auto& texts : texts_) {
        if (std::ranges::any_of(texts.all,
                                [&](const auto& text) { return search.findsIn(text); })) {
            found.push_back(texts.client);
        }
    }
    return found;
}

}  // namespace elmworth
