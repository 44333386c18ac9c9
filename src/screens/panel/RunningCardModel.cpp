// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/RunningCardModel.h"

namespace elmworth {

RunningCardModel::RunningCardModel(const AppServices& services)
    : RunningEntryModel(services, Follows::itsOwner),
      budget_(services),
      warning_(services),
      away_(services) {
    RunningCardModel::update();
}

void RunningCardModel::update() {
    budget_.update();
    away_.update();
    warning_.update();
    RunningEntryModel::update();
}

void RunningCardModel::tick() {
    budget_.tick();
    warning_.update();
    RunningEntryModel::tick();
}

void RunningCardModel::setNotes(const QString& notes) {
    services().context.deliverChanges();  // so that what follows tells of the notes alone
    isTyping_ = true;
    RunningEntryModel::setNotes(notes);
    services().context.deliverChanges();
    isTyping_ = false;
}

}  // namespace elmworth
