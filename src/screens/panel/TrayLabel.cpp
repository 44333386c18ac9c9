// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/TrayLabel.h"

#include "platform/Text.h"
#include "records/Project.h"

namespace elmworth {

namespace {

constexpr auto styleKey = "menuBarStyle";
constexpr std::size_t longestName = 18;
constexpr std::size_t longestIconText = 6;

/// A longer name ends in an ellipsis that takes the place of its last character.
QString shortened(const std::string& name) {
    if (characterCount(name) <= longestName) return QString::fromStdString(name);
    const auto kept = firstCharacters(name, longestName - 1);
    return QString::fromUtf8(kept.data(), static_cast<qsizetype>(kept.size())) +
           QStringLiteral("\u2026");
}

std::string iconText(const std::string& time) {
    if (time.size() <= longestIconText) return time;
    return time.substr(0, time.find(':')) + "h";
}

}  // namespace

TrayLabelStyle trayLabelStyle(std::string_view raw) {
    for (const auto style : {TrayLabelStyle::timeAndProject, TrayLabelStyle::icon}) {
        if (raw == rawValue(style)) return style;
    }
    return TrayLabelStyle::time;
}

std::string_view rawValue(TrayLabelStyle style) {
    switch (style) {
        case TrayLabelStyle::timeAndProject:
            return "timeAndProject";
        case TrayLabelStyle::icon:
            return "icon";
        case TrayLabelStyle::time:
            break;
    }
    return "time";
}

TrayLabel::TrayLabel(AppServices services) : services_(std::move(services)), look_(look()) {
    timerObservation_ = services_.timer.observe([this](auto property) {
        if (property == TimerService::Property::running ||
            property == TimerService::Property::elapsedText)
            updateSoon();
    });
    styleObservation_ = services_.defaults.observe([this](std::string_view key) {
        if (key == styleKey) updateSoon();
    });
    const auto changed = [this] { updateSoon(); };
    entryObservation_ = services_.context.observe(TimeEntry::schema(), changed);
    projectObservation_ = services_.context.observe(Project::schema(), changed);
}

TrayLabel::Look TrayLabel::look() const {
    const auto& entry = services_.timer.running();
    if (!entry) return {QStringLiteral("clock"), {}, QStringLiteral("Nothing is running."), {}};
    const auto& project = entry->project.get();
    const auto elapsed = QString::fromStdString(services_.timer.elapsedText());
    const auto withName =
        elapsed + QStringLiteral(" \u00B7 ") + (project ? shortened(project->name) : QString());
    Look look{QStringLiteral("record"), {}, withName, services_.timer.elapsedText()};
    switch (trayLabelStyle(services_.defaults.string(styleKey).value_or(std::string()))) {
        case TrayLabelStyle::time:
            look.text = elapsed;
            break;
        case TrayLabelStyle::timeAndProject:
            look.text = withName;
            break;
        case TrayLabelStyle::icon:
            look.time.clear();
            break;
    }
    return look;
}

TrayFace TrayLabel::trayFace() const {
    const bool isRunning = look_.image != QStringLiteral("clock");
    return {.icon = isRunning ? TrayFace::Icon::running : TrayFace::Icon::idle,
            .label = look_.text.toStdString(),
            .iconText = iconText(look_.time),
            .toolTip = look_.summary.toStdString()};
}

void TrayLabel::updateSoon() {
    if (!pendingUpdate_) pendingUpdate_ = services_.runLoop.post([this] { update(); });
}

void TrayLabel::update() {
    pendingUpdate_.reset();
    auto now = look();
    if (now == look_) return;
    look_ = std::move(now);
    Q_EMIT changed();
}

}  // namespace elmworth
