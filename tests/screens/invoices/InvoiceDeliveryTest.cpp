// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoiceDelivery.h"

#include <gmock/gmock.h>

#include <QClipboard>
#include <QGuiApplication>

#include "platform/AtomicFile.h"
#include "screens/invoices/InvoicesTest.h"
#include "support/FileSizeLimit.h"

namespace elmworth {
namespace {

using test::utf8;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

class InvoiceDelivered : public test::InvoicesTest {
 protected:
    [[nodiscard]] std::filesystem::path file(const char* name) const {
        return timer.library.folder.path() / name;
    }
    static QUrl url(const std::filesystem::path& path) {
        return QUrl::fromLocalFile(QString::fromStdString(path.string()));
    }
    void exportTo(const std::filesystem::path& path) {
        model.selection()->click(0);
        (void)delivery().exportFile();
        delivery().requestExport(url(path));
    }
    [[nodiscard]] static std::string stored() { return readFile(storedInvoiceFile("INV-1")); }
    void replaceLogo() { painter.mark = "another logo"; }

    Ref<Invoice> invoice = add("INV-1", "2026-02-20");
};

// --- export --------------------------------------------------------------------------------------

TEST_F(InvoiceDelivered, isProposedAsAFileOfItsNumberAndClient) {
    model.selection()->click(0);
    EXPECT_EQ(utf8(delivery().exportFile().fileName()), "INV-1 Acme Co.pdf");
    invoice->number = "2026/7";
    save();
    EXPECT_EQ(utf8(delivery().exportFile().fileName()), "2026-7 Acme Co.pdf");
}

TEST_F(InvoiceDelivered, anExportWritesBothFilesAndOpensTheChosenOne) {
    exportTo(file("out.pdf"));
    EXPECT_EQ(readFile(file("out.pdf")), "INV-1 letter logo");
    EXPECT_EQ(stored(), "INV-1 letter logo");
    EXPECT_THAT(files.opened, ElementsAre(file("out.pdf")));
    EXPECT_EQ(problem(), "");
}

TEST_F(InvoiceDelivered, aFileThatIsThereIsReplacedAfterAQuestion) {
    writeAtomically(file("out.pdf"), "mine");
    exportTo(file("out.pdf"));
    EXPECT_EQ(utf8(confirmation.title()), "Replace “out.pdf”?");
    EXPECT_EQ(readFile(file("out.pdf")), "mine");
    confirmation.accept();
    EXPECT_EQ(readFile(file("out.pdf")), "INV-1 letter logo");
}

TEST_F(InvoiceDelivered, whatIsExportedIsTheInvoiceForWhichTheDialogOpened) {
    add("INV-2", "2026-01-01");
    model.selection()->click(0);
    (void)delivery().exportFile();
    model.selection()->click(1);
    delivery().requestExport(url(file("out.pdf")));
    EXPECT_THAT(readFile(file("out.pdf")), StartsWith("INV-1 "));
}

TEST_F(InvoiceDelivered, anInvoiceThatIsDeletedWhileTheDialogIsOpenIsNotExported) {
    model.selection()->click(0);
    (void)delivery().exportFile();
    context().deleteRecord(invoice);
    save();
    delivery().requestExport(url(file("out.pdf")));
    EXPECT_EQ(problem(), "This invoice was deleted, so nothing was exported.");
    EXPECT_FALSE(std::filesystem::exists(file("out.pdf")));
}

TEST_F(InvoiceDelivered, aPlaceThatIsNoFolderIsSaidAndNothingIsWritten) {
    exportTo(file("missing") / "out.pdf");
    EXPECT_THAT(problem(), HasSubstr("out.pdf"));
    EXPECT_THAT(files.opened, IsEmpty());
    EXPECT_FALSE(std::filesystem::exists(storedInvoiceFile("INV-1")));
    exportTo(file("out.pdf"));
    EXPECT_EQ(problem(), "");
}

TEST_F(InvoiceDelivered, aPDFThatCannotBeMadeIsSaidWithWhatStandsInTheWay) {
    painter.fails = true;
    exportTo(file("out.pdf"));
    EXPECT_EQ(problem(), "Could not create the PDF file.");
    exportTo(file("missing") / "out.pdf");
    EXPECT_EQ(problem(), "Could not create the PDF file. There is no folder “" +
                             file("missing").string() + "”.");
    EXPECT_THAT(files.opened, IsEmpty());
}

TEST_F(InvoiceDelivered, aFullDiskIsSaidAndLeavesNoHalfFile) {
    invoice->number = std::string(100, 'x');
    save();
    {
        const test::FileSizeLimit limit(20);
        exportTo(file("out.pdf"));
    }
    EXPECT_NE(problem(), "");
    EXPECT_FALSE(std::filesystem::exists(file("out.pdf")));
    EXPECT_THAT(files.opened, IsEmpty());
}

TEST_F(InvoiceDelivered, aCopyThatCannotBeStoredIsSaidAndNotOpened) {
    std::filesystem::create_directories(storedInvoiceFile("INV-1"));
    exportTo(file("out.pdf"));
    EXPECT_EQ(problem(), "“out.pdf” was written, but Elmworth's own copy of it could not be.");
    EXPECT_EQ(readFile(file("out.pdf")), "INV-1 letter logo");
    EXPECT_THAT(files.opened, IsEmpty());
}

TEST_F(InvoiceDelivered, aPlaceOnAnotherComputerIsRefused) {
    model.selection()->click(0);
    (void)delivery().exportFile();
    delivery().requestExport(QUrl(QStringLiteral("sftp://host/out.pdf")));
    EXPECT_EQ(problem(), "Only a file on this computer can be written. Choose another place.");
}

TEST_F(InvoiceDelivered, aMissingViewerIsSaidAndTheFileStands) {
    files.fails = true;
    exportTo(file("out.pdf"));
    EXPECT_EQ(problem(), "“out.pdf” was saved, but there is no program that opens it.");
    EXPECT_TRUE(std::filesystem::exists(file("out.pdf")));
}

// --- the file manager ----------------------------------------------------------------------------

TEST_F(InvoiceDelivered, whatWasSentIsShownAsItWasSent) {
    exportTo(file("out.pdf"));
    detail().takeNextStep();
    replaceLogo();
    delivery().showPDF();
    EXPECT_EQ(stored(), "INV-1 letter logo");
    detail().takeNextStep();
    delivery().showPDF();
    EXPECT_EQ(stored(), "INV-1 letter logo");
    EXPECT_THAT(files.revealed,
                ElementsAre(storedInvoiceFile("INV-1"), storedInvoiceFile("INV-1")));
}

TEST_F(InvoiceDelivered, aDraftIsShownAnew) {
    exportTo(file("out.pdf"));
    replaceLogo();
    delivery().showPDF();
    EXPECT_EQ(stored(), "INV-1 letter another logo");
}

TEST_F(InvoiceDelivered, aMissingFileIsWrittenAgain) {
    model.selection()->click(0);
    detail().takeNextStep();
    delivery().showPDF();
    EXPECT_EQ(stored(), "INV-1 letter logo");
}

TEST_F(InvoiceDelivered, aMissingFileManagerIsSaidWithThePlace) {
    files.fails = true;
    model.selection()->click(0);
    delivery().showPDF();
    EXPECT_EQ(problem(), "There is no file manager to show it in. It is here: " +
                             storedInvoiceFile("INV-1").string());
}

TEST_F(InvoiceDelivered, aFolderThatCannotBeMadeIsSaid) {
    writeAtomically(file("Elmworth"), "a file in the way");
    model.selection()->click(0);
    delivery().showPDF();
    EXPECT_THAT(problem(), HasSubstr("can't be written"));
    EXPECT_THAT(files.revealed, IsEmpty());
}

TEST_F(InvoiceDelivered, aProblemEndsWithTheNextInvoice) {
    add("INV-2", "2026-01-01");
    files.fails = true;
    model.selection()->click(0);
    delivery().showPDF();
    EXPECT_NE(problem(), "");
    model.selection()->click(1);
    EXPECT_EQ(problem(), "");
}

// --- the e-mail ----------------------------------------------------------------------------------

TEST_F(InvoiceDelivered, theTextOfAnEmailIsCopiedAndThatIsSaidForAWhile) {
    model.selection()->click(0);
    delivery().copyEmailText();
    EXPECT_THAT(utf8(QGuiApplication::clipboard()->text()),
                StartsWith("Hi Acme Co,\n\nPlease find attached invoice INV-1 for $100.00, due Mar "
                           "6, 2026.\n"));
    EXPECT_TRUE(delivery().isCopied());
    timer.library.runLoop.fire();
    EXPECT_FALSE(delivery().isCopied());
}

TEST_F(InvoiceDelivered, theNoticeOfACopyEndsWithTheNextInvoice) {
    add("INV-2", "2026-01-01");
    model.selection()->click(0);
    delivery().copyEmailText();
    model.selection()->click(1);
    EXPECT_FALSE(delivery().isCopied());
}

}  // namespace
}  // namespace elmworth
