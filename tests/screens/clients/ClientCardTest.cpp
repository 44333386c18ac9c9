// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// What a client's card says.

#include "screens/clients/ClientsTest.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;

class ClientCard : public test::ClientsTest {
 protected:
    [[nodiscard]] std::vector<std::string> projectNames() const {
        std::vector<std::string> all;
        for (const auto& name : value(0, "projectNames").toStringList())
            all.push_back(name.toStdString());
        return all;
    }

    Ref<Client> acme = addClient("Acme Co");
};

TEST_F(ClientCard, saysWhoItIsAndWhatAnHourCosts) {
    EXPECT_EQ(text(0, "name"), "Acme Co");
    EXPECT_EQ(text(0, "contact"), "No email");
    EXPECT_FALSE(value(0, "hasEmail").toBool());
    EXPECT_EQ(text(0, "rate"), "$100.00/h");
    acme->email = "billing@acme.example";
    acme->hourlyRateCents = 9550;
    acme->currencyCode = "EUR";
    context().save();
    EXPECT_EQ(text(0, "contact"), "billing@acme.example");
    EXPECT_EQ(text(0, "rate"), "€95.50/h");
}

TEST_F(ClientCard, sumsUpWhatIsUnbilled) {
    addProject("App", acme);
    addProject("Shop", acme);
    addEntry(addProject("Website", acme), 750min);
    EXPECT_EQ(text(0, "projectCount"), "3");
    EXPECT_EQ(text(0, "unbilled"), "12:30");
    EXPECT_EQ(text(0, "value"), "$1,250.00");
    EXPECT_EQ(text(0, "invoiceText"), "Invoice $1,250.00");
    EXPECT_EQ(text(0, "summary"), "Acme Co, 3 projects, 12:30 unbilled, $1,250.00");
}

TEST_F(ClientCard, namesASingleProjectAsOne) {
    addProject("Website", acme);
    EXPECT_EQ(text(0, "summary"), "Acme Co, 1 project, 0:00 unbilled, $0.00");
}

TEST_F(ClientCard, countsAnArchivedProjectsTimeButNotTheProject) {
    const auto website = addProject("Website", acme);
    addEntry(website, 90min);
    website->isArchived = true;
    context().save();
    EXPECT_EQ(text(0, "projectCount"), "0");
    EXPECT_EQ(text(0, "unbilled"), "1:30");
    EXPECT_EQ(text(0, "value"), "$150.00");
    EXPECT_TRUE(value(0, "projectNames").toStringList().isEmpty());
}

TEST_F(ClientCard, offersNoInvoiceOfNothing) {
    acme->hourlyRateCents = 0;
    addEntry(addProject("Website", acme), 60min);
    EXPECT_EQ(text(0, "unbilled"), "1:00");
    EXPECT_EQ(text(0, "invoiceText"), "");
}

TEST_F(ClientCard, showsFourProjectsByNameAndHowManyMoreThereAre) {
    for (const char* name : {"Project 10", "Project 2", "b", "A"}) addProject(name, acme);
    EXPECT_EQ(projectNames(), (std::vector<std::string>{"A", "b", "Project 2", "Project 10"}));
    EXPECT_EQ(text(0, "more"), "");
    addProject("Z", acme)->colorHex = "#123456";
    addProject("C", acme);
    EXPECT_EQ(projectNames(), (std::vector<std::string>{"A", "b", "C", "Project 2"}));
    EXPECT_EQ(value(0, "projectColors").toStringList().size(), 4);
    EXPECT_EQ(text(0, "more"), "+2");
}

TEST_F(ClientCard, namesTheInvoiceThatWasIssuedLast) {
    EXPECT_EQ(text(0, "lastInvoice"), "");
    addInvoice("INV-2", acme, "2026-02-04");
    const auto last = addInvoice("INV-1", acme, "2026-03-01");
    EXPECT_EQ(text(0, "lastInvoice"), "INV-1 · Mar 1");
    context().deleteRecord(last);
    context().save();
    EXPECT_EQ(text(0, "lastInvoice"), "INV-2 · Feb 4");
}

TEST_F(ClientCard, namesOfTheInvoicesOfOneDayTheLastNumber) {
    for (const char* number : {"INV-2", "INV-3", "INV-1"}) addInvoice(number, acme, "2026-02-04");
    EXPECT_EQ(text(0, "lastInvoice"), "INV-3 · Feb 4");
}

TEST_F(ClientCard, followsTheTimeOfItsProjectsAndWhatItCosts) {
    const auto website = addProject("Website", acme);
    const auto entry = addEntry(website, 60min);
    EXPECT_EQ(text(0, "value"), "$100.00");
    website->rateOverrideCents = 5000;
    context().save();
    EXPECT_EQ(text(0, "value"), "$50.00");
    entry->invoice = addInvoice("1", acme);
    context().save();
    EXPECT_EQ(text(0, "value"), "$0.00");
}

TEST_F(ClientCard, showsNamesAsTheyAre) {
    acme->name = "<b>Zoë</b> & שלום";
    context().save();
    EXPECT_EQ(text(0, "name"), "<b>Zoë</b> & שלום");
}

// --- what it costs -------------------------------------------------------------------------------

TEST_F(ClientCard, isReadWhenItFirstShowsAndNotBefore) {
    addEntry(addProject("Website", acme), 60min);
    const auto globex = addClient("Globex");
    addEntry(addProject("App", globex), 60min);
    model.setShown(false);
    (void)statements();
    model.setShown(true);
    const auto toList = statements().size();
    EXPECT_LE(toList, 2U) << "the clients, and how many projects they have";
    EXPECT_EQ(text(0, "unbilled"), "1:00");
    EXPECT_LE(statements().size(), 4U) << "its projects, their time, its invoices";
    EXPECT_EQ(text(0, "value"), "$100.00");
    EXPECT_TRUE(statements().empty()) << "once";
}

TEST_F(ClientCard, isReadAgainWhenItsOwnTimeChangedAlone) {
    const auto website = addProject("Website", acme);
    const auto app = addProject("App", addClient("Globex"));
    addEntry(website, 60min);
    const auto entry = addEntry(app, 60min);
    EXPECT_EQ(text(0, "unbilled") + text(1, "unbilled"), "1:001:00");
    QSignalSpy changed(model.cardsModel(), &QAbstractItemModel::dataChanged);
    entry->end = timer.today("08:00");
    context().save();
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 1);
    (void)statements();
    EXPECT_EQ(text(0, "unbilled"), "1:00");
    EXPECT_TRUE(statements().empty());
    EXPECT_EQ(text(1, "unbilled"), "2:00");
}

TEST_F(ClientCard, isLeftAloneByNotesAndByATimerThatStarts) {
    const auto website = addProject("Website", acme);
    const auto entry = addEntry(website, 60min);
    (void)text(0, "unbilled");
    QSignalSpy changed(model.cardsModel(), &QAbstractItemModel::dataChanged);
    entry->notes = "Layout";
    timer.service->start(website);
    context().save();
    EXPECT_TRUE(changed.empty());
}

TEST_F(ClientCard, costsNothingWhileTheSectionIsHiddenAndCatchesUp) {
    const auto website = addProject("Website", acme);
    addEntry(website, 60min);
    (void)text(0, "unbilled");
    model.setShown(false);
    QSignalSpy changed(model.cardsModel(), &QAbstractItemModel::dataChanged);
    timer.library.addEntry(website, timer.today("07:00"), timer.today("08:00"));
    timer.library.addClient("Beta");
    context().save();
    EXPECT_TRUE(changed.empty());
    EXPECT_EQ(model.cards().size(), 1U);
    model.setShown(true);
    EXPECT_EQ(names(), (std::vector<std::string>{"Acme Co", "Beta"}));
    EXPECT_EQ(text(0, "unbilled"), "2:00");
}

}  // namespace
}  // namespace elmworth
