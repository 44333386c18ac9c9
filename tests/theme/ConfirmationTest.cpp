// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/Confirmation.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

namespace elmworth {
namespace {

Confirmation::Question question(const char* title) {
    return {.title = QString::fromUtf8(title), .acceptText = QStringLiteral("Delete")};
}

class ConfirmationTest : public testing::Test {
 protected:
    void ask(const char* title) {
        confirmation.ask(question(title), [this, title] { done += title; });
    }

    Confirmation confirmation;
    std::string done;
};

TEST_F(ConfirmationTest, doesWhatIsAskedOnceItIsAccepted) {
    QSignalSpy opened(&confirmation, &Confirmation::isOpenChanged);
    ask("a");
    EXPECT_TRUE(confirmation.isOpen());
    EXPECT_EQ(confirmation.title(), QStringLiteral("a"));
    EXPECT_EQ(confirmation.rejectText(), QStringLiteral("Cancel"));
    EXPECT_EQ(done, "");
    confirmation.accept();
    EXPECT_FALSE(confirmation.isOpen());
    EXPECT_EQ(done, "a");
    EXPECT_EQ(opened.size(), 2);
    confirmation.accept();
    EXPECT_EQ(done, "a");
}

TEST_F(ConfirmationTest, doesNothingWhenItIsRejected) {
    ask("a");
    confirmation.reject();
    EXPECT_FALSE(confirmation.isOpen());
    confirmation.accept();
    EXPECT_EQ(done, "");
}

TEST_F(ConfirmationTest, anotherQuestionRejectsTheFirst) {
    ask("a");
    ask("b");
    EXPECT_EQ(confirmation.title(), QStringLiteral("b"));
    confirmation.accept();
    EXPECT_EQ(done, "b");
}

TEST_F(ConfirmationTest, anAnswerMayAskTheNextQuestion) {
    confirmation.ask(question("a"), [this] { ask("b"); });
    confirmation.accept();
    EXPECT_TRUE(confirmation.isOpen());
    confirmation.accept();
    EXPECT_EQ(done, "b");
}

TEST_F(ConfirmationTest, itKeepsItsTextsWhileItsSheetFades) {
    ask("a");
    confirmation.reject();
    EXPECT_EQ(confirmation.title(), QStringLiteral("a"));
    EXPECT_EQ(confirmation.acceptText(), QStringLiteral("Delete"));
}

TEST_F(ConfirmationTest, whatIsToldCanOnlyBeRead) {
    confirmation.tell({.title = QStringLiteral("Billed entries are read-only")});
    EXPECT_TRUE(confirmation.isOpen());
    EXPECT_EQ(confirmation.rejectText(), QString());
    EXPECT_EQ(confirmation.acceptText(), QStringLiteral("OK"));
    confirmation.accept();
    EXPECT_FALSE(confirmation.isOpen());
}

}  // namespace
}  // namespace elmworth
