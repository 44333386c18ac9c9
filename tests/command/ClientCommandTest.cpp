// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandTest.h"
#include "support/FileSizeLimit.h"

namespace elmworth {
namespace {

using test::keys;
using testing::ElementsAre;
using testing::HasSubstr;

class ClientCommand : public test::CommandTest {};

TEST_F(ClientCommand, theListHasTheFieldsAndTheUnbilledTime) {
    acme_->email = "pay@acme.test";
    acme_->dueDays = 30;
    acme_->taxBasisPoints = 825;
    addEntry(website_, "2026-03-30T09:00+02:00", 90);
    design_->isArchived = true;
    addEntry(design_, "2026-03-30T11:00+02:00", 30);
    const auto clients = json({"client", "list"});
    ASSERT_EQ(clients.Size(), 2U);
    EXPECT_THAT(
        keys(clients[0]),
        ElementsAre("id", "name", "email", "address", "currencyCode", "hourlyRateCents", "dueDays",
                    "taxBasisPoints", "activeProjects", "unbilledSeconds", "unbilledCents"));
    EXPECT_EQ(clients[0]["activeProjects"].GetInt(), 1);
    EXPECT_EQ(clients[0]["unbilledSeconds"].GetInt(), 7200) << "archived time is unbilled too";
    EXPECT_EQ(clients[0]["unbilledCents"].GetInt(), 20000);
    EXPECT_FALSE(clients[1].HasMember("dueDays")) << "absent values are left out";
    EXPECT_FALSE(clients[1].HasMember("taxBasisPoints"));
}

TEST_F(ClientCommand, theListForPeople) {
    addEntry(website_, "2026-03-30T09:00+02:00", 90);
    EXPECT_EQ(output({"client", "list"}),
              "CLIENT   EMAIL       RATE  PROJECTS  UNBILLED    VALUE\n"
              "Acme Co         $100.00/h         2      1:30  $150.00\n"
              "Globex          $100.00/h         1      0:00    $0.00\n");
}

TEST_F(ClientCommand, addReadsValuesAsTheFormDoes) {
    const auto client =
        json({"client", "add", " Initech ", "--email", "a@b.test", "--address", "1 Road",
              "--currency", "eur", "--rate", "120,50", "--due-days", "0", "--tax", "8,25"});
    EXPECT_STREQ(client["name"].GetString(), "Initech");
    EXPECT_STREQ(client["currencyCode"].GetString(), "EUR");
    EXPECT_EQ(client["hourlyRateCents"].GetInt(), 12050);
    EXPECT_EQ(client["dueDays"].GetInt(), 0);
    EXPECT_EQ(client["taxBasisPoints"].GetInt(), 825);
    library_.reopen();
    EXPECT_EQ(library_.context().fetchCount<Client>(), 3U);
}

TEST_F(ClientCommand, addWithoutMoreTakesTheDefaults) {
    EXPECT_EQ(output({"client", "add", "Initech"}), "Added the client “Initech”.\n");
    const auto clients = json({"client", "list"});
    EXPECT_STREQ(clients[2]["currencyCode"].GetString(), "USD");
    EXPECT_EQ(clients[2]["hourlyRateCents"].GetInt(), 10000);
    EXPECT_FALSE(clients[2].HasMember("dueDays"));
}

TEST_F(ClientCommand, whatCannotBeReadIsRefusedAndNothingIsAdded) {
    for (const char* option : {"--rate", "--tax", "--due-days", "--currency"})
        EXPECT_EQ(run({"client", "add", "X", option, "many"}).exitStatus, 1) << option;
    expectRefusal({"client", "add", "X", "--rate", "ten"}, 1,
                  "“ten” is no amount. Enter a number like 120 or 120.50.");
    expectRefusal({"client", "add", " \t"}, 1, "The name can't be empty.");
    EXPECT_EQ(library_.context().fetchCount<Client>(), 2U);
}

TEST_F(ClientCommand, setChangesOneField) {
    EXPECT_EQ(output({"client", "set", "acme co", "rate", "1,200.50"}), "");
    EXPECT_EQ(acme_->hourlyRateCents.get(), 120050);
    output({"client", "set", "Acme Co", "due-days", "7"});
    output({"client", "set", "Acme Co", "tax", "19"});
    output({"client", "set", "Acme Co", "currency", "chf"});
    output({"client", "set", "Acme Co", "email", "x@y.test"});
    output({"client", "set", "Acme Co", "name", "Acme"});
    EXPECT_EQ(acme_->dueDays.get(), 7);
    EXPECT_EQ(acme_->taxBasisPoints.get(), 1900);
    EXPECT_EQ(acme_->currencyCode.get(), "CHF");
    EXPECT_EQ(acme_->email.get(), "x@y.test");
    EXPECT_EQ(acme_->name.get(), "Acme");
    EXPECT_FALSE(library_.context().hasChanges());
}

TEST_F(ClientCommand, anEmptyTermIsTheBusinessDefaultAgain) {
    acme_->dueDays = 7;
    acme_->taxBasisPoints = 0;
    const auto client = json({"client", "set", "Acme Co", "due-days", ""});
    EXPECT_FALSE(client.HasMember("dueDays"));
    EXPECT_FALSE(json({"client", "set", "Acme Co", "tax", ""}).HasMember("taxBasisPoints"));
}

TEST_F(ClientCommand, aValueThatBeginsWithADashStandsBehindTwoDashes) {
    output({"client", "set", "Acme Co", "email", "--", "-x@y.test"});
    EXPECT_EQ(acme_->email.get(), "-x@y.test");
}

TEST_F(ClientCommand, aChangeThatCannotBeSavedIsTakenBack) {
    const test::FileSizeLimit fullDisk(0);
    EXPECT_EQ(run({"client", "set", "Acme Co", "rate", "1"}).exitStatus, 1);
    EXPECT_EQ(acme_->hourlyRateCents.get(), 10000);
    EXPECT_FALSE(library_.context().hasChanges());
}

TEST_F(ClientCommand, addSaysThatThereIsOneOfThatName) {
    const auto result = run({"client", "add", "GLOBEX"});
    EXPECT_EQ(result.exitStatus, 0);
    EXPECT_EQ(result.errors,
              "There is another client “GLOBEX”. Commands can't tell the two apart "
              "until one is renamed in the window.\n");
    EXPECT_EQ(run({"client", "add", "Initech"}).errors, "");
}

TEST_F(ClientCommand, twoClientsOfOneNameCannotBeToldApart) {
    library_.addClient("GLOBEX");
    library_.context().save();
    expectRefusal(
        {"client", "set", "globex", "rate", "1"}, 1,
        "There are 2 clients “globex”: Globex, GLOBEX. Rename one of them in the window first.");
}

TEST_F(ClientCommand, deleteTakesProjectsAndTimeAlong) {
    addEntry(website_, "2026-03-30T09:00+02:00", 90);
    timer_.start(website_);
    EXPECT_EQ(output({"client", "delete", "acme co"}),
              "Deleted the client “Acme Co” with its projects and their time entries.\n");
    EXPECT_FALSE(timer_.running());
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 0U);
    EXPECT_TRUE(json({"client", "delete", "Globex"})["deleted"].GetBool());
}

}  // namespace
}  // namespace elmworth
