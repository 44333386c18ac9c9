// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "clients/ProjectForm.h"

#include <gtest/gtest.h>

#include "records/Client.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

struct BudgetRow {
    const char* name;
    const char* text;
    std::optional<std::int64_t> hours;
};

class Budget : public testing::TestWithParam<BudgetRow> {};

TEST_P(Budget, isReadInWholeHours) {
    EXPECT_EQ(parseBudget(GetParam().text).value(), GetParam().hours);
}

INSTANTIATE_TEST_SUITE_P(
    , Budget,
    testing::Values(BudgetRow{"Whole", "40", 40}, BudgetRow{"TrailingComma", "40,", 40},
                    BudgetRow{"RoundedUp", "37.5", 38}, BudgetRow{"DecimalComma", " 37,4\t", 37},
                    BudgetRow{"LessThanHalf", "0.4", 0}, BudgetRow{"Empty", "", std::nullopt},
                    BudgetRow{"Blanks", " \t", std::nullopt}),
    test::rowName);

TEST(ProjectFields, whatCannotBeReadIsRefused) {
    for (const std::string text :
         {"0", "-1", "forty", "nan", "inf", "40h", "40 h", "1e10", "1.2.3"})
        EXPECT_EQ(parseBudget(text).problem(),
                  "“" + text + "” is no budget. Enter hours like 40 or 37.5.");
    EXPECT_EQ(parseColor("#40d19E").value(), "#40d19E");
    for (const std::string text : {"red", "#12345", "#1234567", "#12345g", "0123456"})
        EXPECT_EQ(parseColor(text).problem(), "“" + text + "” is no color. Write it like #7C6CFF.");
}

// --- the form ----------------------------------------------------------------------------------

struct SaveRow {
    const char* name;
    void (*change)(ProjectForm&);
    bool canSave;
};

class ProjectFormSaving : public testing::TestWithParam<SaveRow> {
 protected:
    Ref<Client> acme_ = std::make_shared<Client>("Acme");
};

TEST_P(ProjectFormSaving, needsANameAClientAndNumbersThatCanBeRead) {
    ProjectForm form{.name = "Website", .client = acme_};
    GetParam().change(form);
    EXPECT_EQ(form.canSave(), GetParam().canSave);
    Project project("Before", nullptr);
    if (GetParam().canSave) {
        EXPECT_NO_THROW(form.apply(project));
    } else {
        EXPECT_THROW(form.apply(project), Refused);
        EXPECT_EQ(project.name.get(), "Before");
    }
}

INSTANTIATE_TEST_SUITE_P(
    , ProjectFormSaving,
    testing::Values(
        SaveRow{"NameAndClientAreEnough", [](ProjectForm&) {}, true},
        SaveRow{"NoName", [](ProjectForm& form) { form.name = " "; }, false},
        SaveRow{"NoClient", [](ProjectForm& form) { form.client = nullptr; }, false},
        SaveRow{"RateMissing", [](ProjectForm& form) { form.overridesRate = true; }, false},
        SaveRow{"RateOfTheClient", [](ProjectForm& form) { form.rateText = "x"; }, true},
        SaveRow{"BudgetThatCannotBeRead", [](ProjectForm& form) { form.budgetText = "forty"; },
                false}),
    test::rowName);

TEST(ProjectForm, writesAllFieldsAndReadsThemBack) {
    const auto acme = std::make_shared<Client>("Acme");
    Project project("Before", nullptr);
    const ProjectForm form{" Website ", acme, true, "0", "#40D19E", true, "37,5"};
    form.apply(project);
    EXPECT_EQ(project.name.get(), "Website");
    EXPECT_EQ(project.client.get(), acme);
    EXPECT_EQ(project.rateOverrideCents.get(), 0);
    EXPECT_EQ(project.colorHex.get(), "#40D19E");
    EXPECT_TRUE(project.isArchived);
    EXPECT_EQ(project.budgetHours.get(), 38);
    EXPECT_EQ(ProjectForm::of(project),
              (ProjectForm{"Website", acme, true, "0", "#40D19E", true, "38"}));
}

TEST(ProjectForm, anEmptyBudgetAndTheClientsRateAreAbsent) {
    const auto acme = std::make_shared<Client>("Acme");
    Project project("Website", acme);
    project.rateOverrideCents = 8000;
    project.budgetHours = 40;
    auto form = ProjectForm::of(project);
    EXPECT_EQ(form.rateText, "80");
    form.overridesRate = false;
    form.budgetText = "";
    form.apply(project);
    EXPECT_FALSE(project.rateOverrideCents.get());
    EXPECT_FALSE(project.budgetHours.get());
    EXPECT_EQ(ProjectForm::of(project).budgetText, "");
}

}  // namespace
}  // namespace elmworth
