// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/ChoiceModel.h"

#include <algorithm>
#include <utility>

#include "platform/LocalizedSearch.h"
#include "platform/Text.h"

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
    showRows();
    Q_EMIT searchChanged();
}

void ChoiceModel::showRows() {
    const std::string typed = search_.toStdString();
    const LocalizedSearch wanted(trimmedBlanks(typed));
    std::vector<Choice> found;
    for (const auto& choice : choices_) {
        if (wanted.findsIn(choice.text.toStdString())) found.push_back(choice);
    }
    rows_.setRows(std::move(found));
}

void ChoiceModel::choose(int row) {
    const auto at = static_cast<std::size_t>(row);
    if (row < 0 || at >= rows().size()) return;
    const PersistentID id = rows()[at].id;
    setSearch({});
    Q_EMIT picked(id);
}

}  // namespace elmworth
