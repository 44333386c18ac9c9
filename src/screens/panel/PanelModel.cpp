// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/PanelModel.h"

#include "records/Client.h"

namespace elmworth {

PanelModel::PanelModel(AppServices services) : services_(std::move(services)) {
    connect(&*running_.warning(), &LongRunningWarningModel::changed, this,
            &PanelModel::offersChanged);
    connect(&*running_.away(), &AwayPromptModel::changed, this, &PanelModel::offersChanged);
    timerObservation_ = services_.timer.observe([this](auto property) { timerChanged(property); });
    observeLibrary();
}

void PanelModel::observeLibrary() {
    const auto changed = [this] {
        if (!running_.isTyping()) update();
    };
    for (const auto* schema : {&Client::schema(), &Project::schema(), &TimeEntry::schema()}) {
        libraryObservations_.push_back(services_.context.observe(*schema, changed));
    }
}

void PanelModel::timerChanged(TimerService::Property property) {
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

// A switch passes through a state without a timer: wait for its save, so that only the state after
// it shows. This is for changes of the timer without a save.
void PanelModel::updateSoon() {
    pendingUpdate_ = services_.runLoop.post([this] { update(); });
}

void PanelModel::update() {
    pendingUpdate_.reset();
    today_.update();
    weeklyGoal_.update();
    running_.update();
    continueRow_.update();
    projects_.update();
    Q_EMIT offersChanged();
}

void PanelModel::tick() {
    today_.tick();
    weeklyGoal_.tick();
    running_.tick();
}

void PanelModel::refresh() {
    services_.timer.refresh();
    projects_.setSearch({});
    running_.budget()->setPanelOpen(true);
    update();
}

void PanelModel::rest() {
    running_.budget()->setPanelOpen(false);
}

void PanelModel::openElmworth() {
    openSection("Timesheet");
}

void PanelModel::createProject() {
    openSection("Clients");
}

void PanelModel::openSection(std::string_view section) {
    services_.defaults.setString("mainSection", section);
    Q_EMIT mainWindowRequested();
}

void PanelModel::openPanel() {
    Q_EMIT panelRequested();
}

void PanelModel::openSettings() {
    Q_EMIT settingsRequested();
}

void PanelModel::quit() {
    Q_EMIT quitRequested();
}

}  // namespace elmworth
