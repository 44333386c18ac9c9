// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "theme/FormSheetModel.h"

#include <gtest/gtest.h>

#include <QSignalSpy>

#include "theme/FormFields.h"

namespace elmworth {
namespace {

/// A form with a name, of a record that is a string.
class NameForm final : public FormSheetModel {
 public:
    void open(const std::string& known) {
        dismiss();
        record = known;
        name.load(QString::fromStdString(known));
        show();
    }
    void changeElsewhere(const std::string& text) {
        record = text;
        recordsChanged();
    }
    void type(const char* text) {
        name.setText(QString::fromUtf8(text));
        fieldsChanged();
    }

    [[nodiscard]] QString title() const override { return QStringLiteral("Edit Name"); }
    [[nodiscard]] QString lockText() const override { return lock; }
    [[nodiscard]] QString problem() const override {
        return isComplete() ? QString() : QStringLiteral("Type a name.");
    }

    FormText name;
    std::string record;
    QString lock;
    QString failure;
    int saves = 0;

 protected:
    [[nodiscard]] bool isComplete() const override { return !name.text().isEmpty(); }
    void endTyping() override { name.setText(name.text().trimmed()); }
    void catchUp() override { name.follow(QString::fromStdString(record)); }
    [[nodiscard]] QString carryOut() override {
        ++saves;
        if (!failure.isEmpty()) return failure;
        record = name.text().toStdString();
        recordsChanged();  // its own doing
        return {};
    }
};

class FormSheetModelTest : public testing::Test {
 protected:
    /// As QML reads it.
    [[nodiscard]] std::string problem() const {
        return form.property("problem").toString().toStdString();
    }
    NameForm form;
};

TEST_F(FormSheetModelTest, savesWhatWasTypedAndCloses) {
    QSignalSpy dismissed(&form, &FormSheetModel::dismissed);
    form.open("Acme");
    EXPECT_TRUE(form.isOpen());
    form.type(" Globex ");
    EXPECT_EQ(form.record, "Acme");
    form.save();
    EXPECT_EQ(form.record, "Globex");
    EXPECT_FALSE(form.isOpen());
    EXPECT_EQ(dismissed.size(), 1);
    form.save();
    EXPECT_EQ(form.saves, 1);
}

TEST_F(FormSheetModelTest, isDismissedWithoutChanges) {
    form.open("Acme");
    form.type("Globex");
    form.dismiss();
    EXPECT_EQ(form.record, "Acme");
    EXPECT_EQ(form.saves, 0);
}

TEST_F(FormSheetModelTest, anIncompleteFormStaysOpenAndSaysWhy) {
    form.open("Acme");
    form.type("  ");
    form.save();
    EXPECT_TRUE(form.isOpen());
    EXPECT_EQ(form.saves, 0);
    EXPECT_FALSE(form.canSave());
    EXPECT_EQ(problem(), "Type a name.");
}

TEST_F(FormSheetModelTest, aFailedSaveStaysOpenUntilSomethingChanges) {
    form.open("Acme");
    form.type("Globex");
    form.failure = QStringLiteral("The library can't be written.");
    form.save();
    EXPECT_TRUE(form.isOpen());
    EXPECT_EQ(problem(), "The library can't be written.");
    form.type("Globe");
    EXPECT_EQ(problem(), "");
    form.failure.clear();
    form.save();
    EXPECT_EQ(form.record, "Globe");
}

TEST_F(FormSheetModelTest, aLockedFormHasNothingToSave) {
    form.lock = QStringLiteral("On invoice 2026-001.");
    form.open("Acme");
    EXPECT_TRUE(form.isLocked());
    form.save();
    EXPECT_EQ(form.saves, 0);
    EXPECT_TRUE(form.isOpen());
}

TEST_F(FormSheetModelTest, whatNobodyTouchedFollowsTheRecord) {
    form.open("Acme");
    form.changeElsewhere("Acme Co");
    EXPECT_EQ(form.name.text(), QStringLiteral("Acme Co"));
    form.type("Globex");
    form.changeElsewhere("Acme Inc");
    EXPECT_EQ(form.name.text(), QStringLiteral("Globex"));
    form.dismiss();
    form.changeElsewhere("Later");
    EXPECT_EQ(form.name.text(), QStringLiteral("Globex"));
}

TEST(FormText, isTouchedWhileItSaysSomethingElseThanItsRecord) {
    FormText text;
    QSignalSpy changed(&text, &FormText::changed);
    text.load(QStringLiteral("a"));
    EXPECT_FALSE(text.isTouched());
    text.setText(QStringLiteral("b"));
    EXPECT_TRUE(text.isTouched());
    text.follow(QStringLiteral("b"));
    EXPECT_FALSE(text.isTouched());
    EXPECT_EQ(changed.size(), 2);
}

TEST(FormText, takesNothingWhileItIsReadOnly) {
    FormText text;
    text.load(QStringLiteral("a"));
    text.setReadOnly(true);
    text.setText(QStringLiteral("b"));
    EXPECT_EQ(text.text(), QStringLiteral("a"));
    text.follow(QStringLiteral("c"));
    EXPECT_EQ(text.text(), QStringLiteral("c"));
}

}  // namespace
}  // namespace elmworth
