// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <map>
#include <random>

#include "clients/ClientService.h"
#include "clients/ProjectService.h"
#include "exchange/BackupDocuments.h"
#include "invoicing/InvoiceBuilder.h"
#include "support/LibraryText.h"
#include "tracking/HistoryTest.h"

// The law of undo, whatever a person does to whatever records, in any order.

namespace elmworth {
namespace {

class UndoProperties : public test::HistoryTest, public testing::WithParamInterface<unsigned> {
 protected:
    UndoProperties() : HistoryTest(test::InMemory{}) {}

    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }
    std::string word() { return "w" + std::to_string(pick(1000)); }
    template <class T>
    Ref<T> any() {
        const auto all = context().fetch<T>();
        return all.empty() ? nullptr : all[static_cast<std::size_t>(pick(int(all.size())))];
    }
    Ref<TimeEntry> anyUnbilled() {
        auto entry = any<TimeEntry>();
        return entry && !entry->invoice ? entry : nullptr;
    }
    void passTime() {
        if (pick(3) != 0) timer.now += std::chrono::seconds(pick(1200));
    }

    // --- what can be done, each as one step

    void addClient() {
        const auto client = timer.library.addClient(word());
        client->currencyCode = "EUR";
    }
    void editClient() {
        const auto client = any<Client>();
        if (!client) return;
        client->email = word();
        client->hourlyRateCents = pick(20'000);
        client->dueDays = pick(2) == 0 ? std::nullopt : std::optional<std::int64_t>(pick(60));
    }
    void addProject() { timer.library.addProject(word(), any<Client>()); }
    void editProject() {
        const auto project = any<Project>();
        if (!project) return;
        if (pick(2) == 0) project->name = word();
        if (pick(2) == 0) project->client = any<Client>();
        if (pick(2) == 0) project->isArchived = pick(2) == 0;
        if (pick(2) == 0) project->budgetHours = pick(100);
    }
    void addEntry() {
        const Instant start = timer.now - std::chrono::minutes(pick(6000) + 60);
        const auto entry =
            timer.library.addEntry(any<Project>(), start, start + std::chrono::minutes(pick(60)));
        entry->notes = word();
    }
    void editEntry() {
        const auto entry = anyUnbilled();
        if (!entry) return;
        entry->notes = word();
        entry->project = any<Project>();
        if (entry->isRunning()) return;
        entry->start = timer.now - std::chrono::minutes(pick(6000) + 60);
        entry->end = entry->start.get() + std::chrono::minutes(pick(60));
    }
    void deleteEntries() {
        for (const auto& entry : context().fetch<TimeEntry>()) {
            if (!entry->invoice && pick(4) == 0) context().deleteRecord(entry);
        }
        context().save();
        service().refresh();
    }
    void deleteProject() {
        if (const auto project = any<Project>()) projects_.remove(project);
    }
    void deleteAClient() {
        const auto client = any<Client>();
        if (client && !hasInvoices(*client)) clients_.remove(client);
    }
    void createInvoice() {
        const auto client = any<Client>();
        if (!client) return;
        try {
            (void)builder_.createInvoice(client, timer.now - std::chrono::hours(200), timer.now,
                                         pick(2000), profile_);
        } catch (const BuildError&) {
            return;  // no time to bill
        }
    }
    void deleteInvoice() {
        if (const auto invoice = any<Invoice>()) builder_.deleteInvoice(invoice);
    }
    void editInvoice() {
        const auto invoice = any<Invoice>();
        if (!invoice) return;
        invoice->notes = word();
        invoice->setStatus(pick(2) == 0 ? InvoiceStatus::paid : InvoiceStatus::draft, timer.now);
    }
    void startOrStop() {
        if (service().running() && pick(2) == 0) return service().stop();
        if (const auto project = any<Project>()) service().start(project, word());
    }
    void importSome() {
        const auto project = timer.library.addProject(word(), timer.library.addClient(word()));
        for (int i = pick(4); i >= 0; --i) {
            const Instant start = timer.now - std::chrono::hours(100 + i);
            timer.library.addEntry(project, start, start + std::chrono::minutes(30));
        }
    }
    void doAnything() {
        using Operation = void (UndoProperties::*)();
        static constexpr Operation operations[] = {
            &UndoProperties::addClient,     &UndoProperties::editClient,
            &UndoProperties::addProject,    &UndoProperties::editProject,
            &UndoProperties::addEntry,      &UndoProperties::addEntry,
            &UndoProperties::editEntry,     &UndoProperties::deleteEntries,
            &UndoProperties::deleteProject, &UndoProperties::deleteAClient,
            &UndoProperties::createInvoice, &UndoProperties::createInvoice,
            &UndoProperties::deleteInvoice, &UndoProperties::editInvoice,
            &UndoProperties::startOrStop,   &UndoProperties::importSome};
        const auto operation = operations[pick(int(std::size(operations)))];
        history().perform("Something", [&] { (this->*operation)(); });
    }

    [[nodiscard]] std::string text() { return test::libraryText(context()); }
    /// The backup document as of one moment.
    [[nodiscard]] std::string document() {
        return test::encode(
            test::makeBackup(context(), BusinessProfile{}, test::TestTimer::today("09:00")));
    }

    std::mt19937 random_{GetParam()};
    BusinessProfile profile_;
    InvoiceBuilder builder_{context(), [this] { return timer.now; }, timer.calendar};
    ProjectService projects_{context(), history(), TimerCalls::of(service())};
    ClientService clients_{context(), history(), TimerCalls::of(service()),
                           [this] { return timer.now; }};
};

TEST_P(UndoProperties, allUndoneGivesTheFirstDocumentAndAllRedoneTheLast) {
    const auto first = document();
    std::vector<std::string> states = {text()};
    for (int i = 0; i < 60; ++i) {
        passTime();
        doAnything();
        if (text() != states.back()) states.push_back(text());
    }
    const auto last = document();
    for (auto at = states.size() - 1; at-- > 0;) {
        ASSERT_EQ(history().undo().notice(), "") << at;
        ASSERT_EQ(text(), states[at]) << at;
        passTime();
    }
    EXPECT_FALSE(history().canUndo());
    EXPECT_EQ(document(), first);
    for (std::size_t at = 1; at < states.size(); ++at) {
        ASSERT_EQ(history().redo().notice(), "") << at;
        ASSERT_EQ(text(), states[at]) << at;
        passTime();
    }
    EXPECT_FALSE(history().canRedo());
    EXPECT_EQ(document(), last);
}

// --- with changes from elsewhere in between ----------------------------------------------------

/// A program that also changes the library, without steps.
class UndoWithOthers : public UndoProperties {
 protected:
    using Field = std::pair<PersistentID, std::string>;  ///< of a record, by its name
    using Fields = std::map<Field, std::string>;

    template <class T>
    void addFields(Fields& fields) {
        for (const auto& record : context().fetch<T>()) {
            for (const auto& field : T::schema().fields) {
                fields[{record->id(), std::string(field.name)}] =
                    test::valueText(field.read(*record));
            }
        }
    }
    Fields allFields() {
        Fields fields;
        addFields<Client>(fields);
        addFields<Project>(fields);
        addFields<TimeEntry>(fields);
        addFields<Invoice>(fields);
        return fields;
    }
    /// What each invoice bills: its entries, with all their fields.
    std::map<PersistentID, Fields> bills() {
        std::map<PersistentID, Fields> bills;
        const auto fields = allFields();
        for (const auto& invoice : context().fetch<Invoice>()) {
            auto& bill = bills[invoice->id()];
            for (const auto& entry : invoice->entries()) {
                for (const auto& field : TimeEntry::schema().fields) {
                    const Field key{entry->id(), std::string(field.name)};
                    bill[key] = fields.at(key);
                }
            }
        }
        return bills;
    }
    /// One that no step wrote.
    std::string foreignWord() { return "foreign" + std::to_string(++words_); }
    void interfere() {
        switch (pick(6)) {
            case 0:
                createInvoice();
                break;
            case 1:
                deleteInvoice();
                break;
            case 2:
                addEntry();
                break;
            case 3:
                if (const auto client = any<Client>()) client->email = foreignWord();
                break;
            case 4:
                if (const auto entry = anyUnbilled()) entry->notes = foreignWord();
                break;
            default:
                if (const auto invoice = any<Invoice>()) invoice->notes = foreignWord();
        }
        context().save();
    }
    /// Does `change`; what it wrote is the others' as it is `foreign`, and no longer theirs if not.
    template <class Change>
    void tracked(bool foreign, const Change& change) {
        const auto before = allFields();
        change();
        for (const auto& [field, value] : allFields()) {
            const auto former = before.find(field);
            if (former != before.end() && former->second == value) continue;
            // What was emptied holds what a step left that made it empty before.
            if (foreign && value != "absent") {
                foreign_[field] = value;
            } else {
                foreign_.erase(field);
            }
        }
        const auto now = allFields();
        std::erase_if(foreign_, [&](const auto& field) { return !now.contains(field.first); });
    }
    void expectForeignUntouched(int step) {
        const auto now = allFields();
        for (const auto& [field, value] : foreign_) {
            const auto found = now.find(field);
            ASSERT_NE(found, now.end()) << step << ' ' << field.second;
            ASSERT_EQ(found->second, value) << step << ' ' << field.second;
        }
    }

    int words_ = 0;
    Fields foreign_;  ///< what somebody else wrote last
};

TEST_P(UndoWithOthers, nothingBilledAndNothingForeignChanges) {
    for (int i = 0; i < 100; ++i) {
        passTime();
        if (pick(4) == 0) {
            tracked(true, [&] { interfere(); });
        } else if (pick(2) == 0) {
            tracked(false, [&] { doAnything(); });
        } else {
            const auto before = bills();
            (void)(pick(3) == 0 ? history().redo() : history().undo());
            for (const auto& [invoice, bill] : bills()) {
                const auto former = before.find(invoice);
                if (former != before.end()) ASSERT_EQ(bill, former->second) << i;
            }
            ASSERT_NO_FATAL_FAILURE(expectForeignUntouched(i));
            ASSERT_FALSE(context().hasChanges()) << i;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, UndoProperties, testing::Range(1U, 17U));
INSTANTIATE_TEST_SUITE_P(Seeds, UndoWithOthers, testing::Range(1U, 11U));

}  // namespace
}  // namespace elmworth
