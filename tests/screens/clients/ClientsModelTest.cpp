// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <QAbstractItemModelTester>

#include "screens/clients/ClientsTest.h"
#include "support/FailingReads.h"

namespace elmworth {
namespace {

using namespace std::chrono_literals;
using Names = std::vector<std::string>;

class Clients : public test::ClientsTest {
 protected:
    void addClients(std::size_t count) {
        for (std::size_t i = 0; i < count; ++i)
            timer.library.addClient("Client " + std::to_string(i + 1));
        context().save();
    }
    [[nodiscard]] std::size_t clientCount() { return context().fetchCount<Client>(); }
    /// Does what the question asks for.
    void agree() { confirmation.accept(); }
};

TEST_F(Clients, standInTheOrderOfTheirNamesAndAreCounted) {
    const QAbstractItemModelTester tester(model.cardsModel());
    EXPECT_TRUE(model.isEmpty());
    EXPECT_EQ(model.subtitle().toStdString(), "0 clients");
    addClient("Client 10");
    EXPECT_EQ(model.subtitle().toStdString(), "1 client");
    addClient("acme");
    const auto two = addClient("Client 2");
    EXPECT_EQ(names(), (Names{"acme", "Client 2", "Client 10"}));
    two->name = "Zulu";
    context().save();
    EXPECT_EQ(names(), (Names{"acme", "Client 10", "Zulu"}));
    EXPECT_EQ(model.subtitle().toStdString(), "3 clients");
    EXPECT_FALSE(model.isEmpty());
}

// --- search --------------------------------------------------------------------------------------

TEST_F(Clients, canBeSearchedFromFiveOnAndWhileSomethingIsSearchedFor) {
    addClients(4);
    EXPECT_FALSE(model.isSearchShown());
    addClients(1);
    EXPECT_TRUE(model.isSearchShown());
    search("client");
    context().deleteRecord(context().fetch<Client>().front());
    context().save();
    EXPECT_EQ(clientCount(), 4U);
    EXPECT_TRUE(model.isSearchShown());
    search("");
    EXPECT_FALSE(model.isSearchShown());
}

struct SearchRow {
    const char* name;
    const char* typed;
    Names found;
};

class SearchedClients : public Clients, public testing::WithParamInterface<SearchRow> {};

TEST_P(SearchedClients, areFoundByNameAddressAndProjects) {
    const auto acme = addClient("Acme Co");
    acme->email = "Billing@acme.example";
    addProject("Website", acme);
    addProject("Old Shop", acme)->isArchived = true;
    const auto cafe = addClient("Café Zoë");
    addProject("Menu 100%", cafe);
    addClient("ÄRZTE GmbH");
    search(GetParam().typed);
    EXPECT_EQ(names(), GetParam().found);
    EXPECT_EQ(model.subtitle().toStdString(), "3 clients") << "all of them";
}

const SearchRow searchRows[] = {
    {"name", "acme", {"Acme Co"}},
    {"middle", "me c", {"Acme Co"}},
    {"email", "billing@", {"Acme Co"}},
    {"project", "WEBSITE", {"Acme Co"}},
    {"archivedProject", "old shop", {"Acme Co"}},
    {"umlautInAnotherCase", "ärzte", {"ÄRZTE GmbH"}},
    {"blanksAround", " \t zoë ", {"Café Zoë"}},
    {"blanksAlone", " \t ", {"Acme Co", "ÄRZTE GmbH", "Café Zoë"}},
    {"decomposed", "cafe\xCC\x81", {"Café Zoë"}},
    {"sign", "%", {"Café Zoë"}},
    {"nothing", "xyz", {}},
};
INSTANTIATE_TEST_SUITE_P(Texts, SearchedClients, testing::ValuesIn(searchRows),
                         [](const auto& row) { return std::string(row.param.name); });

TEST_F(Clients, haveRoomForTheProjectsOfTheOneWithMost) {
    EXPECT_EQ(model.projectLines(), 1);
    const auto acme = addClient("Acme Co");
    const auto globex = addClient("Globex");
    for (const char* name : {"App", "Website"}) {
        addProject(name, acme);
        addProject(name, globex);
    }
    EXPECT_EQ(model.projectLines(), 1);
    const auto third = addProject("Shop", globex);
    context().save();
    EXPECT_EQ(model.projectLines(), 2);
    third->isArchived = true;
    context().save();
    EXPECT_EQ(model.projectLines(), 1);
}

TEST_F(Clients, sayWhenNoneMatches) {
    EXPECT_EQ(model.noMatchText().toStdString(), "");
    addClient("Acme Co");
    EXPECT_EQ(model.noMatchText().toStdString(), "");
    search(" <b>x ");
    EXPECT_EQ(model.noMatchText().toStdString(), "No clients match “ <b>x ”.");
    addClient("<b>X");
    EXPECT_EQ(model.noMatchText().toStdString(), "");
}

TEST_F(Clients, areFoundByANameThatChangesMeanwhile) {
    const auto project = addProject("Website", addClient("Acme Co"));
    search("shop");
    EXPECT_EQ(names(), Names{});
    project->name = "Shop";
    context().save();
    EXPECT_EQ(names(), Names{"Acme Co"});
}

TEST_F(Clients, ofAnyNumberCostNothingToSearchOnceTheirNamesAreRead) {
    addClients(2000);
    search("c");
    EXPECT_EQ(model.cards().size(), 2000U);
    (void)statements();
    search("cl");
    search("client 19");
    EXPECT_EQ(model.cards().size(), 111U);
    EXPECT_TRUE(statements().empty());
}

// --- deletion ------------------------------------------------------------------------------------

TEST_F(Clients, withInvoicesStayAndSayWhy) {
    addInvoice("1", addClient("Acme Co"));
    model.remove(0);
    EXPECT_EQ(title(), "Client has invoices");
    EXPECT_EQ(message(), "Delete Acme Co's invoices first.");
    EXPECT_EQ(confirmation.acceptText().toStdString(), "OK");
    EXPECT_EQ(confirmation.rejectText().toStdString(), "");
    agree();
    EXPECT_EQ(clientCount(), 1U);
}

TEST_F(Clients, areDeletedWithTheirTimeAfterAQuestion) {
    addEntry(addProject("Website", addClient("Acme Co")), 60min);
    QSignalSpy removed(&model, &ClientsModel::removed);
    model.remove(0);
    EXPECT_EQ(title(), "Delete Acme Co?");
    EXPECT_EQ(message(), "This also deletes its projects and all their time entries.");
    EXPECT_EQ(confirmation.acceptText().toStdString(), "Delete Client");
    EXPECT_TRUE(confirmation.isDestructive());
    EXPECT_EQ(clientCount(), 1U);
    agree();
    EXPECT_EQ(clientCount(), 0U);
    EXPECT_EQ(context().fetchCount<TimeEntry>(), 0U);
    EXPECT_TRUE(model.isEmpty());
    EXPECT_EQ(removed[0][0].toString().toStdString(), "Deleted Acme Co.");
    timer.history->undo();
    EXPECT_EQ(names(), Names{"Acme Co"});
    EXPECT_EQ(text(0, "unbilled"), "1:00");
    timer.history->redo();
    EXPECT_EQ(names(), Names{});
}

TEST_F(Clients, thatAreGoneBeforeTheAnswerAreLeftAlone) {
    const auto acme = addClient("Acme Co");
    model.remove(0);
    context().deleteRecord(acme);
    context().save();
    QSignalSpy removed(&model, &ClientsModel::removed);
    agree();
    EXPECT_TRUE(removed.empty());
    EXPECT_FALSE(confirmation.isOpen());
}

TEST_F(Clients, thatGetAnInvoiceBeforeTheAnswerStay) {
    const auto acme = addClient("Acme Co");
    model.remove(0);
    addInvoice("1", acme);
    agree();
    EXPECT_EQ(title(), "The client couldn't be deleted");
    EXPECT_EQ(message(), "Delete Acme Co's invoices first.");
    EXPECT_EQ(clientCount(), 1U);
}

TEST(ClientsOnADamagedDisk, sayThatADeletionFailed) {
    const test::FailingReads disk;
    test::TestTimer timer;
    test::TestServices app{timer};
    Confirmation confirmation;
    ClientsModel model{app.services(), confirmation};
    const auto acme = timer.library.addClient("Acme Co");
    timer.library.context().save();
    model.setShown(true);
    disk.fail();
    model.remove(0);
    EXPECT_EQ(confirmation.title().toStdString(), "The client couldn't be deleted");
    EXPECT_FALSE(confirmation.message().isEmpty());
    disk.heal();
    model.remove(0);
    disk.fail();
    confirmation.accept();
    EXPECT_EQ(confirmation.title().toStdString(), "The client couldn't be deleted");
    disk.heal();
    EXPECT_EQ(timer.library.context().fetchCount<Client>(), 1U);
}

// --- rows, menu, invoice -------------------------------------------------------------------------

TEST_F(Clients, ofNoRowDoNothing) {
    addClient("Acme Co");
    QSignalSpy invoiced(&model, &ClientsModel::invoiceRequested);
    for (const int row : {-1, 1}) {
        model.edit(row);
        model.remove(row);
        model.invoice(row);
        EXPECT_FALSE(model.openMenu(row));
    }
    model.menuEdit();
    model.menuRemove();
    model.menuInvoice();
    EXPECT_FALSE(model.editor()->isOpen());
    EXPECT_FALSE(confirmation.isOpen());
    EXPECT_TRUE(invoiced.empty());
}

TEST_F(Clients, areInvoicedFromTheCardAndTheMenu) {
    const auto acme = addClient("Acme Co");
    QSignalSpy invoiced(&model, &ClientsModel::invoiceRequested);
    model.invoice(0);
    ASSERT_TRUE(model.openMenu(0));
    model.menuInvoice();
    ASSERT_EQ(invoiced.size(), 2);
    EXPECT_EQ(invoiced[0][0].value<PersistentID>(), acme->id());
    EXPECT_EQ(invoiced[1][0].value<PersistentID>(), acme->id());
}

TEST_F(Clients, keepTheMenuThatWasOpenedForThem) {
    addClient("Globex");
    ASSERT_TRUE(model.openMenu(0));
    EXPECT_EQ(model.selection()->currentRow(), 0);
    addClient("Acme Co");
    EXPECT_EQ(model.selection()->currentRow(), 1);
    model.menuEdit();
    EXPECT_EQ(model.editor()->name()->text().toStdString(), "Globex");
    model.menuRemove();
    EXPECT_EQ(title(), "Delete Globex?");
}

TEST_F(Clients, thatAreAddedAreSelectedAndShown) {
    addClients(5);
    search("client");
    QSignalSpy revealed(&model, &ClientsModel::revealRequested);
    model.add();
    model.editor()->name()->setText(QStringLiteral("Acme Co"));
    model.editor()->save();
    EXPECT_EQ(model.search().toStdString(), "") << "it would not be seen";
    ASSERT_EQ(revealed.size(), 1);
    EXPECT_EQ(revealed[0][0].toInt(), 0);
    EXPECT_EQ(model.selection()->currentRow(), 0);
    EXPECT_EQ(names().front(), "Acme Co");
}

TEST_F(Clients, thatAreRenamedStaySelectedWhereTheyGo) {
    addClient("Acme Co");
    addClient("Globex");
    model.edit(0);
    model.editor()->name()->setText(QStringLiteral("Zulu"));
    model.editor()->save();
    EXPECT_EQ(names(), (Names{"Globex", "Zulu"}));
    EXPECT_EQ(model.selection()->currentRow(), 1);
    EXPECT_EQ(timer.history->undoText(), "Undo Edit Acme Co");
}

}  // namespace
}  // namespace elmworth
