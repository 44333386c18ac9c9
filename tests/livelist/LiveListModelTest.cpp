// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "livelist/LiveListModel.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <random>
#include <set>
#include <string>

namespace elmworth {

struct Fruit {
    Q_GADGET
    Q_PROPERTY(QString name MEMBER name)
    Q_PROPERTY(int count MEMBER count)

 public:
    int id = 0;
    QString name;
    int count = 0;
    int unseen = 0;

    friend bool operator==(const Fruit&, const Fruit&) = default;
};

namespace {

class Model : public LiveListModel<Fruit> {
 public:
    using LiveListModel::replaceRows;
};

Fruit fruit(int id, const char* name = "apple", int count = 1) {
    return {id, QString::fromUtf8(name), count, 0};
}

class LiveListModelTest : public testing::Test {
 protected:
    LiveListModelTest() {
        const auto log = [this](const char* what) {
            return [this, what](const QModelIndex&, int first, int last) {
                steps.push_back(std::string(what) + ' ' + std::to_string(first) + '-' +
                                std::to_string(last));
            };
        };
        QObject::connect(&model, &Model::rowsRemoved, log("removed"));
        QObject::connect(&model, &Model::rowsInserted, log("inserted"));
        QObject::connect(
            &model, &Model::rowsMoved,
            [this](const QModelIndex&, int from, int, const QModelIndex&, int to) {
                steps.push_back("moved " + std::to_string(from) + " to " + std::to_string(to));
            });
        QObject::connect(&model, &Model::dataChanged,
                         [this](const QModelIndex& first, auto&, const QList<int>& roles) {
                             std::string step = "changed " + std::to_string(first.row());
                             for (const int role : roles) step += " " + roleName(role);
                             steps.push_back(step);
                         });
        QObject::connect(&model, &Model::modelReset, [this] { steps.emplace_back("reset"); });
    }

    [[nodiscard]] std::string roleName(int role) const {
        return model.roleNames().value(role).toStdString();
    }
    [[nodiscard]] QVariant value(int row, const char* name) const {
        return model.data(model.index(row), model.roleNames().key(name));
    }
    /// What it takes to come from the rows shown to `rows`.
    std::vector<std::string> stepsTo(const std::vector<Fruit>& rows) {
        steps.clear();
        model.setRows(rows);
        EXPECT_EQ(model.rows(), rows);
        return steps;
    }

    using Steps = std::vector<std::string>;
    Model model;
    QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
    Steps steps;
};

TEST_F(LiveListModelTest, thePropertiesOfTheRowsAreItsRoles) {
    model.setRows({fruit(1, "pear", 3)});
    EXPECT_EQ(model.roleNames().size(), 2);
    EXPECT_EQ(value(0, "name").toString(), QStringLiteral("pear"));
    EXPECT_EQ(value(0, "count").toInt(), 3);
    EXPECT_FALSE(model.data(model.index(0), Qt::DisplayRole).isValid());
    EXPECT_FALSE(model.data({}, Model::firstRole).isValid());
}

TEST_F(LiveListModelTest, newRowsComeInRuns) {
    EXPECT_EQ(stepsTo({fruit(3), fruit(6)}), Steps{"inserted 0-1"});
    EXPECT_EQ(stepsTo({fruit(1), fruit(2), fruit(3), fruit(4), fruit(5), fruit(6), fruit(7)}),
              (Steps{"inserted 0-1", "inserted 3-4", "inserted 6-6"}));
}

TEST_F(LiveListModelTest, missingRowsGoInRuns) {
    model.setRows({fruit(1), fruit(2), fruit(3), fruit(4), fruit(5)});
    EXPECT_EQ(stepsTo({fruit(3)}), (Steps{"removed 3-4", "removed 0-1"}));
    EXPECT_EQ(stepsTo({}), Steps{"removed 0-0"});
}

TEST_F(LiveListModelTest, aRowThatComesToTheTopMovesAlone) {
    model.setRows({fruit(1), fruit(2), fruit(3)});
    EXPECT_EQ(stepsTo({fruit(3), fruit(1), fruit(2)}), Steps{"moved 2 to 0"});
    EXPECT_EQ(stepsTo({fruit(1), fruit(2), fruit(3)}), Steps{"moved 0 to 3"});
}

TEST_F(LiveListModelTest, aChangeNamesTheRolesThatChanged) {
    model.setRows({fruit(1), fruit(2)});
    EXPECT_EQ(stepsTo({fruit(1), fruit(2, "plum")}), Steps{"changed 1 name"});
    EXPECT_EQ(stepsTo({fruit(1, "fig", 2), fruit(2, "plum")}), Steps{"changed 0 name count"});
}

TEST_F(LiveListModelTest, aChangeThatNoRoleShowsIsTakenOverInSilence) {
    model.setRows({fruit(1)});
    Fruit changed = fruit(1);
    changed.unseen = 7;
    EXPECT_EQ(stepsTo({changed}), Steps{});
}

TEST_F(LiveListModelTest, theSameRowsTakeNoStep) {
    model.setRows({fruit(1), fruit(2)});
    EXPECT_EQ(stepsTo({fruit(1), fruit(2)}), Steps{});
}

TEST_F(LiveListModelTest, aRepeatedRowIsShownWhereItStandsFirst) {
    model.setRows({fruit(1, "apple"), fruit(2), fruit(1, "pear")});
    EXPECT_EQ(model.rows(), (std::vector{fruit(1, "apple"), fruit(2)}));
}

/// The rows that a view shows which only hears of the single steps.
class Mirror {
 public:
    explicit Mirror(const Model& model) : model_(model) {
        QObject::connect(&model, &Model::rowsRemoved, [this](auto&, int first, int last) {
            names_.erase(names_.begin() + first, names_.begin() + last + 1);
        });
        QObject::connect(&model, &Model::rowsInserted, [this](auto&, int first, int last) {
            for (int row = first; row <= last; ++row)
                names_.insert(names_.begin() + row, name(row));
        });
        QObject::connect(&model, &Model::rowsMoved,
                         [this](auto&, int from, int /*last*/, auto&, int to) {
                             const auto moved = names_[static_cast<std::size_t>(from)];
                             names_.insert(names_.begin() + to, moved);
                             names_.erase(names_.begin() + (from < to ? from : from + 1));
                         });
        QObject::connect(&model, &Model::dataChanged, [this](const QModelIndex& index) {
            names_[static_cast<std::size_t>(index.row())] = name(index.row());
        });
    }

    [[nodiscard]] const std::vector<QString>& names() const { return names_; }

 private:
    [[nodiscard]] QString name(int row) const {
        return model_.data(model_.index(row), Model::firstRole).toString();
    }
    const Model& model_;
    std::vector<QString> names_;
};

std::vector<Fruit> randomRows(std::mt19937& random) {
    std::vector<int> ids(20);
    for (int i = 0; i < 20; ++i) ids[static_cast<std::size_t>(i)] = i;
    std::shuffle(ids.begin(), ids.end(), random);
    ids.resize(random() % 21);
    if (random() % 2 == 0) std::sort(ids.begin(), ids.end());
    std::vector<Fruit> rows;
    for (const int id : ids) rows.push_back(fruit(id, random() % 3 == 0 ? "pear" : "apple"));
    for (Fruit& row : rows) row.name += QString::number(row.id);
    return rows;
}

TEST_F(LiveListModelTest, viewsThatHearOfTheStepsShowTheRowsWhateverTheSequence) {
    const Mirror mirror(model);
    std::mt19937 random(1);
    for (int round = 0; round < 2000; ++round) {
        const auto rows = randomRows(random);
        model.setRows(rows);
        ASSERT_EQ(model.rows(), rows) << "round " << round;
        std::vector<QString> names;
        for (const Fruit& row : rows) names.push_back(row.name);
        ASSERT_EQ(mirror.names(), names) << "round " << round;
    }
    EXPECT_EQ(std::count(steps.begin(), steps.end(), "reset"), 0);
}

TEST_F(LiveListModelTest, aPartThatIsReplacedLeavesTheOthersAsTheyAre) {
    const Mirror mirror(model);
    std::mt19937 random(2);
    for (int round = 0; round < 2000; ++round) {
        auto rows = randomRows(random);
        model.setRows(rows);
        const std::size_t first = random() % (rows.size() + 1);
        const std::size_t count = random() % (rows.size() - first + 1);
        auto part = randomRows(random);
        const auto isElsewhere = [&](const Fruit& row) {
            const auto at = std::find_if(rows.begin(), rows.end(),
                                         [&](const Fruit& other) { return other.id == row.id; });
            const auto place = static_cast<std::size_t>(at - rows.begin());
            return at != rows.end() && (place < first || place >= first + count);
        };
        std::erase_if(part, isElsewhere);
        const auto begin = rows.begin() + static_cast<std::ptrdiff_t>(first);
        const auto gap = rows.erase(begin, begin + static_cast<std::ptrdiff_t>(count));
        rows.insert(gap, part.begin(), part.end());
        model.replaceRows(first, count, part);
        ASSERT_EQ(model.rows(), rows) << "round " << round;
        std::vector<QString> names;
        for (const Fruit& row : rows) names.push_back(row.name);
        ASSERT_EQ(mirror.names(), names) << "round " << round;
    }
}

std::vector<Fruit> countedRows(int count, int step) {
    std::vector<Fruit> rows;
    for (int id = 0; id < count; id += step) rows.push_back(fruit(id));
    return rows;
}

TEST_F(LiveListModelTest, scatteredChangesOfFarMoreRowsThanAViewShowsComeInOneStep) {
    const Mirror mirror(model);
    model.setRows(countedRows(20'000, 1));
    EXPECT_EQ(stepsTo(countedRows(20'000, 2)), (Steps{"removed 1-19999", "inserted 1-9999"}));
    EXPECT_EQ(stepsTo(countedRows(20'000, 1)), (Steps{"removed 1-9999", "inserted 1-19999"}));
    auto reversed = countedRows(20'000, 1);
    std::reverse(reversed.begin(), reversed.end());
    EXPECT_EQ(stepsTo(reversed), (Steps{"removed 0-19999", "inserted 0-19999"}));
    EXPECT_EQ(mirror.names().size(), 20'000U);
}

TEST_F(LiveListModelTest, aFewChangesKeepTheirRowsHoweverManyThereAre) {
    model.setRows(countedRows(20'000, 1));
    const QPersistentModelIndex kept = model.index(10'000);
    auto rows = countedRows(20'000, 1);
    for (int i = 0; i < 40; ++i) rows.erase(rows.begin() + 400 * i);
    EXPECT_EQ(stepsTo(rows).size(), 40U);
    EXPECT_TRUE(kept.isValid());
}

}  // namespace
}  // namespace elmworth

#include "LiveListModelTest.moc"
