// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace elmworth {

/// What a ListSelection has to know of rows each of which is a thing of its own, by its `id`. Other
/// lists bring the same members with other rules: heads that can't be selected, several rows of one
/// thing, a place that is found in the order of the rows.
template <class T>
struct PlainRows {
    using Row = T;
    using Rows = std::vector<Row>;
    using ID = decltype(Row::id);
    using Key = ID;             ///< what is selected
    using Place = std::size_t;  ///< where a row stands, or stood

    [[nodiscard]] static bool isSelectable(const Row& /*row*/) { return true; }
    [[nodiscard]] static const Key& keyOf(const Row& row) { return row.id; }
    [[nodiscard]] static std::optional<std::size_t> find(const ID& id, const Rows& rows) {
        const auto found =
            std::find_if(rows.begin(), rows.end(), [&](const Row& row) { return row.id == id; });
        if (found == rows.end()) return std::nullopt;
        return static_cast<std::size_t>(found - rows.begin());
    }
    [[nodiscard]] static Place placeOf(const Rows& /*rows*/, std::size_t at) { return at; }
    /// The position of the first row that does not stand before `place`.
    [[nodiscard]] static std::size_t firstFrom(const Place& place, const Rows& rows) {
        return std::min(place, rows.size());
    }
};

/// Which rows of a list are selected, as people expect it of lists: a click selects one, with Ctrl
/// it toggles one, with Shift it selects all from the one that was clicked last. The arrow keys
/// move the current row likewise. A step costs the rows that it selects or no longer selects,
/// however many there are.
///
/// `rows` are those that are shown, and `at` is the position of a selectable one among them.
template <class Lines>
class ListSelection {
 public:
    using Row = typename Lines::Row;
    using Rows = typename Lines::Rows;
    using ID = typename Lines::ID;
    using Key = typename Lines::Key;
    using Place = typename Lines::Place;
    using Keys = std::unordered_set<Key>;

    /// Also of rows that are not shown.
    [[nodiscard]] const Keys& keys() const noexcept { return keys_; }
    /// The row that the keyboard acts on, if there is one.
    [[nodiscard]] const std::optional<ID>& current() const noexcept { return current_; }

    void select(const Rows& rows, std::size_t at) {
        keys_ = {Lines::keyOf(rows[at])};
        begin(rows, at);
    }
    void toggle(const Rows& rows, std::size_t at) {
        const auto& key = Lines::keyOf(rows[at]);
        if (keys_.erase(key) == 0) keys_.insert(key);
        begin(rows, at);
    }
    /// Selects all between the row that was selected last and this one, and no others.
    void extendTo(const Rows& rows, std::size_t at) {
        const auto from = anchor_ ? Lines::find(*anchor_, rows) : std::nullopt;
        if (!from) return select(rows, at);
        if (!extended_) {
            keys_.clear();
            repeated_.clear();
            add(rows[*from]);
            extended_ = {*from, *from};
        }
        const auto [first, last] = std::minmax(*from, extended_->to);
        const auto [nextFirst, nextLast] = std::minmax(*from, at);
        for (std::size_t i = nextFirst; i < first; ++i) add(rows[i]);
        for (std::size_t i = last + 1; i <= nextLast; ++i) add(rows[i]);
        for (std::size_t i = first; i < nextFirst; ++i) remove(rows[i]);
        for (std::size_t i = nextLast + 1; i <= last; ++i) remove(rows[i]);
        extended_->to = at;
        moveCurrent(rows, at);
    }
    void selectAll(const Rows& rows) {
        for (const auto& row : rows) {
            if (Lines::isSelectable(row)) keys_.insert(Lines::keyOf(row));
        }
        extended_.reset();
    }
    void clear() {
        keys_.clear();
        anchor_.reset();
        current_.reset();
        place_.reset();
        extended_.reset();
    }

    /// Selects nothing, but the arrow keys go on from the current row, also once it is gone.
    void clearKeepingPlace() {
        auto place = place_;
        clear();
        place_ = std::move(place);
    }
    /// Without a current row the arrow keys go on from `place`.
    void stayAt(Place place) { place_ = std::move(place); }

    /// Call when `rows` have changed.
    void rowsChanged(const Rows& rows) {
        extended_.reset();
        const auto at = current_ ? Lines::find(*current_, rows) : std::nullopt;
        if (at) place_ = Lines::placeOf(rows, *at);
    }

    /// The selectable row that stands `steps` such rows below (above when negative) the current
    /// one, or as far as there are any; the first or last one when none is current. Absent when
    /// there are none.
    [[nodiscard]] std::optional<std::size_t> stepFrom(const Rows& rows, int steps) const {
        if (rows.empty() || steps == 0) return std::nullopt;
        const int direction = steps > 0 ? 1 : -1;
        const auto count = static_cast<std::ptrdiff_t>(rows.size());
        std::ptrdiff_t at = startOfSteps(rows, direction);
        if (std::abs(steps) >= count) at = direction > 0 ? count : -1;
        std::optional<std::size_t> reached;
        for (int left = std::abs(steps); left > 0;) {
            at += direction;
            if (at < 0 || at >= count) break;
            if (!Lines::isSelectable(rows[static_cast<std::size_t>(at)])) continue;
            reached = static_cast<std::size_t>(at);
            --left;
        }
        return reached ? reached : farthest(rows, direction);
    }

 private:
    struct Extended {
        std::size_t from;
        std::size_t to;
    };

    void begin(const Rows& rows, std::size_t at) {
        anchor_ = rows[at].id;
        extended_.reset();
        moveCurrent(rows, at);
    }
    void moveCurrent(const Rows& rows, std::size_t at) {
        current_ = rows[at].id;
        place_ = Lines::placeOf(rows, at);
    }
    void add(const Row& row) {
        if (Lines::isSelectable(row) && !keys_.insert(Lines::keyOf(row)).second) {
            ++repeated_[Lines::keyOf(row)];
        }
    }
    void remove(const Row& row) {
        const auto repeated = repeated_.find(Lines::keyOf(row));
        if (repeated == repeated_.end()) {
            keys_.erase(Lines::keyOf(row));
        } else if (--repeated->second == 0) {
            repeated_.erase(repeated);
        }
    }
    /// The position from which a step in `direction` goes to the next row.
    [[nodiscard]] std::ptrdiff_t startOfSteps(const Rows& rows, int direction) const {
        const auto current = current_ ? Lines::find(*current_, rows) : std::nullopt;
        if (current) return static_cast<std::ptrdiff_t>(*current);
        if (!place_) return direction > 0 ? -1 : static_cast<std::ptrdiff_t>(rows.size());
        const auto next = static_cast<std::ptrdiff_t>(Lines::firstFrom(*place_, rows));
        return next - (direction > 0 ? 1 : 0);
    }
    [[nodiscard]] static std::optional<std::size_t> farthest(const Rows& rows, int direction) {
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const std::size_t at = direction > 0 ? rows.size() - 1 - i : i;
            if (Lines::isSelectable(rows[at])) return at;
        }
        return std::nullopt;
    }

    Keys keys_;
    std::unordered_map<Key, int> repeated_;  ///< further rows of keys in `extended_`
    std::optional<ID> anchor_;
    std::optional<ID> current_;
    std::optional<Place> place_;        ///< of the current row, or where it was
    std::optional<Extended> extended_;  ///< the rows whose keys are selected, while known
};

}  // namespace elmworth
