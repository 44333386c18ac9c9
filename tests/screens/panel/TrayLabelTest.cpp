// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/panel/TrayLabel.h"

#include "support/LibraryTest.h"
#include "support/QtTesting.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::utf8;

class TrayLabelTest : public test::LibraryTest {
 protected:
    void setStyle(const char* style) { defaults.setString("menuBarStyle", style); }
    [[nodiscard]] std::string shown() {
        if (!label) label = std::make_unique<TrayLabel>(services());
        turn();
        return utf8(label->image()) + "|" + utf8(label->text());
    }
    std::unique_ptr<TrayLabel> label;
};

TEST_F(TrayLabelTest, isAClockWhileNothingRuns) {
    setStyle("timeAndProject");
    EXPECT_EQ(shown(), "clock|");
    EXPECT_EQ(utf8(label->summary()), "Nothing is running.");
}

struct Style {
    const char* name;
    const char* stored;
    const char* shown;
};
class TrayLabelStyleOf : public TrayLabelTest, public testing::WithParamInterface<Style> {};

TEST_P(TrayLabelStyleOf, decidesWhatARunningTimerShows) {
    setStyle(GetParam().stored);
    service().start(project("Website"));
    passTo("10:05");
    EXPECT_EQ(shown(), GetParam().shown);
    EXPECT_EQ(utf8(label->summary()), "1:05 · Website");
}

INSTANTIATE_TEST_SUITE_P(
    Styles, TrayLabelStyleOf,
    testing::Values(Style{"time", "time", "record|1:05"},
                    Style{"timeAndProject", "timeAndProject", "record|1:05 · Website"},
                    Style{"icon", "icon", "record|"}, Style{"anythingElse", "Icon", "record|1:05"},
                    Style{"empty", "", "record|1:05"}),
    test::rowName);

TEST_F(TrayLabelTest, theTimeIsTheStyleOfAFreshInstall) {
    service().start(project("Website"));
    EXPECT_EQ(shown(), "record|0:00");
}

struct Name {
    const char* name;
    const char* project;
    const char* shown;
};
class TrayLabelName : public TrayLabelTest, public testing::WithParamInterface<Name> {};

TEST_P(TrayLabelName, isCutAfter18Characters) {
    setStyle("timeAndProject");
    service().start(project(GetParam().project));
    EXPECT_EQ(shown(), std::string("record|0:00 · ") + GetParam().shown);
}

INSTANTIATE_TEST_SUITE_P(
    Names, TrayLabelName,
    testing::Values(
        Name{"of18IsWhole", "123456789012345678", "123456789012345678"},
        Name{"of19IsCutTo17", "1234567890123456789", "12345678901234567…"},
        Name{"ofFamiliesCountsPeople", "👩‍👩‍👧1234567890123456👩‍👩‍👧",
             "👩‍👩‍👧1234567890123456👩‍👩‍👧"},
        Name{"ofFamiliesIsCutBetweenThem", "1234567890123456👩‍👩‍👧ab",
             "1234567890123456👩‍👩‍👧…"},
        Name{"ofAccentsCountsLetters", "e\u0301234567890123456789", "e\u03012345678901234567…"},
        Name{"withMarkupStays", "<b>Bold</b>", "<b>Bold</b>"}),
    test::rowName);

TEST_F(TrayLabelTest, anEntryWithoutProjectHasAnEmptyName) {
    setStyle("timeAndProject");
    service().start(nullptr);
    EXPECT_EQ(shown(), "record|0:00 · ");
}

TEST_F(TrayLabelTest, followsTheStyleAndTheNamesLive) {
    const auto website = project("Website");
    service().start(website);
    EXPECT_EQ(shown(), "record|0:00");
    setStyle("timeAndProject");
    EXPECT_EQ(shown(), "record|0:00 · Website");
    website->name = "Shop";
    EXPECT_EQ(shown(), "record|0:00 · Shop");
    service().running()->project = project("Blog");
    EXPECT_EQ(shown(), "record|0:00 · Blog");
}

TEST_F(TrayLabelTest, changesOnceAMinute) {
    service().start(project("Website"));
    (void)shown();
    int changes = 0;
    QObject::connect(label.get(), &TrayLabel::changed, [&] { ++changes; });
    pass(600);
    EXPECT_EQ(changes, 10);
}

TEST_F(TrayLabelTest, aSwitchShowsInOneStep) {
    setStyle("timeAndProject");
    service().start(project("Website"));
    passTo("10:00");
    (void)shown();
    std::vector<std::string> texts;
    QObject::connect(label.get(), &TrayLabel::changed,
                     [&] { texts.push_back(utf8(label->text())); });
    service().start(project("Blog"));
    turn();
    service().stop();
    turn();
    EXPECT_EQ(texts, (std::vector<std::string>{"0:00 · Blog", ""}));
    EXPECT_EQ(shown(), "clock|");
}

TEST_F(TrayLabelTest, theTraysFaceSaysTheSame) {
    (void)shown();
    EXPECT_EQ(label->trayFace(), (TrayFace{.toolTip = "Nothing is running."}));
    setStyle("timeAndProject");
    service().start(project("Website"));
    passTo("10:05");
    EXPECT_EQ(label->trayFace(), (TrayFace{.icon = TrayFace::Icon::running,
                                           .label = "1:05 · Website",
                                           .iconText = "1:05",
                                           .toolTip = "1:05 · Website"}));
    setStyle("icon");
    turn();
    EXPECT_EQ(label->trayFace(),
              (TrayFace{.icon = TrayFace::Icon::running, .toolTip = "1:05 · Website"}));
}

TEST_F(TrayLabelTest, theTextInTheIconHasAtMostSixCharacters) {
    service().start(project("Website"));
    (void)shown();
    timer.now += std::chrono::hours(999) + std::chrono::minutes(59);
    pass(1);
    EXPECT_EQ(label->trayFace().iconText, "999:59");
    pass(60);
    EXPECT_EQ(label->trayFace().iconText, "1000h");
    EXPECT_EQ(label->trayFace().label, "1000:00");
}

TEST(TrayLabelStyle, readsBackWhatItStores) {
    for (const auto style :
         {TrayLabelStyle::time, TrayLabelStyle::timeAndProject, TrayLabelStyle::icon}) {
        EXPECT_EQ(trayLabelStyle(rawValue(style)), style);
    }
}

}  // namespace
}  // namespace elmworth
