// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "theme/Confirmation.h"
#include "updates/Updater.h"

namespace elmworth {

/// What a person who looks for updates sees: that it goes on, what was found, and what can be done
/// with it. Whoever closes the first question hears no more of that look.
class UpdatePrompts {
 public:
    /// Both outlive it.
    UpdatePrompts(Updater& updater, Confirmation& confirmation)
        : updater_(updater), confirmation_(confirmation) {}

    void look();

 private:
    void tellFound(const Updater::Finding& finding);
    void offer(const Release& release);
    void install(const Release& release);
    [[nodiscard]] bool isWaiting(const QString& title) const;

    Updater& updater_;
    Confirmation& confirmation_;
};

}  // namespace elmworth
