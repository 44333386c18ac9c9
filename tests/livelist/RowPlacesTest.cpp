// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "livelist/RowPlaces.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QStringListModel>

namespace elmworth {
namespace {

class Places : public testing::Test {
 protected:
    /// A letter for each row.
    void show(const char* letters) {
        QStringList rows;
        for (const char* letter = letters; *letter != 0; ++letter)
            rows += QChar::fromLatin1(*letter);
        source.setStringList(rows);
        places.catchUp();
    }
    [[nodiscard]] std::string shown() const {
        std::string letters;
        for (int row = 0; row < places.rowCount(); ++row)
            letters += places.data(places.index(row), Qt::DisplayRole).toString().toStdString();
        return letters;
    }
    static std::string span(const QList<QVariant>& signal) {
        return std::to_string(signal[1].toInt()) + '-' + std::to_string(signal[2].toInt());
    }

    QStringListModel source;
    RowPlaces places{source};
    QAbstractItemModelTester tester{&places};
    QSignalSpy came{&places, &QAbstractItemModel::rowsInserted};
    QSignalSpy went{&places, &QAbstractItemModel::rowsRemoved};
    QSignalSpy changed{&places, &QAbstractItemModel::dataChanged};
};

TEST_F(Places, growAndShrinkAtTheEnd) {
    show("abc");
    EXPECT_EQ(shown(), "abc");
    EXPECT_EQ(span(came[0]), "0-2");
    EXPECT_TRUE(changed.empty());
    show("c");
    EXPECT_EQ(shown(), "c");
    EXPECT_EQ(span(went[0]), "1-2");
    EXPECT_EQ(changed.size(), 1);
    show("xcyz");
    EXPECT_EQ(shown(), "xcyz");
    EXPECT_EQ(span(came[1]), "1-3");
    show("");
    EXPECT_EQ(shown(), "");
    EXPECT_EQ(span(went[1]), "0-3");
}

TEST_F(Places, keepTheirItemsWhenOtherRowsTakeThem) {
    show("abc");
    came.clear();
    show("xyz");
    EXPECT_EQ(shown(), "xyz");
    EXPECT_TRUE(came.empty());
    EXPECT_TRUE(went.empty());
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 0);
    EXPECT_EQ(changed[0][1].toModelIndex().row(), 2);
}

TEST_F(Places, passOnWhatChangesInARow) {
    show("abc");
    source.setData(source.index(1), QStringLiteral("x"));
    EXPECT_EQ(shown(), "axc");
    ASSERT_EQ(changed.size(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().row(), 1);
    EXPECT_EQ(changed[0][0].toModelIndex().model(), &places);
}

TEST_F(Places, haveTheRolesOfTheirRows) {
    EXPECT_EQ(places.roleNames(), source.roleNames());
}

}  // namespace
}  // namespace elmworth
