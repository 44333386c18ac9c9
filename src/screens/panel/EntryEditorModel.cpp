// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/EntryEditorModel.h"

#include "platform/DateFormatter.h"
#include "platform/DurationFormat.h"
#include "records/Invoice.h"

namespace elmworth {

namespace {

QString label(int minutes) {
    if (minutes < 60) return QStringLiteral("%1m").arg(minutes);
    const auto hours = QStringLiteral("%1h").arg(minutes / 60);
    return minutes % 60 == 0 ? hours : hours + QString::number(minutes % 60);
}

QString text(std::string_view utf8) {
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

}  // namespace

std::vector<DurationChip> DurationChip::all(Instant start, Instant end) {
    std::vector<DurationChip> chips;
    for (const int minutes : {6, 12, 15, 30, 60, 90, 120, 240}) {
        chips.push_back({minutes, label(minutes), end - start == std::chrono::minutes(minutes)});
    }
    return chips;
}

EntryEditorModel::EntryEditorModel(AppServices services, Save save)
    : services_(std::move(services)),
      save_(std::move(save)),
      entry_(services_.context),
      projects_(services_.context, {.none = QStringLiteral("Choose\u2026"),
                                    .label = &labelWithClient,
                                    .isListed =
                                        [this](const Project& project) {
                                            return !project.isArchived ||
                                                   project.id() == entrysOwn_;
                                        },
                                    .shown = {&Client::schema()}}),
      start_(services_.calendar, services_.now, services_.locale),
      end_(services_.calendar, services_.now, services_.locale) {
    connect(&projects_, &ChoiceModel::changed, this, [this] { fieldsChanged(); });
    connect(&start_, &DateTimeInput::changed, this, &EntryEditorModel::timesChanged);
    connect(&end_, &DateTimeInput::changed, this, &EntryEditorModel::timesChanged);
}

EntryEditorModel::~EntryEditorModel() = default;

void EntryEditorModel::open(Ref<TimeEntry> entry, std::optional<Instant> day) {
    dismiss();
    entry_.open(std::move(entry), [this] { recordsChanged(); }, {&Invoice::schema()});
    wasBilled_ = isBilled();
    notes_.setReadOnly(wasBilled_);
    const Instant now = services_.now();
    fill(entry_ ? EntryForm::of(*entry_, now)
                : EntryForm::forNewEntry(day, now, services_.calendar(), services_.timer));
    show();
    showTimes();
}

void EntryEditorModel::fill(const EntryForm& form) {
    seen_ = form;
    isRunning_ = form.wasRunning;
    entrysOwn_ = entry_ && form.project ? std::optional(form.project->id()) : std::nullopt;
    projects_.follow(form.project);
    start_.setValue(form.start);
    end_.setValue(form.end);
    notes_.load(text(form.notes));
}

EntryForm EntryEditorModel::form() const {
    return {projects_.record(), start_.value(), end_.value(), notes_.text().toStdString(),
            isRunning_};
}

QString EntryEditorModel::title() const {
    if (!entry_) return QStringLiteral("New Entry");
    return isBilled() ? QStringLiteral("Billed Entry") : QStringLiteral("Edit Entry");
}

QString EntryEditorModel::icon() const {
    return isBilled() ? QStringLiteral("lock") : QStringLiteral("clock-filled");
}

QString EntryEditorModel::iconColor() const {
    const auto& project = projects_.record();
    return project ? text(project->colorHex.get()) : text(NoProject::badgeColor);
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

QString EntryEditorModel::lockText() const {
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
    if (entry_.wasLost()) return lostText(QStringLiteral("entry"));
    if (isBilled() && !wasBilled_ && form() != seen_) {
        return QStringLiteral("It was billed meanwhile: what you changed here can't be saved.");
    }
    return {};
}

bool EntryEditorModel::isComplete() const {
    return start_.isValid() && (isRunning_ || end_.isValid()) && !form().problem(services_.now());
}

void EntryEditorModel::chooseDuration(int row) {
    if (row < 0 || row >= chips_.rowCount() || isBilled() || isRunning_) return;
    start_.finish();
    end_.setValue(start_.value() + chips()[static_cast<std::size_t>(row)].duration());
}

void EntryEditorModel::endTyping() {
    start_.finish();
    end_.finish();
}

QString EntryEditorModel::carryOut() {
    if (save_) {
        save_(form(), entry_.get());
    } else {
        form().save(entry_.get(), services_.context, services_.timer);
    }
    return {};
}

void EntryEditorModel::rest() {
    entry_.close();
    projects_.stop();
    wait_.reset();
}

void EntryEditorModel::catchUp() {
    if (entry_.loseDeleted()) {
        if (isRunning_) end_.setValue(services_.now());
        isRunning_ = false;
    } else if (entry_) {
        follow(EntryForm::of(*entry_, services_.now()));
    }
    notes_.setReadOnly(isBilled());
    showTimes();
}

void EntryEditorModel::follow(const EntryForm& fresh) {
    const EntryForm here = form();
    const EntryForm before = std::exchange(seen_, fresh);
    const bool isProjectOurs = here.project != before.project;
    if (!isProjectOurs && fresh.project != before.project) projects_.setRecord(fresh.project);
    notes_.follow(text(fresh.notes));
    const bool isStartOurs = start_.isTyped() || here.start != before.start;
    if (!isStartOurs && fresh.start != before.start) start_.setValue(fresh.start);
    const bool isEndOurs = !fresh.wasRunning && (end_.isTyped() || here.end != before.end);
    if (fresh.wasRunning != before.wasRunning || (!isEndOurs && fresh.end != before.end)) {
        end_.setValue(fresh.end);
    }
    isRunning_ = fresh.wasRunning;
}

void EntryEditorModel::timesChanged() {
    showTimes();
    fieldsChanged();
}

void EntryEditorModel::showTimes() {
    chips_.setRows(DurationChip::all(start_.value(), end_.value()));
    // A start that lies ahead can be saved once its time has come.
    if (isOpen() && !wait_ && start_.value() > services_.now()) {
        wait_ = services_.runLoop.repeat(std::chrono::seconds(1), [this] { timesChanged(); });
    }
}

}  // namespace elmworth
