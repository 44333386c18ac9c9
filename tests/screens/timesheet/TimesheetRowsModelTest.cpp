// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/timesheet/TimesheetRowsModel.h"

#include <gmock/gmock.h>

#include <QAbstractItemModelTester>
#include <random>

#include "screens/timesheet/TimesheetTest.h"

namespace elmworth {
namespace {

using test::at;
using test::Lines;
using test::utf8;
using testing::ElementsAre;
using testing::HasSubstr;
using Row = TimesheetRowsModel;

class TimesheetRows : public test::TimesheetTest {};

TEST_F(TimesheetRows, namesItsRoles) {
    QSet<QByteArray> names;
    for (const auto& name : model->rows().roleNames()) names.insert(name);
    EXPECT_EQ(names, (QSet<QByteArray>{"kind", "title", "detail", "total", "projectColor", "notes",
                                       "hasNotes", "timeRange", "isBilled", "isRunning",
                                       "canContinue", "isSelected", "isLastOfDay", "summary"}));
}

TEST_F(TimesheetRows, ofTimeWithoutAProjectSaySo) {
    add(nullptr, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    EXPECT_EQ(textAt(1, Row::title), "No project");
    EXPECT_EQ(textAt(1, Row::detail), "");
    EXPECT_EQ(textAt(1, Row::projectColor), "#999999");
    EXPECT_FALSE(value(1, Row::canContinue).toBool());
}

TEST_F(TimesheetRows, ofAProjectWithoutAClientHaveNoName) {
    add(project("Own", nullptr), "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    EXPECT_EQ(textAt(1, Row::title), "Own");
    EXPECT_EQ(textAt(1, Row::detail), "");
}

TEST_F(TimesheetRows, withoutNotesSaySo) {
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    EXPECT_EQ(textAt(1, Row::notes), "No notes");
    EXPECT_FALSE(value(1, Row::hasNotes).toBool());
}

TEST_F(TimesheetRows, showNotesAsTheyAreInOneLine) {
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z", "<b>bold</b>\nand  more");
    EXPECT_EQ(textAt(1, Row::notes), "<b>bold</b> and more");
    EXPECT_TRUE(value(1, Row::hasNotes).toBool());
}

TEST_F(TimesheetRows, cutNotesThatAreABookBetweenCharacters) {
    std::string book;
    for (int i = 0; i < 50'000; ++i) book += "ü€";
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z", "x" + book);
    const QString shown = value(1, Row::notes).toString();
    EXPECT_LT(shown.size(), 1000);
    EXPECT_FALSE(shown.contains(QChar::ReplacementCharacter));
    EXPECT_THAT(textAt(1, Row::summary), HasSubstr("ü€ü"));
}

TEST_F(TimesheetRows, sayAllOfItInASentence) {
    bill(add(website, "2026-03-02T07:00Z", "2026-03-02T08:30Z", "Logo"));
    add(nullptr, "2026-03-02T08:30Z", "");
    EXPECT_EQ(textAt(0, Row::summary), "Today, Mar 2, 2:00");
    EXPECT_EQ(textAt(1, Row::summary), "No project, No notes, Live, 8:30 AM – now, 0:30");
    EXPECT_EQ(textAt(2, Row::summary), "Website, Acme Co, Logo, Billed, 7:00 AM – 8:30 AM, 1:30");
}

TEST_F(TimesheetRows, knowTheLastOfTheirDay) {
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    add(website, "2026-03-02T05:00Z", "2026-03-02T06:00Z");
    const auto lastOfDay = [this] {
        std::vector<bool> last;
        for (int row = 0; row < rowCount(); ++row) {
            last.push_back(value(row, Row::isLastOfDay).toBool());
        }
        return last;
    };
    EXPECT_THAT(lastOfDay(), ElementsAre(false, false, true));
    QSignalSpy changed(&model->rows(), &QAbstractItemModel::dataChanged);
    add(website, "2026-03-02T03:00Z", "2026-03-02T04:00Z");
    EXPECT_THAT(lastOfDay(), ElementsAre(false, false, false, true));
    EXPECT_GE(changed.size(), 1);
}

TEST_F(TimesheetRows, haveNothingForARoleOrAPlaceThatThereIsNot) {
    add(website, "2026-03-02T07:00Z", "2026-03-02T08:00Z");
    const auto& rows = model->rows();
    EXPECT_FALSE(rows.data(rows.index(1), Qt::DisplayRole).isValid());
    EXPECT_FALSE(rows.data(rows.index(0), Row::notes).isValid());
    EXPECT_EQ(rows.rowAt(2), nullptr);
    EXPECT_EQ(rows.rowAt(-1), nullptr);
    EXPECT_EQ(rows.rowCount(rows.index(0)), 0);
}

/// The lines that a view shows which only hears of the single steps.
class Mirror : public QObject {
 public:
    explicit Mirror(TimesheetRowsModel& rows) : rows_(rows) {
        for (int row = 0; row < rows.rowCount(); ++row) lines_.push_back(line(row));
        connect(&rows, &Row::rowsRemoved, this, [this](auto&, int first, int last) {
            lines_.erase(lines_.begin() + first, lines_.begin() + last + 1);
        });
        connect(&rows, &Row::rowsInserted, this, [this](auto&, int first, int last) {
            for (int row = first; row <= last; ++row) {
                lines_.insert(lines_.begin() + row, line(row));
            }
        });
        connect(&rows, &Row::rowsMoved, this, [this](auto&, int from, int /*last*/, auto&, int to) {
            const auto moved = lines_[static_cast<std::size_t>(from)];
            lines_.insert(lines_.begin() + to, moved);
            lines_.erase(lines_.begin() + (from < to ? from : from + 1));
        });
        connect(&rows, &Row::dataChanged, this, [this](auto& first, auto& last) {
            for (int row = first.row(); row <= last.row(); ++row) {
                lines_[static_cast<std::size_t>(row)] = line(row);
            }
        });
        connect(&rows, &Row::modelReset, this, [] { ADD_FAILURE() << "a reset"; });
    }

    [[nodiscard]] const Lines& lines() const { return lines_; }

 private:
    [[nodiscard]] std::string line(int row) const {
        std::string line;
        for (const int role :
             {Row::kind, Row::title, Row::detail, Row::total, Row::projectColor, Row::notes,
              Row::timeRange, Row::isBilled, Row::isSelected, Row::isLastOfDay, Row::summary}) {
            line += utf8(rows_.data(rows_.index(row), role).toString()) + '|';
        }
        return line;
    }

    TimesheetRowsModel& rows_;
    Lines lines_;
};

class TimesheetRowsProperty : public TimesheetRows, public testing::WithParamInterface<unsigned> {
 protected:
    [[nodiscard]] int upTo(int last) { return std::uniform_int_distribution(0, last)(random_); }
    [[nodiscard]] Instant someInstant() {
        return at("2026-02-26T00:00Z") + std::chrono::minutes(upTo(8 * 24 * 60));
    }
    [[nodiscard]] Ref<TimeEntry> someEntry() {
        const auto entries = context().fetch<TimeEntry>();
        return entries[static_cast<std::size_t>(upTo(static_cast<int>(entries.size()) - 1))];
    }
    [[nodiscard]] Ref<Project> someProject() {
        return std::vector<Ref<Project>>{nullptr, website, shop}[static_cast<std::size_t>(upTo(2))];
    }
    Ref<TimeEntry> addSome() {
        const Instant start = someInstant();
        return timer.library.addEntry(someProject(), start,
                                      start + std::chrono::minutes(upTo(2000)));
    }
    void step() {
        switch (upTo(13)) {
            case 0:
            case 1:
                addSome();
                return;
            case 2:
                if (entryCount() > 5) context().deleteRecord(someEntry());
                return service().refresh();
            case 3: {
                const auto entry = someEntry();
                entry->start = someInstant();
                if (entry->end.get()) entry->end = entry->start.get() + std::chrono::hours(1);
                return service().refresh();
            }
            case 4:
                someEntry()->notes = std::to_string(upTo(9));
                return;
            case 5:
                someEntry()->project = someProject();
                return;
            case 6:
                website->name = "Website " + std::to_string(upTo(9));
                website->colorHex = upTo(1) == 0 ? "#111111" : "#222222";
                return;
            case 7:
                return upTo(1) == 0 ? service().stop() : service().start(website);
            case 8:
                return model->selection()->click(
                    upTo(rowCount()), upTo(1) == 0 ? Qt::ControlModifier : Qt::ShiftModifier);
            case 9:
                return filter().choosePreset(upTo(6));
            case 10:
                return filter().setSearch(upTo(2) == 0 ? QString::number(upTo(9)) : QString());
            case 11:
                return pass(upTo(90));
            case 12:
                return model->setShown(upTo(2) != 0);
            default:
                timer.now += std::chrono::hours(upTo(9));
                return timer.library.runLoop.fire();
        }
    }
    /// What a screen that is opened now would show, with the same selected.
    [[nodiscard]] Lines freshLines() {
        TimesheetModel fresh(services(), confirmation, undoing);
        fresh.filter()->setSearch(filter().search());
        fresh.setShown(true);
        auto& rows = static_cast<TimesheetRowsModel&>(*fresh.rowsModel());
        rows.showSelection(model->selection()->keys());
        return Mirror(rows).lines();
    }

    std::mt19937 random_{GetParam()};  // NOLINT: the same steps in each run
};

TEST_P(TimesheetRowsProperty, viewsThatHearOfTheStepsShowWhatAFreshScreenWould) {
    auto& rows = static_cast<TimesheetRowsModel&>(*model->rowsModel());
    const QAbstractItemModelTester tester(&rows,
                                          QAbstractItemModelTester::FailureReportingMode::Fatal);
    const Mirror mirror(rows);
    for (int i = 0; i < 12; ++i) addSome();
    for (int round = 0; round < 80; ++round) {
        for (int i = upTo(3); i >= 0; --i) step();
        turn();
        model->setShown(false);
        model->setShown(true);
        const auto fresh = freshLines();
        ASSERT_EQ(mirror.lines().size(), fresh.size()) << "round " << round;
        for (std::size_t row = 0; row < fresh.size(); ++row) {
            ASSERT_EQ(mirror.lines()[row], fresh[row]) << "round " << round << ", row " << row;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(, TimesheetRowsProperty, testing::Values(1U, 2U, 3U, 4U));

}  // namespace
}  // namespace elmworth
