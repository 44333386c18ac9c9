// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QtQmlIntegration>
#include <optional>

#include "platform/Settings.h"
#include "screens/clients/ClientsModel.h"
#include "screens/invoices/InvoicesModel.h"
#include "screens/invoices/NewInvoiceModel.h"
#include "screens/main/SidebarModel.h"
#include "screens/main/UpdatePrompts.h"
#include "screens/panel/HistoryModel.h"
#include "screens/panel/RunningEntryModel.h"
#include "screens/projects/ProjectsModel.h"
#include "screens/timesheet/TimesheetModel.h"
#include "screens/welcome/WelcomeModel.h"
#include "theme/Confirmation.h"

namespace elmworth {

/// The main window: which section it shows, what runs, and what its menus do. The setting
/// "mainSection" alone decides about the section, whoever writes it.
class MainViewModel final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The application owns it")
    Q_PROPERTY(elmworth::SidebarModel* sections READ sections CONSTANT FINAL)
    Q_PROPERTY(int section READ section NOTIFY sectionChanged FINAL)
    Q_PROPERTY(elmworth::RunningEntryModel* running READ running CONSTANT FINAL)
    Q_PROPERTY(elmworth::TimesheetModel* timesheet READ timesheet CONSTANT FINAL)
    Q_PROPERTY(elmworth::ClientsModel* clients READ clients CONSTANT FINAL)
    Q_PROPERTY(elmworth::ProjectsModel* projects READ projects CONSTANT FINAL)
    Q_PROPERTY(elmworth::InvoicesModel* invoices READ invoices CONSTANT FINAL)
    /// The sheet that more than one section opens.
    Q_PROPERTY(elmworth::NewInvoiceModel* newInvoice READ newInvoice CONSTANT FINAL)
    /// Greets whoever opens the window for the first time.
    Q_PROPERTY(elmworth::WelcomeModel* welcome READ welcome CONSTANT FINAL)
    /// What any of the sections asks.
    Q_PROPERTY(elmworth::Confirmation* confirmation READ confirmation CONSTANT FINAL)
    /// What was done in any of them, and elsewhere.
    Q_PROPERTY(elmworth::HistoryModel* history READ history CONSTANT FINAL)
    Q_PROPERTY(bool canCheckForUpdates READ canCheckForUpdates CONSTANT FINAL)
    Q_PROPERTY(QString stopHelp READ stopHelp CONSTANT FINAL)
    Q_PROPERTY(QString libraryProblem READ libraryProblem NOTIFY libraryProblemChanged FINAL)

 public:
    /// Without `updater` nothing looks for updates; else it outlives this.
    MainViewModel(const AppServices& services, const InvoiceOutlets& outlets,
                  Updater* updater = nullptr);

    [[nodiscard]] SidebarModel* sections() { return &sections_; }
    /// The position of the section that shows. A "mainSection" that names none is the timesheet.
    [[nodiscard]] int section() const;
    [[nodiscard]] RunningEntryModel* running() { return &running_; }
    [[nodiscard]] TimesheetModel* timesheet() { return &timesheet_; }
    [[nodiscard]] ClientsModel* clients() { return &clients_; }
    [[nodiscard]] ProjectsModel* projects() { return &projects_; }
    [[nodiscard]] InvoicesModel* invoices() { return &invoices_; }
    [[nodiscard]] NewInvoiceModel* newInvoice() { return &newInvoice_; }
    [[nodiscard]] WelcomeModel* welcome() { return &welcome_; }
    [[nodiscard]] Confirmation* confirmation() { return &confirmation_; }
    [[nodiscard]] HistoryModel* history() { return &history_; }
    [[nodiscard]] bool canCheckForUpdates() const {
        return updater_ != nullptr && updater_->isEnabled();
    }
    [[nodiscard]] static QString stopHelp();
    /// What is to be known about a library that can't be read in part; else empty.
    [[nodiscard]] QString libraryProblem() const;

    /// Whether the desktop's tray shows the program: texts that lead to it lead to the panel else.
    void setTrayShown(bool isShown);

    /// Shows the section at `position`; any other number does nothing.
    Q_INVOKABLE void showSection(int position);
    Q_INVOKABLE void stopTimer();
    /// Continues the last entry that can be continued; does nothing without one, or while a timer
    /// runs.
    Q_INVOKABLE void resumeLastEntry();
    Q_INVOKABLE void openPanel();
    Q_INVOKABLE void openSettings();
    /// Shows the invoices and opens the sheet for a new one. Does nothing while something else lies
    /// over the window.
    void openNewInvoice();
    /// Does nothing unless `canCheckForUpdates`.
    Q_INVOKABLE void checkForUpdates();

 Q_SIGNALS:
    void sectionChanged();
    void panelRequested();
    void settingsRequested();
    void libraryProblemChanged();

 private:
    [[nodiscard]] bool isCovered();
    void followTimer();

    ReadFaults& readFaults_;
    UnitOfWork& context_;
    Settings& defaults_;
    TimerService& timer_;
    Clock now_;
    Ref<TimeEntry> lastRunning_;
    SidebarModel sections_;
    RunningEntryModel running_;
    WelcomeModel welcome_;
    Confirmation confirmation_;
    Updater* updater_;
    std::optional<UpdatePrompts> updatePrompts_;
    HistoryModel history_;
    TimesheetModel timesheet_;
    NewInvoiceModel newInvoice_;
    ClientsModel clients_;
    ProjectsModel projects_;
    InvoicesModel invoices_;
    Settings::Observation defaultsObservation_;
    ReadFaults::Observation faultsObservation_;
};

}  // namespace elmworth
