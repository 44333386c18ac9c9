// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QObject>
#include <QString>
#include <QThread>
#include <QUrl>
#include <QtQmlIntegration>
#include <memory>
#include <string>

#include "records/LogoImage.h"
#include "screens/settings/ProfileText.h"
#include "screens/settings/SettingsServices.h"

namespace elmworth {

/// The tab about the business and the numbers of its invoices. Each change is kept at once.
class BusinessSettings final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("The settings' model has it")
    Q_PROPERTY(elmworth::FormText* name READ name CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* address READ address CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* email READ email CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* taxID READ taxID CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* paymentInstructions READ paymentInstructions CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* invoicePrefix READ invoicePrefix CONSTANT FINAL)
    Q_PROPERTY(elmworth::FormText* nextNumber READ nextNumber CONSTANT FINAL)
    /// What is wrong with the next number as it is typed; empty for nothing.
    Q_PROPERTY(QString numberProblem READ numberProblem NOTIFY changed FINAL)
    Q_PROPERTY(bool restartsYearly READ restartsYearly WRITE setRestartsYearly NOTIFY changed FINAL)
    Q_PROPERTY(QString nextInvoice READ nextInvoice NOTIFY changed FINAL)
    Q_PROPERTY(bool hasLogo READ hasLogo NOTIFY logoChanged FINAL)
    /// A picture is being read, which takes a while for a large one.
    Q_PROPERTY(bool isReadingLogo READ isReadingLogo NOTIFY logoChanged FINAL)
    Q_PROPERTY(QString logoError READ logoError NOTIFY logoChanged FINAL)

 public:
    BusinessSettings(const SettingsServices& services, SettingsKeeper& keeper);
    BusinessSettings(const BusinessSettings&) = delete;
    BusinessSettings& operator=(const BusinessSettings&) = delete;
    ~BusinessSettings() override;

    [[nodiscard]] ProfileText* name() { return &name_; }
    [[nodiscard]] ProfileText* address() { return &address_; }
    [[nodiscard]] ProfileText* email() { return &email_; }
    [[nodiscard]] ProfileText* taxID() { return &taxID_; }
    [[nodiscard]] ProfileText* paymentInstructions() { return &paymentInstructions_; }
    [[nodiscard]] ProfileText* invoicePrefix() { return &invoicePrefix_; }
    [[nodiscard]] ProfileText* nextNumber() { return &nextNumber_; }
    [[nodiscard]] QString numberProblem() const;
    [[nodiscard]] bool restartsYearly() const;
    void setRestartsYearly(bool restarts);
    /// The number that an invoice of today would get.
    [[nodiscard]] QString nextInvoice() const;

    [[nodiscard]] bool hasLogo() const { return logo_ != nullptr; }
    /// Null for none.
    [[nodiscard]] const LogoImage& logo() const { return logo_; }
    [[nodiscard]] bool isReadingLogo() const { return reader_ != nullptr; }
    /// Why the last picture did not become the logo, as a sentence.
    [[nodiscard]] const QString& logoError() const { return logoError_; }

    /// Shows what there is, whatever was typed: for a window that opens.
    void reload();
    /// The next number was left: one below 1 now reads as what it was taken for.
    Q_INVOKABLE void finishNumber();
    /// Reads the picture beside the window's events, and tells how that went by `logoChanged`. Does
    /// nothing while another one is read.
    Q_INVOKABLE void chooseLogo(const QUrl& file);
    /// Does nothing while a picture is read.
    Q_INVOKABLE void removeLogo();

 Q_SIGNALS:
    void changed();
    void logoChanged();

 private:
    [[nodiscard]] std::int64_t year() const;
    [[nodiscard]] static Parsed<std::int64_t> parseNumber(const QString& text);
    struct Picture {
        std::string png;
        QString failure;  ///< why there is none, as a sentence
    };
    [[nodiscard]] static Picture readPicture(const QString& path);
    void takePicture(const Picture& picture);

    SettingsServices services_;
    SettingsKeeper& keeper_;
    ProfileStore& profiles_;
    ProfileText name_;
    ProfileText address_;
    ProfileText email_;
    ProfileText taxID_;
    ProfileText paymentInstructions_;
    ProfileText invoicePrefix_;
    ProfileText nextNumber_;
    LogoImage logo_;
    QString logoError_;
    std::unique_ptr<QThread> reader_;  ///< while it reads a picture
    ProfileStore::Observation observation_;
};

}  // namespace elmworth
