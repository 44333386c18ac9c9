// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/TrayMenu.h"

#include "screens/panel/PanelModel.h"
#include "screens/panel/TrayLabel.h"
#include "support/LibraryTest.h"
#include "support/QtTesting.h"

namespace elmworth {
namespace {

using Texts = std::vector<std::string>;

class TrayMenuTest : public test::LibraryTest {
 protected:
    /// The lines of a menu: "---" for a separator, in brackets when they cannot be chosen, with ">"
    /// when a submenu opens.
    static Texts lines(const TrayMenu& menu) {
        Texts texts;
        for (const auto& item : menu) {
            std::string text = item.isSeparator ? "---" : item.text;
            if (!item.submenu.empty()) text += " >";
            if (!item.isEnabled && !item.isSeparator) text = "[" + text + "]";
            texts.push_back(text);
        }
        return texts;
    }
    TrayMenu menu() {
        turn();
        return makeTrayMenu(panel, label);
    }
    /// The item `text` of `menu` or of one of its submenus.
    static const TrayMenuItem* find(const TrayMenu& menu, const std::string& text) {
        for (const auto& item : menu) {
            if (item.text == text) return &item;
            if (const auto* found = find(item.submenu, text)) return found;
        }
        return nullptr;
    }
    void choose(const std::string& text) {
        const auto shown = menu();
        const auto* item = find(shown, text);
        ASSERT_TRUE(item) << text;
        ASSERT_TRUE(item->isEnabled && item->action) << text;
        item->action();
    }

    PanelModel panel{services()};
    TrayLabel label{services()};
};

TEST_F(TrayMenuTest, withoutProjectsItOffersToCreateOne) {
    EXPECT_EQ(lines(menu()),
              (Texts{"[Nothing is running.]", "---", "[No projects yet]", "Create a Project", "---",
                     "Open Panel", "Open Elmworth", "Settings", "Quit Elmworth"}));
    choose("Create a Project");
    EXPECT_EQ(defaults.string("mainSection"), "Clients");
}

TEST_F(TrayMenuTest, whileNothingRunsItContinuesAndStarts) {
    const auto website = project("Website");
    project("Own", nullptr);
    entry(website, "07:00", "08:00");
    EXPECT_EQ(lines(menu()), (Texts{"[Nothing is running.]", "Continue Website", "---",
                                    "[Start tracking]", "Website · Acme Co", "Own", "---",
                                    "Open Panel", "Open Elmworth", "Settings", "Quit Elmworth"}));
    choose("Own");
    EXPECT_EQ(service().running()->project->name.get(), "Own");
}

TEST_F(TrayMenuTest, whileATimerRunsItStopsAndSwitches) {
    project("Blog");
    service().start(project("Website"));
    passTo("10:05");
    EXPECT_EQ(lines(menu()),
              (Texts{"[1:05 · Website]", "Stop", "---", "[Switch to]", "Blog · Acme Co", "---",
                     "Open Panel", "Open Elmworth", "Settings", "Quit Elmworth"}));
    choose("Blog · Acme Co");
    EXPECT_EQ(timer.spans(), (Texts{"09:00:00-10:05:00", "10:05:00-"}));
}

TEST_F(TrayMenuTest, theFirstLineTellsWhatRunsInEveryStyle) {
    service().start(project("Website"));
    for (const char* style : {"time", "timeAndProject", "icon"}) {
        defaults.setString("menuBarStyle", style);
        EXPECT_EQ(lines(menu()).at(0), "[0:00 · Website]") << style;
    }
}

TEST_F(TrayMenuTest, asksWhatThePanelAsks) {
    service().start(project("Website"));
    timer.sleep("10:00", "11:00");
    passTo("19:00");
    const auto shown = menu();
    EXPECT_EQ(
        lines(shown),
        (Texts{"[10:00 · Website]", "Stop", "---", "[Running a long time — forgot to stop?]",
               "Stop at… >", "---", "[Computer slept for 1:00. Keep that time?]", "Keep", "Discard",
               "---", "---", "Open Panel", "Open Elmworth", "Settings", "Quit Elmworth"}));
    EXPECT_EQ(
        lines(find(shown, "Stop at…")->submenu),
        (Texts{"1 h after start (10:00\u202FAM)", "2 h after start (11:00\u202FAM)",
               "4 h after start (1:00\u202FPM)", "8 h after start (5:00\u202FPM)", "---", "Now"}));
}

TEST_F(TrayMenuTest, itsAnswersAreThePanels) {
    service().start(project("Website"));
    timer.sleep("10:00", "11:00");
    choose("Keep");
    EXPECT_EQ(timer.spans(), Texts{"09:00:00-"});
    timer.sleep("12:00", "13:00");
    choose("Discard");
    EXPECT_EQ(timer.spans(), (Texts{"09:00:00-12:00:00", "13:00:00-"}));
    timer.setClock("2026-03-02T23:00Z");
    panel.refresh();
    choose("2 h after start (3:00\u202FPM)");
    EXPECT_EQ(timer.spans(), (Texts{"09:00:00-12:00:00", "13:00:00-15:00:00"}));
}

TEST_F(TrayMenuTest, nowAndStopEndTheTimer) {
    const auto website = project("Website");
    service().start(website);
    passTo("19:00");
    choose("Now");
    EXPECT_FALSE(service().running());
    service().start(website);
    passTo("19:30");
    choose("Stop");
    EXPECT_FALSE(service().running());
    timer.setTime("20:00");
    choose("Continue Website");
    EXPECT_TRUE(service().running());
}

TEST_F(TrayMenuTest, fromSevenProjectsOnAllOfThemAreInASubmenu) {
    for (const char* name : {"A", "B", "C", "D", "E", "F"}) project(name);
    EXPECT_FALSE(find(menu(), "All projects"));
    service().start(project("G", nullptr));
    panel.projects()->setSearch(QStringLiteral("nothing"));  // the panel's search is its own
    const auto shown = menu();
    EXPECT_EQ(lines(shown).at(4), "A · Acme Co");
    EXPECT_EQ(lines(find(shown, "All projects")->submenu),
              (Texts{"A · Acme Co", "B · Acme Co", "C · Acme Co", "D · Acme Co", "E · Acme Co",
                     "F · Acme Co", "[G]"}));
}

TEST_F(TrayMenuTest, aChoiceWhoseProjectIsGoneDoesNothing) {
    const auto website = project("Website");
    const auto shown = menu();
    website->isArchived = true;
    context().save();
    find(shown, "Website · Acme Co")->action();
    EXPECT_FALSE(service().running());
}

TEST_F(TrayMenuTest, aLongNameOrOneOfSeveralLinesIsOneShortLine) {
    const auto client = timer.library.addClient("Acme\nCo");
    project(std::string(400, 'x'), client);
    project("two\nlines", client);
    const auto texts = lines(menu());
    EXPECT_EQ(texts.at(3), "two lines · Acme Co");
    EXPECT_EQ(texts.at(4), std::string(59, 'x') + "…");
}

TEST_F(TrayMenuTest, aLineKeepsItsIdentityWhileItsTextChanges) {
    const auto website = project("Website");
    project("Blog");
    service().start(website);
    const auto before = menu();
    website->name = "Shop";
    passTo("10:00");
    service().start(project("Other"));
    const auto after = menu();
    EXPECT_EQ(before.at(0).identity, after.at(0).identity);
    const auto* shop = find(after, "Shop · Acme Co");
    ASSERT_TRUE(shop);
    EXPECT_EQ(shop->identity, website->id().string());
}

TEST_F(TrayMenuTest, thePanelTellsWhenItsOffersChangedAndNotAtATick) {
    const auto website = project("Website");
    int told = 0;
    QObject::connect(&panel, &PanelModel::offersChanged, [&] { ++told; });
    const auto tells = [&](auto&& change) {
        told = 0;
        change();
        turn();
        return told > 0;
    };
    EXPECT_TRUE(tells([&] { service().start(website); }));
    EXPECT_FALSE(tells([&] { pass(120); }));
    EXPECT_TRUE(tells([&] { timer.sleep("10:00", "11:00"); }));
    EXPECT_TRUE(tells([&] { passTo("19:00"); }));
    EXPECT_TRUE(tells([&] { website->name = "Shop"; }));
    EXPECT_TRUE(tells([&] { service().stop(); }));
}

}  // namespace
}  // namespace elmworth
