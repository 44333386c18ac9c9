// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "command/Completion.h"

#include "command/CommandTest.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::Arguments;
using test::CommandTest;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Names = Completion::Names;

std::vector<std::string> wordsOf(const Completion& completion) {
    std::vector<std::string> words;
    for (const auto& word : completion.words) words.push_back(word.word);
    return words;
}

struct NamesRow {
    const char* name;
    Arguments words;
    Names names;
};

class CompletedNames : public testing::TestWithParam<NamesRow> {};

TEST_P(CompletedNames, standWhereTheHelpNamesTheirKind) {
    EXPECT_EQ(completionOf(describeProgram(), GetParam().words).names, GetParam().names);
}

INSTANTIATE_TEST_SUITE_P(
    , CompletedNames,
    testing::Values(
        NamesRow{"Start", {"start", ""}, Names::activeProjects},
        NamesRow{"Log", {"log", "web"}, Names::activeProjects},
        NamesRow{"BehindAnOption", {"start", "--notes", "x", ""}, Names::activeProjects},
        NamesRow{"TheValueOfAnOption", {"start", "Website", "--client", ""}, Names::clients},
        NamesRow{"NoValueOfAnOption", {"start", "--notes", ""}, Names::none},
        NamesRow{"BehindAFlag", {"export", "--unbilled", ""}, Names::files},
        NamesRow{"AnArchivedProject", {"project", "unarchive", ""}, Names::projects},
        NamesRow{"AProjectOfAReport", {"report", "--project", ""}, Names::projects},
        NamesRow{"ANewProject", {"project", "add", ""}, Names::none},
        NamesRow{"AClient", {"client", "delete", ""}, Names::clients},
        NamesRow{"AnInvoice", {"invoice", "show", "INV"}, Names::invoices},
        NamesRow{"AFileBehindAnInvoice", {"invoice", "pdf", "INV-1", ""}, Names::files},
        NamesRow{"NothingMore", {"start", "Website", ""}, Names::none},
        NamesRow{"TheDemo", {"-demo", "start", ""}, Names::activeProjects},
        NamesRow{"NoWordAtAll", {}, Names::none}),
    test::rowName);

TEST(Completion, everyCommandOfTheHelpIsOffered) {
    const auto program = describeProgram();
    const auto help = parseCommandLine({"--help"}).answer->output;
    const auto words = wordsOf(completionOf(program, {""}));
    EXPECT_GE(words.size(), 17U);
    for (const auto& word : words) EXPECT_THAT(help, HasSubstr("\n  " + word + " "));
    EXPECT_EQ(words.size(), program.commands.size());
}

TEST(Completion, subcommandsComeBehindTheirCommandAlone) {
    const auto program = describeProgram();
    EXPECT_EQ(wordsOf(completionOf(program, {"settings", ""})), (Arguments{"get", "set"}));
    EXPECT_THAT(wordsOf(completionOf(program, {"start", "settings", ""})), ElementsAre());
}

TEST(Completion, aChoiceOffersItsWords) {
    const auto program = describeProgram();
    EXPECT_THAT(wordsOf(completionOf(program, {"status", "--format", ""})),
                ElementsAre("text", "json"));
    EXPECT_THAT(wordsOf(completionOf(program, {"invoice", "mark", "A", ""})),
                ElementsAre("draft", "sent", "paid"));
    EXPECT_THAT(wordsOf(completionOf(program, {"client", "set", "Acme Co", ""})),
                testing::Contains("due-days"));
    EXPECT_THAT(wordsOf(completionOf(program, {"report", "--period", ""})),
                testing::IsSupersetOf({"This Week", "Last Month"}));
}

TEST(Completion, optionsAreThoseOfTheCommandAndOfTheProgram) {
    const auto words = wordsOf(completionOf(describeProgram(), {"start", "--"}));
    EXPECT_THAT(words, testing::IsSupersetOf({"--client", "--notes", "--format", "--help"}));
    EXPECT_THAT(words, Not(testing::Contains("--budget")));
    EXPECT_EQ(std::count(words.begin(), words.end(), "--help"), 1);
}

// --- in a library ------------------------------------------------------------------------------

class CompletionInALibrary : public CommandTest {
 protected:
    std::string complete(Arguments words) {
        words.insert(words.begin(), completionRequest);
        return output(words);
    }
};

TEST_F(CompletionInALibrary, namesComeWithTheirClients) {
    EXPECT_THAT(complete({"start", ""}), HasSubstr("Website\tAcme Co\n"));
    EXPECT_THAT(complete({"client", "set", ""}), StartsWith("Acme Co\t\nGlobex\t\n"));
}

TEST_F(CompletionInALibrary, anArchivedProjectIsNotStartedButBroughtBack) {
    run({"project", "archive", "Design", "--client", "Acme Co"});
    EXPECT_THAT(complete({"start", ""}), Not(HasSubstr("Design\tAcme Co")));
    EXPECT_THAT(complete({"project", "unarchive", ""}), HasSubstr("Design\tAcme Co\n"));
}

TEST_F(CompletionInALibrary, aNameThatWouldSteerTheTerminalIsLeftOut) {
    library_.addClient("Evil\x1b]0;x\x07");
    library_.context().save();
    EXPECT_THAT(complete({"client", "set", ""}), Not(HasSubstr("Evil")));
}

TEST_F(CompletionInALibrary, whatNeedsNoNamesTouchesNoLibrary) {
    const auto line = parseCommandLine({completionRequest, "export", ""});
    ASSERT_TRUE(line.answer);
    EXPECT_EQ(line.answer->output, "\tfile\n");
    EXPECT_FALSE(parseCommandLine({completionRequest, ""}).action);
    EXPECT_TRUE(parseCommandLine({completionRequest, "start", ""}).onlyLooks);
}

}  // namespace
}  // namespace elmworth
