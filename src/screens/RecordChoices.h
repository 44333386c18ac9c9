// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "records/Client.h"
#include "records/Project.h"
#include "store/LiveQuery.h"
#include "theme/ChoiceModel.h"

namespace elmworth {

/// "Acme Co — Website", or the bare name without a client.
[[nodiscard]] inline QString labelWithClient(const Project& project) {
    const auto name = QString::fromStdString(project.name);
    const auto& client = project.client.get();
    return client ? QString::fromStdString(client->name) + QStringLiteral(" — ") + name : name;
}

template <class T>
[[nodiscard]] Query<T> byName() {
    return {.sortBy = {sortedBy<&T::name>(SortOrder::forward, SortComparison::localizedStandard)}};
}

/// Records of a type to choose from, or none. While they are followed they are those that a query
/// finds; a chosen one that is deleted is no longer chosen.
template <class T>
class RecordChoices : public Choices<PersistentID> {
 public:
    struct Setting {
        QString none;  ///< see Choices
        std::function<QString(const T&)> label;
        Query<T> query = byName<T>();
        /// Which of them are offered; absent for all.
        std::function<bool(const T&)> isListed{};
        /// Types of other records that the labels show.
        std::vector<const RecordSchema*> shown{};
    };

    RecordChoices(UnitOfWork& context, Setting setting)
        : Choices(setting.none), context_(context), setting_(std::move(setting)) {}

    /// Reads the records and follows them from now on, with `chosen` chosen.
    void follow(const Ref<T>& chosen = nullptr) {
        stop();
        setSearch({});
        setRecord(chosen);
        query_ = std::make_unique<LiveQuery<T>>(context_, setting_.query, [this](const auto&) {
            if (query_) recordsChanged();
        });
        for (const auto* schema : setting_.shown) {
            observations_.push_back(context_.observe(*schema, [this] { recordsChanged(); }));
        }
        offerRecords();
    }
    void stop() {
        query_.reset();
        observations_.clear();
    }
    /// After something changed that `isListed` goes by.
    void offerRecords() {
        std::vector<Choice> choices;
        for (const auto& record : records()) {
            if (!setting_.isListed || setting_.isListed(*record)) {
                choices.push_back({record->id(), setting_.label(*record)});
            }
        }
        offer(std::move(choices));
    }

    /// All that the query finds, listed or not; none while nothing is followed.
    [[nodiscard]] const std::vector<Ref<T>>& records() const {
        static const std::vector<Ref<T>> none;
        return query_ ? query_->records() : none;
    }
    /// The chosen one; null for none.
    [[nodiscard]] const Ref<T>& record() const {
        const bool isKnown = record_ && chosen() == record_->id();
        if (!isKnown) record_ = chosen() ? context_.recordQuietly<T>(*chosen()) : nullptr;
        return record_;
    }
    void setRecord(const Ref<T>& record) {
        record_ = record;
        if (record) {
            setChosen(record->id(), setting_.label(*record));
        } else {
            setChosen(std::nullopt);
        }
    }

 private:
    void recordsChanged() {
        const auto present = record();
        const bool isLost = chosen() && (!present || present->isDeleted());
        setRecord(isLost ? nullptr : present);
        offerRecords();
        if (isLost) Q_EMIT lost();
    }

    UnitOfWork& context_;
    Setting setting_;
    mutable Ref<T> record_;
    std::unique_ptr<LiveQuery<T>> query_;
    std::vector<UnitOfWork::Observation> observations_;
};

}  // namespace elmworth
