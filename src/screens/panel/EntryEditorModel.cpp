// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/EntryEditorModel.h"

#include "platform/MoneyFormat.h"
#include "records/HoursFormat.h"
#include "records/Invoice.h"
#include "tracking/DurationFormat.h"

namespace elmworth {

namespace {

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace

EntryEditorModel::EntryEditorModel(AppServices services, Save save)
    : services_(std::move(services)),
      save_(std::move(save)),
      projects_(services_.context),
      start_(services_.calendar, services_.now, services_.locale),
      end_(services_.calendar, services_.now, services_.locale) {
    connect(&projects_, &ChoiceModel::changed, this, &EntryEditorModel::changed);
    connect(&start_, &DateTimeInput::changed, this, &EntryEditorModel::refresh);
    connect(&end_, &DateTimeInput::changed, this, &EntryEditorModel::refresh);
}

EntryEditorModel::~EntryEditorModel() = default;

void EntryEditorModel::open(Ref<TimeEntry> entry, std::optional<Instant> day) {
    dismiss();
    entry_ = entry && !entry->isDeleted() ? std::move(entry) : nullptr;
    wasBilled_ = isBilled();
    wasDeleted_ = false;
    const Instant now = services_.now();
    fill(entry_ ? EntryForm::of(*entry_, now)
                : EntryForm::forNewEntry(day, now, services_.calendar(), services_.timer));
    observe();
    isOpen_ = true;
    refresh();
    Q_EMIT isOpenChanged();
    Q_EMIT opened();
}

void EntryEditorModel::fill(const EntryForm& form) {
    seen_ = form;
    isRunning_ = form.wasRunning;
    projects_.show(form.project, entry_ ? form.project : nullptr);
    start_.setValue(form.start);
    end_.setValue(form.end);
    notes_ = text(form.notes);
    Q_EMIT notesChanged();
}

void EntryEditorModel::observe() {
    for (const auto* schema : {&TimeEntry::schema(), &Invoice::schema()}) {
        observations_.push_back(services_.context.observe(*schema, [this] { recordsChanged(); }));
    }
}

EntryForm EntryEditorModel::form() const {
    return {projects_.chosen(), start_.value(), end_.value(), notes_.toStdString(), isRunning_};
}

QString EntryEditorModel::title() const {
    if (!entry_) return QStringLiteral("New Entry");
    return isBilled() ? QStringLiteral("Billed Entry") : QStringLiteral("Edit Entry");
}

QString EntryEditorModel::icon() const {
    return isBilled() ? QStringLiteral("lock.fill") : QStringLiteral("clock.fill");
}

QString EntryEditorModel::iconColor() const {
    const auto& project = projects_.chosen();
    return project ? text(project->colorHex.get()) : QStringLiteral("#7C6CFF");
}

QString EntryEditorModel::subtitle() const {
    if (isRunning_) {
        return QStringLiteral("Running since ") + text(shortTimeFormatter().string(start_.value()));
    }
    const double seconds = secondsBetween(start_.value(), end_.value());
    if (end_.value() <= start_.value()) return QStringLiteral("\u2014");
    return text(formatHoursMinutes(seconds)) + QStringLiteral(" \u00B7 ") +
           text(formatDecimalHours(seconds)) + QStringLiteral(" h");
}

bool EntryEditorModel::isBilled() const {
    return entry_ && entry_->invoice;
}

void EntryEditorModel::setNotes(const QString& notes) {
    if (notes == notes_ || isBilled()) return;
    notes_ = notes;
    Q_EMIT notesChanged();
}

QString EntryEditorModel::billedText() const {
    if (!isBilled()) return {};
    const auto& invoice = entry_->invoice.get();
    return QStringLiteral("On invoice %1. Delete the invoice to edit this entry.")
        .arg(invoice ? text(invoice->number.get()) : QString());
}

QString EntryEditorModel::problem() const {
    if (isBilled() || !start_.isValid() || !(isRunning_ || end_.isValid())) return {};
    const Instant now = services_.now();
    const auto times = form().timeProblem(now);
    return text((times ? times : form().problem(now)).value_or(std::string_view()));
}

QString EntryEditorModel::notice() const {
    if (wasDeleted_) {
        return QStringLiteral("This entry was deleted elsewhere. Save adds it as a new one.");
    }
    if (isBilled() && !wasBilled_ && form() != seen_) {
        return QStringLiteral("It was billed meanwhile: what you changed here can't be saved.");
    }
    return {};
}

QString EntryEditorModel::cancelText() const {
    return isBilled() ? QStringLiteral("Close") : QStringLiteral("Cancel");
}

bool EntryEditorModel::canSave() const {
    return isOpen_ && !isBilled() && start_.isValid() && (isRunning_ || end_.isValid()) &&
           !form().problem(services_.now());
}

void EntryEditorModel::chooseDuration(int row) {
    if (row < 0 || row >= chips_.rowCount() || isBilled() || isRunning_) return;
    start_.finish();
    end_.setValue(start_.value() + chips()[static_cast<std::size_t>(row)].duration());
}

void EntryEditorModel::save() {
    if (!isOpen_) return;
    start_.finish();
    end_.finish();
    recordsChanged();  // those of this turn are not told yet
    if (!canSave()) return;
    observations_.clear();  // what comes now is our own doing
    if (save_) {
        save_(form(), entry_);
    } else {
        form().save(entry_, services_.context, services_.timer);
    }
    dismiss();
}

void EntryEditorModel::dismiss() {
    if (!isOpen_) return;
    isOpen_ = false;
    observations_.clear();
    projects_.stop();
    wait_.reset();
    Q_EMIT isOpenChanged();
    Q_EMIT dismissed();
}

void EntryEditorModel::recordsChanged() {
    if (entry_ && entry_->isDeleted()) {
        loseEntry();
    } else if (entry_) {
        follow(EntryForm::of(*entry_, services_.now()));
    }
    refresh();
}

void EntryEditorModel::follow(const EntryForm& fresh) {
    const EntryForm here = form();
    const EntryForm before = std::exchange(seen_, fresh);
    if (here.project == before.project) projects_.setChosen(fresh.project);
    if (here.notes == before.notes && fresh.notes != before.notes) {
        notes_ = text(fresh.notes);
        Q_EMIT notesChanged();
    }
    const bool isStartOurs = start_.isTyped() || here.start != before.start;
    if (!isStartOurs && fresh.start != before.start) start_.setValue(fresh.start);
    const bool isEndOurs = !fresh.wasRunning && (end_.isTyped() || here.end != before.end);
    if (fresh.wasRunning != before.wasRunning || (!isEndOurs && fresh.end != before.end)) {
        end_.setValue(fresh.end);
    }
    isRunning_ = fresh.wasRunning;
}

void EntryEditorModel::loseEntry() {
    if (isRunning_) end_.setValue(services_.now());
    isRunning_ = false;
    entry_ = nullptr;
    wasDeleted_ = true;
}

/// After what is shown changed in any way.
void EntryEditorModel::refresh() {
    chips_.setRows(DurationChip::all(start_.value(), end_.value()));
    // A start that lies ahead can be saved once its time has come.
    if (isOpen_ && !wait_ && start_.value() > services_.now()) {
        wait_ = services_.runLoop.repeat(std::chrono::seconds(1), [this] { refresh(); });
    }
    Q_EMIT changed();
}

}  // namespace elmworth
