// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QSignalSpy>
#include <memory>
#include <string>
#include <vector>

#include "screens/timesheet/TimesheetModel.h"
#include "support/LibraryTest.h"
#include "support/QtTesting.h"
#include "support/ScopedEnvironment.h"

namespace elmworth::test {

using Lines = std::vector<std::string>;

/// The shown timesheet of an American in UTC on Monday, 2026-03-02, at 09:00, with the projects
/// "Website" of "Acme Co" and "Shop" of "Globex".
class TimesheetTest : public LibraryTest {
 protected:
    TimesheetTest() {
        context().save();
        model->setShown(true);
        turn();
    }
    /// As if the window was opened anew, somewhere else.
    void moveTo(const std::string& locale, const std::string& zone) {
        environment_.reset();
        environment_ = std::make_unique<ScopedEnvironment>("LC_ALL", locale + ".UTF-8");
        timer.calendar = Calendar(Locale(locale), zone);
        reopen();
    }
    void reopen() {
        model = std::make_unique<TimesheetModel>(services(), confirmation, undoing);
        model->setShown(true);
        turn();
    }

    /// A saved entry, from "2026-03-01T09:00Z" to the like; running when `to` is empty.
    Ref<TimeEntry> add(const Ref<Project>& project, const std::string& from, const std::string& to,
                       const std::string& notes = {}) {
        const auto made = timer.library.addEntry(project, at(from),
                                                 to.empty() ? std::nullopt : std::optional(at(to)));
        made->notes = notes;
        context().save();
        return made;
    }
    void deleteElsewhere(const Ref<Record>& record) {
        context().deleteRecord(record);
        context().save();
    }

    [[nodiscard]] TimesheetFilterModel& filter() { return *model->filter(); }
    [[nodiscard]] EntryCommandsModel& commands() { return *model->commands(); }
    void choosePreset(const char* title) {
        filter().choosePreset(
            static_cast<int>(TimesheetFilterModel::presets().indexOf(QLatin1String(title))));
    }
    /// Chooses the row of `choices` that shows `text`.
    static void choose(ChoiceModel& choices, const char* text) {
        for (std::size_t row = 0; row < choices.rows().size(); ++row) {
            if (utf8(choices.rows()[row].text) == text) {
                return choices.choose(static_cast<int>(row));
            }
        }
        ADD_FAILURE() << text << " is not offered";
    }
    [[nodiscard]] static Lines texts(const ChoiceModel& choices) {
        Lines texts;
        for (const auto& choice : choices.rows()) texts.push_back(utf8(choice.text));
        return texts;
    }

    [[nodiscard]] int rowCount() const { return model->rows().rowCount(); }
    [[nodiscard]] QVariant value(int row, TimesheetRowsModel::Role role) const {
        return model->rows().data(model->rows().index(row), role);
    }
    [[nodiscard]] std::string textAt(int row, TimesheetRowsModel::Role role) const {
        constexpr QChar narrowNoBreakSpace(0x202F);
        return utf8(value(row, role).toString().replace(narrowNoBreakSpace, QChar(u' ')));
    }
    /// "Today · Mar 2 · 1:00" for the head of a day, "  Website · 9:00 AM – 10:00 AM · 1:00" for an
    /// entry, with a star when it is selected.
    [[nodiscard]] std::string line(int row) const {
        using Rows = TimesheetRowsModel;
        const bool isHead = textAt(row, Rows::kind) == "head";
        const std::string middle = textAt(row, isHead ? Rows::detail : Rows::timeRange);
        const std::string mark = isHead ? "" : value(row, Rows::isSelected).toBool() ? "* " : "  ";
        return mark + textAt(row, Rows::title) + " · " + middle + " · " + textAt(row, Rows::total);
    }
    [[nodiscard]] Lines lines() const {
        Lines lines;
        for (int row = 0; row < rowCount(); ++row) lines.push_back(line(row));
        return lines;
    }
    /// The first row of an entry, or -1.
    [[nodiscard]] int rowOf(const Ref<TimeEntry>& entry) const {
        for (int row = 0; row < rowCount(); ++row) {
            if (model->rows().rowAt(row)->id.entry == entry->id()) return row;
        }
        return -1;
    }
    void click(const Ref<TimeEntry>& entry, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
        model->selection()->click(rowOf(entry), modifiers);
    }
    [[nodiscard]] std::size_t selectedCount() const { return model->selection()->keys().size(); }
    [[nodiscard]] bool isSelected(const Ref<TimeEntry>& entry) const {
        return model->selection()->keys().contains(entry->id());
    }

 private:
    std::unique_ptr<ScopedEnvironment> environment_;  ///< of another language

 protected:
    Ref<Client> acme = LibraryTest::acme();
    Ref<Client> globex = timer.library.addClient("Globex");
    Ref<Project> website = timer.library.addProject("Website", acme);
    Ref<Project> shop = timer.library.addProject("Shop", globex);
    Confirmation confirmation;
    HistoryModel undoing{*timer.history};
    std::unique_ptr<TimesheetModel> model =
        std::make_unique<TimesheetModel>(services(), confirmation, undoing);
};

}  // namespace elmworth::test
