// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "screens/projects/ProjectsModel.h"
#include "support/LibraryTest.h"
#include "support/QtTesting.h"

namespace elmworth::test {

using Lines = std::vector<std::string>;

/// The shown projects of an American in UTC on Monday, 2026-03-02, at 09:00: "Website" and "App" of
/// "Acme Co", who pays $120 an hour. A new project gets the third color.
class ProjectsTest : public LibraryTest {
 protected:
    using Rows = ProjectRowsModel;

    ProjectsTest() {
        acme->hourlyRateCents = 12000;
        context().save();
        QObject::connect(&model, &ProjectsModel::removed,
                         [this](const QString& sentence) { told = utf8(sentence); });
        QObject::connect(&model, &ProjectsModel::failed,
                         [this](const QString& sentence) { failure = utf8(sentence); });
        QObject::connect(&model, &ProjectsModel::revealRequested,
                         [this](int row) { revealed = row; });
        model.setShown(true);
        turn();
    }

    Ref<Client> client(const std::string& name) { return turned(addClient(name)); }
    Ref<Project> project(const std::string& name, const Ref<Client>& owner) {
        return turned(LibraryTest::project(name, owner));
    }
    void archive(const Ref<Project>& project) {
        project->isArchived = true;
        save();
    }
    Ref<TimeEntry> entry(const Ref<Project>& project, const std::string& from,
                         const std::string& to) {
        return turned(LibraryTest::entry(project, from, to));
    }
    void bill(const Ref<TimeEntry>& entry) { turned(LibraryTest::bill(entry)); }
    void remove(const Ref<Record>& record) {
        context().deleteRecord(record);
        save();
    }

    [[nodiscard]] int rowOf(const Ref<Record>& record) const {
        return model.rows().position(record->id());
    }
    [[nodiscard]] QVariant value(int row, Rows::Role role) const {
        return model.rows().data(model.rows().index(row), role);
    }
    [[nodiscard]] std::string textAt(int row, Rows::Role role) const {
        return utf8(value(row, role).toString());
    }
    [[nodiscard]] std::string text(const Ref<Record>& record, Rows::Role role) const {
        return textAt(rowOf(record), role);
    }
    /// "Acme Co" for a head, "  Website" for a project.
    [[nodiscard]] Lines lines() const {
        Lines lines;
        for (int row = 0; row < model.rows().rowCount(); ++row) {
            const bool isHead = textAt(row, Rows::kind) == "head";
            lines.push_back((isHead ? "" : "  ") + textAt(row, Rows::title));
        }
        return lines;
    }
    void click(const Ref<Record>& record) { model.selection()->click(rowOf(record)); }
    /// The project that is selected and shown.
    [[nodiscard]] std::string current() {
        const int row = model.selection()->currentRow();
        return row < 0 ? "" : textAt(row, Rows::title);
    }
    [[nodiscard]] std::string question() const {
        return confirmation.isOpen()
                   ? utf8(confirmation.title() + QStringLiteral(" | ") + confirmation.message() +
                          QStringLiteral(" | ") + confirmation.acceptText())
                   : "";
    }

 private:
    /// The models have heard of `record`.
    template <class Made>
    Made turned(Made record) {
        turn();
        return record;
    }

 protected:
    Ref<Client> acme = timer.library.addClient("Acme Co");
    Ref<Project> website = timer.library.addProject("Website", acme);
    Ref<Project> appProject = timer.library.addProject("App", acme);
    Confirmation confirmation;
    ProjectsModel model{services(), confirmation, [](std::size_t /*count*/) { return 2U; }};
    ProjectEditorModel& editor = *model.editor();
    std::string told;     ///< what was said last, that something was taken away
    std::string failure;  ///< or could not be done
    int revealed = -1;
};

}  // namespace elmworth::test
