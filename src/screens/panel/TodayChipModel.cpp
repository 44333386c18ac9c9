// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/TodayChipModel.h"

#include "platform/DurationFormat.h"

namespace elmworth {

TodayChipModel::TodayChipModel(const AppServices& services)
    : total_(services, TrackedTotal::Span::day) {
    update();
}

void TodayChipModel::update() {
    total_.update();
    tick();
}

void TodayChipModel::tick() {
    auto text = QString::fromStdString(formatHoursMinutes(total_.seconds()));
    if (text == text_) return;
    text_ = std::move(text);
    Q_EMIT textChanged();
}

}  // namespace elmworth
