// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/gallery/GalleryModel.h"

#include "theme/AppAppearance.h"
#include "theme/Icons.h"

namespace elmworth {

GalleryForm::GalleryForm() {
    for (auto* field : {&name_, &email_}) {
        connect(field, &FormText::changed, this, [this] { fieldsChanged(); });
    }
}

QString GalleryForm::title() const {
    return QStringLiteral("New Client");
}

QString GalleryForm::subtitle() const {
    return QStringLiteral("Rate and billing details");
}

QString GalleryForm::problem() const {
    return isComplete() ? QString() : QStringLiteral("A client needs a name.");
}

void GalleryForm::open() {
    dismiss();
    name_.load({});
    email_.load({});
    show();
}

GalleryModel::GalleryModel(AppearanceSetting setting) : setting_(setting) {
    AppAppearance::instance().setSetting(setting_);
    wrongDate_.day()->edit(QStringLiteral("31/31/2026"));
    wrongDate_.finish();
    std::vector<Choices<QString>::Choice> icons;
    for (const auto& name : iconNames()) icons.push_back({name, name});
    icons_.offer(std::move(icons));
    std::vector<GalleryRow> rows;
    for (const auto* name : {"Acme Co", "Bloom & Co", "Globex", "Initech", "Umbra", "Vandelay"}) {
        rows.push_back({QString::fromUtf8(name)});
    }
    rows_.setRows(std::move(rows));
    selection_.click(1);
}

void GalleryModel::setAppearance(int position) {
    if (position < 0 || position > static_cast<int>(AppearanceSetting::light)) return;
    if (position == appearance()) return;
    setting_ = static_cast<AppearanceSetting>(position);
    AppAppearance::instance().setSetting(setting_);
    Q_EMIT appearanceChanged();
}

void GalleryModel::ask() {
    confirmation_.ask(
        {.icon = QStringLiteral("trash"),
         .title = QStringLiteral("Delete Acme Co?"),
         .message = QStringLiteral("This also deletes its projects and all their time entries."),
         .acceptText = QStringLiteral("Delete Client"),
         .isDestructive = true},
        [] {});
}

QStringList GalleryModel::imageNames() {
    return iconNames();
}

}  // namespace elmworth
