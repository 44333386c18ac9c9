// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "store/RecordChanges.h"

#include <gtest/gtest.h>

#include <vector>

#include "support/Instants.h"
#include "support/TestLibrary.h"

namespace elmworth {
namespace {

using test::at;
using Kind = RecordChange::Kind;

std::uint32_t fieldsOf(const RecordSchema& schema, std::initializer_list<std::string_view> names) {
    std::uint32_t fields = 0;
    for (const auto name : names) fields |= std::uint32_t{1} << schema.fieldIndex(name);
    return fields;
}

/// A saved client with a project and an entry, and who is told of all that follows.
class ObservedChanges : public testing::Test {
 protected:
    ObservedChanges() {
        context().save();
        observation_ = context().observeAll(
            [this](const RecordChanges& changes) { told_.push_back(changes); });
    }
    [[nodiscard]] UnitOfWork& context() { return library_.context(); }
    /// What the one telling since the last call says of a record; absent when it is not named.
    std::optional<RecordChange> toldOf(const Ref<Record>& record) {
        library_.runLoop.turn();
        EXPECT_EQ(told_.size(), 1U);
        const auto* named = told_.empty() ? nullptr : told_.back().of(record->recordSchema());
        if (named == nullptr || !named->contains(record->id())) return std::nullopt;
        return named->at(record->id());
    }
    [[nodiscard]] static RecordChange changed(std::initializer_list<std::string_view> names) {
        return {Kind::changed, fieldsOf(TimeEntry::schema(), names)};
    }

    test::TestLibrary library_;
    Ref<Client> client_ = library_.addClient("Acme");
    Ref<Project> project_ = library_.addProject("Website", client_);
    Ref<TimeEntry> entry_ = library_.addEntry(project_, at("2026-03-02T08:00Z"), std::nullopt);
    std::vector<RecordChanges> told_;
    UnitOfWork::Observation observation_;
};

TEST_F(ObservedChanges, nameTheFieldsOfAChangedRecord) {
    entry_->notes = "a";
    entry_->notes = "ab";
    entry_->end = at("2026-03-02T09:00Z");
    EXPECT_EQ(toldOf(entry_), changed({"notes", "end"}));
    EXPECT_FALSE(told_.back().touch(Project::schema()));
}

TEST_F(ObservedChanges, nameTheRelationshipThatChanged) {
    entry_->project = nullptr;
    EXPECT_EQ(toldOf(entry_), changed({"project"}));
}

TEST_F(ObservedChanges, ofAllTypesAreToldAtOnce) {
    client_->name = "Globex";
    project_->name = "Shop";
    EXPECT_EQ(toldOf(project_)->kind, Kind::changed);
    EXPECT_TRUE(told_.back().touch(Client::schema()));
}

TEST_F(ObservedChanges, areToldByTheSaveAndNotAgain) {
    entry_->notes = "a";
    context().save();
    EXPECT_EQ(told_.size(), 1U);
    context().save();
    EXPECT_EQ(toldOf(entry_), changed({"notes"}));
}

TEST_F(ObservedChanges, sayWhatCameAndWent) {
    const auto added = library_.addEntry(project_, at("2026-03-02T10:00Z"), std::nullopt);
    added->notes = "new";
    context().deleteRecord(entry_);
    EXPECT_EQ(toldOf(added)->kind, Kind::came);
    EXPECT_EQ(told_.back().of(TimeEntry::schema())->at(entry_->id()).kind, Kind::went);
}

TEST_F(ObservedChanges, ofARecordThatWentAndCameBackMayBeOfAnyField) {
    context().deleteRecord(entry_);
    context().reinsert<TimeEntry>(entry_->id());
    const auto told = toldOf(entry_);
    EXPECT_EQ(told->kind, Kind::changed);
    EXPECT_EQ(told->fields & fieldsOf(TimeEntry::schema(), {"start", "notes"}),
              fieldsOf(TimeEntry::schema(), {"start", "notes"}));
}

TEST_F(ObservedChanges, ofADeletionNameWhatItTookAndWhatItLetGo) {
    const auto invoice = library_.addInvoice("INV-1", client_);
    entry_->invoice = invoice;
    context().save();
    told_.clear();
    context().deleteRecord(invoice);
    EXPECT_EQ(toldOf(entry_), changed({"invoice"}));
    told_.clear();
    context().deleteRecord(project_);
    EXPECT_EQ(toldOf(entry_)->kind, Kind::went);
}

TEST_F(ObservedChanges, thatAreRolledBackAreToldAsTheirReverse) {
    const auto added = library_.addEntry(project_, at("2026-03-02T10:00Z"), std::nullopt);
    context().deleteRecord(entry_);
    library_.runLoop.turn();
    told_.clear();
    project_->name = "Shop";
    context().rollback();
    EXPECT_EQ(toldOf(entry_)->kind, Kind::came);
    EXPECT_EQ(told_.back().of(TimeEntry::schema())->at(added->id()).kind, Kind::went);
    EXPECT_EQ(told_.back().of(Project::schema())->at(project_->id()).kind, Kind::changed);
}

TEST_F(ObservedChanges, thatAreTooManyAreNotNamed) {
    for (std::size_t i = 0; i <= RecordChanges::mostNamed; ++i) {
        library_.addEntry(project_, at("2026-03-02T10:00Z"), std::nullopt);
    }
    client_->name = "Globex";
    library_.runLoop.turn();
    ASSERT_EQ(told_.size(), 1U);
    EXPECT_TRUE(told_.back().touch(TimeEntry::schema()));
    EXPECT_EQ(told_.back().of(TimeEntry::schema()), nullptr);
    ASSERT_NE(told_.back().of(Client::schema()), nullptr);
    EXPECT_EQ(told_.back().of(Client::schema())->size(), 1U);
}

}  // namespace
}  // namespace elmworth
