// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include <sys/stat.h>

#include <QCoreApplication>
#include <QImage>
#include <QImageWriter>
#include <fstream>

#include "records/Logo.h"
#include "screens/settings/SettingsTest.h"

namespace elmworth {
namespace {

class BusinessSettingsTest : public test::SettingsTest {
 protected:
    BusinessSettingsTest() { business.reload(); }

    QUrl picture(const QString& name, const char* kind, QSize size = {200, 100}) {
        const auto file =
            QString::fromStdString(timer.library.folder.path().string()) + u'/' + name;
        QImage image(size, QImage::Format_RGB32);
        image.fill(Qt::red);
        QImageWriter writer(file, kind);
        EXPECT_TRUE(writer.write(image)) << writer.errorString().toStdString();
        return QUrl::fromLocalFile(file);
    }

    static void choose(BusinessSettings& settings, const QUrl& file) {
        settings.chooseLogo(file);
        while (settings.isReadingLogo()) {
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
        }
    }

    BusinessSettings business{settingsServices(), keeper};
};

TEST_F(BusinessSettingsTest, keepsEachTextAsItIsTyped) {
    business.name()->setText(QStringLiteral("Acme Zoë"));
    business.address()->setText(QStringLiteral("1 Road\nTown"));
    business.email()->setText(QStringLiteral("a@b.c"));
    business.taxID()->setText(QStringLiteral("DE 1"));
    business.paymentInstructions()->setText(QStringLiteral("Wire it"));
    business.invoicePrefix()->setText(QStringLiteral("AC"));
    const auto stored = storedProfile();
    EXPECT_EQ(stored.name, "Acme Zoë");
    EXPECT_EQ(stored.address, "1 Road\nTown");
    EXPECT_EQ(stored.email, "a@b.c");
    EXPECT_EQ(stored.taxID, "DE 1");
    EXPECT_EQ(stored.paymentInstructions, "Wire it");
    EXPECT_EQ(stored.invoicePrefix, "AC");
    EXPECT_EQ(business.nextInvoice(), QStringLiteral("AC-2026-001"));
}

TEST_F(BusinessSettingsTest, snapsTheNumberZeroToOne) {
    business.nextNumber()->setText(QStringLiteral("7"));
    business.nextNumber()->setText(QStringLiteral("0"));
    EXPECT_EQ(profile().nextInvoiceNumber, 1);
    business.finishNumber();
    EXPECT_EQ(business.nextNumber()->text(), QStringLiteral("1"));
}

TEST_F(BusinessSettingsTest, keepsANumberSetByHandInAnotherYear) {
    setProfile([](auto& profile) {
        profile.resetNumberingYearly = true;
        profile.numberingYear = 2025;
        profile.nextInvoiceNumber = 9;
    });
    EXPECT_EQ(business.nextInvoice(), QStringLiteral("INV-2026-001"));
    business.nextNumber()->setText(QStringLiteral("42"));
    EXPECT_EQ(business.nextInvoice(), QStringLiteral("INV-2026-042"));
    EXPECT_EQ(profile().numberingYear, 2026);
}

TEST_F(BusinessSettingsTest, theNextInvoiceChangesNothing) {
    setProfile([](auto& profile) {
        profile.resetNumberingYearly = true;
        profile.numberingYear = 2025;
        profile.nextInvoiceNumber = 9;
    });
    const auto before = profile();
    (void)business.nextInvoice();
    EXPECT_EQ(profile(), before);
}

TEST_F(BusinessSettingsTest, whatIsNoNumberStaysAsItWasTypedAndSaysSo) {
    setProfile([](auto& profile) { profile.nextInvoiceNumber = 9; });
    for (const auto* text : {"", "abc", "-3", "1.5", "99999999999999999999"}) {
        business.nextNumber()->setText(QString::fromUtf8(text));
        business.finishNumber();
        EXPECT_EQ(business.nextNumber()->text(), QString::fromUtf8(text));
        EXPECT_EQ(business.numberProblem(), QStringLiteral("Enter a whole number, 1 or more."));
        EXPECT_EQ(profile().nextInvoiceNumber, 9);
    }
    business.nextNumber()->setText(QStringLiteral("10"));
    EXPECT_EQ(business.numberProblem(), QString());
}

TEST_F(BusinessSettingsTest, restartsYearlyWhereItIsAskedTo) {
    business.setRestartsYearly(true);
    EXPECT_TRUE(storedProfile().resetNumberingYearly);
}

TEST_F(BusinessSettingsTest, followsWhatOthersChange) {
    setProfile([](auto& profile) {
        profile.name = "Globex";
        profile.nextInvoiceNumber = 12;
    });
    EXPECT_EQ(business.name()->text(), QStringLiteral("Globex"));
    EXPECT_EQ(business.nextNumber()->text(), QStringLiteral("12"));
    EXPECT_EQ(business.nextInvoice(), QStringLiteral("INV-2026-012"));
}

TEST_F(BusinessSettingsTest, aTextThatCannotBeKeptStaysTypedAndTheProfileAsItWas) {
    business.name()->setText(QStringLiteral("Acme"));
    {
        const test::FileSizeLimit full(0);
        business.name()->setText(QStringLiteral("Acme Co"));
        EXPECT_EQ(
            keeper.problem(),
            QStringLiteral("The settings file can't be written, so the change was not kept."));
        business.setRestartsYearly(true);
        EXPECT_FALSE(business.restartsYearly());
    }
    EXPECT_EQ(business.name()->text(), QStringLiteral("Acme Co"));
    EXPECT_EQ(profile().name, "Acme");
    business.name()->setText(QStringLiteral("Acme Corp"));
    EXPECT_EQ(keeper.problem(), QString());
    EXPECT_EQ(storedProfile().name, "Acme Corp");
}

TEST_F(BusinessSettingsTest, takesALogoOfEachKindThatCanBeRead) {
    for (const char* kind : {"png", "jpeg"}) {
        choose(business, picture(QStringLiteral("logo.") + QLatin1String(kind), kind));
        EXPECT_EQ(business.logoError(), QString()) << kind;
        ASSERT_TRUE(business.hasLogo());
        EXPECT_EQ(business.logo()->size(), QSize(200, 100));
    }
    business.removeLogo();
    EXPECT_FALSE(business.hasLogo());
    EXPECT_EQ(loadLogo(), nullptr);
}

TEST_F(BusinessSettingsTest, aPictureThatCannotBeReadLeavesTheLogoAsItWas) {
    choose(business, picture(QStringLiteral("logo.png"), "png"));
    const auto logo = business.logo();
    const auto text = QUrl::fromLocalFile(
        QString::fromStdString((timer.library.folder.path() / "text.png").string()));
    std::ofstream(text.toLocalFile().toStdString()) << "no picture";
    for (const auto& file : {text, QUrl(QStringLiteral("file:///nowhere/logo.png")),
                             picture(QStringLiteral("bitmap.png"), "bmp")}) {
        choose(business, file);
        EXPECT_EQ(business.logoError(), QStringLiteral("That image couldn't be read."));
        EXPECT_EQ(business.logo(), logo);
    }
    business.removeLogo();
    EXPECT_EQ(business.logoError(), QStringLiteral("That image couldn't be read."));
    choose(business, picture(QStringLiteral("other.png"), "png"));
    EXPECT_EQ(business.logoError(), QString());
}

TEST_F(BusinessSettingsTest, theWindowGoesOnWhileAPictureIsRead) {
    choose(business, picture(QStringLiteral("logo.png"), "png"));
    const auto logo = business.logo();
    business.chooseLogo(picture(QStringLiteral("large.png"), "png", {2000, 1000}));
    ASSERT_TRUE(business.isReadingLogo());
    EXPECT_EQ(business.logo(), logo);
    business.removeLogo();
    business.chooseLogo(picture(QStringLiteral("third.png"), "png", {30, 30}));
    EXPECT_EQ(business.logo(), logo);
    while (business.isReadingLogo()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    EXPECT_EQ(business.logo()->size(), QSize(600, 300));
}

TEST_F(BusinessSettingsTest, aPictureThatIsReadWhenTheProgramEndsIsWaitedFor) {
    BusinessSettings ending{settingsServices(), keeper};
    ending.chooseLogo(picture(QStringLiteral("large.png"), "png", {2000, 1000}));
    EXPECT_TRUE(ending.isReadingLogo());
}

TEST_F(BusinessSettingsTest, aPipeInAPicturesPlaceKeepsNobodyWaiting) {
    const auto pipe = timer.library.folder.path() / "pipe.png";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    choose(business, QUrl::fromLocalFile(QString::fromStdString(pipe.string())));
    EXPECT_EQ(business.logoError(), QStringLiteral("That image couldn't be read."));
}

TEST_F(BusinessSettingsTest, aPictureOf200MegapixelsBecomesASmallLogo) {
    choose(business, picture(QStringLiteral("large.jpg"), "jpeg", {20000, 10000}));
    EXPECT_EQ(business.logoError(), QString());
    EXPECT_EQ(business.logo()->size(), QSize(600, 300));
}

TEST_F(BusinessSettingsTest, theDemoNeitherShowsNorTakesALogo) {
    choose(business, picture(QStringLiteral("logo.png"), "png"));
    auto services = settingsServices();
    services.isDemo = true;
    BusinessSettings demo(services, keeper);
    demo.reload();
    EXPECT_FALSE(demo.hasLogo());
    demo.removeLogo();
    choose(demo, picture(QStringLiteral("other.png"), "png"));
    EXPECT_EQ(demo.logoError(), QStringLiteral("The demo has no logo of its own."));
    EXPECT_EQ(loadLogo(), business.logo());
}

}  // namespace
}  // namespace elmworth
