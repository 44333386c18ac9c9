// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <gmock/gmock.h>
#include <sys/stat.h>

#include <QUrl>

#include "command/CommandLine.h"
#include "command/TextPainter.h"
#include "platform/AtomicFile.h"
#include "records/ProfileStore.h"
#include "screens/timesheet/TimesheetTest.h"
#include "support/FailingReads.h"
#include "support/FileSizeLimit.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using test::rowName;
using test::utf8;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

class TimesheetExported : private test::FailingReads, public test::TimesheetTest {
 protected:
    TimesheetExported() {
        moveTo("de_DE", "Europe/Berlin");
        add(website, "2026-03-02T06:00Z", "2026-03-02T06:30Z", "Logo, \"new\"");
        add(shop, "2026-03-02T07:00Z", "2026-03-02T07:30Z", "line\nbreak");
        add(nullptr, "2026-02-10T07:00Z", "2026-02-10T07:30Z");
        add(website, "2026-03-01T22:30Z", "2026-03-01T23:30Z", "over midnight");
        bill(add(website, "2026-03-03T08:00Z", "2026-03-03T09:00Z", "billed"));
        add(website, "2026-03-02T05:00Z", "2026-03-02T04:00Z", "reversed");
        add(website, "2026-03-02T08:30Z", "", "running");
    }
    [[nodiscard]] std::filesystem::path file(const char* name) const {
        return timer.library.folder.path() / name;
    }
    void exportTo(const std::filesystem::path& path) {
        model->exportTo(QUrl::fromLocalFile(QString::fromStdString(path.string())));
    }
    /// What the command writes with these options.
    std::string exportedByCommand(std::vector<std::string> options) {
        options.insert(options.begin(), {"export", "-"});
        ProfileStore profiles(defaults);
        test::TextPainter painter;
        UndoHistory history(context());
        CommandEnvironment environment{context(),
                                       history,
                                       service(),
                                       profiles,
                                       [this] { return timer.now; },
                                       Locale("de_DE"),
                                       timer.calendar,
                                       timer.library.folder.path(),
                                       &painter};
        const auto result = runCommand(parseCommandLine(options), environment);
        EXPECT_EQ(result.errors, "");
        return result.output;
    }
};

struct ExportRow {
    const char* name;
    const char* preset;
    const char* client;
    const char* project;
    bool unbilledOnly;
    const char* search;
    std::vector<std::string> options;
};

class TimesheetExportWith : public TimesheetExported,
                            public testing::WithParamInterface<ExportRow> {};

TEST_P(TimesheetExportWith, writesTheBytesOfTheCommandWithTheSameFilter) {
    const auto& row = GetParam();
    choosePreset(row.preset);
    choose(*filter().client(), row.client);
    choose(*filter().project(), row.project);
    filter().setUnbilledOnly(row.unbilledOnly);
    filter().setSearch(QLatin1String(row.search));
    exportTo(file("time.csv"));
    EXPECT_EQ(utf8(undoing.notice()), "");
    EXPECT_EQ(readFile(file("time.csv")), exportedByCommand(row.options));
}

INSTANTIATE_TEST_SUITE_P(
    , TimesheetExportWith,
    testing::Values(
        ExportRow{"ThisWeek", "This Week", "All Clients", "All Projects", false, "", {}},
        ExportRow{"ThisYear",
                  "This Year",
                  "All Clients",
                  "All Projects",
                  false,
                  "",
                  {"--period", "This Year"}},
        ExportRow{"AClient",
                  "This Month",
                  "Acme Co",
                  "All Projects",
                  false,
                  "",
                  {"--period", "This Month", "--client", "Acme Co"}},
        ExportRow{"AProject",
                  "This Month",
                  "All Clients",
                  "Shop",
                  false,
                  "",
                  {"--period", "This Month", "--project", "Shop"}},
        ExportRow{"Unbilled",
                  "This Year",
                  "All Clients",
                  "All Projects",
                  true,
                  "",
                  {"--period", "This Year", "--unbilled"}},
        ExportRow{"Search",
                  "This Year",
                  "All Clients",
                  "All Projects",
                  false,
                  " LOGO ",
                  {"--period", "This Year", "--search", "logo"}}),
    rowName);

TEST_F(TimesheetExported, asCSVHasWhatIsListedAndNotWhatRuns) {
    exportTo(file("time.csv"));
    const auto text = readFile(file("time.csv"));
    EXPECT_THAT(text, HasSubstr("2026-03-02,2026-03-02T07:00:00+01:00,2026-03-02T07:30:00+01:00,"
                                "Acme Co,Website,\"Logo, \"\"new\"\"\",0.50\r\n"));
    EXPECT_THAT(text, HasSubstr("over midnight"));
    EXPECT_THAT(text, Not(HasSubstr("running")));
    EXPECT_THAT(text, Not(HasSubstr("2026-02-10")));
}

TEST_F(TimesheetExported, isReadByWhomTheUmaskLets) {
    const mode_t former = ::umask(0027);
    exportTo(file("time.csv"));
    ::umask(former);
    EXPECT_EQ(std::filesystem::status(file("time.csv")).permissions(),
              std::filesystem::perms{0640});
}

TEST_F(TimesheetExported, isOfAllThatIsListedThoughNothingIsInACard) {
    filter().setSearch(QStringLiteral("reversed"));
    EXPECT_EQ(rowCount(), 0);
    EXPECT_FALSE(model->isEmpty());
    exportTo(file("time.csv"));
    EXPECT_THAT(readFile(file("time.csv")), HasSubstr("reversed"));
}

TEST_F(TimesheetExported, offersItsNameAndChangesNothing) {
    EXPECT_EQ(utf8(TimesheetModel::exportFile().fileName()), "Elmworth Timesheet.csv");
    model->selection()->click(1);
    const auto before = lines();
    exportTo(file("time.csv"));
    EXPECT_EQ(lines(), before);
    EXPECT_FALSE(context().hasChanges());
}

struct TargetRow {
    const char* name;
    const char* path;
    const char* sentence;
};

class TimesheetExportTo : public TimesheetExported,
                          public testing::WithParamInterface<TargetRow> {};

TEST_P(TimesheetExportTo, aTargetThatCannotBeWrittenSaysSoInOneSentence) {
    const auto& row = GetParam();
    std::filesystem::create_directory(file("folder"));
    const auto names = timer.library.folder.names();
    exportTo(*row.path == '/' ? std::filesystem::path(row.path) : file(row.path));
    EXPECT_EQ(utf8(undoing.notice()), row.sentence);
    EXPECT_FALSE(undoing.noticeOffersUndo());
    EXPECT_THAT(timer.library.folder.names(), testing::UnorderedElementsAreArray(names));
}

INSTANTIATE_TEST_SUITE_P(
    , TimesheetExportTo,
    testing::Values(TargetRow{"AFolder", "folder", "“folder” can't be written: Is a directory."},
                    TargetRow{"NoFolder", "missing/time.csv",
                              "“time.csv” can't be written: No such file or directory."},
                    TargetRow{"ADevice", "/dev/full",
                              "“full” can't be written: Operation not permitted."}),
    rowName);

TEST_F(TimesheetExported, toAnotherPlaceThanAFileSaysSo) {
    model->exportTo(QUrl(QStringLiteral("https://example.test/time.csv")));
    EXPECT_EQ(utf8(undoing.notice()),
              "Only a file on this computer can be written. Choose another place.");
    undoing.dismissNotice();
    model->exportTo(QUrl());
    EXPECT_FALSE(undoing.notice().isEmpty());
}

TEST_F(TimesheetExported, asksBeforeItReplacesAFile) {
    const auto request = [&] {
        model->requestExport(
            QUrl::fromLocalFile(QString::fromStdString(file("time.csv").string())));
    };
    request();
    EXPECT_FALSE(confirmation.isOpen());
    const auto written = readFile(file("time.csv"));
    writeAtomically(file("time.csv"), "somebody's");
    request();
    EXPECT_EQ(utf8(confirmation.title()), "Replace “time.csv”?");
    confirmation.reject();
    EXPECT_EQ(readFile(file("time.csv")), "somebody's");
    request();
    confirmation.accept();
    EXPECT_FALSE(confirmation.isOpen());
    EXPECT_EQ(readFile(file("time.csv")), written);
}

TEST_F(TimesheetExported, toAFullDiskLeavesTheOldFile) {
    writeAtomically(file("time.csv"), "old");
    {
        const test::FileSizeLimit full(16);
        exportTo(file("time.csv"));
    }
    EXPECT_EQ(utf8(undoing.notice()), "“time.csv” can't be written: File too large.");
    EXPECT_EQ(readFile(file("time.csv")), "old");
}

TEST_F(TimesheetExported, ofALibraryThatCannotBeReadLeavesTheOldFile) {
    writeAtomically(file("time.csv"), "old");
    test::FailingReads::fail();
    exportTo(file("time.csv"));
    EXPECT_EQ(utf8(undoing.notice()), "The library can't be read, so nothing was exported.");
    EXPECT_EQ(readFile(file("time.csv")), "old");
}

}  // namespace
}  // namespace elmworth
