// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/ChoiceModel.h"

#include <algorithm>
#include <iterator>

#include "platform/LocalizedSearch.h"

namespace elmworth {

void ChoiceModel::show(std::vector<ChoiceRow> all, int chosen, const QString& title) {
    for (auto& row : all) row.isChosen = row.id == chosen;
    all_ = std::move(all);
    chosen_ = chosen;
    title_ = title;
    showRows();
    Q_EMIT changed();
}

int ChoiceModel::chosenRow() const {
    const auto found =
        std::ranges::find_if(rows(), [](const ChoiceRow& row) { return row.isChosen; });
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
    const auto isFound = [&](const ChoiceRow& row) {
        if (words.empty()) return true;
        const std::string text = row.text.toStdString();
        return row.id != 0 &&
               std::ranges::all_of(words, [&](const auto& word) { return word.findsIn(text); });
    };
    std::vector<ChoiceRow> found;
    std::ranges::copy_if(all_, std::back_inserter(found), isFound);
    rows_.setRows(std::move(found));
    Q_EMIT rowsChanged();
}

void ChoiceModel::choose(int row) {
    const auto at = static_cast<std::size_t>(row);
    if (row < 0 || at >= rows().size()) return;
    const int id = rows()[at].id;
    setSearch({});
    if (id == chosen_) return;
    take(id);
    Q_EMIT picked();
}

}  // namespace elmworth
