// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <filesystem>

#include "command/CommandError.h"
#include "command/InvoiceCommand.h"
#include "command/InvoiceOutput.h"
#include "command/JSONOutput.h"
#include "command/RecordLookup.h"
#include "invoicing/InvoiceFiles.h"
#include "invoicing/InvoicePages.h"
#include "platform/AtomicFile.h"
#include "platform/StandardFolders.h"
#include "platform/Text.h"
#include "records/FieldText.h"

namespace elmworth {

namespace {

struct PDFArguments {
    std::string number;
    std::string file;
    std::string paper;
};

PaperSize choosePaper(const std::string& name, const BusinessProfile& profile) {
    if (name.empty()) return profile.paperSize;
    if (const auto paper = parsePaperSize(caseFolded(name))) return paper.value();
    throw CommandError(parsePaperSize(name).problem(), CommandError::Kind::usage);
}

void renderPDF(const PDFArguments& arguments, CommandEnvironment& environment,
               CommandOutput& output) {
    if (!environment.painter) throw CommandError("PDFs can't be drawn here.");
    if (arguments.file.empty() && TemporaryDataFolder::isInUse()) {
        throw CommandError(
            "A demo keeps no PDFs. Name the file to write, or - for standard output.",
            CommandError::Kind::usage);
    }
    const auto paper = choosePaper(arguments.paper, environment.profiles.profile());
    const auto invoice = findInvoice(environment.context, arguments.number);
    const auto model = renderModel(*invoice, environment, environment.painter->loadLogo());
    const bool toStandardOutput = arguments.file == "-";
    const bool hasFile = !arguments.file.empty() && !toStandardOutput;
    auto file = hasFile ? environment.workingFolder / arguments.file : std::filesystem::path();
    const auto stored =
        exportInvoice(model, paper, file, environment.namedFiles, *environment.painter);
    if (toStandardOutput) {
        output.text += readFile(stored);
        return;
    }
    if (!hasFile) file = stored;
    if (!output.isJSON()) return output.line(file.string());
    JSONOutput json;
    json.beginObject();
    json.field("file", file.string());
    json.field("pages", static_cast<int>(pages(model).size()));
    json.endObject();
    output.text += json.document();
}

}  // namespace

void addInvoicePDFCommand(CommandSyntax& syntax, SubcommandSyntax invoice) {
    auto command = invoice.subcommand("pdf", "Writes an invoice as a PDF and prints its path");
    auto arguments = std::make_shared<PDFArguments>();
    addNumber(command, arguments->number);
    command.option("FILE", arguments->file,
                   "Where to write it; - is standard output. Without it: the program's own folder");
    command
        .option("--paper", arguments->paper, "letter or a4. Without it: as in the business profile")
        .typeName("PAPER")
        .oneOf("letter, a4");
    syntax.runs(
        command,
        [arguments](CommandEnvironment& environment, CommandOutput& output) {
            renderPDF(*arguments, environment, output);
        },
        Drawing::drawsPages);
}

}  // namespace elmworth
