// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/welcome/GettingStartedModel.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "screens/welcome/WelcomeModel.h"
#include "support/LibraryTest.h"

namespace elmworth {
namespace {

using testing::ElementsAre;

class GettingStartedModelTest : public test::LibraryTest {
 protected:
    void setName(const std::string& name) {
        setProfile([&](auto& profile) { profile.name = name; });
    }
    /// Everything but the name of the business.
    void fill() {
        acme = timer.library.addClient("Acme");
        website = timer.library.addProject("Website", acme);
        timer.library.addEntry(website, test::TestTimer::today("07:00"),
                               test::TestTimer::today("08:00"));
        timer.library.addInvoice("1", nullptr);
        timer.library.context().save();
    }

    Ref<Client> acme;
    Ref<Project> website;
    GettingStartedModel model{services()};
};

TEST_F(GettingStartedModelTest, nothingIsDoneInAnEmptyLibrary) {
    EXPECT_TRUE(model.isShown());
    EXPECT_THAT(model.done(), ElementsAre(false, false, false, false, false));
    EXPECT_EQ(model.detail(), QStringLiteral("0 of 5 done"));
}

TEST_F(GettingStartedModelTest, stepsAreDoneByWhatTheLibraryHolds) {
    timer.library.addClient("Acme");
    timer.library.context().save();
    EXPECT_THAT(model.done(), ElementsAre(false, true, false, false, false));
    setName("Mine");
    EXPECT_THAT(model.done(), ElementsAre(true, true, false, false, false));
    EXPECT_EQ(model.detail(), QStringLiteral("2 of 5 done"));
}

TEST_F(GettingStartedModelTest, catchesUpWhenItCanBeSeenAgain) {
    model.setSeen(false);
    fill();
    EXPECT_THAT(model.done(), ElementsAre(false, false, false, false, false));
    model.setSeen(true);
    EXPECT_THAT(model.done(), ElementsAre(false, true, true, true, true));
}

TEST_F(GettingStartedModelTest, aTimerThatRunsIsNotTrackedYet) {
    timer.service->start(timer.library.addProject("Website", nullptr));
    timer.library.context().save();
    EXPECT_FALSE(model.done()[GettingStartedModel::time]);
    timer.setTime("10:00");
    timer.service->stop();
    EXPECT_TRUE(model.done()[GettingStartedModel::time]);
}

TEST_F(GettingStartedModelTest, anEmptyNameKeepsItAtFourOfFive) {
    fill();
    EXPECT_TRUE(model.isShown());
    EXPECT_EQ(model.detail(), QStringLiteral("4 of 5 done"));
    setName("Mine");
    EXPECT_FALSE(model.isShown());
}

TEST_F(GettingStartedModelTest, deletingTheOnlyClientBringsItBackUnlessItWasHidden) {
    fill();
    setName("Mine");
    ASSERT_FALSE(model.isShown());
    timer.library.context().deleteRecord(acme);
    timer.library.context().save();
    EXPECT_TRUE(model.isShown());
    model.hide();
    EXPECT_FALSE(model.isShown());
    EXPECT_FALSE(GettingStartedModel(services()).isShown());
}

TEST_F(GettingStartedModelTest, stepsLeadToTheirSections) {
    int settings = 0;
    QObject::connect(&model, &GettingStartedModel::settingsRequested, [&] { ++settings; });
    model.act(GettingStartedModel::business);
    EXPECT_EQ(settings, 1);
    for (const auto& [step, section] :
         {std::pair{GettingStartedModel::client, "Clients"},
          std::pair{GettingStartedModel::project, "Projects"},
          std::pair{GettingStartedModel::invoice, "Invoices"},
          std::pair{GettingStartedModel::time, "Invoices"}}) {  // nowhere: as it was
        model.act(step);
        EXPECT_EQ(defaults.string("mainSection"), section);
    }
}

TEST_F(GettingStartedModelTest, aHiddenListFollowsNothing) {
    model.hide();
    int changes = 0;
    QObject::connect(&model, &GettingStartedModel::changed, [&] { ++changes; });
    fill();
    EXPECT_EQ(changes, 0);
}

class WelcomeModelTest : public testing::Test {
 protected:
    test::TemporaryFolder folder;
    Settings defaults{folder.path() / "Elmworth.ini"};
    WelcomeModel welcome{defaults};
};

TEST_F(WelcomeModelTest, greetsOnce) {
    welcome.greet();
    EXPECT_TRUE(welcome.isOpen());
    EXPECT_FALSE(defaults.boolean("didOnboard").value_or(false));
    welcome.dismiss();
    EXPECT_EQ(defaults.boolean("didOnboard"), true);
    welcome.greet();
    EXPECT_FALSE(welcome.isOpen());
}

TEST_F(WelcomeModelTest, goesThroughItsPagesAndBack) {
    welcome.greet();
    EXPECT_EQ(welcome.backText(), QStringLiteral("Skip"));
    EXPECT_EQ(welcome.title() + welcome.accent(), QStringLiteral("Track from the tray"));
    welcome.next();
    EXPECT_EQ(welcome.backText(), QStringLiteral("Back"));
    EXPECT_EQ(welcome.kicker(), QStringLiteral("STEP 2"));
    welcome.back();
    EXPECT_EQ(welcome.page(), 0);
    welcome.next();
    welcome.next();
    EXPECT_EQ(welcome.nextText(), QStringLiteral("Get Started"));
    welcome.next();
    EXPECT_FALSE(welcome.isOpen());
    EXPECT_EQ(defaults.boolean("didOnboard"), true);
}

TEST_F(WelcomeModelTest, leadsToThePanelWhereThereIsNoTray) {
    welcome.setTrayShown(false);
    welcome.greet();
    EXPECT_EQ(welcome.title() + welcome.accent(), QStringLiteral("Track from the panel"));
    EXPECT_TRUE(welcome.text().startsWith(QStringLiteral("Choose Open Panel in the menu")));
    welcome.setTrayShown(true);
    EXPECT_EQ(welcome.title() + welcome.accent(), QStringLiteral("Track from the tray"));
}

TEST_F(WelcomeModelTest, skipLeavesFromTheFirstPage) {
    welcome.greet();
    welcome.back();
    EXPECT_FALSE(welcome.isOpen());
}

}  // namespace
}  // namespace elmworth
