// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/ManualPage.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace elmworth {
namespace {

using testing::HasSubstr;
using testing::Not;

void expectTold(const std::string& page, const CommandDescription& command,
                const std::string& path) {
    if (!command.needsSubcommand) {
        EXPECT_THAT(page, HasSubstr(".SS \\fB" + path + "\\fR"));
    }
    for (const auto& subcommand : command.commands)
        expectTold(page, subcommand, path + ' ' + subcommand.name);
}

TEST(ManualPage, everyCommandHasItsPlace) {
    const auto program = describeProgram();
    const auto page = manualPage(program);
    for (const auto& command : program.commands) {
        if (command.name == "new-invoice") continue;  // its dash is spelt out, as below
        expectTold(page, command, command.name);
    }
    EXPECT_THAT(page, HasSubstr(".SS \\fBnew\\-invoice\\fR"));
}

TEST(ManualPage, aCommandThatOnlyLeadsToOthersHasNone) {
    EXPECT_THAT(manualPage(describeProgram()), Not(HasSubstr(".SS \\fBinvoice\\fR\n")));
}

TEST(ManualPage, tellsWhatMayBeLeftOut) {
    EXPECT_THAT(manualPage(describeProgram()),
                HasSubstr(".SS \\fBstart\\fR \\fIPROJECT\\fR [\\fB\\-\\-client\\fR \\fICLIENT\\fR] "
                          "[\\fB\\-\\-notes\\fR \\fITEXT\\fR]\n"));
}

TEST(ManualPage, tellsByWhichLawALibraryIsRecovered) {
    EXPECT_THAT(
        manualPage(describeProgram()),
        HasSubstr("into a new one.\nThe damaged library stays as it is, and what it still"));
}

TEST(ManualPage, textThatTroffWouldReadAsItsOwnIsSpeltOut) {
    CommandDescription program{"elmworth", ".so /etc/passwd \\n(x", {}, {}, false};
    EXPECT_THAT(manualPage(program), HasSubstr("\n\\&.so /etc/passwd \\en(x.\n"));
}

}  // namespace
}  // namespace elmworth
