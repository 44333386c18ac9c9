// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/MainViewModel.h"

#include <QKeySequence>
#include <utility>

#include "screens/main/SidebarItem.h"

namespace elmworth {

namespace {

constexpr std::string_view sectionKey = "mainSection";

}  // namespace

MainViewModel::MainViewModel(const AppServices& services, const InvoiceOutlets& outlets,
                             Updater* updater)
    : readFaults_(services.context.readFaults()),
      context_(services.context),
      defaults_(services.defaults),
      timer_(services.timer),
      now_(services.now),
      lastRunning_(timer_.running()),
      running_(services),
      welcome_(services.defaults),
      updater_(updater),
      history_(services.history),
      timesheet_(services, confirmation_, history_),
      newInvoice_(services),
      clients_(services, confirmation_),
      projects_(services, confirmation_),
      invoices_(services, outlets, confirmation_, newInvoice_) {
    if (updater_ != nullptr) updatePrompts_.emplace(*updater_, confirmation_);
    connect(&clients_, &ClientsModel::invoiceRequested, this, [this](const auto& client) {
        newInvoice_.open(context_.recordQuietly<Client>(client));
    });
    connect(&clients_, &ClientsModel::removed, &history_, &HistoryModel::tellOfStep);
    connect(&projects_, &ProjectsModel::removed, &history_, &HistoryModel::tellOfStep);
    connect(&projects_, &ProjectsModel::failed, &history_, &HistoryModel::say);
    connect(&history_, &HistoryModel::historyChanged, this, &MainViewModel::followTimer);
    connect(&newInvoice_, &NewInvoiceModel::created, this,
            [this] { defaults_.setString(sectionKey, "Invoices"); });
    connect(timesheet_.gettingStarted(), &GettingStartedModel::settingsRequested, this,
            &MainViewModel::settingsRequested);
    connect(&newInvoice_, &NewInvoiceModel::settingsRequested, this,
            &MainViewModel::settingsRequested);
    newInvoice_.offerSettings();
    defaultsObservation_ = defaults_.observe([this](std::string_view key) {
        if (key == sectionKey) Q_EMIT sectionChanged();
    });
    faultsObservation_ = readFaults_.observe([this] { Q_EMIT libraryProblemChanged(); });
}

/// An entry that a clock set back leaves without time goes like one that was started by accident;
/// it may have been an hour.
void MainViewModel::followTimer() {
    const auto last = std::exchange(lastRunning_, timer_.running());
    if (!last || !last->isDeleted() || last->start.get() <= now_()) return;
    history_.tellOfStep(
        QStringLiteral("The clock stands before the start of what ran, so nothing was kept."));
}

int MainViewModel::section() const {
    const auto raw = defaults_.string(sectionKey).value_or("");
    return static_cast<int>(sidebarPosition(raw).value_or(0));
}

void MainViewModel::setTrayShown(bool isShown) {
    welcome_.setTrayShown(isShown);
    timesheet_.setTrayShown(isShown);
    projects_.setTrayShown(isShown);
}

void MainViewModel::showSection(int position) {
    if (position < 0 || static_cast<std::size_t>(position) >= sidebarItems.size()) return;
    defaults_.setString(sectionKey, sidebarItems[static_cast<std::size_t>(position)].rawValue);
}

bool MainViewModel::isCovered() {
    return confirmation_.isOpen() || newInvoice_.isOpen() || welcome_.isOpen() ||
           timesheet_.editor()->isOpen() || clients_.editor()->isOpen() ||
           projects_.editor()->isOpen();
}

void MainViewModel::openNewInvoice() {
    if (isCovered()) return;
    if (const auto position = sidebarPosition("Invoices")) showSection(static_cast<int>(*position));
    invoices_.openNewInvoice();
}

void MainViewModel::stopTimer() {
    timer_.stop();
}

void MainViewModel::resumeLastEntry() {
    if (timer_.running()) return;
    if (const auto entry = timer_.lastContinuableEntry()) timer_.continueEntry(entry);
}

QString MainViewModel::stopHelp() {
    const QKeySequence keys(QStringLiteral("Ctrl+Alt+."));
    return QStringLiteral("Stop timer (%1)").arg(keys.toString(QKeySequence::NativeText));
}

QString MainViewModel::libraryProblem() const {
    return readFaults_.count() > 0 ? QString::fromStdString(unreadableLibraryText()) : QString();
}

void MainViewModel::checkForUpdates() {
    if (updatePrompts_) updatePrompts_->look();
}

void MainViewModel::openPanel() {
    Q_EMIT panelRequested();
}

void MainViewModel::openSettings() {
    Q_EMIT settingsRequested();
}

}  // namespace elmworth
