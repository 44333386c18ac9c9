// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/TrayMenu.h"

#include "platform/Text.h"
#include "screens/panel/PanelModel.h"
#include "screens/panel/TrayLabel.h"

namespace elmworth {

namespace {

using Action = std::function<void()>;

/// A menu is as wide as its longest line.
constexpr std::size_t longestText = 60;

bool breaksTheLine(QChar c) {
    const auto category = c.category();
    return category == QChar::Other_Control || category == QChar::Separator_Line ||
           category == QChar::Separator_Paragraph;
}

std::string oneShortLine(QString text) {
    for (QChar& c : text) {
        if (breaksTheLine(c)) c = QLatin1Char(' ');
    }
    std::string line = text.toStdString();
    if (characterCount(line) <= longestText) return line;
    return std::string(firstCharacters(line, longestText - 1)) + "\u2026";
}

TrayMenuItem told(const QString& text, std::string identity) {
    return {.text = oneShortLine(text), .isEnabled = false, .identity = std::move(identity)};
}

TrayMenuItem offered(const QString& text, Action action) {
    return {.text = oneShortLine(text), .action = std::move(action)};
}

TrayMenuItem opening(const QString& text, TrayMenu submenu) {
    return {.text = oneShortLine(text), .submenu = std::move(submenu)};
}

QString withClient(const QString& project, const QString& client) {
    return client.isEmpty() ? project : project + QStringLiteral(" \u00B7 ") + client;
}

void addWarning(TrayMenu& menu, LongRunningWarningModel& warning) {
    if (!warning.isShown()) return;
    TrayMenu choices;
    for (int i = 0; i < warning.choices().size(); ++i) {
        choices.push_back(offered(warning.choices().at(i), [&warning, i] { warning.stopAt(i); }));
    }
    choices.push_back(TrayMenuItem::separator());
    choices.push_back(offered(QStringLiteral("Now"), [&warning] { warning.stopNow(); }));
    menu.push_back(TrayMenuItem::separator());
    menu.push_back(told(warning.text(), "warning"));
    menu.push_back(opening(QStringLiteral("Stop at\u2026"), std::move(choices)));
}

void addQuestion(TrayMenu& menu, AwayPromptModel& away) {
    if (!away.isShown()) return;
    menu.push_back(TrayMenuItem::separator());
    menu.push_back(told(away.text(), "question"));
    menu.push_back(offered(QStringLiteral("Keep"), [&away] { away.keep(); }));
    menu.push_back(offered(QStringLiteral("Discard"), [&away] { away.discard(); }));
}

void addTimer(TrayMenu& menu, PanelModel& panel) {
    RunningCardModel& card = *panel.running();
    ContinueRowModel& last = *panel.continueRow();
    if (card.isRunning()) {
        menu.push_back(offered(QStringLiteral("Stop"), [&card] { card.stop(); }));
        addWarning(menu, *card.warning());
        addQuestion(menu, *card.away());
    } else if (last.isShown()) {
        menu.push_back(offered(last.title(), [&last] { last.continueEntry(); }));
    }
}

/// The same item wherever the project stands and whatever it is called.
TrayMenuItem starting(ProjectSectionModel& section, const ProjectStartRow& row) {
    auto item = offered(withClient(row.name, row.client),
                        [&section, id = row.id] { section.startProject(id); });
    item.isEnabled = !row.isRunning;
    item.identity = row.id.string();
    return item;
}

/// Stands in for the search.
TrayMenu allProjects(ProjectSectionModel& section) {
    TrayMenu menu;
    for (const auto& row : section.allRows()) menu.push_back(starting(section, row));
    return menu;
}

void addProjects(TrayMenu& menu, ProjectSectionModel& section) {
    const auto rows = section.quickStartRows();
    if (!rows.empty()) menu.push_back(told(section.quickStartTitle(), "title"));
    for (const auto& row : rows) menu.push_back(starting(section, row));
    if (section.isSearchShown())
        menu.push_back(opening(QStringLiteral("All projects"), allProjects(section)));
}

void addEmptyState(TrayMenu& menu, PanelModel& panel) {
    menu.push_back(told(QStringLiteral("No projects yet"), "title"));
    menu.push_back(
        offered(QStringLiteral("Create a Project"), [&panel] { panel.createProject(); }));
}

void addFooter(TrayMenu& menu, PanelModel& panel) {
    menu.push_back(TrayMenuItem::separator());
    menu.push_back(offered(QStringLiteral("Open Panel"), [&panel] { panel.openPanel(); }));
    menu.push_back(offered(QStringLiteral("Open Elmworth"), [&panel] { panel.openElmworth(); }));
    menu.push_back(offered(QStringLiteral("Settings"), [&panel] { panel.openSettings(); }));
    menu.push_back(offered(QStringLiteral("Quit Elmworth"), [&panel] { panel.quit(); }));
}

}  // namespace

TrayMenu makeTrayMenu(PanelModel& panel, const TrayLabel& label) {
    TrayMenu menu{told(label.summary(), "summary")};
    addTimer(menu, panel);
    menu.push_back(TrayMenuItem::separator());
    if (panel.projects()->isEmpty()) {
        addEmptyState(menu, panel);
    } else {
        addProjects(menu, *panel.projects());
    }
    addFooter(menu, panel);
    return menu;
}

}  // namespace elmworth
