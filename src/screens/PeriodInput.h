// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QStringList>

#include "records/DateRangePreset.h"
#include "screens/AppServices.h"
#include "theme/DateTimeInput.h"

namespace elmworth {

/// A period as screens ask for it: one of the presets, or the days from one to another, in either
/// order and both whole. The screen's model keeps which preset it is.
class PeriodInput {
 public:
    /// Offers the days from `from` to `to`, where a person wants their own.
    PeriodInput(const AppServices& services, Instant from, Instant to)
        : services_(services),
          from_(services.calendar, services.now),
          to_(services.calendar, services.now) {
        from_.setValue(from);
        to_.setValue(to);
    }

    /// The presets as menus show them.
    [[nodiscard]] static QStringList titles() {
        QStringList titles;
        for (const auto preset : allDateRangePresets) titles.append(title(preset));
        return titles;
    }
    [[nodiscard]] static QString title(DateRangePreset preset) {
        const auto name = rawValue(preset);
        return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
    }
    /// The preset at `position` of `titles`, if there is one.
    [[nodiscard]] static std::optional<DateRangePreset> presetAt(int position) {
        const auto at = static_cast<std::size_t>(position);
        if (position < 0 || at >= allDateRangePresets.size()) return std::nullopt;
        return allDateRangePresets[at];
    }

    [[nodiscard]] DateTimeInput& from() noexcept { return from_; }
    [[nodiscard]] DateTimeInput& to() noexcept { return to_; }

    /// What `preset` spans now; the days of the person's own where it spans none.
    [[nodiscard]] DateInterval interval(DateRangePreset preset) const {
        const Calendar calendar = services_.calendar();
        const auto span = elmworth::interval(preset, services_.now(), calendar);
        return span ? *span : customInterval(from_.value(), to_.value(), calendar);
    }

 private:
    const AppServices& services_;
    DateTimeInput from_;
    DateTimeInput to_;
};

}  // namespace elmworth
