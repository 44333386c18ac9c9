// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/invoices/InvoiceDelivery.h"

#include <unistd.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QPointer>
#include <chrono>
#include <system_error>

#include "invoicing/InvoiceCalculator.h"
#include "invoicing/InvoiceEmail.h"
#include "screens/SavePlace.h"

namespace elmworth {

namespace {

constexpr std::chrono::seconds noticeTime{2};
constexpr std::uintmax_t smallestFile = 64 << 10;

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

/// What stands in the way of a file in the folder of `file`, as far as it can be told; else empty.
QString obstacle(const std::filesystem::path& file) {
    const auto folder = file.parent_path();
    std::error_code error;
    if (!std::filesystem::is_directory(folder, error)) {
        return QStringLiteral(" There is no folder “%1”.").arg(text(folder.string()));
    }
    const auto space = std::filesystem::space(folder, error);
    if (!error && space.available < smallestFile) return QStringLiteral(" The disk is full.");
    if (::access(folder.c_str(), W_OK) != 0) {
        return QStringLiteral(" The folder “%1” can't be written to.").arg(text(folder.string()));
    }
    return {};
}

}  // namespace

InvoiceDelivery::InvoiceDelivery(const AppServices& services, const InvoiceOutlets& outlets,
                                 Confirmation& confirmation)
    : services_(services), outlets_(outlets), confirmation_(confirmation) {}

void InvoiceDelivery::setInvoice(Ref<Invoice> invoice) {
    if (invoice == invoice_) return;
    invoice_ = std::move(invoice);
    say({});
    setCopied(nullptr);
}

void InvoiceDelivery::say(const QString& problem) {
    if (problem == problem_) return;
    problem_ = problem;
    Q_EMIT problemChanged();
}

/// For what is told later, when another invoice may be shown.
DesktopFiles::Failed InvoiceDelivery::saying(const QString& problem) {
    return [self = QPointer(this), invoice = invoice_, problem] {
        if (self && self->invoice_ == invoice) self->say(problem);
    };
}

InvoiceRenderModel InvoiceDelivery::renderModel(const Invoice& invoice) const {
    return makeInvoiceRenderModel(invoice, services_.profiles.profile(), screenFormats(services_),
                                  outlets_.painter.loadLogo());
}

/// Does `work`, and says why where it fails; false then. Nothing is left half written.
template <class Work>
bool InvoiceDelivery::attempt(const std::filesystem::path& target, const Work& work) {
    try {
        work();
        return true;
    } catch (const StoredFileError& error) {
        say(text(error.what()));
    } catch (const FiguresError& error) {
        say(text(error.what()));
    } catch (const std::filesystem::filesystem_error& error) {
        say(QStringLiteral("“%1” can't be written: %2.")
                .arg(text(error.path1().filename().string()), text(error.code().message())));
    } catch (const std::runtime_error& error) {
        say(text(error.what()) + obstacle(target));
    }
    return false;
}

QUrl InvoiceDelivery::exportFile() {
    exported_ = invoice_;
    if (!exported_) return {};
    return savePlace(text(exportFileName(exported_->number.get(), clientName(*exported_))));
}

void InvoiceDelivery::requestExport(const QUrl& file) {
    const auto path = localFile(file);
    if (!path) {
        return say(
            QStringLiteral("Only a file on this computer can be written. Choose another place."));
    }
    std::error_code ignored;
    if (!std::filesystem::is_regular_file(*path, ignored)) return exportTo(*path);
    confirmation_.ask({.icon = QStringLiteral("document"),
                       .title = QStringLiteral("Replace “%1”?").arg(file.fileName()),
                       .message = QStringLiteral(
                           "A file of that name is there already. What it holds will be lost."),
                       .acceptText = QStringLiteral("Replace"),
                       .isDestructive = true},
                      [this, path] { exportTo(*path); });
}

void InvoiceDelivery::exportTo(const std::filesystem::path& file) {
    say({});
    if (!exported_ || exported_->isDeleted()) {
        return say(QStringLiteral("This invoice was deleted, so nothing was exported."));
    }
    const bool isWritten = attempt(file, [&] {
        exportInvoice(renderModel(*exported_), services_.profiles.profile().paperSize, file,
                      FileAccess::forUmask(currentUmask()), outlets_.painter);
    });
    if (!isWritten) return;
    outlets_.files.open(
        file, saying(QStringLiteral("“%1” was saved, but there is no program that opens it.")
                         .arg(text(file.filename().string()))));
}

void InvoiceDelivery::copyEmailText() {
    if (!invoice_ || invoice_->isDeleted()) return;
    try {
        const auto model = renderModel(*invoice_);
        QGuiApplication::clipboard()->setText(text(emailText(model, clientName(*invoice_))));
    } catch (const FiguresError& error) {
        return say(text(error.what()));
    }
    setCopied(services_.runLoop.repeat(noticeTime, [this] { setCopied(nullptr); }));
}

void InvoiceDelivery::setCopied(RunLoop::Handle copied) {
    const bool was = isCopied();
    copied_ = std::move(copied);
    if (was != isCopied()) Q_EMIT isCopiedChanged();
}

void InvoiceDelivery::showPDF() {
    say({});
    if (!invoice_ || invoice_->isDeleted()) return;
    std::filesystem::path stored;
    const bool isThere = attempt(stored, [&] {
        stored = storedInvoiceFile(invoice_->number.get());
        std::error_code ignored;
        const bool isKept = invoice_->status() != InvoiceStatus::draft &&
                            std::filesystem::is_regular_file(stored, ignored);
        if (isKept) return;
        exportInvoice(renderModel(*invoice_), services_.profiles.profile().paperSize, {},
                      FileAccess::ownerOnly(), outlets_.painter);
    });
    if (!isThere) return;
    outlets_.files.reveal(
        stored, saying(QStringLiteral("There is no file manager to show it in. It is here: %1")
                           .arg(text(stored.string()))));
}

}  // namespace elmworth
