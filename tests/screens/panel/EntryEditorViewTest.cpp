// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Runs the tst_*.qml files of this folder over an entry editor on a library of its own.

#include <QtQuickTest/quicktest.h>
#include <QQmlContext>
#include <QQmlEngine>
#include <QtQml/QQmlExtensionPlugin>

#include "screens/panel/EntryEditorModel.h"
#include "support/TestServices.h"
#include "theme/AppAppearance.h"
#include "theme/fonts/Fonts.h"
#include "theme/icons/AppIcon.h"

Q_IMPORT_QML_PLUGIN(Elmworth_ThemePlugin)
Q_IMPORT_QML_PLUGIN(Elmworth_PanelPlugin)

namespace elmworth {

/// What the tests do outside the editor. It is Monday, 2026-03-02, 15:00 in UTC.
class EditorHost : public QObject {
    Q_OBJECT
    Q_PROPERTY(elmworth::EntryEditorModel* model READ model CONSTANT)

 public:
    EditorHost() { timer_.setTime("15:00"); }

    [[nodiscard]] EntryEditorModel* model() { return &model_; }

    Q_INVOKABLE void addProject(const QString& name, const QString& client) {
        auto project = timer_.library.addProject(
            name.toStdString(), client.isEmpty() ? nullptr : this->client(client.toStdString()));
        project->colorHex = "#FF5B87";
        timer_.library.context().save();
    }
    Q_INVOKABLE void openNew() { model_.open(nullptr); }
    Q_INVOKABLE void openEntry(const QString& notes) { model_.open(addEntry(notes)); }
    Q_INVOKABLE void openBilled(const QString& notes) {
        const auto entry = addEntry(notes);
        entry->invoice = timer_.library.addInvoice(std::to_string(++invoices_), nullptr);
        timer_.library.context().save();
        model_.open(entry);
    }
    Q_INVOKABLE void openRunning() {
        timer_.service->start(anyProject());
        model_.open(timer_.service->running());
    }
    Q_INVOKABLE void deleteEntries() {
        for (const auto& entry : entries()) timer_.library.context().deleteRecord(entry);
        timer_.library.context().save();
    }
    Q_INVOKABLE [[nodiscard]] QString spans() {
        QStringList texts;
        for (const auto& span : timer_.spans()) texts.append(QString::fromStdString(span));
        return texts.join(u' ');
    }
    Q_INVOKABLE [[nodiscard]] QString savedNotes() {
        return QString::fromStdString(entries().at(0)->notes);
    }
    Q_INVOKABLE void clear() {
        model_.dismiss();
        deleteEntries();
        for (const auto& project : projects()) timer_.library.context().deleteRecord(project);
        timer_.library.context().save();
        timer_.service->refresh();
    }
    Q_INVOKABLE static void setDark(bool isDark) {
        AppAppearance::instance().setSetting(isDark ? AppearanceSetting::dark
                                                    : AppearanceSetting::light);
    }

 private:
    Ref<Client> client(const std::string& name) {
        const auto known = timer_.library.context().fetch(
            Query<Client>{.predicate = key<&Client::name>() == name});
        return known.empty() ? timer_.library.addClient(name) : known.front();
    }
    std::vector<Ref<Project>> projects() {
        return timer_.library.context().fetch(Query<Project>{});
    }
    std::vector<Ref<TimeEntry>> entries() {
        return timer_.library.context().fetch(Query<TimeEntry>{});
    }
    Ref<Project> anyProject() { return projects().empty() ? nullptr : projects().front(); }
    Ref<TimeEntry> addEntry(const QString& notes) {
        auto entry =
            timer_.library.addEntry(anyProject(), timer_.today("07:00"), timer_.today("08:00"));
        entry->notes = notes.toStdString();
        timer_.library.context().save();
        return entry;
    }

    test::TestTimer timer_;
    int invoices_ = 2026000;
    test::TestServices app_{timer_};
    EntryEditorModel model_{app_.services()};
};

class EditorSetup : public QObject {
    Q_OBJECT

 public Q_SLOTS:
    void applicationAvailable() {
        loadEmbeddedFonts();
        (void)appIcon();
        AppAppearance::instance().setSetting(AppearanceSetting::dark);
        AppAppearance::instance().setReducedMotion(true);
    }
    void qmlEngineAvailable(QQmlEngine* engine) {
        engine->rootContext()->setContextProperty(QStringLiteral("host"), &host_);
    }

 private:
    EditorHost host_;
};

}  // namespace elmworth

QUICK_TEST_MAIN_WITH_SETUP(entry_editor, elmworth::EditorSetup)

#include "EntryEditorViewTest.moc"
