// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/Confirmation.h"

#include <utility>

namespace elmworth {

void Confirmation::ask(Question question, std::function<void()> accepted) {
    reject();
    question_ = std::move(question);
    accepted_ = std::move(accepted);
    isOpen_ = true;
    Q_EMIT asked();
    Q_EMIT isOpenChanged();
}

void Confirmation::tell(Question message) {
    message.rejectText.clear();
    ask(std::move(message), {});
}

void Confirmation::accept() {
    if (!isOpen_) return;
    const auto accepted = std::exchange(accepted_, {});
    close();
    if (accepted) accepted();  // which may ask the next question
}

void Confirmation::reject() {
    if (!isOpen_) return;
    accepted_ = {};
    close();
}

void Confirmation::close() {
    isOpen_ = false;
    Q_EMIT isOpenChanged();
}

}  // namespace elmworth
