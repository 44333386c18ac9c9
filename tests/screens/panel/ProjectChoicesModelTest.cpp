// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/ProjectChoicesModel.h"

#include <QAbstractItemModelTester>

#include "screens/panel/PanelTest.h"

namespace elmworth {
namespace {

using test::utf8;
using Texts = std::vector<std::string>;

class ProjectChoices : public test::PanelTest {
 protected:
    [[nodiscard]] Texts labels() const {
        Texts texts;
        for (const auto& row : choices.rows()) texts.push_back(utf8(row.text));
        return texts;
    }
    Texts find(const char* text) {
        choices.setSearch(QString::fromUtf8(text));
        return labels();
    }

    Ref<Project> website = project("Website");
    ProjectChoicesModel choices{context()};
    QAbstractItemModelTester tester{choices.rowsModel(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(ProjectChoices, NoneStandsBeforeAllByName) {
    project("Site 10");
    project("Site 9", nullptr);
    choices.show(website, nullptr);
    EXPECT_EQ(labels(), (Texts{"Choose…", "Site 9", "Acme Co — Site 10", "Acme Co — Website"}));
    EXPECT_EQ(choices.chosenRow(), 3);
}

TEST_F(ProjectChoices, AnArchivedProjectIsListedForItsOwnEntriesOnly) {
    const auto old = project("Old");
    old->isArchived = true;
    context().save();
    choices.show(website, website);
    EXPECT_EQ(labels(), (Texts{"Choose…", "Acme Co — Website"}));
    choices.show(old, old);
    EXPECT_EQ(labels(), (Texts{"Choose…", "Acme Co — Old", "Acme Co — Website"}));
    choices.setChosen(website);
    EXPECT_EQ(labels().size(), 3U);
}

TEST_F(ProjectChoices, EveryWordOfASearchMustStandInTheLabel) {
    const auto bloom = timer.library.addClient("Bloom & Söhne");
    project("Relaunch", bloom);
    project("Retainer", bloom);
    choices.show(website, nullptr);
    EXPECT_EQ(find("RE blo"), (Texts{"Bloom & Söhne — Relaunch", "Bloom & Söhne — Retainer"}));
    EXPECT_EQ(find(" tain  sö "), (Texts{"Bloom & Söhne — Retainer"}));
    EXPECT_EQ(choices.chosenRow(), -1);
    EXPECT_EQ(find("nothing like it"), Texts{});
    EXPECT_EQ(find(" ").size(), 4U);
}

TEST_F(ProjectChoices, ARowIsChosenAndEndsTheSearch) {
    const auto blog = project("Blog");
    choices.show(website, nullptr);
    find("blog");
    choices.choose(0);
    EXPECT_EQ(choices.chosen(), blog);
    EXPECT_EQ(utf8(choices.title()), "Acme Co — Blog");
    EXPECT_EQ(utf8(choices.search()), "");
    EXPECT_EQ(choices.chosenRow(), 1);
    choices.choose(0);
    EXPECT_FALSE(choices.chosen());
    choices.choose(-1);
    choices.choose(99);
    EXPECT_FALSE(choices.chosen());
}

TEST_F(ProjectChoices, TheyFollowTheLibrary) {
    choices.show(website, nullptr);
    project("Blog");
    acme()->name = "Acme & Sons";
    turn();
    EXPECT_EQ(labels(), (Texts{"Choose…", "Acme & Sons — Blog", "Acme & Sons — Website"}));
    EXPECT_EQ(utf8(choices.title()), "Acme & Sons — Website");
    context().deleteRecord(website);
    turn();
    EXPECT_EQ(labels(), (Texts{"Choose…", "Acme & Sons — Blog"}));
    EXPECT_EQ(utf8(choices.title()), "Choose…");
    EXPECT_EQ(choices.chosenRow(), 0);
}

}  // namespace
}  // namespace elmworth
