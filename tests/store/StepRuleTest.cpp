// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/StepRule.h"

#include <gtest/gtest.h>

#include "store/UndoHistory.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

std::vector<std::string> sentences;

/// A library with a stored client, which the rule looks after.
class StepRuleTest : public testing::Test {
 protected:
    StepRuleTest() {
        context().save();
        sentences.clear();
        StepRule::setHandler([](const std::string& sentence) { sentences.push_back(sentence); });
    }
    ~StepRuleTest() override { StepRule::setHandler(nullptr); }

    [[nodiscard]] UnitOfWork& context() { return library_.context(); }

    test::TestLibrary library_;
    Ref<Client> acme_ = library_.addClient("Acme");
    Ref<Project> website_ = library_.addProject("Website", acme_);
    UndoHistory history_{context()};
    StepRule rule_{context()};
};

TEST_F(StepRuleTest, aChangeOutsideOfAStepIsNamedWithTypeAndField) {
    acme_->email = "a@b";
    EXPECT_EQ(sentences, std::vector<std::string>{
                             "Client: email changed outside of a step. People's changes go "
                             "through UndoHistory; what else must change is named by "
                             "OutsideSteps."});
}

TEST_F(StepRuleTest, aChangeOutsideOfAStepEndsTheProgram) {
    StepRule::setHandler(nullptr);
    EXPECT_DEATH(acme_->email = "a@b", "Client: email changed outside of a step\\.");
}

TEST_F(StepRuleTest, aDeletionOutsideOfAStepNamesAllThatGoes) {
    context().deleteRecord(acme_);
    ASSERT_EQ(sentences.size(), 2U);
    EXPECT_TRUE(sentences[0].starts_with("Client: deleted outside of a step."));
    EXPECT_TRUE(sentences[1].starts_with("Project: deleted outside of a step."));
}

TEST_F(StepRuleTest, aRelationshipThatADeletionEmptiesIsAChangeToo) {
    const auto entry = library_.addEntry(website_, Instant{}, Instant{} + std::chrono::hours(1));
    const auto invoice = library_.addInvoice("A", acme_);
    entry->invoice = invoice;
    context().save();
    EXPECT_TRUE(sentences.empty());
    context().deleteRecord(invoice);
    ASSERT_EQ(sentences.size(), 2U);
    EXPECT_TRUE(sentences[0].starts_with("TimeEntry: invoice changed outside of a step."));
}

TEST_F(StepRuleTest, stepsOfEveryKindAndTheirUndoMayChangeRecords) {
    history_.perform("Edit", [&] { acme_->email = "a@b"; });
    history_.performQuietly("Edit", [&] { acme_->email = "c@d"; });
    history_.type("Edit", "email", [&] { acme_->email = "e@f"; });
    history_.undo();
    history_.redo();
    history_.performAfter(
        "Edit", [&] { acme_->email = "g@h"; }, "Delete", [&] { context().deleteRecord(website_); });
    history_.undo();
    history_.performForGood([&] { acme_->email = ""; });
    EXPECT_EQ(sentences, std::vector<std::string>{});
}

TEST_F(StepRuleTest, aRollbackMayPutBackWhatAStepChanged) {
    EXPECT_THROW(history_.perform("Edit",
                                  [&] {
                                      acme_->email = "a@b";
                                      throw std::runtime_error("no");
                                  }),
                 std::runtime_error);
    EXPECT_EQ(acme_->email.get(), "");
    EXPECT_TRUE(sentences.empty());
}

TEST_F(StepRuleTest, newRecordsMayBeFilledInBeforeTheyAreStored) {
    const auto client = library_.addClient("Globex");
    client->email = "a@b";
    EXPECT_TRUE(sentences.empty());
}

TEST_F(StepRuleTest, whatIsNamedAsOutsideMayChangeRecords) {
    {
        const OutsideSteps named;
        acme_->email = "a@b";
        context().deleteRecord(website_);
    }
    EXPECT_TRUE(sentences.empty());
    acme_->email = "c@d";
    EXPECT_EQ(sentences.size(), 1U);
}

TEST_F(StepRuleTest, anotherLibraryIsNotHeldToIt) {
    test::TestLibrary other;
    const auto client = other.addClient("Globex");
    other.context().save();
    client->email = "a@b";
    EXPECT_TRUE(sentences.empty());
}

}  // namespace
}  // namespace elmworth
