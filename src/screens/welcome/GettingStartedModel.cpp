// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/welcome/GettingStartedModel.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "records/Client.h"
#include "records/Invoice.h"
#include "records/Project.h"
#include "records/TimeEntry.h"

namespace elmworth {

namespace {

constexpr std::string_view hiddenKey = "hideGettingStarted";
constexpr std::string_view sectionKey = "mainSection";

template <class T>
bool hasAny(UnitOfWork& context, Query<T> query) {
    query.fetchLimit = 1;
    return !context.fetchQuietly(query).empty();
}

/// Whether a step that is done may not be any more, or the other way round. `fields` are those that
/// count of a record that changed, bit by bit.
bool mayTurn(const RecordChanges& changes, const RecordSchema& schema, bool isDone,
             std::uint32_t fields) {
    if (!changes.touch(schema)) return false;
    const auto* named = changes.of(schema);
    if (named == nullptr) return true;
    return std::any_of(named->begin(), named->end(), [&](const auto& record) {
        const RecordChange& change = record.second;
        if (change.kind == RecordChange::Kind::changed) return (change.fields & fields) != 0;
        return (change.kind == RecordChange::Kind::went) == isDone;
    });
}

}  // namespace

GettingStartedModel::GettingStartedModel(const AppServices& services) : services_(services) {
    defaultsObservation_ = services_.defaults.observe([this](std::string_view key) {
        if (key == hiddenKey) follow();
    });
    follow();
}

/// A list that nobody will see asks nothing of the library.
void GettingStartedModel::follow() {
    isHidden_ = services_.defaults.boolean(hiddenKey).value_or(false);
    observations_.clear();
    awaited_.clear();
    profileObservation_.reset();
    if (!isHidden_) {
        const auto readProfile = [this] {
            update(business, !services_.profiles.profile().name.empty());
        };
        profileObservation_ = services_.profiles.observe(readProfile);
        readProfile();
        followRecords<Client>(client, {});
        followRecords<Project>(project, {});
        // One that runs is not tracked yet.
        followRecords<TimeEntry>(time, {.predicate = key<&TimeEntry::end>() != absent},
                                 1U << KeyPath<&TimeEntry::end>::index());
        followRecords<Invoice>(invoice, {});
    }
    Q_EMIT changed();
}

template <class T>
void GettingStartedModel::followRecords(Step step, const Query<T>& query, std::uint32_t fields) {
    const auto read = [this, step, query] { update(step, hasAny(services_.context, query)); };
    observations_.push_back(
        services_.context.observeAll([this, step, fields, read](const RecordChanges& changes) {
            if (!mayTurn(changes, T::schema(), done_[step], fields)) return;
            awaited_[step] = read;
            if (isSeen_) readAwaited();
        }));
    read();
}

void GettingStartedModel::setSeen(bool isSeen) {
    isSeen_ = isSeen;
    if (isSeen_) readAwaited();
}

void GettingStartedModel::readAwaited() {
    for (const auto& [step, read] : std::exchange(awaited_, {})) read();
}

void GettingStartedModel::update(Step step, bool isDone) {
    if (done_[step] == isDone) return;
    done_[step] = isDone;
    Q_EMIT changed();
}

bool GettingStartedModel::isShown() const {
    return !isHidden_ && done_.contains(false);
}

QStringList GettingStartedModel::titles() {
    return {QStringLiteral("Business details"), QStringLiteral("Add a client"),
            QStringLiteral("Add a project"), QStringLiteral("Track time"),
            QStringLiteral("First invoice")};
}

QString GettingStartedModel::detail() const {
    return QStringLiteral("%1 of %2 done").arg(done_.count(true)).arg(done_.size());
}

void GettingStartedModel::act(int position) {
    switch (position) {
        case business:
            return Q_EMIT settingsRequested();
        case client:
            return services_.defaults.setString(sectionKey, "Clients");
        case project:
            return services_.defaults.setString(sectionKey, "Projects");
        case invoice:
            return services_.defaults.setString(sectionKey, "Invoices");
        default:
            return;
    }
}

void GettingStartedModel::hide() {
    services_.defaults.setBoolean(hiddenKey, true);
}

}  // namespace elmworth
