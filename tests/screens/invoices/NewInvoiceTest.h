// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <string>
#include <vector>

#include "screens/invoices/NewInvoiceModel.h"
#include "support/LibraryTest.h"
#include "support/QtTesting.h"

namespace elmworth::test {

/// The sheet over a library with the project "Website" of "Acme Co", 100 dollars an hour. It is
/// Monday, 2026-03-02, 09:00 in UTC, for people in America: the week began on the day before.
class NewInvoiceTest : public LibraryTest {
 protected:
    NewInvoiceTest() {
        acme()->hourlyRateCents = 100'00;
        context().save();
        QObject::connect(&sheet, &NewInvoiceModel::created,
                         [this](const PersistentID& id) { created.push_back(id); });
    }

    /// A saved client with an hourly rate of 100, and a project "Work" of it.
    Ref<Client> client(const std::string& name) {
        const auto made = timer.library.addClient(name);
        made->hourlyRateCents = 100'00;
        project("Work", made);
        return made;
    }
    /// A saved hour of work from an instant on, "2026-02-24T09:00Z".
    Ref<TimeEntry> work(const std::string& start) { return work(website, start); }
    Ref<TimeEntry> work(const Ref<Project>& project, const std::string& start) {
        const Instant from = at(start);
        const auto made = timer.library.addEntry(project, from, from + std::chrono::hours(1));
        context().save();
        return made;
    }
    /// A saved hour of `client`.
    void workFor(const Ref<Client>& client, const std::string& start) {
        work(client->projects().front(), start);
    }
    void choose(const std::string& label) {
        const auto& rows = sheet.clients()->rows();
        for (std::size_t i = 0; i < rows.size(); ++i) {
            if (utf8(rows[i].text) == label) return sheet.clients()->choose(static_cast<int>(i));
        }
        FAIL() << label;
    }
    void choose(DateRangePreset preset) { sheet.choosePreset(static_cast<int>(preset)); }
    void chooseDays(const std::string& from, const std::string& through) {
        choose(DateRangePreset::custom);
        sheet.from()->setValue(at(from + "T12:00Z"));
        sheet.through()->setValue(at(through + "T12:00Z"));
    }
    void typeTax(const char* text) { sheet.tax()->setText(QString::fromUtf8(text)); }
    [[nodiscard]] std::string preset() const {
        return utf8(NewInvoiceModel::presets().at(sheet.preset()));
    }
    [[nodiscard]] std::string total() { return utf8(sheet.figures()->total()); }
    /// "Website|1.00 h × $100.00|$100.00", a text for each line.
    [[nodiscard]] std::vector<std::string> lines() {
        std::vector<std::string> texts;
        for (const auto& line : sheet.figures()->lines()) {
            texts.push_back(utf8(line.name + u'|' + line.detail + u'|' + line.amount));
        }
        return texts;
    }
    [[nodiscard]] std::vector<Ref<Invoice>> invoices() { return context().fetch<Invoice>(); }

    Ref<Project> website = project("Website");
    NewInvoiceModel sheet{services()};
    std::vector<PersistentID> created;
};

}  // namespace elmworth::test
