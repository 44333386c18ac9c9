// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/clients/ClientSearch.h"

#include <algorithm>

#include "platform/LocalizedSearch.h"
#include "platform/Text.h"
#include "records/Project.h"

namespace elmworth {

ClientSearch::ClientSearch(UnitOfWork& context, const std::vector<Ref<Client>>& clients) {
    std::unordered_map<PersistentID, std::size_t> places;
    for (const auto& client : clients) {
        places.emplace(client->id(), texts_.size());
        texts_.push_back({client->name, client->email});
    }
    try {
        context.forEachValues<&Project::client, &Project::name>(
            std::optional<Predicate<Project>>(),
            [&](const PersistentID& /*project*/, const auto& client, const std::string& name) {
                const auto place = client ? places.find(*client) : places.end();
                if (place != places.end()) texts_[place->second].push_back(name);
            });
    } catch (const StoreError&) {
        return;  // found by the rest; the library's faults are told elsewhere
    }
}

std::vector<std::size_t> ClientSearch::matches(std::string_view typed) const {
    const LocalizedSearch search(trimmedBlanks(typed));
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < texts_.size(); ++i) {
        if (std::ranges::any_of(texts_[i],
                                [&](const auto& text) { return search.findsIn(text); })) {
            found.push_back(i);
        }
    }
    return found;
}

}  // namespace elmworth
