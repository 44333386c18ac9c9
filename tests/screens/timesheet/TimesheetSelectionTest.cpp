// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetSelection.h"

#include <gmock/gmock.h>

#include <QSignalSpy>
#include <chrono>
#include <random>

#include "screens/timesheet/TimesheetTest.h"

namespace elmworth {
namespace {

using test::utf8;
using testing::ElementsAre;
using Row = TimesheetRowsModel;

/// Two entries of today, one over midnight into yesterday, and one of yesterday.
class SelectionInTimesheet : public test::TimesheetTest {
 protected:
    void setSelected(std::initializer_list<Ref<TimeEntry>> entries) {
        model->selection()->clear();
        for (const auto& entry : entries) click(entry, Qt::ControlModifier);
    }
    /// The rows that show themselves as selected.
    [[nodiscard]] std::vector<int> selectedRows() const {
        std::vector<int> rows;
        for (int row = 0; row < rowCount(); ++row) {
            if (value(row, Row::isSelected).toBool()) rows.push_back(row);
        }
        return rows;
    }

    Ref<TimeEntry> noon = add(website, "2026-03-02T08:00Z", "2026-03-02T08:30Z");    // row 1
    Ref<TimeEntry> morning = add(shop, "2026-03-02T06:00Z", "2026-03-02T07:00Z");    // row 2
    Ref<TimeEntry> night = add(website, "2026-03-01T23:00Z", "2026-03-02T01:00Z");   // rows 3, 5
    Ref<TimeEntry> yesterday = add(shop, "2026-03-01T09:00Z", "2026-03-01T10:00Z");  // row 6
};

TEST_F(SelectionInTimesheet, aClickSelectsOneAlone) {
    model->selection()->click(1);
    model->selection()->click(2);
    EXPECT_THAT(selectedRows(), ElementsAre(2));
    EXPECT_EQ(model->selection()->currentRow(), 2);
}

TEST_F(SelectionInTimesheet, ofAnEntryOverMidnightShowsInBothItsRows) {
    model->selection()->click(5);
    EXPECT_THAT(selectedRows(), ElementsAre(3, 5));
    EXPECT_EQ(model->selection()->currentRow(), 5);
    EXPECT_EQ(selectedCount(), 1U);
}

TEST_F(SelectionInTimesheet, aClickWithCtrlTogglesOne) {
    model->selection()->click(1);
    model->selection()->click(6, Qt::ControlModifier);
    EXPECT_THAT(selectedRows(), ElementsAre(1, 6));
    model->selection()->click(1, Qt::ControlModifier);
    EXPECT_THAT(selectedRows(), ElementsAre(6));
}

TEST_F(SelectionInTimesheet, aClickWithShiftSelectsAllFromTheOneBefore) {
    model->selection()->click(2);
    model->selection()->click(6, Qt::ShiftModifier);
    EXPECT_THAT(selectedRows(), ElementsAre(2, 3, 5, 6));
    model->selection()->click(1, Qt::ShiftModifier);
    EXPECT_THAT(selectedRows(), ElementsAre(1, 2));
    EXPECT_EQ(model->selection()->currentRow(), 1);
}

TEST_F(SelectionInTimesheet, aClickOnAHeadOrOutsideTheRowsChangesNothing) {
    model->selection()->click(1);
    for (const int row : {0, 4, 7, -1}) model->selection()->click(row);
    EXPECT_THAT(selectedRows(), ElementsAre(1));
}

TEST_F(SelectionInTimesheet, aShiftClickWithoutAFirstSelectsOne) {
    model->selection()->click(2, Qt::ShiftModifier);
    EXPECT_THAT(selectedRows(), ElementsAre(2));
}

TEST_F(SelectionInTimesheet, aShiftClickFromAnEntryThatIsGoneSelectsOne) {
    model->selection()->click(1);
    deleteElsewhere(noon);
    model->selection()->click(rowOf(yesterday), Qt::ShiftModifier);
    EXPECT_TRUE(isSelected(yesterday));
    EXPECT_FALSE(isSelected(morning));
}

TEST_F(SelectionInTimesheet, theArrowKeysGoFromEntryToEntryAndStopAtTheEnds) {
    model->selection()->moveCurrent(1);
    EXPECT_EQ(model->selection()->currentRow(), 1);
    model->selection()->moveCurrent(2);
    EXPECT_EQ(model->selection()->currentRow(), 3);
    model->selection()->moveCurrent(1);
    EXPECT_EQ(model->selection()->currentRow(), 5) << "over the head of a day";
    EXPECT_THAT(selectedRows(), ElementsAre(3, 5));
    model->selection()->moveCurrent(10);
    EXPECT_EQ(model->selection()->currentRow(), 6);
    model->selection()->moveCurrent(1);
    EXPECT_EQ(model->selection()->currentRow(), 6);
    model->selection()->moveCurrent(-10);
    EXPECT_EQ(model->selection()->currentRow(), 1);
    model->selection()->moveCurrent(0);
    EXPECT_EQ(model->selection()->currentRow(), 1);
}

TEST_F(SelectionInTimesheet, theArrowKeyUpwardsBeginsAtTheLast) {
    model->selection()->moveCurrent(-1);
    EXPECT_EQ(model->selection()->currentRow(), 6);
}

TEST_F(SelectionInTimesheet, theArrowKeysWithShiftSelectWhatLiesBetween) {
    model->selection()->click(2);
    model->selection()->moveCurrent(2, true);
    EXPECT_THAT(selectedRows(), ElementsAre(2, 3, 5));
    model->selection()->moveCurrent(-3, true);
    EXPECT_THAT(selectedRows(), ElementsAre(1, 2));
}

TEST_F(SelectionInTimesheet, ofAllHasEachEntryOnce) {
    model->selection()->selectAll();
    EXPECT_EQ(selectedCount(), 4U);
    EXPECT_THAT(selectedRows(), ElementsAre(1, 2, 3, 5, 6));
    model->selection()->clear();
    EXPECT_THAT(selectedRows(), ElementsAre());
    EXPECT_EQ(model->selection()->currentRow(), -1);
}

TEST_F(SelectionInTimesheet, isToldInOneStepHoweverManyRowsThereAre) {
    model->selection()->click(1);
    QSignalSpy changed(&model->rows(), &QAbstractItemModel::dataChanged);
    model->selection()->click(6);
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 6);
    EXPECT_EQ(changed[0][2].value<QList<int>>(), QList<int>{Row::isSelected});
}

TEST_F(SelectionInTimesheet, isKnownToTheRowsWithoutACopy) {
    model->selection()->selectAll();
    const auto* selected = &model->selection()->keys();
    model->selection()->click(rowOf(noon), Qt::ControlModifier);
    EXPECT_EQ(&model->selection()->keys(), selected);
    EXPECT_FALSE(value(rowOf(noon), Row::isSelected).toBool());
    EXPECT_TRUE(value(rowOf(morning), Row::isSelected).toBool());
}

TEST_F(SelectionInTimesheet, isKeptWhateverChangesElsewhere) {
    setSelected({morning, yesterday});
    add(shop, "2026-03-02T08:30Z", "2026-03-02T08:45Z");
    morning->start = test::at("2026-03-01T05:00Z");  // to another day
    morning->end = test::at("2026-03-01T05:30Z");
    context().save();
    deleteElsewhere(noon);
    website->name = "Site";
    turn();
    EXPECT_TRUE(isSelected(morning));
    EXPECT_TRUE(isSelected(yesterday));
    EXPECT_THAT(selectedRows(), testing::UnorderedElementsAre(rowOf(morning), rowOf(yesterday)));
}

TEST_F(SelectionInTimesheet, theCurrentRowFollowsItsEntry) {
    model->selection()->click(rowOf(morning));
    QSignalSpy changed(model->selection(), &KeyedSelection::currentRowChanged);
    add(shop, "2026-03-02T08:30Z", "2026-03-02T08:45Z");
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(model->selection()->currentRow(), rowOf(morning));
    deleteElsewhere(morning);
    EXPECT_EQ(model->selection()->currentRow(), -1);
    EXPECT_EQ(changed.size(), 2);
}

/// Lines of days in which some entries run over midnight, as a selection sees them.
class SelectionProperty : public testing::TestWithParam<unsigned> {
 protected:
    SelectionProperty() {
        auto piece = std::make_shared<TimesheetPiece>();
        const Instant monday = test::at("2026-03-02T00:00Z");
        for (int hour = 24 * 6; hour > 0; hour -= 3 + upTo(4)) {
            const Instant start = monday + std::chrono::hours(hour);
            auto entry = std::make_shared<TimeEntry>(start, nullptr);
            entry->end = start + std::chrono::hours(upTo(4) == 0 ? 40 : 2);
            piece->add(*entry);
        }
        listing_ = listTimesheet({piece}, {monday, monday + std::chrono::days(8)}, monday,
                                 Calendar(Locale("en_US"), "UTC"), TimesheetSearch(""));
        rows_ = timesheetRows(listing_.days);
    }
    [[nodiscard]] int upTo(int last) { return std::uniform_int_distribution(0, last)(random_); }
    [[nodiscard]] std::size_t someEntry() {
        std::size_t at = 0;
        while (rows_[at].isHead()) at = static_cast<std::size_t>(upTo(int(rows_.size()) - 1));
        return at;
    }

    std::mt19937 random_{GetParam()};  // NOLINT: the same steps in each run
    TimesheetListing listing_;
    TimesheetEntryLines::Rows rows_;
    ListSelection<TimesheetEntryLines> selection_;
};

TEST_P(SelectionProperty, isWhatLiesBetweenTheFirstAndTheLastHoweverItGrewAndShrank) {
    for (int round = 0; round < 100; ++round) {
        const std::size_t from = someEntry();
        if (upTo(1) == 0) {
            selection_.select(rows_, from);
        } else {
            selection_.toggle(rows_, from);
        }
        for (int i = upTo(6); i >= 0; --i) {
            const std::size_t to = someEntry();
            selection_.extendTo(rows_, to);
            if (upTo(5) == 0) selection_.rowsChanged(rows_);
            ListSelection<TimesheetEntryLines>::Keys expected;
            for (auto row = std::min(from, to); row <= std::max(from, to); ++row) {
                if (!rows_[row].isHead()) expected.insert(rows_[row].id.entry);
            }
            ASSERT_EQ(selection_.keys(), expected) << "round " << round;
            ASSERT_EQ(selection_.current(), rows_[to].id);
        }
    }
}

TEST_P(SelectionProperty, findsEachLineWhereItStands) {
    for (std::size_t row = 0; row < rows_.size(); ++row) {
        EXPECT_EQ(positionOf(rows_[row].id, rows_), row);
    }
    EXPECT_EQ(positionOf({rows_[0].id.day, PersistentID::make()}, rows_), std::nullopt);
    EXPECT_EQ(positionOf({Instant(), {}}, rows_), std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(, SelectionProperty, testing::Values(1U, 2U, 3U));

// --- Return
// --------------------------------------------------------------------------------------------

TEST_F(SelectionInTimesheet, returnEditsTheOneThatIsSelected) {
    EXPECT_FALSE(model->editSelected());
    model->selection()->click(1);
    EXPECT_TRUE(model->editSelected());
    EXPECT_TRUE(model->editor()->isOpen());
}

TEST_F(SelectionInTimesheet, returnWithTwoSelectedDoesNothing) {
    setSelected({noon, morning});
    EXPECT_FALSE(model->editSelected());
    EXPECT_FALSE(model->editor()->isOpen());
}

TEST_F(SelectionInTimesheet, returnOnAnEntryThatIsHiddenOrGoneDoesNothing) {
    choosePreset("Custom");
    click(yesterday);
    filter().from()->setValue(test::at("2026-03-02T00:00Z"));
    Q_EMIT filter().from()->changed();
    ASSERT_TRUE(isSelected(yesterday));
    EXPECT_FALSE(model->editSelected());
    click(noon);
    deleteElsewhere(noon);
    EXPECT_FALSE(model->editSelected());
    EXPECT_FALSE(model->editor()->isOpen());
}

// --- The Delete command
// ----------------------------------------------------------------------------------

TEST_F(SelectionInTimesheet, deleteAsksBeforeItDeletes) {
    click(noon);
    model->askToDeleteSelected();
    EXPECT_TRUE(confirmation.isOpen());
    EXPECT_EQ(utf8(confirmation.title()), "Delete this entry?");
    EXPECT_EQ(entryCount(), 4U);
    confirmation.accept();
    EXPECT_FALSE(confirmation.isOpen());
    EXPECT_EQ(entryCount(), 3U);
    EXPECT_EQ(selectedCount(), 0U);
}

struct AfterDeletion {
    const char* name;
    std::vector<int> deleted;
    int down;  ///< the row that the arrow key reaches then
    int up;
};

class KeysAfterADeletion : public SelectionInTimesheet,
                           public testing::WithParamInterface<AfterDeletion> {};

TEST_P(KeysAfterADeletion, goOnWhereTheDeletedStood) {
    for (const auto& [step, reached] : {std::pair(1, GetParam().down), {-1, GetParam().up}}) {
        model->selection()->clear();
        for (const int row : GetParam().deleted)
            model->selection()->click(row, Qt::ControlModifier);
        model->askToDeleteSelected();
        confirmation.accept();
        EXPECT_EQ(selectedCount(), 0U);
        model->selection()->moveCurrent(step);
        EXPECT_EQ(model->selection()->currentRow(), reached) << (step > 0 ? "down" : "up");
        undoing.undo();
        turn();
    }
}

INSTANTIATE_TEST_SUITE_P(, KeysAfterADeletion,
                         testing::Values(AfterDeletion{"TheFirst", {1}, 1, 1},
                                         AfterDeletion{"TheSecond", {2}, 2, 1},
                                         AfterDeletion{"TheLast", {6}, 5, 5},
                                         AfterDeletion{"OneOverMidnight", {3}, 4, 2},
                                         AfterDeletion{"Two", {1, 2}, 1, 1},
                                         AfterDeletion{"TheLastTwo", {5, 6}, 2, 2}),
                         [](const auto& row) { return row.param.name; });

TEST_F(SelectionInTimesheet, afterADeletionByTheMenuTheArrowKeysGoOnFromItsRow) {
    model->openMenu(2);
    model->menu()->remove();
    model->selection()->moveCurrent(1);
    EXPECT_EQ(model->selection()->currentRow(), rowOf(night));
}

TEST_F(SelectionInTimesheet, deleteThatIsDismissedDeletesNothingAndKeepsTheSelection) {
    setSelected({noon, morning});
    model->askToDeleteSelected();
    EXPECT_EQ(utf8(confirmation.title()), "Delete 2 entries?");
    confirmation.reject();
    EXPECT_FALSE(confirmation.isOpen());
    confirmation.accept();
    EXPECT_EQ(entryCount(), 4U);
    EXPECT_EQ(selectedCount(), 2U);
}

TEST_F(SelectionInTimesheet, deleteOfNothingAsksNothing) {
    model->askToDeleteSelected();
    EXPECT_FALSE(confirmation.isOpen());
    click(noon);
    deleteElsewhere(noon);
    model->askToDeleteSelected();
    EXPECT_FALSE(confirmation.isOpen());
}

TEST_F(SelectionInTimesheet, deleteTakesOnlyWhatIsStillShownAndTheRestStaysSelectedMeanwhile) {
    choosePreset("Custom");
    setSelected({noon, yesterday});
    filter().from()->setValue(test::at("2026-03-02T00:00Z"));
    Q_EMIT filter().from()->changed();
    model->askToDeleteSelected();
    EXPECT_EQ(utf8(confirmation.title()), "Delete this entry?");
    EXPECT_TRUE(isSelected(yesterday));
    confirmation.accept();
    EXPECT_EQ(context().record<TimeEntry>(noon->id()), nullptr);
    EXPECT_NE(context().record<TimeEntry>(yesterday->id()), nullptr);
    EXPECT_EQ(selectedCount(), 0U);
}

TEST_F(SelectionInTimesheet, deleteOfAnEntryOverMidnightCountsItOnce) {
    click(night);
    model->askToDeleteSelected();
    EXPECT_EQ(utf8(confirmation.title()), "Delete this entry?");
}

TEST_F(SelectionInTimesheet, deleteThatWaitsSurvivesWhatHappensElsewhere) {
    setSelected({noon, morning});
    model->askToDeleteSelected();
    deleteElsewhere(noon);
    bill(morning);
    QSignalSpy billed(&commands(), &EntryCommandsModel::billedNotice);
    confirmation.accept();
    EXPECT_EQ(billed.size(), 1);
    EXPECT_EQ(entryCount(), 3U);
}

}  // namespace
}  // namespace elmworth
