// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetSelection.h"

#include <gmock/gmock.h>

#include <QSignalSpy>

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
        model->clearSelection();
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
    model->click(1);
    model->click(2);
    EXPECT_THAT(selectedRows(), ElementsAre(2));
    EXPECT_EQ(model->currentRow(), 2);
}

TEST_F(SelectionInTimesheet, ofAnEntryOverMidnightShowsInBothItsRows) {
    model->click(5);
    EXPECT_THAT(selectedRows(), ElementsAre(3, 5));
    EXPECT_EQ(model->currentRow(), 5);
    EXPECT_EQ(selectedCount(), 1U);
}

TEST_F(SelectionInTimesheet, aClickWithCtrlTogglesOne) {
    model->click(1);
    model->click(6, Qt::ControlModifier);
    EXPECT_THAT(selectedRows(), ElementsAre(1, 6));
    model->click(1, Qt::ControlModifier);
    EXPECT_THAT(selectedRows(), ElementsAre(6));
}

TEST_F(SelectionInTimesheet, aClickWithShiftSelectsAllFromTheOneBefore) {
    model->click(2);
    model->click(6, Qt::ShiftModifier);
    EXPECT_THAT(selectedRows(), ElementsAre(2, 3, 5, 6));
    model->click(1, Qt::ShiftModifier);
    EXPECT_THAT(selectedRows(), ElementsAre(1, 2));
    EXPECT_EQ(model->currentRow(), 1);
}

TEST_F(SelectionInTimesheet, aClickOnAHeadOrOutsideTheRowsChangesNothing) {
    model->click(1);
    for (const int row : {0, 4, 7, -1}) model->click(row);
    EXPECT_THAT(selectedRows(), ElementsAre(1));
}

TEST_F(SelectionInTimesheet, aShiftClickWithoutAFirstSelectsOne) {
    model->click(2, Qt::ShiftModifier);
    EXPECT_THAT(selectedRows(), ElementsAre(2));
}

TEST_F(SelectionInTimesheet, aShiftClickFromAnEntryThatIsGoneSelectsOne) {
    model->click(1);
    deleteElsewhere(noon);
    model->click(rowOf(yesterday), Qt::ShiftModifier);
    EXPECT_TRUE(isSelected(yesterday));
    EXPECT_FALSE(isSelected(morning));
}

TEST_F(SelectionInTimesheet, theArrowKeysGoFromEntryToEntryAndStopAtTheEnds) {
    model->moveCurrent(1);
    EXPECT_EQ(model->currentRow(), 1);
    model->moveCurrent(2);
    EXPECT_EQ(model->currentRow(), 3);
    model->moveCurrent(1);
    EXPECT_EQ(model->currentRow(), 5) << "over the head of a day";
    EXPECT_THAT(selectedRows(), ElementsAre(3, 5));
    model->moveCurrent(10);
    EXPECT_EQ(model->currentRow(), 6);
    model->moveCurrent(1);
    EXPECT_EQ(model->currentRow(), 6);
    model->moveCurrent(-10);
    EXPECT_EQ(model->currentRow(), 1);
    model->moveCurrent(0);
    EXPECT_EQ(model->currentRow(), 1);
}

TEST_F(SelectionInTimesheet, theArrowKeyUpwardsBeginsAtTheLast) {
    model->moveCurrent(-1);
    EXPECT_EQ(model->currentRow(), 6);
}

TEST_F(SelectionInTimesheet, theArrowKeysWithShiftSelectWhatLiesBetween) {
    model->click(2);
    model->moveCurrent(2, true);
    EXPECT_THAT(selectedRows(), ElementsAre(2, 3, 5));
    model->moveCurrent(-3, true);
    EXPECT_THAT(selectedRows(), ElementsAre(1, 2));
}

TEST_F(SelectionInTimesheet, ofAllHasEachEntryOnce) {
    model->selectAll();
    EXPECT_EQ(selectedCount(), 4U);
    EXPECT_THAT(selectedRows(), ElementsAre(1, 2, 3, 5, 6));
    model->clearSelection();
    EXPECT_THAT(selectedRows(), ElementsAre());
    EXPECT_EQ(model->currentRow(), -1);
}

TEST_F(SelectionInTimesheet, changesOnlyTheRowsOfWhatIsSelectedOrNoLonger) {
    model->click(1);
    QSignalSpy changed(&model->rows(), &QAbstractItemModel::dataChanged);
    model->click(6);
    ASSERT_EQ(changed.size(), 2);
    for (const auto& call : changed) {
        EXPECT_EQ(call[0].toModelIndex(), call[1].toModelIndex());
        EXPECT_EQ(call[2].value<QList<int>>(), QList<int>{Row::isSelected});
    }
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changed[1][0].toModelIndex().row(), 6);
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
    model->click(rowOf(morning));
    QSignalSpy changed(model.get(), &TimesheetModel::currentRowChanged);
    add(shop, "2026-03-02T08:30Z", "2026-03-02T08:45Z");
    EXPECT_EQ(changed.size(), 1);
    EXPECT_EQ(model->currentRow(), rowOf(morning));
    deleteElsewhere(morning);
    EXPECT_EQ(model->currentRow(), -1);
    EXPECT_EQ(changed.size(), 2);
}

// --- Return
// --------------------------------------------------------------------------------------------

TEST_F(SelectionInTimesheet, returnEditsTheOneThatIsSelected) {
    EXPECT_FALSE(model->editSelected());
    model->click(1);
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
    EXPECT_TRUE(commands().isDeletePending());
    EXPECT_EQ(utf8(commands().pendingDeleteTitle()), "Delete this entry?");
    EXPECT_EQ(entryCount(), 4U);
    commands().confirmDelete();
    EXPECT_FALSE(commands().isDeletePending());
    EXPECT_EQ(entryCount(), 3U);
    EXPECT_EQ(selectedCount(), 0U);
}

TEST_F(SelectionInTimesheet, deleteThatIsDismissedDeletesNothingAndKeepsTheSelection) {
    setSelected({noon, morning});
    model->askToDeleteSelected();
    EXPECT_EQ(utf8(commands().pendingDeleteTitle()), "Delete 2 entries?");
    commands().dismissDelete();
    EXPECT_FALSE(commands().isDeletePending());
    commands().confirmDelete();
    EXPECT_EQ(entryCount(), 4U);
    EXPECT_EQ(selectedCount(), 2U);
}

TEST_F(SelectionInTimesheet, deleteOfNothingAsksNothing) {
    model->askToDeleteSelected();
    EXPECT_FALSE(commands().isDeletePending());
    click(noon);
    deleteElsewhere(noon);
    model->askToDeleteSelected();
    EXPECT_FALSE(commands().isDeletePending());
}

TEST_F(SelectionInTimesheet, deleteTakesOnlyWhatIsStillShownAndTheRestStaysSelectedMeanwhile) {
    choosePreset("Custom");
    setSelected({noon, yesterday});
    filter().from()->setValue(test::at("2026-03-02T00:00Z"));
    Q_EMIT filter().from()->changed();
    model->askToDeleteSelected();
    EXPECT_EQ(utf8(commands().pendingDeleteTitle()), "Delete this entry?");
    EXPECT_TRUE(isSelected(yesterday));
    commands().confirmDelete();
    EXPECT_EQ(context().record<TimeEntry>(noon->persistentModelID()), nullptr);
    EXPECT_NE(context().record<TimeEntry>(yesterday->persistentModelID()), nullptr);
    EXPECT_EQ(selectedCount(), 0U);
}

TEST_F(SelectionInTimesheet, deleteOfAnEntryOverMidnightCountsItOnce) {
    click(night);
    model->askToDeleteSelected();
    EXPECT_EQ(utf8(commands().pendingDeleteTitle()), "Delete this entry?");
}

TEST_F(SelectionInTimesheet, deleteThatWaitsSurvivesWhatHappensElsewhere) {
    setSelected({noon, morning});
    model->askToDeleteSelected();
    deleteElsewhere(noon);
    bill(morning);
    QSignalSpy billed(&commands(), &EntryCommandsModel::billedNotice);
    commands().confirmDelete();
    EXPECT_EQ(billed.size(), 1);
    EXPECT_EQ(entryCount(), 3U);
}

}  // namespace
}  // namespace elmworth
