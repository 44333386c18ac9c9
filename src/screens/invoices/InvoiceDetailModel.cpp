// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoiceDetailModel.h"

#include <chrono>
#include <utility>

#include "platform/Text.h"
#include "records/Client.h"
#include "records/Project.h"

namespace elmworth {

namespace {

constexpr std::chrono::seconds typingPause{1};

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

bool changesOnlyNotes(const RecordChange& change) {
    return change.kind == RecordChange::Kind::changed &&
           change.fields == 1U << KeyPath<&Invoice::notes>::index();
}

}  // namespace

InvoiceDetailModel::InvoiceDetailModel(const AppServices& services, const InvoiceOutlets& outlets,
                                       LiveInvoiceTotals& totals, Confirmation& confirmation)
    : services_(services),
      outlets_(outlets),
      totals_(totals),
      confirmation_(confirmation),
      delivery_(services, outlets, confirmation),
      dates_(services, [this](const auto& change) { attempt(change); }) {}

InvoiceService InvoiceDetailModel::service() const {
    return {services_.context, services_.history, services_.profiles, services_.now,
            services_.calendar()};
}

QStringList InvoiceDetailModel::statusNames() {
    QStringList names;
    for (const auto status : allInvoiceStatuses) names.append(text(std::string(label(status))));
    return names;
}

void InvoiceDetailModel::show(const Ref<Invoice>& invoice) {
    const Ref<Invoice> next = invoice && !invoice->isDeleted() ? invoice : nullptr;
    if (next == invoice_) return;
    leave();
    invoice_ = next;
    delivery_.setInvoice(invoice_);
    dates_.show(invoice_);
    refresh();
    Q_EMIT opened();
}

/// What was begun with the invoice ends.
void InvoiceDetailModel::leave() {
    setRenaming(false);
    leaveNotes();
}

void InvoiceDetailModel::refresh() {
    if (invoice_ && invoice_->isDeleted()) return show(nullptr);
    showPages();
    dates_.refresh();
    showNotes();
    if (isRenaming_ && !facts_.isDraft) setRenaming(false);
    Q_EMIT changed();
}

void InvoiceDetailModel::showPages() {
    facts_ = {};
    if (!invoice_) return preview_.clear();
    // What it shows is kept, so that it hears of changes.
    totals_.read({invoice_});
    const auto entryCount = services_.context.fetchCount<TimeEntry>(
        Query<TimeEntry>{.predicate = key<&TimeEntry::invoice>() == invoice_});
    const auto formats = screenFormats(services_);
    const auto& profile = services_.profiles.profile();
    try {
        const auto totals = InvoiceCalculator::totals(*invoice_);
        pages_ = makeInvoiceRenderModel(*invoice_, totals, profile, formats,
                                        outlets_.painter.loadLogo());
        facts_ = factsOf(*invoice_, entryCount, pages_, &totals, services_);
        preview_.show(pages_, profile.paperSize);
    } catch (const FiguresError& error) {
        pages_ = makeInvoiceHead(*invoice_, profile, formats, nullptr);
        facts_ = factsOf(*invoice_, entryCount, pages_, nullptr, services_);
        facts_.problem = text(error.what());
        preview_.clear();
    }
}

void InvoiceDetailModel::follow(const RecordChanges& changes,
                                const std::unordered_set<PersistentID>& outdated) {
    if (!invoice_) return;
    const bool isOther = outdated.contains(invoice_->id()) || changes.touch(Project::schema()) ||
                         changes.touch(Client::schema());
    const auto* named = changes.of(Invoice::schema());
    if (isOther || (changes.touch(Invoice::schema()) && named == nullptr)) return refresh();
    if (named == nullptr) return;
    const auto change = named->find(invoice_->id());
    if (change == named->end()) return;
    if (!changesOnlyNotes(change->second)) return refresh();
    showNotes();
}

void InvoiceDetailModel::attempt(const std::function<void()>& change) {
    try {
        change();
    } catch (const std::runtime_error& error) {
        delivery_.say(text(error.what()));
    }
}

void InvoiceDetailModel::applyStatus(InvoiceStatus status) {
    if (!invoice_ || invoice_->status() == status) return;
    attempt([&] { service().setStatus(invoice_, status); });
}

void InvoiceDetailModel::setStatus(int position) {
    if (position < 0 || static_cast<std::size_t>(position) >= allInvoiceStatuses.size()) return;
    applyStatus(allInvoiceStatuses[static_cast<std::size_t>(position)]);
}

void InvoiceDetailModel::takeNextStep() {
    if (!invoice_ || invoice_->status() == InvoiceStatus::paid) return;
    applyStatus(invoice_->status() == InvoiceStatus::draft ? InvoiceStatus::sent
                                                           : InvoiceStatus::paid);
}

void InvoiceDetailModel::setShowsEntries(bool shows) {
    if (!invoice_ || invoice_->showsEntryDetails.get() == shows) return;
    attempt([&] { service().setShowsEntryDetails(invoice_, shows); });
}

// --- the number ----------------------------------------------------------------------------------

void InvoiceDetailModel::setNumberDraft(const QString& draft) {
    if (draft == numberDraft_) return;
    numberDraft_ = draft;
    Q_EMIT numberDraftChanged();
}

void InvoiceDetailModel::beginRenaming() {
    if (!invoice_ || !facts_.isDraft) return;
    setNumberDraft(facts_.number);
    setRenaming(true);
}

void InvoiceDetailModel::endRenaming() {
    setRenaming(false);
}

void InvoiceDetailModel::setRenaming(bool renaming) {
    if (!renaming) setNumberDraft(facts_.number);
    if (renaming == isRenaming_) return;
    isRenaming_ = renaming;
    Q_EMIT renamingChanged();
}

void InvoiceDetailModel::commitNumber() {
    if (!invoice_ || !isRenaming_) return;
    try {
        service().rename(invoice_, numberDraft_.toStdString());
    } catch (const std::runtime_error& error) {
        delivery_.say(text(error.what()));
        return setNumberDraft(facts_.number);
    }
    delivery_.say({});
    setRenaming(false);
}

// --- the notes -----------------------------------------------------------------------------------

QString InvoiceDetailModel::notesCount() const {
    return QStringLiteral("%1/%2")
        .arg(characterCount(notes_.toStdString()))
        .arg(longestInvoiceNotes);
}

void InvoiceDetailModel::setNotes(const QString& notes) {
    if (!invoice_ || invoice_->isDeleted() || notes == notes_) return;
    isTyping_ = true;
    service().typeNotes(invoice_, notes.toStdString());
    showNotes();
    notesSave_ = services_.runLoop.repeat(typingPause, [this] {
        notesSave_.reset();
        services_.context.saveQuietly();
    });
}

void InvoiceDetailModel::leaveNotes() {
    if (!std::exchange(isTyping_, false)) return;
    notesSave_.reset();
    service().leaveNotes();
}

void InvoiceDetailModel::showNotes() {
    const QString notes = invoice_ ? text(invoice_->notes) : QString();
    if (notes == notes_) return;
    notes_ = notes;
    showNotesOnPage();
    Q_EMIT notesChanged();
}

/// The figures stay as they are.
void InvoiceDetailModel::showNotesOnPage() {
    if (!invoice_ || !facts_.problem.isEmpty()) return;
    std::string onPage{trimmedWhitespace(invoice_->notes.get())};
    if (onPage == pages_.notes) return;
    pages_.notes = std::move(onPage);
    preview_.show(pages_, services_.profiles.profile().paperSize);
}

// --- the end -------------------------------------------------------------------------------------

void InvoiceDetailModel::askToDelete() {
    if (!invoice_) return;
    confirmation_.ask(
        {.icon = QStringLiteral("trash"),
         .title = QStringLiteral("Delete %1?").arg(facts_.number),
         .message =
             QStringLiteral("Its %1 time entries become unbilled again.").arg(facts_.entryCount),
         .acceptText = QStringLiteral("Delete Invoice"),
         .isDestructive = true},
        [this, asked = invoice_] {
            if (asked == invoice_) remove();
        });
}

void InvoiceDetailModel::remove() {
    leaveNotes();
    try {
        service().remove(invoice_);
    } catch (const std::runtime_error& error) {
        return delivery_.say(text(error.what()));
    }
    show(nullptr);
    Q_EMIT deleted();
}

}  // namespace elmworth
