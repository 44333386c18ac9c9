// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "command/CommandLine.h"
#include "command/JSONKeys.h"
#include "command/TextPainter.h"
#include "support/Instants.h"
#include "support/ScopedEnvironment.h"
#include "support/TestLibrary.h"

namespace elmworth::test {

using Arguments = std::vector<std::string>;

/// Commands on a library in Berlin, at noon on the last of March 2026, without a process. Two
/// clients have a project called "Website"; "Acme Co" has one called "Design" as well. The process
/// and its timer are in Honolulu, as an application may be that carries out somebody else's
/// command.
class CommandTest : public testing::Test {
 protected:
    CommandTest() { library_.context().save(); }

    CommandResult run(const Arguments& arguments) {
        const auto commandLine = parseCommandLine(arguments);
        if (commandLine.answer) return *commandLine.answer;
        if (!commandLine.action) return {"(the application)", "", 0};
        CommandEnvironment environment{library_.context(),
                                       history_,
                                       timer_,
                                       profiles_,
                                       [this] { return now_; },
                                       Locale("en_US"),
                                       berlin_,
                                       library_.folder.path(),
                                       painter_,
                                       noProgress(),
                                       FileAccess::forUmask(umask_),
                                       standardInput_,
                                       Locale("en_US"),
                                       loginItem_};
        return runCommand(commandLine, environment);
    }

    /// What a command that must succeed prints.
    std::string output(const Arguments& arguments) {
        const auto result = run(arguments);
        EXPECT_EQ(result.exitStatus, 0) << result.errors;
        EXPECT_EQ(result.errors, "");
        return result.output;
    }

    /// The JSON document that a command prints.
    rapidjson::Document json(Arguments arguments) {
        arguments.insert(arguments.end(), {"--format", "json"});
        const std::string text = output(arguments);
        rapidjson::Document document;
        document.Parse(text.c_str(), text.size());
        EXPECT_FALSE(document.HasParseError()) << text;
        EXPECT_EQ(text.back(), '\n');
        return document;
    }

    /// Expects exactly one line on standard error, nothing on standard output, and no change.
    void expectRefusal(const Arguments& arguments, int status, const std::string& message) {
        const auto result = run(arguments);
        EXPECT_EQ(result.exitStatus, status) << testing::PrintToString(arguments);
        EXPECT_EQ(result.errors, message + "\n");
        EXPECT_EQ(result.output, "");
        EXPECT_FALSE(library_.context().hasChanges());
    }

    /// Expects wrong usage: status 2 and `part` on standard error.
    void expectUsageError(const Arguments& arguments, const std::string& part) {
        const auto result = run(arguments);
        EXPECT_EQ(result.exitStatus, 2) << testing::PrintToString(arguments);
        EXPECT_THAT(result.errors, testing::HasSubstr(part));
        EXPECT_EQ(result.output, "");
        EXPECT_FALSE(library_.context().hasChanges());
    }

    Ref<TimeEntry> addEntry(const Ref<Project>& project, const char* start, int minutes,
                            const std::string& notes = {}) {
        const auto entry =
            library_.addEntry(project, at(start), at(start) + std::chrono::minutes(minutes));
        entry->notes = notes;
        library_.context().save();
        return entry;
    }

    /// Bills all unbilled time of March of "Acme Co", and gives the number.
    std::string billMarch() {
        auto number =
            output({"invoice", "create", "--client", "acme co", "--period", "This Month"});
        number.pop_back();
        return number;
    }

    Ref<Invoice> invoice(const std::string& number) {
        const auto found = library_.context().fetch(
            Query<Invoice>{.predicate = key<&Invoice::number>() == number});
        return found.empty() ? nullptr : found.front();
    }

    Instant now_ = at("2026-03-31T12:00+02:00");
    Calendar berlin_{Locale("en_US"), "Europe/Berlin"};
    TestLibrary library_;
    UndoHistory history_{library_.context()};
    ScopedEnvironment zone_{"TZ", "Pacific/Honolulu"};
    ScopedEnvironment data_{"XDG_DATA_HOME", library_.folder.path().string()};
    Ref<Client> acme_ = library_.addClient("Acme Co");
    Ref<Client> globex_ = library_.addClient("Globex");
    Ref<Project> website_ = library_.addProject("Website", acme_);
    Ref<Project> design_ = library_.addProject("Design", acme_);
    Ref<Project> otherWebsite_ = library_.addProject("Website", globex_);
    Settings defaults_{library_.folder.path() / "Elmworth.ini"};
    ProfileStore profiles_{defaults_};
    TimerService timer_{library_.context(), [this] { return now_; }, library_.runLoop,
                        [] { return Calendar::current(); }};
    TextPainter textPainter_;
    InvoicePainter* painter_ = &textPainter_;
    int standardInput_ = -1;
    LoginItem* loginItem_ = nullptr;
    unsigned umask_ = 0022;
};

}  // namespace elmworth::test
