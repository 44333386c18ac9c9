// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/clients/ClientsModel.h"

#include <algorithm>

#include "records/Invoice.h"
#include "screens/RecordChoices.h"
#include "screens/clients/ClientSearch.h"
#include "store/LiveQuery.h"

namespace elmworth {

namespace {

constexpr std::size_t fewestForSearch = 5;

}  // namespace

/// What follows the library. They hear of a change in this order.
struct ClientsModel::Live {
    Live(const AppServices& services, ClientsModel& model)
        : days(DateFormatter::Style::monthDay, services.locale, services.calendar().zoneID()),
          times(services.context, [&model](const auto& projects) { model.followTime(projects); }),
          clients(services.context, byName<Client>(), nullptr),
          observation(services.context.observeAll(
              [&model](const auto& changes) { model.follow(changes); })) {}

    DateFormatter days;
    ProjectTimes times;
    LiveQuery<Client> clients;
    std::optional<ClientSearch> search;  ///< read when something is first searched for
    UnitOfWork::Observation observation;
};

ClientsModel::ClientsModel(const AppServices& services, Confirmation& confirmation)
    : services_(services),
      confirmation_(confirmation),
      clients_(services.context, services.history, TimerCalls::of(services.timer), services.now),
      editor_(services, clients_),
      cards_([this](const PersistentID& id) { return textsOf(id); }),
      selection_(cards_, true) {
    connect(&editor_, &ClientEditorModel::saved, this, &ClientsModel::reveal);
}

ClientsModel::~ClientsModel() = default;

void ClientsModel::setShown(bool isShown) {
    if (isShown == this->isShown()) return;
    live_.reset();
    if (isShown) {
        live_ = std::make_unique<Live>(services_, *this);
        countProjects();
        showCards();
        cards_.forgetTexts();
    }
    Q_EMIT shownChanged();
}

QString ClientsModel::subtitle() const {
    return QStringLiteral("%1 %2").arg(count_).arg(count_ == 1 ? QStringLiteral("client")
                                                               : QStringLiteral("clients"));
}

bool ClientsModel::isSearchShown() const noexcept {
    return count_ >= fewestForSearch || !search_.isEmpty();
}

QString ClientsModel::noMatchText() const {
    if (isEmpty() || !cards().empty()) return {};
    return QStringLiteral("No clients match “%1”.").arg(search_);
}

void ClientsModel::setSearch(const QString& search) {
    if (search == search_) return;
    search_ = search;
    showCards();
}

void ClientsModel::showCards() {
    if (!live_) return;
    const auto& clients = live_->clients.records();
    count_ = clients.size();
    std::vector<ClientRow> rows;
    if (search_.isEmpty()) {
        for (const auto& client : clients) rows.push_back({client->id()});
    } else {
        if (!live_->search) live_->search.emplace(services_.context, clients);
        for (const auto& client : live_->search->matches(search_.toStdString()))
            rows.push_back({client});
    }
    cards_.show(std::move(rows));
    places_.catchUp();
    selection_.rowsChanged();
    Q_EMIT changed();
}

std::optional<ClientCardTexts> ClientsModel::textsOf(const PersistentID& id) const {
    const auto client = live_ ? services_.context.recordQuietly<Client>(id) : nullptr;
    if (!client) return std::nullopt;
    return ClientCardTexts::of(ClientCardContent::of(client, services_.context, live_->times),
                               live_->days);
}

void ClientsModel::follow(const RecordChanges& changes) {
    if (!changes.touch(Client::schema()) && !changes.touch(Project::schema()) &&
        !changes.touch(Invoice::schema()))
        return;
    live_->search.reset();
    if (changes.touch(Project::schema())) countProjects();
    showCards();
    cards_.forgetTexts();
}

void ClientsModel::countProjects() {
    std::unordered_map<PersistentID, std::size_t> counts;
    std::size_t most = 0;
    try {
        services_.context.forEachValues<&Project::client>(
            std::optional(key<&Project::isArchived>() == false),
            [&](const PersistentID& /*project*/, const std::optional<PersistentID>& client) {
                if (client) most = std::max(most, ++counts[*client]);
            });
    } catch (const StoreError&) {
        // So nothing is cut; the library's faults are told elsewhere.
        most = ClientCardTexts::mostProjects;
    }
    projectLines_ = most > 2 ? 2 : 1;
}

void ClientsModel::followTime(const ProjectTimes::Projects& projects) {
    std::unordered_set<PersistentID> clients;
    for (const auto& id : projects) {
        const auto project = services_.context.recordQuietly<Project>(id);
        if (const auto client = project ? project->client.id() : std::nullopt)
            clients.insert(*client);
    }
    cards_.forgetTexts(clients);
}

std::optional<PersistentID> ClientsModel::clientAt(int row) const {
    if (row < 0 || row >= cards_.rowCount()) return std::nullopt;
    return cards()[static_cast<std::size_t>(row)].id;
}

int ClientsModel::rowOf(const PersistentID& id) const {
    const auto found = std::ranges::find(cards(), id, &ClientRow::id);
    return found == cards().end() ? -1 : static_cast<int>(found - cards().begin());
}

void ClientsModel::reveal(const PersistentID& id) {
    if (rowOf(id) < 0) setSearch({});
    const int row = rowOf(id);
    if (row < 0) return;
    selection_.click(row);
    Q_EMIT revealRequested(row);
}

void ClientsModel::add() {
    editor_.open(nullptr);
}

void ClientsModel::edit(int row) {
    if (const auto id = clientAt(row)) editClient(*id);
}

void ClientsModel::remove(int row) {
    if (const auto id = clientAt(row)) askToRemove(*id);
}

void ClientsModel::invoice(int row) {
    if (const auto id = clientAt(row)) Q_EMIT invoiceRequested(*id);
}

bool ClientsModel::openMenu(int row) {
    menuClient_ = clientAt(row);
    if (menuClient_) selection_.click(row);
    return menuClient_.has_value();
}

void ClientsModel::menuEdit() {
    if (menuClient_) editClient(*menuClient_);
}

void ClientsModel::menuRemove() {
    if (menuClient_) askToRemove(*menuClient_);
}

void ClientsModel::menuInvoice() {
    if (menuClient_) Q_EMIT invoiceRequested(*menuClient_);
}

void ClientsModel::editClient(const PersistentID& id) {
    if (const auto client = services_.context.recordQuietly<Client>(id)) editor_.open(client);
}

void ClientsModel::askToRemove(const PersistentID& id) {
    const auto client = services_.context.recordQuietly<Client>(id);
    if (!client) return;
    const QString name = QString::fromStdString(client->name);
    try {
        if (hasInvoices(*client)) {
            return confirmation_.tell(
                {.icon = QStringLiteral("people-filled"),
                 .title = QStringLiteral("Client has invoices"),
                 .message = QStringLiteral("Delete %1's invoices first.").arg(name)});
        }
    } catch (const StoreError& error) {
        return tellOfFailure(QString::fromUtf8(error.what()));
    }
    confirmation_.ask(
        {.icon = QStringLiteral("trash"),
         .title = QStringLiteral("Delete %1?").arg(name),
         .message = QStringLiteral("This also deletes its projects and all their time entries."),
         .acceptText = QStringLiteral("Delete Client"),
         .isDestructive = true},
        [this, id] { removeNow(id); });
}

void ClientsModel::removeNow(const PersistentID& id) {
    const auto client = services_.context.recordQuietly<Client>(id);
    if (!client) return;
    const QString name = QString::fromStdString(client->name);
    try {
        clients_.remove(client);
    } catch (const Refused& refused) {
        return tellOfFailure(QString::fromUtf8(refused.what()));
    } catch (const StoreError& error) {
        return tellOfFailure(QString::fromUtf8(error.what()));
    }
    Q_EMIT removed(QStringLiteral("Deleted %1.").arg(name));
}

void ClientsModel::tellOfFailure(const QString& sentence) {
    confirmation_.tell({.icon = QStringLiteral("warning"),
                        .title = QStringLiteral("The client couldn't be deleted"),
                        .message = sentence});
}

}  // namespace elmworth
