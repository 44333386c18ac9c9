// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/UpdatePrompts.h"

#include <QDesktopServices>
#include <QUrl>

#include "platform/Text.h"

namespace elmworth {

namespace {

constexpr std::size_t longestNotes = 400;  // in characters: what fits beside a question

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

QString looking() {
    return QStringLiteral("Looking for updates…");
}

QString named(const Release& release) {
    return QStringLiteral("Elmworth ") + text(release.version.text());
}

QString fetching(const Release& release) {
    return QStringLiteral("Fetching ") + named(release) + QStringLiteral("…");
}

QString withNotes(const Release& release, const QString& sentence) {
    const auto notes = text(std::string(firstCharacters(release.notes, longestNotes)));
    return notes.isEmpty() ? sentence : notes + QStringLiteral("\n\n") + sentence;
}

}  // namespace

void UpdatePrompts::look() {
    if (!updater_.isEnabled()) return;
    confirmation_.tell({.icon = QStringLiteral("arrow-clockwise"),
                        .title = looking(),
                        .acceptText = QStringLiteral("Cancel")});
    updater_.look([this](const auto& finding) {
        if (isWaiting(looking())) tellFound(finding);
    });
}

void UpdatePrompts::tellFound(const Updater::Finding& finding) {
    if (finding.release) return offer(*finding.release);
    if (!finding.failure.empty()) {
        confirmation_.tell({.icon = QStringLiteral("warning"),
                            .title = QStringLiteral("Can't look for updates"),
                            .message = text(finding.failure)});
        return;
    }
    confirmation_.tell({.icon = QStringLiteral("check-circle"),
                        .title = QStringLiteral("You have the newest version"),
                        .message = QStringLiteral("There is nothing newer than Elmworth %1.")
                                       .arg(text(updater_.present().text()))});
}

void UpdatePrompts::offer(const Release& release) {
    const auto offerIcon = QStringLiteral("document-down");
    const auto title = named(release) + QStringLiteral(" is available");
    if (updater_.canInstall() && !release.archive.empty()) {
        const auto when = QStringLiteral("It takes the place of this version when you quit.");
        confirmation_.ask({.icon = offerIcon,
                           .title = title,
                           .message = withNotes(release, when),
                           .acceptText = QStringLiteral("Install")},
                          [this, release] { install(release); });
        return;
    }
    const auto how = QStringLiteral("Update it the way you installed it.");
    if (release.page.empty()) {
        confirmation_.tell({.icon = offerIcon, .title = title, .message = withNotes(release, how)});
        return;
    }
    confirmation_.ask({.icon = offerIcon,
                       .title = title,
                       .message = withNotes(release, how),
                       .acceptText = QStringLiteral("Open Web Page")},
                      [page = text(release.page)] { QDesktopServices::openUrl(QUrl(page)); });
}

void UpdatePrompts::install(const Release& release) {
    confirmation_.tell({.icon = QStringLiteral("hourglass"),
                        .title = fetching(release),
                        .acceptText = QStringLiteral("Hide")});
    updater_.fetch(release, [this, release](const std::string& failure) {
        if (!failure.empty()) {
            confirmation_.tell({.icon = QStringLiteral("warning"),
                                .title = QStringLiteral("Can't install the update"),
                                .message = text(failure)});
        } else if (isWaiting(fetching(release))) {
            confirmation_.tell(
                {.icon = QStringLiteral("check-circle"),
                 .title = named(release) + QStringLiteral(" is ready"),
                 .message = QStringLiteral("It takes the place of this version when you quit.")});
        }
    });
}

bool UpdatePrompts::isWaiting(const QString& title) const {
    return confirmation_.isOpen() && confirmation_.title() == title;
}

}  // namespace elmworth
