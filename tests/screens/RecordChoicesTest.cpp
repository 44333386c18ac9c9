// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/RecordChoices.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

#include "support/LibraryTest.h"
#include "support/QtTesting.h"

namespace elmworth {
namespace {

using test::utf8;
using Texts = std::vector<std::string>;

class RecordChoicesTest : public test::LibraryTest {
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

    /// Offers the projects that are not archived, and `own`.
    void show(const Ref<Project>& chosen, const Ref<Project>& own) {
        own_ = own;
        choices.follow(chosen);
    }

 private:
    Ref<Project> own_;

 protected:
    Ref<Project> website = project("Website");
    RecordChoices<Project> choices{
        context(),
        {.none = QStringLiteral("Choose\u2026"),
         .label = &labelWithClient,
         .isListed = [this](const Project& it) { return !it.isArchived || &it == own_.get(); },
         .shown = {&Client::schema()}}};
    QAbstractItemModelTester tester{choices.rowsModel(),
                                    QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(RecordChoicesTest, noneStandsBeforeAllByName) {
    project("Site 10");
    project("Site 9", nullptr);
    show(website, nullptr);
    EXPECT_EQ(labels(), (Texts{"Choose…", "Site 9", "Acme Co — Site 10", "Acme Co — Website"}));
    EXPECT_EQ(choices.chosenRow(), 3);
}

TEST_F(RecordChoicesTest, anArchivedProjectIsListedForItsOwnEntriesOnly) {
    const auto old = project("Old");
    old->isArchived = true;
    context().save();
    show(website, website);
    EXPECT_EQ(labels(), (Texts{"Choose…", "Acme Co — Website"}));
    show(old, old);
    EXPECT_EQ(labels(), (Texts{"Choose…", "Acme Co — Old", "Acme Co — Website"}));
    choices.setRecord(website);
    EXPECT_EQ(labels().size(), 3U);
}

TEST_F(RecordChoicesTest, everyWordOfASearchMustStandInTheLabel) {
    const auto bloom = timer.library.addClient("Bloom & Söhne");
    project("Relaunch", bloom);
    project("Retainer", bloom);
    show(website, nullptr);
    EXPECT_EQ(find("RE blo"), (Texts{"Bloom & Söhne — Relaunch", "Bloom & Söhne — Retainer"}));
    EXPECT_EQ(find(" tain  sö "), (Texts{"Bloom & Söhne — Retainer"}));
    EXPECT_EQ(choices.chosenRow(), -1);
    EXPECT_EQ(find("nothing like it"), Texts{});
    EXPECT_EQ(find(" ").size(), 4U);
}

TEST_F(RecordChoicesTest, aRowIsChosenAndEndsTheSearch) {
    const auto blog = project("Blog");
    show(website, nullptr);
    find("blog");
    choices.choose(0);
    EXPECT_EQ(choices.record(), blog);
    EXPECT_EQ(utf8(choices.title()), "Acme Co — Blog");
    EXPECT_EQ(utf8(choices.search()), "");
    EXPECT_EQ(choices.chosenRow(), 1);
    choices.choose(0);
    EXPECT_FALSE(choices.record());
    choices.choose(-1);
    choices.choose(99);
    EXPECT_FALSE(choices.record());
}

TEST_F(RecordChoicesTest, theyFollowTheLibrary) {
    show(website, nullptr);
    project("Blog");
    acme()->name = "Acme & Sons";
    turn();
    EXPECT_EQ(labels(), (Texts{"Choose…", "Acme & Sons — Blog", "Acme & Sons — Website"}));
    EXPECT_EQ(utf8(choices.title()), "Acme & Sons — Website");
    QSignalSpy lost(&choices, &ChoiceModel::lost);
    context().deleteRecord(website);
    turn();
    EXPECT_EQ(lost.size(), 1);
    EXPECT_EQ(labels(), (Texts{"Choose…", "Acme & Sons — Blog"}));
    EXPECT_EQ(utf8(choices.title()), "Choose…");
    EXPECT_EQ(choices.chosenRow(), 0);
}

TEST_F(RecordChoicesTest, whatIsChosenAgainIsNoNewChoice) {
    show(website, nullptr);
    QSignalSpy picked(&choices, &ChoiceModel::picked);
    choices.choose(choices.chosenRow());
    EXPECT_EQ(picked.size(), 0);
    choices.choose(0);
    EXPECT_EQ(picked.size(), 1);
}

TEST_F(RecordChoicesTest, onceStoppedTheyFollowNothing) {
    show(website, nullptr);
    choices.stop();
    context().deleteRecord(website);
    turn();
    EXPECT_EQ(utf8(choices.title()), "Acme Co — Website");
}

}  // namespace
}  // namespace elmworth
