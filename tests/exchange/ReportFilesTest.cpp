// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// Files as other programs write them, read by a person in Berlin.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "exchange/CSVImporter.h"
#include "platform/AtomicFile.h"
#include "platform/TextEncoding.h"
#include "support/Instants.h"
#include "support/Rows.h"

namespace elmworth {
namespace {

using CSVImporter::Row;

std::string textOf(const std::string& name) {
    const auto text =
        decodeText(readFile(std::string(ELMWORTH_TEST_DATA) + "/exchange/" + name + ".csv"));
    if (!text) throw std::runtime_error("cannot decode " + name);
    return *text;
}

/// "Client | Project | Notes | start | end" in UTC.
std::string lineOf(const Row& row) {
    return row.client + " | " + row.project + " | " + row.notes + " | " + test::iso(row.start) +
           " | " + test::iso(row.end);
}

struct ReportFile {
    const char* name;
    std::vector<std::string> rows;
};

void PrintTo(const ReportFile& file, std::ostream* stream) {
    *stream << file.name;
}

class ReportFiles : public testing::TestWithParam<ReportFile> {};

TEST_P(ReportFiles, areReadRowByRow) {
    std::vector<std::string> lines;
    for (const auto& row : CSVImporter::parse(textOf(GetParam().name), "Europe/Berlin")) {
        lines.push_back(lineOf(row));
    }
    EXPECT_EQ(lines, GetParam().rows);
}

const std::vector<std::string> march{
    "Acme Co | Website | Wireframes | 2026-03-02T08:00:00Z | 2026-03-02T11:25:00Z",
    "Acme Co | Website | First layout | 2026-03-03T12:00:00Z | 2026-03-03T16:10:30Z",
    " |  | Taxes | 2026-03-03T17:00:00Z | 2026-03-03T17:30:00Z",
    "Globex | Website |  | 2026-03-04T22:30:00Z | 2026-03-04T23:30:00Z",
};
const std::vector<std::string> mueller{
    "Müller & Söhne | Größe | Preis: 100 € – “fertig” | 2026-03-02T08:00:00Z | "
    "2026-03-02T09:00:00Z"};

INSTANTIATE_TEST_SUITE_P(
    , ReportFiles,
    testing::Values(
        ReportFile{"toggl-unquoted-lf", march}, ReportFile{"toggl-unquoted-crlf-mark", march},
        ReportFile{"toggl-quoted-lf", march}, ReportFile{"toggl-quoted-crlf-mark", march},
        ReportFile{
            "toggl-notes-and-tags",
            {"Smith, Jones & Co | Website | Call with \"Bob\", then mail | 2026-03-02T08:00:00Z | "
             "2026-03-02T09:00:00Z",
             "Acme Co | Website | Two lines:\nthe second 🎉 | 2026-03-02T09:00:00Z | "
             "2026-03-02T10:00:00Z",
             "Acme Co | Website | Made on Windows\r\nwith its breaks | 2026-03-02T10:00:00Z | "
             "2026-03-02T11:00:00Z",
             "日本語 | 👩‍💻 Website | padded | 2026-03-02T11:00:00Z | "
             "2026-03-02T12:00:00Z"}},
        ReportFile{"toggl-zero-and-running",
                   {"Acme Co | Website | One second | 2026-03-02T08:00:00Z | "
                    "2026-03-02T08:00:01Z"}},
        ReportFile{"toggl-windows-1252", mueller}, ReportFile{"toggl-utf-16-little", mueller},
        ReportFile{"toggl-utf-16-big", mueller}, ReportFile{"toggl-utf-16-no-mark", mueller},
        ReportFile{"toggl-mac-roman",
                   {"Müller & Söhne | Größe Å | fertig | 2026-03-02T08:00:00Z | "
                    "2026-03-02T09:00:00Z"}},
        ReportFile{"toggl-clock-changes",
                   {"Acme Co | Website | Over the gap | 2026-03-29T00:30:00Z | "
                    "2026-03-29T01:30:00Z",
                    "Acme Co | Website | In the gap | 2026-03-29T01:00:00Z | 2026-03-29T02:00:00Z",
                    "Acme Co | Website | Over the repeated hour | 2026-10-24T23:30:00Z | "
                    "2026-10-25T02:30:00Z"}},
        ReportFile{"toggl-columns-in-any-order",
                   {" | Website | Layout | 2026-03-02T08:00:00Z | 2026-03-02T09:00:00Z"}},
        ReportFile{"own-export",
                   {"Acme Co | Website | Wireframes, \"v2\" | 2026-03-02T14:00:00Z | "
                    "2026-03-02T17:25:00Z",
                    " |  | two\nlines | 2026-03-03T18:00:00Z | 2026-03-03T22:10:00Z"}}),
    [](const auto& row) { return test::textName(testing::TestParamInfo(row.param.name, 0)); });

struct RefusedFile {
    const char* name;
    ImportError::Code code;
};

void PrintTo(const RefusedFile& file, std::ostream* stream) {
    *stream << file.name;
}

class RefusedReportFiles : public testing::TestWithParam<RefusedFile> {};

TEST_P(RefusedReportFiles, areRefusedWithTheReason) {
    try {
        (void)CSVImporter::parse(textOf(GetParam().name), "Europe/Berlin");
        FAIL() << "was read";
    } catch (const ImportError& error) {
        EXPECT_EQ(error.code(), GetParam().code);
    }
}

INSTANTIATE_TEST_SUITE_P(
    , RefusedReportFiles,
    testing::Values(RefusedFile{"toggl-header-only", ImportError::Code::empty},
                    RefusedFile{"toggl-only-running", ImportError::Code::empty},
                    RefusedFile{"toggl-semicolons", ImportError::Code::unrecognizedFormat},
                    RefusedFile{"toggl-summary-report", ImportError::Code::unrecognizedFormat},
                    RefusedFile{"own-without-hours", ImportError::Code::unrecognizedFormat}),
    [](const auto& row) { return test::textName(testing::TestParamInfo(row.param.name, 0)); });

}  // namespace
}  // namespace elmworth
