// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/CommandLine.h"

#include "command/CommandTest.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::Arguments;
using test::CommandTest;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

TEST(CommandLine, withoutACommandThereIsNothingToCarryOut) {
    const auto commandLine = parseCommandLine({});
    EXPECT_FALSE(commandLine.answer);
    EXPECT_FALSE(commandLine.action);
}

TEST(CommandLine, theVersionIsPrinted) {
    const auto answer = parseCommandLine({"--version"}).answer;
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->output, "Elmworth " ELMWORTH_VERSION "\n");
    EXPECT_EQ(answer->exitStatus, 0);
}

TEST(CommandLine, theDemoSwitchMayStandAnywhere) {
    EXPECT_FALSE(parseCommandLine({"status"}).isDemo);
    EXPECT_TRUE(parseCommandLine({"-demo"}).isDemo);
    const auto commandLine = parseCommandLine({"-demo", "invoice", "list"});
    EXPECT_TRUE(commandLine.isDemo);
    EXPECT_TRUE(commandLine.action);
}

TEST(CommandLine, tellsWhichCommandsNeedToDraw) {
    EXPECT_TRUE(parseCommandLine({"invoice", "pdf", "A"}).needsPainter);
    EXPECT_FALSE(parseCommandLine({"invoice", "show", "A"}).needsPainter);
    EXPECT_TRUE(parseCommandLine({"invoice", "show", "A"}).countsPages);
    EXPECT_FALSE(parseCommandLine({"status"}).countsPages);
}

// --- help --------------------------------------------------------------------------------------

class CommandHelp : public testing::TestWithParam<const char*> {
 protected:
    [[nodiscard]] static Arguments words() {
        Arguments words{""};
        for (const char c : std::string(GetParam())) {
            if (c == ' ')
                words.emplace_back();
            else
                words.back() += c;
        }
        return words;
    }
};

TEST_P(CommandHelp, tellsPeopleHowToUseIt) {
    auto arguments = words();
    arguments.emplace_back("--help");
    const auto answer = parseCommandLine(arguments).answer;
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->exitStatus, 0);
    EXPECT_EQ(answer->errors, "");
    EXPECT_THAT(answer->output, HasSubstr("Usage: elmworth " + std::string(GetParam())));
    for (const char* technical : {"{", "->", "REQUIRED", " TEXT REQUIRED", "value in"})
        EXPECT_THAT(answer->output, Not(HasSubstr(technical)));
}

TEST_P(CommandHelp, refusesAnOptionThatItDoesNotHave) {
    auto arguments = words();
    arguments.emplace_back("--no-such-option");
    const auto answer = parseCommandLine(arguments).answer;
    ASSERT_TRUE(answer);
    EXPECT_EQ(answer->exitStatus, 2);
    EXPECT_EQ(answer->output, "");
    EXPECT_NE(answer->errors, "");
}

INSTANTIATE_TEST_SUITE_P(
    , CommandHelp,
    testing::Values("status", "start", "stop", "continue", "panel", "new-invoice", "client",
                    "client list", "client add", "client set", "client delete", "project",
                    "project list", "project add", "project set", "project archive",
                    "project unarchive", "project delete", "log", "invoice", "invoice list",
                    "invoice preview", "invoice create", "invoice show", "invoice pdf",
                    "invoice set", "invoice email", "invoice mark", "invoice rename",
                    "invoice delete", "profile", "profile set", "check", "recover"),
    test::textName);

TEST(CommandLine, theHelpTellsDetailsOnlyOfTheCommandItself) {
    const char* detail = "no time counts twice";
    EXPECT_THAT(parseCommandLine({"recover", "--help"}).answer->output, HasSubstr(detail));
    EXPECT_THAT(parseCommandLine({"--help"}).answer->output, Not(HasSubstr(detail)));
}

TEST(CommandLine, theHelpNamesAllCommands) {
    const auto help = parseCommandLine({"--help"}).answer->output;
    for (const char* name :
         {"status", "start", "stop", "continue", "panel", "client", "project", "log", "invoice",
          "profile", "check", "--format", "--version", "-demo"})
        EXPECT_THAT(help, HasSubstr(name));
    EXPECT_THAT(help, Not(HasSubstr("{")));
}

// --- what people read --------------------------------------------------------------------------

class NamesFromAFile : public CommandTest {};

TEST_F(NamesFromAFile, steerNoTerminal) {
    const std::string name = "Evil\x1b]0;x\x07\xc2\x9b";
    const auto client = library_.addClient(name);
    const auto project = library_.addProject(name, client);
    addEntry(project, "2026-03-02T09:00+01:00", 60, name);
    library_.context().save();
    const auto created = run({"invoice", "create", "--client", name, "--period", "This Month"});
    ASSERT_EQ(created.exitStatus, 0) << created.errors;
    const auto number = created.output.substr(0, created.output.size() - 1);
    const std::vector<Arguments> commands{
        {"client", "list"},
        {"project", "list"},
        {"invoice", "list"},
        {"invoice", "show", number},
        {"invoice", "email", number},
        {"report", "--period", "This Month"},
        {"start", name},
        {"status"},
        {"stop"},
        {"project", "delete", name},
        {"client", "delete", name},
    };
    for (const auto& command : commands) {
        const auto result = run(command);
        for (const char* control : {"\x1b", "\x07", "\xc2\x9b"}) {
            EXPECT_THAT(result.output, Not(HasSubstr(control))) << testing::PrintToString(command);
            EXPECT_THAT(result.errors, Not(HasSubstr(control))) << testing::PrintToString(command);
        }
    }
}

// --- usage -------------------------------------------------------------------------------------

struct UsageRow {
    const char* name;
    Arguments arguments;
    const char* part;
};

class CommandUsage : public CommandTest, public testing::WithParamInterface<UsageRow> {};

TEST_P(CommandUsage, isWrong) {
    expectUsageError(GetParam().arguments, GetParam().part);
}

INSTANTIATE_TEST_SUITE_P(
    , CommandUsage,
    testing::Values(
        UsageRow{"UnknownCommand", {"fly"}, "fly"},
        UsageRow{"AnotherEncoding", {"client", "add", "M\xfcller"}, "is no text in UTF-8"},
        UsageRow{"TooManyWords", {"status", "extra"}, "extra"},
        UsageRow{"NoSubcommand", {"client"}, "subcommand"},
        UsageRow{"NoProject", {"start"}, "PROJECT"},
        UsageRow{"UnknownFormat", {"status", "--format", "xml"}, "Choose text or json."},
        UsageRow{"FormatByItsPlace", {"status", "--format", "1"}, "Choose text or json."},
        UsageRow{"UnknownStatus", {"invoice", "mark", "A", "void"}, "Choose draft, sent or paid."},
        UsageRow{"UnknownListStatus",
                 {"invoice", "list", "--status", "late"},
                 "Choose all, open, overdue or paid."},
        UsageRow{"UnknownField", {"client", "set", "Globex", "colour", "x"}, "The fields are name"},
        UsageRow{"UnknownProjectField", {"project", "set", "Design", "x", "x"}, "The fields are"},
        UsageRow{"FieldThatIsNotTyped",
                 {"project", "set", "Design", "isArchived", "true"},
                 "The fields are name, color, rate, budget"},
        UsageRow{"InternalField", {"client", "set", "Globex", "createdAt", "x"}, "The fields are"},
        UsageRow{"AmountCalledByItsCents",
                 {"client", "set", "Globex", "hourlyRateCents", "120"},
                 "The fields are name, email, address, currency, rate, due-days, tax"},
        UsageRow{"UnknownProfileField", {"profile", "set", "x", "x"}, "The fields are name"},
        UsageRow{"NoTime", {"stop", "--at", "noon"}, "“noon” is no time."},
        UsageRow{"LogWithoutAnEnd", {"log", "Design", "--from", "10:00"}, "--to"},
        UsageRow{"NoPeriod", {"invoice", "create", "--client", "Globex"}, "Give a period"},
        UsageRow{"HalfAPeriod",
                 {"invoice", "preview", "--client", "Globex", "--from", "2026-03-01"},
                 "Give a period"},
        UsageRow{"TwoPeriods",
                 {"invoice", "preview", "--client", "Globex", "--period", "Today", "--from",
                  "2026-03-01", "--through", "2026-03-31"},
                 "not both"},
        UsageRow{"PeriodAndItsEnd",
                 {"invoice", "preview", "--client", "Globex", "--period", "Today", "--through",
                  "2026-03-31"},
                 "not both"},
        UsageRow{"UnknownPeriod",
                 {"invoice", "preview", "--client", "Globex", "--period", "Next Week"},
                 "Choose one of “Today”"},
        UsageRow{"CustomIsNoPeriodByItself",
                 {"invoice", "preview", "--client", "Globex", "--period", "Custom"},
                 "is no period"},
        UsageRow{"NoDay",
                 {"invoice", "preview", "--client", "Globex", "--from", "2026-02-29", "--through",
                  "2026-03-31"},
                 "“2026-02-29” is no day."}),
    test::rowName);

TEST_F(CommandTest, theFormatMayStandBeforeOrBehindTheCommand) {
    EXPECT_EQ(output({"--format", "json", "status"}), output({"status", "--format", "JSON"}));
}

TEST_F(CommandTest, aFailureIsOneLine) {
    EXPECT_THAT(run({"start", "two\nlines\x1b[31m"}).errors,
                StartsWith("There is no project “two lines [31m”."));
}

TEST_F(CommandTest, anEmptyLibraryListsNothing) {
    for (const auto& client : library_.context().fetch<Client>())
        library_.context().deleteRecord(client);
    library_.context().save();
    for (const char* kind : {"client", "project", "invoice"}) {
        EXPECT_TRUE(json({kind, "list"}).GetArray().Empty()) << kind;
        EXPECT_THAT(output({kind, "list"}), HasSubstr("There are no " + std::string(kind) + "s"));
    }
}

TEST_F(CommandTest, textInAnotherEncodingDoesNotSpoilTheJSON) {
    library_.context().insert(std::make_shared<Client>("M\xfcller"));
    EXPECT_EQ(json({"client", "list"}).GetArray().Size(), 3U);
}

}  // namespace
}  // namespace elmworth
