// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/clients/ClientEditorModel.h"

#include <algorithm>
#include <limits>

#include "platform/CurrencyFormatter.h"
#include "platform/MoneyFormat.h"

namespace elmworth {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString dueInDays(std::int64_t days) {
    return QStringLiteral("Due in %1 days").arg(days);
}

}  // namespace

ClientEditorModel::ClientEditorModel(const AppServices& services, ClientService& clients)
    : services_(services), clients_(clients), client_(services.context) {
    for (auto* field : {&name_, &email_, &address_, &rate_, &tax_})
        connect(field, &FormText::changed, this, [this] { fieldsChanged(); });
    connect(&currencies_, &ChoiceModel::picked, this, [this] {
        currency_.set(currencies_.chosen().value_or(std::string()));
        fieldsChanged();
    });
}

void ClientEditorModel::open(Ref<Client> client) {
    dismiss();
    client_.open(std::move(client), [this] { recordsChanged(); });
    profileObservation_ = services_.profiles.observe([this] { recordsChanged(); });
    fill(client_ ? ClientForm::of(*client_, services_.profiles.profile()) : ClientForm{});
    show();
}

void ClientEditorModel::fill(const ClientForm& form) {
    name_.load(text(form.name));
    email_.load(text(form.email));
    address_.load(text(form.address));
    currency_.load(form.currencyCode);
    rate_.load(text(form.rateText));
    hasOwnTerms_.load(form.hasOwnTerms);
    dueDays_.load(form.dueDays);
    tax_.load(text(form.taxText));
    offerCurrencies();
}

void ClientEditorModel::offerCurrencies() {
    std::vector<Choices<std::string>::Choice> choices;
    for (const auto& code : commonCurrencyCodes()) {
        choices.push_back({code, text(code + " — " + currencyName(code, services_.locale))});
    }
    currencies_.setSearch({});
    currencies_.offer(std::move(choices));
    setCurrency(currency_.value());
}

/// A client may have one that is no longer in use.
void ClientEditorModel::setCurrency(const std::string& code) {
    currencies_.setChosen(code, text(code + " — " + currencyName(code, services_.locale)));
}

ClientForm ClientEditorModel::form() const {
    return {name_.text().toStdString(), email_.text().toStdString(), address_.text().toStdString(),
            currency_.value(),          rate_.text().toStdString(),  hasOwnTerms_.value(),
            dueDays_.value(),           tax_.text().toStdString()};
}

QString ClientEditorModel::title() const {
    return client_ ? QStringLiteral("Edit Client") : QStringLiteral("New Client");
}

QString ClientEditorModel::subtitle() const {
    return QStringLiteral("Rate and billing details");
}

QString ClientEditorModel::notice() const {
    return client_.wasLost() ? lostText(QStringLiteral("client")) : QString();
}

QString ClientEditorModel::rateProblem() const {
    return text(elmworth::rateProblem(rate_.text().toStdString()));
}

int ClientEditorModel::dueDays() const noexcept {
    constexpr auto most = std::numeric_limits<int>::max();  // of what a restored library may hold
    return static_cast<int>(std::clamp<std::int64_t>(dueDays_.value(), 0, most));
}

QString ClientEditorModel::dueText() const {
    return dueInDays(dueDays_.value());
}

QString ClientEditorModel::taxProblem() const {
    return parseTaxRate(tax_.text().toStdString())
               ? QString()
               : QStringLiteral("Enter a percentage up to 100, like 8 or 8.25");
}

QString ClientEditorModel::defaultTerms() const {
    const auto& profile = services_.profiles.profile();
    return dueInDays(profile.defaultDueDays) +
           QStringLiteral(" · %1 %2%")
               .arg(text(profile.taxLabel), text(formatBasisPoints(profile.defaultTaxBasisPoints)));
}

void ClientEditorModel::setHasOwnTerms(bool hasOwnTerms) {
    hasOwnTerms_.set(hasOwnTerms);
    fieldsChanged();
}

void ClientEditorModel::setDueDays(int days) {
    dueDays_.set(std::clamp<std::int64_t>(days, 0, longestTerm));
    fieldsChanged();
}

void ClientEditorModel::catchUp() {
    if (client_.loseDeleted() || !client_) return;
    const auto fresh = ClientForm::of(*client_, services_.profiles.profile());
    name_.follow(text(fresh.name));
    email_.follow(text(fresh.email));
    address_.follow(text(fresh.address));
    currency_.follow(fresh.currencyCode);
    setCurrency(currency_.value());
    rate_.follow(text(fresh.rateText));
    hasOwnTerms_.follow(fresh.hasOwnTerms);
    dueDays_.follow(fresh.dueDays);
    tax_.follow(text(fresh.taxText));
}

QString ClientEditorModel::carryOut() {
    try {
        auto client = client_.get();
        if (client) {
            clients_.edit(client, form());
        } else {
            client = clients_.add(form());
        }
        Q_EMIT saved(client->id());
        return {};
    } catch (const Refused& refused) {
        return text(refused.what());
    } catch (const StoreError& error) {
        return QStringLiteral("The client couldn't be saved: %1").arg(text(error.what()));
    }
}

void ClientEditorModel::rest() {
    client_.close();
    profileObservation_.reset();
}

}  // namespace elmworth
