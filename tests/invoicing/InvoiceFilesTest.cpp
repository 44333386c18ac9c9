// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "invoicing/InvoiceFiles.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <map>
#include <random>
#include <vector>

#include "platform/AtomicFile.h"
#include "platform/Text.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using namespace std::string_literals;

class InvoiceFilesTest : public testing::Test {
 protected:
    void expectStoredInsideTheFolder(const std::string& number) const {
        const auto file = storedInvoiceFile(number);
        EXPECT_EQ(file.parent_path(), folder_.path() / "Elmworth" / "Invoices") << number;
        EXPECT_EQ(file.lexically_normal(), file) << number;
        EXPECT_EQ(file.extension(), ".pdf") << number;
        writeAtomically(file, number);
        EXPECT_EQ(readFile(file), number);
    }

    test::TemporaryFolder folder_;
    test::ScopedEnvironment data_{"XDG_DATA_HOME", folder_.path().string()};
};

TEST_F(InvoiceFilesTest, theFolderIsMadeForTheUserAlone) {
    const auto folder = invoicesFolder();
    EXPECT_EQ(folder, folder_.path() / "Elmworth" / "Invoices");
    struct stat status {};
    ASSERT_EQ(::stat(folder.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777, 0700);
}

TEST_F(InvoiceFilesTest, aFolderThatCannotBeMadeIsReported) {
    writeAtomically(folder_.path() / "Elmworth", "a file in the way");
    EXPECT_THROW((void)invoicesFolder(), std::filesystem::filesystem_error);
    EXPECT_THROW((void)storedInvoiceFile("INV-2026-001"), std::filesystem::filesystem_error);
}

TEST_F(InvoiceFilesTest, slashesAndColonsBecomeHyphens) {
    EXPECT_EQ(safeFileName("2026/03:7"), "2026-03-7");
    EXPECT_EQ(safeFileName("//::"), "----");
    EXPECT_EQ(safeFileName("INV-2026-001"), "INV-2026-001");
    EXPECT_EQ(safeFileName(""), "");
}

TEST_F(InvoiceFilesTest, anOrdinaryNumberIsItsFile) {
    for (const std::string number : {"INV-2026-001", "Rechnung Nr. 7 (März)", "7", "a..b", "R~7"})
        EXPECT_EQ(storedInvoiceFile(number).filename(), number + ".pdf");
}

TEST_F(InvoiceFilesTest, aChangedNumberCanStillBeRead) {
    const std::string name = storedInvoiceFile("2026/03").filename();
    EXPECT_EQ(name.substr(0, 8), "2026-03~");
    EXPECT_EQ(name.size(), "2026-03~0123456789abcdef.pdf"s.size());
}

TEST_F(InvoiceFilesTest, theFileOfANumberStaysTheSame) {
    EXPECT_EQ(storedInvoiceFile("2026/03").filename(), "2026-03~9fbcd78a7a7f27b8.pdf");
}

std::vector<std::string> hostileNumbers() {
    return {
        "",
        ".",
        "..",
        "../..",
        "/",
        "/etc/passwd",
        "../../.bashrc",
        "~",
        "~/x",
        ".hidden",
        "-",
        "\0"s,
        "a\0b"s,
        "a\0c"s,
        "a",
        "a\nb",
        "a\tb",
        "a-b",
        "a/b",
        "a:b",
        "a\x7f"
        "b",
        "caf\xc3\xa9",
        "caf\xe9",
        "caf\xe8",
        "caf\xef\xbf\xbd",
        std::string(300, '9'),
        std::string(299, '9') + "8",
        std::string(5000, '/'),
        std::string(109, 'a') + "ä" + std::string(100, 'b'),
        std::string(100, 'x') + "👍👍👍👍👍👍",
    };
}

TEST_F(InvoiceFilesTest, eachNumberIsStoredDirectlyInsideTheFolder) {
    for (const std::string& number : hostileNumbers()) expectStoredInsideTheFolder(number);
}

TEST_F(InvoiceFilesTest, namesHoldNoControlCharactersAndAreUTF8) {
    for (const std::string& number : hostileNumbers()) {
        const std::string name = storedInvoiceFile(number).filename();
        EXPECT_EQ(validUTF8(name), name);
        for (const char c : name) EXPECT_GE(static_cast<unsigned char>(c), 0x20);
        EXPECT_EQ(name.find('\x7f'), std::string::npos);
        EXPECT_NE(name.front(), '.');
        EXPECT_LE(name.size(), 143);
    }
}

TEST_F(InvoiceFilesTest, noTwoNumbersShareAFile) {
    std::vector<std::string> numbers = hostileNumbers();
    std::mt19937_64 random(20260301);
    for (int i = 0; i < 2000; ++i) {
        std::string number;
        for (auto left = random() % 4; left > 0; --left) number += "ab/:-.~\n"[random() % 8];
        numbers.push_back(number);
    }
    // The stored name of a number may be somebody's number, too.
    for (std::size_t i = 0, count = numbers.size(); i < count; ++i)
        numbers.push_back(storedInvoiceFile(numbers[i]).stem());

    std::map<std::string, std::string> owners;
    for (const std::string& number : numbers) {
        const std::string file = storedInvoiceFile(number);
        const auto [owner, isNew] = owners.emplace(file, number);
        EXPECT_EQ(owner->second, number) << file;
    }
}

TEST_F(InvoiceFilesTest, aFileElsewhereIsNamedByNumberAndClientAsFarAsFileSystemsTakeThem) {
    const std::map<std::pair<std::string, std::string>, std::string> names{
        {{"INV-1", "Acme Co"}, "INV-1 Acme Co.pdf"},
        {{"INV-1", ""}, "INV-1.pdf"},
        {{"2026/03:7", "A/B: C"}, "2026-03-7 A-B- C.pdf"},
        {{".hidden", "Acme"}, "-hidden Acme.pdf"},
        {{"INV-1", "Two\nlines\t"}, "INV-1 Two-lines.pdf"},
        {{"", ""}, "Invoice.pdf"},
    };
    for (const auto& [from, name] : names) EXPECT_EQ(exportFileName(from.first, from.second), name);
    const std::string longName = exportFileName("INV-1", std::string(400, 'x'));
    EXPECT_LE(longName.size(), 143U);
    EXPECT_TRUE(longName.ends_with("x.pdf"));
}

/// Writes where it can, and counts.
class CountingPainter final : public InvoicePainter {
 public:
    LogoImage loadLogo() override { return nullptr; }
    void render(const InvoiceRenderModel& model, PaperSize /*paper*/,
                const std::filesystem::path& file, FileAccess access) override {
        ++count;
        writeAtomically(file, "%PDF " + model.number, access);
    }

    int count = 0;
};

TEST_F(InvoiceFilesTest, anExportWritesTheFileAndTheStoredOne) {
    CountingPainter painter;
    InvoiceRenderModel model;
    model.number = "INV-1";
    const auto file = folder_.path() / "out.pdf";
    const auto stored = exportInvoice(model, PaperSize::a4, file, FileAccess::ownerOnly(), painter);
    EXPECT_EQ(stored, storedInvoiceFile("INV-1"));
    EXPECT_EQ(readFile(file), "%PDF INV-1");
    EXPECT_EQ(readFile(stored), "%PDF INV-1");
    EXPECT_EQ(painter.count, 1) << "drawn once for both";
}

TEST_F(InvoiceFilesTest, anExportThatCannotBeStoredSaysThatTheFileWasWritten) {
    CountingPainter painter;
    InvoiceRenderModel model;
    model.number = "INV-1";
    std::filesystem::create_directories(storedInvoiceFile("INV-1"));  // a folder in its place
    const auto file = folder_.path() / "out.pdf";
    try {
        exportInvoice(model, PaperSize::a4, file, FileAccess::ownerOnly(), painter);
        FAIL() << "no error";
    } catch (const StoredFileError& error) {
        EXPECT_STREQ(error.what(),
                     "“out.pdf” was written, but Elmworth's own copy of it could not be.");
    }
    EXPECT_EQ(readFile(file), "%PDF INV-1");
}

TEST_F(InvoiceFilesTest, anExportThatCannotBeWrittenStoresNothing) {
    CountingPainter painter;
    InvoiceRenderModel model;
    model.number = "INV-1";
    EXPECT_THROW(exportInvoice(model, PaperSize::a4, folder_.path() / "missing" / "out.pdf",
                               FileAccess::ownerOnly(), painter),
                 std::filesystem::filesystem_error);
    EXPECT_FALSE(std::filesystem::exists(storedInvoiceFile("INV-1")));
}

}  // namespace
}  // namespace elmworth
