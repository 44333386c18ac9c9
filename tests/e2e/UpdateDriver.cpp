// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

// UpdateDriver FEED KEYS AUTHORITY SETTINGS PROGRAM   looks for updates of version 0.1 over the
// network, trusting the certificates in AUTHORITY, installs what it finds, and says in one line how
// it went.

#include <QCoreApplication>
#include <QFile>
#include <QSslCertificate>
#include <QSslConfiguration>
#include <iostream>

#include "platform/linux/QtRunLoop.h"
#include "updates/HttpsDownloads.h"
#include "updates/Updater.h"

namespace {

void trust(const QString& authority) {
    auto configuration = QSslConfiguration::defaultConfiguration();
    configuration.setCaCertificates(QSslCertificate::fromPath(authority));
    QSslConfiguration::setDefaultConfiguration(configuration);
}

void end(const std::string& line) {
    std::cout << line << std::endl;
    QCoreApplication::quit();
}

}  // namespace

int main(int argc, char** argv) {
    using namespace elmworth;
    QCoreApplication application(argc, argv);
    trust(QString::fromLocal8Bit(argv[3]));
    Settings settings{argv[4]};
    QtRunLoop runLoop;
    HttpsDownloads downloads;
    Updater updater{
        {argv[1], UpdateKeys::parse(argv[2]), ReleaseVersion::parse("0.1").value(), argv[5], false},
        settings,
        runLoop,
        currentInstant,
        downloads};
    updater.look([&](const Updater::Finding& finding) {
        if (!finding.release) return end(finding.failure.empty() ? "newest" : finding.failure);
        updater.fetch(*finding.release, [&](const std::string& failure) {
            updater.install();
            end(failure.empty() ? "installed" : failure);
        });
    });
    return QCoreApplication::exec();
}
