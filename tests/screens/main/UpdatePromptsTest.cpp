// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/main/UpdatePrompts.h"

#include <gtest/gtest.h>

#include <fstream>

#include "support/Instants.h"
#include "support/TemporaryFolder.h"
#include "support/TestLibrary.h"
#include "updates/SignedReleases.h"
#include "updates/ToldDownloads.h"

namespace elmworth {
namespace {

using test::appcast;
using test::item;
using test::Signer;

class UpdatePromptsTest : public testing::Test {
 protected:
    UpdatePromptsTest() { std::ofstream(program_) << "the old program"; }

    void make(const std::filesystem::path& program, const std::string& feed) {
        updater_ = std::make_unique<Updater>(
            Updater::Setup{feed, Signer().keys(), ReleaseVersion::parse("0.1.0").value(), program,
                           false},
            settings_, loop_, [] { return test::at("2026-11-19T12:00Z"); }, downloads_);
        prompts_ = std::make_unique<UpdatePrompts>(*updater_, confirmation_);
    }
    /// What stands in the window once somebody looked and the server sent `items`.
    std::string look(const std::string& items, const std::string& failure = {}) {
        prompts_->look();
        downloads_.answer(Signer().sign(appcast(items)), failure);
        return shown();
    }
    [[nodiscard]] std::string shown() const {
        if (!confirmation_.isOpen()) return "nothing";
        return (confirmation_.title() + QStringLiteral("|") + confirmation_.message() +
                QStringLiteral("|") + confirmation_.acceptText())
            .toStdString();
    }

    test::TemporaryFolder folder_;
    std::filesystem::path program_ = folder_.path() / "Elmworth.AppImage";
    Settings settings_{folder_.path() / "settings/Elmworth.ini"};
    test::ManualRunLoop loop_;
    test::ToldDownloads downloads_;
    Confirmation confirmation_;
    std::unique_ptr<Updater> updater_;
    std::unique_ptr<UpdatePrompts> prompts_;
};

constexpr const char* feed = "https://elmworth.example/appcast.xml";

TEST_F(UpdatePromptsTest, sayThatTheyLookUntilThereIsAnAnswer) {
    make(program_, feed);
    prompts_->look();
    EXPECT_EQ(shown(), "Looking for updates…||Cancel");
}

TEST_F(UpdatePromptsTest, sayThatThereIsNothingNewer) {
    make(program_, feed);
    EXPECT_EQ(look(item("0.1")),
              "You have the newest version|There is nothing newer than Elmworth 0.1.|OK");
}

TEST_F(UpdatePromptsTest, sayWhatFailed) {
    make(program_, feed);
    EXPECT_EQ(look("", "The update server takes too long. Try again later."),
              "Can't look for updates|The update server takes too long. Try again later.|OK");
}

TEST_F(UpdatePromptsTest, whoCancelsHearsNoMoreOfIt) {
    make(program_, feed);
    prompts_->look();
    confirmation_.accept();
    downloads_.answer(Signer().sign(appcast(item("0.2"))));
    EXPECT_EQ(shown(), "nothing");
}

TEST_F(UpdatePromptsTest, anAnswerDoesNotTakeThePlaceOfAnotherQuestion) {
    make(program_, feed);
    prompts_->look();
    confirmation_.tell({.title = QStringLiteral("Something else")});
    downloads_.answer(Signer().sign(appcast(item("0.2"))));
    EXPECT_EQ(shown(), "Something else||OK");
}

TEST_F(UpdatePromptsTest, installWhatCanBeInstalled) {
    make(program_, feed);
    EXPECT_EQ(look(item("0.2", "the new program")),
              "Elmworth 0.2 is available|What is new in 0.2\n\nIt takes the place of this version "
              "when you quit.|Install");
    confirmation_.accept();
    EXPECT_EQ(shown(), "Fetching Elmworth 0.2…||Hide");
    downloads_.answer("the new program");
    EXPECT_EQ(shown(),
              "Elmworth 0.2 is ready|It takes the place of this version when you quit.|OK");
    EXPECT_TRUE(updater_->isReady());
}

TEST_F(UpdatePromptsTest, sayWhyAnUpdateWasThrownAway) {
    make(program_, feed);
    look(item("0.2", "the new program"));
    confirmation_.accept();
    downloads_.answer("another program");
    EXPECT_EQ(shown(),
              "Can't install the update|The update isn't what Elmworth's makers signed, so it was "
              "thrown away.|OK");
}

TEST_F(UpdatePromptsTest, onlyTellWhereAPackageManagerBroughtTheProgram) {
    make({}, feed);
    EXPECT_EQ(look(item("0.2")),
              "Elmworth 0.2 is available|What is new in 0.2\n\nUpdate it the way you installed "
              "it.|Open Web Page");
    EXPECT_EQ(look("<item><sparkle:version>0.3</sparkle:version></item>"),
              "Elmworth 0.3 is available|Update it the way you installed it.|OK");
}

TEST_F(UpdatePromptsTest, doNothingWhereUpdatesAreOff) {
    make(program_, "");
    prompts_->look();
    EXPECT_EQ(shown(), "nothing");
    EXPECT_TRUE(downloads_.asked.empty());
}

}  // namespace
}  // namespace elmworth
