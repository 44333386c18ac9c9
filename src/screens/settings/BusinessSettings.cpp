// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "screens/settings/BusinessSettings.h"

#include <algorithm>
#include <limits>
#include <memory>

#include "records/Logo.h"

namespace elmworth {

BusinessSettings::BusinessSettings(const SettingsServices& services, SettingsKeeper& keeper)
    : services_(services),
      keeper_(keeper),
      profiles_(services.app.profiles),
      name_(profiles_, keeper, &BusinessProfile::name),
      address_(profiles_, keeper, &BusinessProfile::address),
      email_(profiles_, keeper, &BusinessProfile::email),
      taxID_(profiles_, keeper, &BusinessProfile::taxID),
      paymentInstructions_(profiles_, keeper, &BusinessProfile::paymentInstructions),
      invoicePrefix_(profiles_, keeper, &BusinessProfile::invoicePrefix),
      nextNumber_(
          profiles_, keeper,
          [](const BusinessProfile& profile) { return QString::number(profile.nextInvoiceNumber); },
          [this](BusinessProfile& profile, const QString& text) {
              const auto number = parseNumber(text);
              if (number) profile.setNextInvoiceNumber(number.value(), year());
              return static_cast<bool>(number);
          }) {
    connect(&nextNumber_, &FormText::changed, this, &BusinessSettings::changed);
    observation_ = profiles_.observe([this] { Q_EMIT changed(); });
}

BusinessSettings::~BusinessSettings() {
    if (reader_) reader_->wait();
}

void BusinessSettings::reload() {
    for (auto* text : {&name_, &address_, &email_, &taxID_, &paymentInstructions_, &invoicePrefix_,
                       &nextNumber_}) {
        text->reload();
    }
    logo_ = services_.isDemo ? nullptr : loadLogo();
    logoError_.clear();
    Q_EMIT logoChanged();
    Q_EMIT changed();
}

std::int64_t BusinessSettings::year() const {
    return services_.app.calendar().components(services_.app.now()).year;
}

Parsed<std::int64_t> BusinessSettings::parseNumber(const QString& text) {
    return parseWholeNumber(text.toStdString(), "the next number", 0,
                            std::numeric_limits<std::int64_t>::max());
}

QString BusinessSettings::numberProblem() const {
    if (parseNumber(nextNumber_.text())) return {};
    return QStringLiteral("Enter a whole number, 1 or more.");
}

void BusinessSettings::finishNumber() {
    const auto number = parseNumber(nextNumber_.text());
    const bool isKept = number && std::max<std::int64_t>(number.value(), 1) ==
                                      profiles_.profile().nextInvoiceNumber;
    if (isKept) nextNumber_.reload();
}

bool BusinessSettings::restartsYearly() const {
    return profiles_.profile().resetNumberingYearly;
}

void BusinessSettings::setRestartsYearly(bool restarts) {
    auto profile = profiles_.profile();
    profile.resetNumberingYearly = restarts;
    keeper_.keep([&] { profiles_.setProfileOrRefuse(profile); });
    Q_EMIT changed();  // a switch that was moved goes back
}

QString BusinessSettings::nextInvoice() const {
    auto profile = profiles_.profile();
    profile.applyYearlyReset(year());
    return QString::fromStdString(profile.formattedInvoiceNumber(year()));
}

BusinessSettings::Picture BusinessSettings::readPicture(const QString& path) {
    auto unreadable = QStringLiteral("That image couldn't be read.");
    try {
        return {makeLogoFile(path.toStdString()), {}};
    } catch (const LogoError& error) {
        const bool isReadable = error.code() != LogoError::Code::fileReadCorruptFile;
        return {{}, isReadable ? QString::fromUtf8(error.what()) : unreadable};
    } catch (const std::exception&) {  // too large for the memory
        return {{}, unreadable};
    }
}

void BusinessSettings::chooseLogo(const QUrl& file) {
    if (isReadingLogo()) return;
    if (services_.isDemo) {
        logoError_ = QStringLiteral("The demo has no logo of its own.");
    } else {
        const auto picture = std::make_shared<Picture>();
        reader_.reset(QThread::create(
            [picture, path = file.toLocalFile()] { *picture = readPicture(path); }));
        connect(reader_.get(), &QThread::finished, this,
                [this, picture] { takePicture(*picture); });
        reader_->start();
    }
    Q_EMIT logoChanged();
}

void BusinessSettings::takePicture(const Picture& picture) {
    reader_->wait();
    reader_.release()->deleteLater();  // it is telling that it has finished
    logoError_ = picture.failure;
    try {
        if (logoError_.isEmpty()) storeLogoFile(picture.png);
    } catch (const LogoError& error) {
        logoError_ = QString::fromUtf8(error.what());
    }
    if (logoError_.isEmpty()) logo_ = loadLogo();
    Q_EMIT logoChanged();
}

void BusinessSettings::removeLogo() {
    if (isReadingLogo()) return;
    if (!services_.isDemo) elmworth::removeLogo();
    logo_ = services_.isDemo ? nullptr : loadLogo();  // which is still there if it can't be removed
    Q_EMIT logoChanged();
}

}  // namespace elmworth
