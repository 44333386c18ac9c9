// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/ChoiceModel.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "platform/LocalizedSearch.h"

namespace elmworth {

void ChoiceModel::offer(std::vector<Choice> choices, const PersistentID& chosen,
                        const QString& title) {
    for (auto& choice : choices) choice.isChosen = choice.id == chosen;
    choices_ = std::move(choices);
    chosen_ = chosen;
    title_ = title;
    showRows();
    Q_EMIT changed();
}

int ChoiceModel::chosenRow() const {
    const auto found = std::find_if(rows().begin(), rows().end(),
                                    [](const Choice& choice) { return choice.isChosen; });
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

void ChoiceModel::setSearch(const QString& search) {
    if (search == search_) return;
    search_ = search;
    Q_EMIT searchChanged();
    showRows();
}

void ChoiceModel::showRows() {
    std::vector<LocalizedSearch> words;
    for (const auto& word : search_.simplified().split(u' ', Qt::SkipEmptyParts))
        words.emplace_back(word.toStdString());
    const auto isFound = [&](const Choice& choice) {
        if (words.empty()) return true;
        const std::string text = choice.text.toStdString();
        return !choice.id.isNil() &&
               std::ranges::all_of(words, [&](const auto& word) { return word.findsIn(text); });
    };
    std::vector<Choice> found;
    std::ranges::copy_if(choices_, std::back_inserter(found), isFound);
    rows_.setRows(std::move(found));
    Q_EMIT rowsChanged();
}

void ChoiceModel::choose(int row) {
    const auto at = static_cast<std::size_t>(row);
    if (row < 0 || at >= rows().size()) return;
    const PersistentID id = rows()[at].id;
    setSearch({});
    Q_EMIT picked(id);
}

}  // namespace elmworth
