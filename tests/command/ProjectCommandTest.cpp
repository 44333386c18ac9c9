// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandTest.h"
#include "records/ProjectColors.h"

namespace elmworth {
namespace {

using test::keys;
using testing::ElementsAre;
using testing::HasSubstr;
using namespace std::chrono_literals;

class ProjectCommand : public test::CommandTest {};

TEST_F(ProjectCommand, theListHasTheFieldsAndTheTime) {
    design_->rateOverrideCents = 5000;
    design_->budgetHours = 4;
    addEntry(design_, "2026-03-30T09:00+02:00", 60)->invoice = library_.addInvoice("A", acme_);
    addEntry(design_, "2026-03-30T11:00+02:00", 30);
    timer_.start(design_);
    now_ += 30min;
    const auto projects = json({"project", "list"});
    ASSERT_EQ(projects.Size(), 3U);
    EXPECT_THAT(keys(projects[0]),
                ElementsAre("id", "name", "client", "colorHex", "rateOverrideCents", "isArchived",
                            "budgetHours", "budgetFraction", "trackedSeconds", "unbilledSeconds"));
    EXPECT_EQ(projects[0]["trackedSeconds"].GetInt(), 5400) << "running time is not tracked yet";
    EXPECT_EQ(projects[0]["unbilledSeconds"].GetInt(), 1800);
    EXPECT_EQ(projects[0]["budgetFraction"].GetDouble(), 0.5) << "running time uses the budget";
    EXPECT_FALSE(projects[1].HasMember("rateOverrideCents"));
    EXPECT_FALSE(projects[1].HasMember("budgetHours"));
    EXPECT_FALSE(projects[1].HasMember("budgetFraction"));
}

TEST_F(ProjectCommand, archivedProjectsAreListedOnRequest) {
    EXPECT_EQ(output({"project", "archive", "Design"}), "");
    EXPECT_EQ(json({"project", "list"}).Size(), 2U);
    EXPECT_EQ(json({"project", "list", "--all"}).Size(), 3U);
    EXPECT_THAT(output({"project", "list", "--all"}), HasSubstr("Archived"));
    EXPECT_FALSE(json({"project", "unarchive", "Design"})["isArchived"].GetBool());
    EXPECT_EQ(json({"project", "list"}).Size(), 3U);
}

TEST_F(ProjectCommand, theListForPeople) {
    design_->budgetHours = 2;
    addEntry(design_, "2026-03-30T09:00+02:00", 90);
    EXPECT_EQ(output({"project", "list"}),
              "PROJECT  CLIENT        RATE  TRACKED  UNBILLED      BUDGET\n"
              "Design   Acme Co  $100.00/h     1:30      1:30  75% of 2 h\n"
              "Website  Acme Co  $100.00/h     0:00      0:00\n"
              "Website  Globex   $100.00/h     0:00      0:00\n");
}

TEST_F(ProjectCommand, addReadsValuesAsTheFormDoes) {
    const auto project = json({"project", "add", " App ", "--client", "globex", "--rate", "0",
                               "--budget", "37,5", "--color", "#40D19E"});
    EXPECT_STREQ(project["name"].GetString(), "App");
    EXPECT_STREQ(project["client"].GetString(), "Globex");
    EXPECT_EQ(project["rateOverrideCents"].GetInt(), 0);
    EXPECT_EQ(project["budgetHours"].GetInt(), 38);
    EXPECT_STREQ(project["colorHex"].GetString(), "#40D19E");
    EXPECT_EQ(output({"project", "add", "Site", "--client", "Globex"}),
              "Added the project “Site — Globex”.\n");
}

TEST_F(ProjectCommand, eachNewProjectHasTheNextColor) {
    ASSERT_EQ(library_.context().fetchCount<Project>(), 3U);
    const auto colorOf = [&](const char* name) {
        return std::string(
            json({"project", "add", name, "--client", "Globex"})["colorHex"].GetString());
    };
    EXPECT_EQ(colorOf("App"), projectColors.at(3));
    EXPECT_EQ(colorOf("Site"), projectColors.at(4));
    for (int number = 5; number < 9; ++number) colorOf(("P" + std::to_string(number)).c_str());
    EXPECT_EQ(colorOf("Tenth"), projectColors.front()) << "there are nine";
}

TEST_F(ProjectCommand, whatCannotBeReadIsRefusedAndNothingIsAdded) {
    const auto add = [](const char* option, const char* value) {
        return test::Arguments{"project", "add", "X", "--client", "Globex", option, value};
    };
    for (const char* option : {"--rate", "--budget", "--color"})
        EXPECT_EQ(run(add(option, "many")).exitStatus, 1) << option;
    expectRefusal(add("--color", "red"), 1, "“red” is no color. Write it like #7C6CFF.");
    expectRefusal({"project", "add", "X", "--client", "Initech"}, 1,
                  "There is no client “Initech”. Candidates: Acme Co, Globex.");
    EXPECT_EQ(library_.context().fetchCount<Project>(), 3U);
}

TEST_F(ProjectCommand, setChangesOneField) {
    output({"project", "set", "Design", "rate", "80"});
    output({"project", "set", "Design", "budget", "40,"});
    output({"project", "set", "Design", "color", "#40D19E"});
    output({"project", "set", "Design", "name", "Identity"});
    EXPECT_EQ(design_->rateOverrideCents.get(), 8000);
    EXPECT_EQ(design_->budgetHours.get(), 40);
    EXPECT_EQ(design_->name.get(), "Identity");
    EXPECT_FALSE(json({"project", "set", "Identity", "rate", ""}).HasMember("rateOverrideCents"));
    EXPECT_FALSE(json({"project", "set", "Identity", "budget", ""}).HasMember("budgetHours"));
    EXPECT_FALSE(library_.context().hasChanges());
}

TEST_F(ProjectCommand, theClientTellsProjectsOfOneNameApart) {
    output({"project", "set", "Website", "rate", "80", "--client", "globex"});
    EXPECT_EQ(otherWebsite_->rateOverrideCents.get(), 8000);
    EXPECT_FALSE(website_->rateOverrideCents.get());
    output({"project", "archive", "Website", "--client", "Acme Co"});
    EXPECT_TRUE(website_->isArchived);
    EXPECT_FALSE(otherWebsite_->isArchived);
    output({"project", "delete", "Website", "--client", "Globex"});
    EXPECT_TRUE(otherWebsite_->isDeleted());
}

TEST_F(ProjectCommand, aProjectWithInvoicedTimeStaysWithItsClient) {
    output({"project", "set", "Design", "client", "Globex"});
    EXPECT_EQ(design_->client.get(), globex_);
    addEntry(website_, "2026-03-30T09:00+02:00", 60);
    billMarch();
    expectRefusal({"project", "set", "Website", "client", "Globex", "--client", "Acme Co"}, 1,
                  "Projects with invoiced time stay with their client.");
}

TEST_F(ProjectCommand, deleteTakesTheTimeAlong) {
    addEntry(design_, "2026-03-30T09:00+02:00", 60);
    timer_.start(design_);
    EXPECT_EQ(output({"project", "delete", "design"}),
              "Deleted the project “Design — Acme Co” with its time entries.\n");
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 0U);
    EXPECT_FALSE(timer_.running());
}

TEST_F(ProjectCommand, deleteArchivesAProjectWithInvoicedTime) {
    addEntry(design_, "2026-03-30T09:00+02:00", 60);
    billMarch();
    EXPECT_EQ(output({"project", "delete", "Design"}),
              "“Design — Acme Co” has invoiced time, so it was archived instead of deleted to keep "
              "your invoices intact.\n");
    EXPECT_TRUE(design_->isArchived);
    EXPECT_EQ(library_.context().fetchCount<TimeEntry>(), 1U);
    EXPECT_FALSE(json({"project", "delete", "Design"})["deleted"].GetBool());
}

}  // namespace
}  // namespace elmworth
