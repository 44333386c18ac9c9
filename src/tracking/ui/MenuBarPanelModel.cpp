// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "tracking/ui/MenuBarPanelModel.h"

#include "core/Client.h"

namespace elmworth {

MenuBarPanelModel::MenuBarPanelModel(PanelServices services) : services_(std::move(services)) {
    connect(&*running_.warning(), &LongRunningWarningModel::changed, this,
            &MenuBarPanelModel::offersChanged);
    connect(&*running_.away(), &AwayPromptModel::changed, this, &MenuBarPanelModel::offersChanged);
    timerObservation_ = services_.timer.observe([this](auto property) { timerChanged(property); });
    observeLibrary();
}

void MenuBarPanelModel::observeLibrary() {
    const auto changed = [this] {
        if (!running_.isTyping()) update();
    };
    for (const auto* schema : {&Client::schema(), &Project::schema(), &TimeEntry::schema()}) {
        libraryObservations_.push_back(services_.context.observe(*schema, changed));
    }
}

void MenuBarPanelModel::timerChanged(TimerService::Property property) {
    switch (property) {
        case TimerService::Property::running:
            updateSoon();
            break;
        case TimerService::Property::elapsedLongText:
            tick();
            break;
        case TimerService::Property::awayIntervals:
            running_.away()->update();
            break;
        case TimerService::Property::elapsedText:
            break;
    }
}

// A switch lets nothing run for a moment. Its save shows the new state in one step; this is for
// changes of the timer without one.
void MenuBarPanelModel::updateSoon() {
    pendingUpdate_ = services_.runLoop.post([this] { update(); });
}

void MenuBarPanelModel::update() {
    pendingUpdate_.reset();
    today_.update();
    weeklyGoal_.update();
    running_.update();
    continueRow_.update();
    projects_.update();
    Q_EMIT offersChanged();
}

void MenuBarPanelModel::tick() {
    today_.tick();
    weeklyGoal_.tick();
    running_.tick();
}

void MenuBarPanelModel::refresh() {
    services_.timer.refresh();
    projects_.setSearch({});
    running_.budget()->setPanelOpen(true);
    update();
}

void MenuBarPanelModel::rest() {
    running_.budget()->setPanelOpen(false);
}

void MenuBarPanelModel::openElmworth() {
    openSection("Timesheet");
}

void MenuBarPanelModel::createProject() {
    openSection("Clients");
}

void MenuBarPanelModel::openSection(std::string_view section) {
    services_.defaults.setString("mainSection", section);
    Q_EMIT mainWindowRequested();
}

void MenuBarPanelModel::openPanel() {
    Q_EMIT panelRequested();
}

void MenuBarPanelModel::openSettings() {
    Q_EMIT settingsRequested();
}

void MenuBarPanelModel::quit() {
    Q_EMIT quitRequested();
}

}  // namespace elmworth
