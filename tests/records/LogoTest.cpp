// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "records/Logo.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <QColorSpace>
#include <QImage>
#include <QImageReader>
#include <QImageWriter>
#include <vector>

#include "platform/AtomicFile.h"
#include "support/Rows.h"
#include "support/ScopedEnvironment.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

using test::rowName;

void storeLogo(const std::filesystem::path& file) {
    storeLogoFile(makeLogoFile(file));
}

class LogoTest : public testing::Test {
 protected:
    ~LogoTest() override { removeLogo(); }

    [[nodiscard]] std::filesystem::path picture(const QImage& image, const char* name) const {
        const auto file = folder_.path() / name;
        EXPECT_TRUE(image.save(QString::fromStdString(file.string())));
        return file;
    }

    [[nodiscard]] std::filesystem::path picture(int width, int height, QColor color,
                                                const char* name = "picture.png") const {
        QImage image(width, height, QImage::Format_ARGB32);
        image.fill(color);
        return picture(image, name);
    }

    [[nodiscard]] static QImage stored() {
        return QImage(QString::fromStdString(logoFileURL().string()));
    }

    test::TemporaryFolder folder_;
    test::ScopedEnvironment data_{"XDG_DATA_HOME", folder_.path().string()};
};

struct SizeRow {
    const char* name;
    int width;
    int height;
    int storedWidth;
    int storedHeight;
};

void PrintTo(const SizeRow& row, std::ostream* out) {
    *out << row.name;
}

class LogoSize : public LogoTest, public testing::WithParamInterface<SizeRow> {};

TEST_P(LogoSize, isAtMost600PixelsASideAndNeverEnlarged) {
    const auto& row = GetParam();
    storeLogo(picture(row.width, row.height, Qt::red));
    EXPECT_EQ(stored().size(), QSize(row.storedWidth, row.storedHeight));
}

TEST_P(LogoSize, isTheSameForAPictureThatDecodesDifferently) {
    const auto& row = GetParam();
    storeLogo(picture(row.width, row.height, Qt::red, "picture.jpg"));
    EXPECT_EQ(stored().size(), QSize(row.storedWidth, row.storedHeight));
}

INSTANTIATE_TEST_SUITE_P(Row, LogoSize,
                         testing::ValuesIn(std::vector<SizeRow>{
                             {"Wide", 1200, 300, 600, 150},
                             {"Tall", 300, 1200, 150, 600},
                             {"Small", 200, 100, 200, 100},
                             {"JustFits", 600, 600, 600, 600},
                             {"OnePixelTooWide", 601, 100, 600, 100},
                             {"RoundedToNearest", 1000, 333, 600, 200},
                             {"ALineKeepsOnePixel", 10000, 1, 600, 1},
                             {"AColumnKeepsOnePixel", 1, 10000, 1, 600},
                             {"OnePixel", 1, 1, 1, 1},
                         }),
                         rowName);

TEST_F(LogoTest, thereIsNoneAtFirst) {
    EXPECT_EQ(loadLogo(), nullptr);
}

TEST_F(LogoTest, liesInTheApplicationSupportFolder) {
    EXPECT_EQ(logoFileURL(), folder_.path() / "Elmworth" / "logo.png");
    EXPECT_TRUE(std::filesystem::is_directory(folder_.path() / "Elmworth"));
}

TEST_F(LogoTest, isAlwaysStoredAsPNG) {
    storeLogo(picture(20, 20, Qt::red, "picture.jpg"));
    EXPECT_EQ(readFile(logoFileURL()).substr(1, 3), "PNG");
}

TEST_F(LogoTest, keepsColourAndTransparency) {
    storeLogo(picture(1200, 1200, QColor(200, 100, 50, 128)));
    const QColor color = stored().pixelColor(300, 300);
    EXPECT_NEAR(color.red(), 200, 2);
    EXPECT_NEAR(color.green(), 100, 2);
    EXPECT_NEAR(color.blue(), 50, 2);
    EXPECT_EQ(color.alpha(), 128);
}

TEST_F(LogoTest, isScaledSmoothly) {
    QImage stripes(1200, 1200, QImage::Format_RGB32);
    for (int y = 0; y < stripes.height(); ++y)
        for (int x = 0; x < stripes.width(); ++x)
            stripes.setPixel(x, y, x % 2 == 0 ? qRgb(255, 255, 255) : qRgb(0, 0, 0));
    storeLogo(picture(stripes, "stripes.png"));
    EXPECT_NEAR(qGray(stored().pixel(300, 300)), 128, 8);
}

TEST_F(LogoTest, isConvertedToSRGB) {
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(QColor(200, 100, 50));
    image.setColorSpace(QColorSpace(QColorSpace::AdobeRgb));
    storeLogo(picture(image, "adobe.png"));
    const QColor color = stored().pixelColor(10, 10);
    EXPECT_GT(color.red(), 215);  // the same colour lies further out in the smaller space
    EXPECT_EQ(stored().colorSpace(), QColorSpace(QColorSpace::SRgb));
}

TEST_F(LogoTest, isFoundByContentWhateverTheNameSays) {
    const auto file = folder_.path() / "picture.txt";
    writeAtomically(file, readFile(picture(20, 20, Qt::red)));
    storeLogo(file);
    EXPECT_EQ(stored().size(), QSize(20, 20));
}

/// What storing a picture adds to the memory that was ever in use.
long megabytesToStore(const std::filesystem::path& file) {
    rusage before{};
    rusage after{};
    ::getrusage(RUSAGE_SELF, &before);
    storeLogo(file);
    ::getrusage(RUSAGE_SELF, &after);
    return (after.ru_maxrss - before.ru_maxrss) / 1024;
}

long megabytesToStore(const std::filesystem::path& file, int width, int height) {
    QImage huge(width, height, QImage::Format_Grayscale8);
    huge.fill(Qt::white);
    EXPECT_TRUE(huge.save(QString::fromStdString(file.string())));
    huge = QImage();
    return megabytesToStore(file);
}

TEST_F(LogoTest, aPhotoOf200MegapixelsIsDecodedSmall) {
    EXPECT_LT(megabytesToStore(folder_.path() / "huge.jpg", 16000, 12500), 100);
    EXPECT_EQ(stored().size(), QSize(600, 469));
}

TEST_F(LogoTest, aHugePictureThatOnlyDecodesWholeTakesLessThanAGigabyte) {
    EXPECT_LT(megabytesToStore(folder_.path() / "huge.png", 16000, 10000), 1024);
    EXPECT_EQ(stored().size(), QSize(600, 375));
}

TEST_F(LogoTest, readingLeavesTheProgramsLimitForPicturesAsItWas) {
    const int limit = QImageReader::allocationLimit();
    storeLogo(picture(20, 20, Qt::red));
    EXPECT_EQ(QImageReader::allocationLimit(), limit);
}

TEST_F(LogoTest, aNewFileIsLoadedAnew) {
    storeLogo(picture(20, 20, Qt::red));
    const auto first = loadLogo();
    ASSERT_NE(first, nullptr);
    EXPECT_EQ(first->pixelColor(0, 0), QColor(Qt::red));
    storeLogo(picture(20, 20, Qt::blue));
    const auto second = loadLogo();
    ASSERT_NE(second, nullptr);
    EXPECT_EQ(second->pixelColor(0, 0), QColor(Qt::blue));
}

TEST_F(LogoTest, theSameModificationDateNeedsNoReading) {
    storeLogo(picture(20, 20, Qt::red));
    const auto first = loadLogo();
    const auto date = std::filesystem::last_write_time(logoFileURL());
    writeAtomically(logoFileURL(), readFile(picture(20, 20, Qt::blue)));
    std::filesystem::last_write_time(logoFileURL(), date);
    EXPECT_EQ(loadLogo(), first);
    std::filesystem::last_write_time(logoFileURL(), date + std::chrono::seconds(1));
    ASSERT_NE(loadLogo(), nullptr);
    EXPECT_EQ(loadLogo()->pixelColor(0, 0), QColor(Qt::blue));
}

TEST_F(LogoTest, anUnreadableLogoIsNoneAndComesBackWithItsOldDate) {
    storeLogo(picture(20, 20, Qt::red));
    const auto first = loadLogo();
    const auto date = std::filesystem::last_write_time(logoFileURL());
    writeAtomically(logoFileURL(), "no picture");
    std::filesystem::last_write_time(logoFileURL(), date + std::chrono::seconds(1));
    EXPECT_EQ(loadLogo(), nullptr);
    std::filesystem::last_write_time(logoFileURL(), date);
    EXPECT_EQ(loadLogo(), first);
}

TEST_F(LogoTest, aRemovedFileEmptiesTheCache) {
    storeLogo(picture(20, 20, Qt::red));
    const auto first = loadLogo();
    const auto date = std::filesystem::last_write_time(logoFileURL());
    const std::string png = readFile(logoFileURL());
    std::filesystem::remove(logoFileURL());
    EXPECT_EQ(loadLogo(), nullptr);
    writeAtomically(logoFileURL(), png);
    std::filesystem::last_write_time(logoFileURL(), date);
    EXPECT_NE(loadLogo(), nullptr);
    EXPECT_NE(loadLogo(), first);
}

TEST_F(LogoTest, removingDeletesTheFileAndMayBeRepeated) {
    storeLogo(picture(20, 20, Qt::red));
    removeLogo();
    EXPECT_FALSE(std::filesystem::exists(logoFileURL()));
    EXPECT_EQ(loadLogo(), nullptr);
    EXPECT_NO_THROW(removeLogo());
}

void expectError(const std::filesystem::path& file, LogoError::Code code, const char* message) {
    try {
        storeLogo(file);
        FAIL() << "nothing was thrown";
    } catch (const LogoError& error) {
        EXPECT_EQ(error.code(), code);
        EXPECT_STREQ(error.what(), message);
    }
}

constexpr const char* noPicture = "The file is not a picture that can be read.";

TEST_F(LogoTest, aPictureOfAnotherKindIsRefusedThoughAReaderOfItIsThere) {
    const auto file = folder_.path() / "picture.png";
    for (const char* kind : {"BMP", "PPM", "XPM"}) {
        QImage image(20, 20, QImage::Format_RGB32);
        image.fill(Qt::red);
        ASSERT_TRUE(image.save(QString::fromStdString(file.string()), kind));
        EXPECT_FALSE(QImage(QString::fromStdString(file.string())).isNull()) << kind;
        expectError(file, LogoError::Code::fileReadCorruptFile, noPicture);
        writeAtomically(logoFileURL(), readFile(file));
        EXPECT_EQ(loadLogo(), nullptr) << kind;
    }
}

TEST_F(LogoTest, whatAPNGHoldsBesidesItsPixelsTakesNoMemory) {
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    image.setText(QStringLiteral("Comment"), QString(7'900'000, u'A'));
    const std::string one = readFile(picture(image, "text.png"));
    const auto begin = one.find("zTXt") - 4;
    const std::string text = one.substr(begin, one.find("IDAT") - 4 - begin);
    std::string file = one.substr(0, begin);
    for (int i = 0; i < 100; ++i) file += text;
    file += one.substr(begin);
    writeAtomically(folder_.path() / "texts.png", file);
    EXPECT_LT(megabytesToStore(folder_.path() / "texts.png"), 100);
    EXPECT_EQ(stored().size(), QSize(20, 20));
    EXPECT_TRUE(stored().text().isEmpty());
}

TEST_F(LogoTest, aJPEGOfMorePassesOverItsPixelsThanAnyoneWritesIsRefused) {
    const auto file = folder_.path() / "passes.jpg";
    QImage image(20, 20, QImage::Format_RGB32);
    image.fill(Qt::red);
    QImageWriter writer(QString::fromStdString(file.string()), "jpeg");
    writer.setProgressiveScanWrite(true);
    ASSERT_TRUE(writer.write(image));
    std::string jpeg = readFile(file);
    const auto last = jpeg.rfind("\xFF\xDA");
    const std::string pass = jpeg.substr(last, jpeg.size() - 2 - last);
    const auto passes = [&] { return QByteArray::fromStdString(jpeg).count("\xFF\xDA"); };
    ASSERT_GT(passes(), 1);
    while (passes() < 100) jpeg.insert(last, pass);
    writeAtomically(file, jpeg);
    EXPECT_NO_THROW(storeLogo(file));
    writeAtomically(file, jpeg.insert(last, pass));
    expectError(file, LogoError::Code::fileReadCorruptFile, noPicture);
}

TEST_F(LogoTest, aPictureOfMorePixelsThan200MillionIsRefusedBeforeItIsDecoded) {
    std::string jpeg = readFile(picture(20, 20, Qt::red, "picture.jpg"));
    const auto height = jpeg.find("\xFF\xC0") + 5;
    const auto file = folder_.path() / "large.jpg";
    jpeg.replace(height, 4, std::string("\x27\x10\x4E\x20", 4));  // 10,000 and 20,000
    writeAtomically(file, jpeg);
    EXPECT_NO_THROW(storeLogo(file));
    jpeg[height + 3] = '\x21';
    writeAtomically(file, jpeg);
    expectError(file, LogoError::Code::fileReadCorruptFile, noPicture);
}

TEST_F(LogoTest, aFileOfMoreThan100MegabytesIsRefused) {
    const auto file = picture(20, 20, Qt::red);
    std::filesystem::resize_file(file, 100'000'000);
    EXPECT_NO_THROW(storeLogo(file));
    std::filesystem::resize_file(file, 100'000'001);
    expectError(file, LogoError::Code::fileReadCorruptFile, noPicture);
}

TEST_F(LogoTest, aFileThatIsNoPictureIsRefusedAndTheOldLogoStays) {
    storeLogo(picture(20, 20, Qt::red));
    const auto text = folder_.path() / "text.png";
    writeAtomically(text, "no picture");
    for (const auto& file : {text, folder_.path() / "missing.png", folder_.path()})
        expectError(file, LogoError::Code::fileReadCorruptFile, noPicture);
    EXPECT_EQ(stored().pixelColor(0, 0), QColor(Qt::red));
}

TEST_F(LogoTest, aPipeInAPicturesPlaceIsNoPictureAndKeepsNobodyWaiting) {
    ASSERT_EQ(::mkfifo(logoFileURL().c_str(), 0600), 0);
    EXPECT_FALSE(loadLogo());
    const auto pipe = folder_.path() / "pipe.png";
    ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
    expectError(pipe, LogoError::Code::fileReadCorruptFile, noPicture);
}

TEST_F(LogoTest, aFolderThatCannotBeMadeIsAFailureToWrite) {
    const auto file = picture(20, 20, Qt::red);
    writeAtomically(folder_.path() / "Elmworth", "a file in the way");
    expectError(file, LogoError::Code::fileWriteUnknown, "The logo could not be saved.");
    EXPECT_EQ(loadLogo(), nullptr);
    EXPECT_NO_THROW(removeLogo());
}

}  // namespace
}  // namespace elmworth
