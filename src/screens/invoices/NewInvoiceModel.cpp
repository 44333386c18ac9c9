// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/NewInvoiceModel.h"

#include <QRegularExpression>
#include <QScopedValueRollback>
#include <algorithm>
#include <array>
#include <chrono>
#include <utility>

#include "invoicing/UnbilledTime.h"
#include "platform/DateFormatter.h"
#include "platform/MoneyFormat.h"
#include "platform/Text.h"
#include "records/FieldText.h"
#include "records/Project.h"

namespace elmworth {

namespace {

/// Tried in this order.
constexpr std::array usualPresets{DateRangePreset::lastWeek, DateRangePreset::thisWeek,
                                  DateRangePreset::lastMonth, DateRangePreset::thisMonth};

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString nameOf(const Client& client) {
    return text(client.name.get());
}

/// Whether some of the changes of entries are of what is billed: notes come often, as they are
/// typed.
bool touchesTime(const RecordChanges& changes) {
    if (!changes.touch(TimeEntry::schema())) return false;
    const auto* entries = changes.of(TimeEntry::schema());
    if (!entries) return true;
    constexpr auto isOfNotes = [](const auto& named) {
        return named.second.kind == RecordChange::Kind::changed &&
               named.second.fields == 1U << KeyPath<&TimeEntry::notes>::index();
    };
    return !std::all_of(entries->begin(), entries->end(), isOfNotes);
}

}  // namespace

NewInvoiceModel::NewInvoiceModel(const AppServices& services)
    : services_(services),
      clients_(services_.context, {.none = QStringLiteral("Choose\u2026"), .label = &nameOf}),
      period_(services_, services_.now(), services_.now()),
      figures_(services_) {
    connect(&clients_, &ChoiceModel::picked, this, [this] {
        wasClientLost_ = false;
        clientChanged();
    });
    connect(&clients_, &ChoiceModel::lost, this, [this] {
        wasClientLost_ = true;
        clientChanged();
    });
    connect(&clients_, &ChoiceModel::changed, this, [this] { formChanged(); });
    for (auto* day : {from_, through_}) {
        connect(day, &DateTimeInput::changed, this, &NewInvoiceModel::formChanged);
    }
    connect(&tax_, &FormText::changed, this, &NewInvoiceModel::formChanged);
}

NewInvoiceModel::~NewInvoiceModel() = default;

InvoiceService NewInvoiceModel::service() const {
    return {services_.context, services_.history, services_.profiles, services_.now,
            services_.calendar()};
}

void NewInvoiceModel::open(const Ref<Client>& client) {
    dismiss();
    {
        const QScopedValueRollback filling(isFilling_, true);
        wasClientLost_ = false;
        preset_ = DateRangePreset::lastWeek;
        const Instant now = services_.now();
        from_->setValue(services_.calendar().adding(-30, CalendarUnit::day, now).value_or(now));
        through_->setValue(now);
        clients_.follow(client);
        if (!client && !clients_.records().empty()) {
            clients_.setRecord(clients_.records().front());
        }
        tax_.load(usualTax());
        choosePeriod(client);
    }
    follow();
    show();
}

void NewInvoiceModel::choosePeriod(const Ref<Client>& initialClient) {
    try {
        if (initialClient) {
            const auto first =
                firstUnbilledStart(services_.context, initialClient, services_.now());
            if (first) {
                preset_ = DateRangePreset::custom;
                from_->setValue(*first);
            }
        } else if (clients_.record()) {
            preset_ = firstPresetWithTime().value_or(preset_);
        }
    } catch (const StoreError&) {
        // The figures say so.
    }
    refresh();
}

/// The first of the usual presets in which the chosen client has unbilled time. Throws StoreError.
std::optional<DateRangePreset> NewInvoiceModel::firstPresetWithTime() const {
    DateInterval all = period_.interval(usualPresets.front());
    for (const auto preset : usualPresets) {
        const auto [start, end] = period_.interval(preset);
        all = {std::min(all.start, start), std::max(all.end, end)};
    }
    const auto entries = service().unbilledEntries(clients_.record(), all);
    const auto hasTime = [&](DateRangePreset preset) {
        const auto [start, end] = period_.interval(preset);
        return std::any_of(entries.begin(), entries.end(),
                           [start = start, end = end](const auto& entry) {
                               return start <= entry->start.get() && entry->start.get() < end;
                           });
    };
    const auto* const found = std::find_if(usualPresets.begin(), usualPresets.end(), hasTime);
    return found == usualPresets.end() ? std::nullopt : std::optional(*found);
}

void NewInvoiceModel::follow() {
    libraryObservation_ = services_.context.observeAll(
        [this](const RecordChanges& changes) { followLibrary(changes); });
    profileObservation_ = services_.profiles.observe([this] { recordsChanged(); });
    // Another day makes another week, and another year another number.
    clock_ = services_.runLoop.repeat(std::chrono::minutes(1), [this] { recordsChanged(); });
}

void NewInvoiceModel::followLibrary(const RecordChanges& changes) {
    const bool concernsBilling =
        touchesTime(changes) || changes.touch(Project::schema()) || changes.touch(Client::schema());
    if (!concernsBilling) return;
    figures_.libraryChanged();
    recordsChanged();
}

void NewInvoiceModel::clientChanged() {
    {
        const QScopedValueRollback filling(isFilling_, true);
        tax_.load(usualTax());
    }
    formChanged();
}

void NewInvoiceModel::formChanged() {
    if (isFilling_ || !isOpen()) return;
    refresh();
    fieldsChanged();
}

void NewInvoiceModel::refresh() {
    const auto& client = clients_.record();
    figures_.show({.client = client && !client->isDeleted() ? client : nullptr,
                   .period = period(),
                   .taxBasisPoints = taxBasisPoints().value_or(0),
                   .roundingMinutes = services_.profiles.profile().roundingMinutes});
}

void NewInvoiceModel::choosePreset(int position) {
    const auto preset = PeriodInput::presetAt(position);
    if (!preset) return;
    preset_ = *preset;
    formChanged();
}

void NewInvoiceModel::offerSettings() {
    canOpenSettings_ = true;
    Q_EMIT changed();
}

QString NewInvoiceModel::subtitle() const {
    return QStringLiteral("Next number %1").arg(text(service().nextNumber()));
}

QString NewInvoiceModel::notice() const {
    if (!wasClientLost_) return {};
    return QStringLiteral("The client was deleted elsewhere. Choose another one.");
}

QString NewInvoiceModel::dates() const {
    const auto [start, end] = period();
    const DateFormatter format(DateFormatter::Style::mediumDate, services_.locale,
                               services_.calendar().zoneID());
    return text(format.string(start) + " – " + format.string(end - std::chrono::seconds(1)));
}

std::optional<std::int64_t> NewInvoiceModel::taxBasisPoints() const {
    const auto parsed = parseTaxRate(tax_.text().toStdString());
    return parsed ? std::optional(parsed.value()) : std::nullopt;
}

QString NewInvoiceModel::usualTax() const {
    const auto& client = clients_.record();
    return text(formatBasisPoints(client ? service().taxRate(*client)
                                         : services_.profiles.profile().defaultTaxBasisPoints));
}

QString NewInvoiceModel::taxProblem() const {
    return text(parseTaxRate(tax_.text().toStdString()).problem());
}

QString NewInvoiceModel::taxNote() const {
    static const QRegularExpression plain(QStringLiteral("^\\s*\\d*([.,]\\d{0,2})?\\s*%?\\s*$"));
    const auto rate = taxBasisPoints();
    if (!rate || plain.match(tax_.text()).hasMatch()) return {};
    return QStringLiteral("Taken as %1%.").arg(text(formatBasisPoints(*rate)));
}

QString NewInvoiceModel::rounding() const {
    return QStringLiteral("Each entry up to %1 min")
        .arg(services_.profiles.profile().roundingMinutes);
}

bool NewInvoiceModel::lacksBusinessName() const {
    return trimmedBlanks(services_.profiles.profile().name).empty();
}

bool NewInvoiceModel::isComplete() const {
    const bool hasDays = !isCustom() || (from_->isValid() && through_->isValid());
    return figures_.entryCount() > 0 && figures_.problem().isEmpty() && hasDays &&
           taxBasisPoints().has_value();
}

void NewInvoiceModel::endTyping() {
    from_->finish();
    through_->finish();
}

void NewInvoiceModel::catchUp() {
    {
        const QScopedValueRollback filling(isFilling_, true);
        tax_.follow(usualTax());
    }
    refresh();
}

QString NewInvoiceModel::carryOut() {
    QString failure = create();
    if (!failure.isEmpty()) {
        // What stood in the way may not be what shows.
        figures_.libraryChanged();
        refresh();
    }
    return failure;
}

QString NewInvoiceModel::create() {
    try {
        const auto invoice =
            service().create(clients_.record(), period(), taxBasisPoints().value());
        Q_EMIT created(invoice->id());
        return {};
    } catch (const StoreError& error) {
        return QStringLiteral("The invoice could not be saved: %1.").arg(text(error.what()));
    } catch (const std::runtime_error& error) {  // BuildError and Refused are sentences
        return text(error.what());
    }
}

void NewInvoiceModel::rest() {
    libraryObservation_.reset();
    profileObservation_.reset();
    clock_.reset();
    clients_.stop();
    figures_.clear();
}

}  // namespace elmworth
