// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "platform/linux/SettingsText.h"

#include <gtest/gtest.h>

#include <QSettings>
#include <random>

#include "platform/AtomicFile.h"
#include "platform/Text.h"
#include "support/Rows.h"
#include "support/TemporaryFolder.h"

namespace elmworth {
namespace {

QString text(const std::string& utf8) {
    return QString::fromStdString(utf8);
}

/// Texts and bytes of the characters that a format trips over.
class RandomValues {
 public:
    explicit RandomValues(unsigned seed) : random_(seed) {}

    SettingsValues take() {
        SettingsValues values;
        for (int i = 0; i < 20; ++i) {
            const std::string key = (pick(3) == 0 ? "section/key" : "key") + std::to_string(i);
            if (pick(2) == 0) {
                values[key] = randomText();
            } else {
                values[key] = SettingsBytes{randomBytes()};
            }
        }
        return values;
    }

 private:
    int pick(int count) { return std::uniform_int_distribution<int>(0, count - 1)(random_); }

    std::string randomText() {
        static const std::vector<std::string> pieces{"a",    "0",    "F",  " ",  "\"",
                                                     "\\",   "\n",   "\r", "\t", "\x01",
                                                     "\x7f", ",",    ";",  "=",  "@",
                                                     "[",    "]",    "%",  "(",  ")",
                                                     "#",    "ü",    "日", "👍",  "\xe2\x80\xa8",
                                                     "\v",   "\x1f", "x",  "n"};
        std::string all;
        for (int length = pick(12); length > 0; --length)
            all += pieces[static_cast<std::size_t>(pick(static_cast<int>(pieces.size())))];
        return all;
    }
    std::string randomBytes() {
        std::string all;
        for (int length = pick(40); length > 0; --length) all += static_cast<char>(pick(256));
        return all;
    }

    std::mt19937 random_;
};

class SettingsTextBesideQSettings : public testing::Test {
 protected:
    void writeByQt(const SettingsValues& values) const {
        QSettings settings(path(), QSettings::IniFormat);
        for (const auto& [key, value] : values) {
            if (const auto* const blob = std::get_if<SettingsBytes>(&value)) {
                settings.setValue(text(key), QByteArray::fromStdString(blob->bytes));
            } else {
                settings.setValue(text(key), text(std::get<std::string>(value)));
            }
        }
    }
    [[nodiscard]] SettingsValues readByQt() const {
        const QSettings settings(path(), QSettings::IniFormat);
        EXPECT_EQ(settings.status(), QSettings::NoError);
        SettingsValues values;
        for (const QString& key : settings.allKeys()) {
            const QVariant value = settings.value(key);
            if (value.typeId() == QMetaType::QByteArray) {
                values[key.toStdString()] = SettingsBytes{value.toByteArray().toStdString()};
            } else {
                values[key.toStdString()] = value.toString().toStdString();
            }
        }
        return values;
    }
    [[nodiscard]] QString path() const { return text(file_.string()); }

    test::TemporaryFolder folder_;
    std::filesystem::path file_ = folder_.path() / "Elmworth.ini";
};

TEST_F(SettingsTextBesideQSettings, whatQSettingsWroteIsReadAlike) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        const auto values = RandomValues(seed).take();
        std::filesystem::remove(file_);
        writeByQt(values);
        const auto read = parseSettings(readFile(file_));
        EXPECT_TRUE(read.isSound);
        ASSERT_EQ(read.values, values) << readFile(file_);
    }
}

TEST_F(SettingsTextBesideQSettings, whatIsWrittenQSettingsReadsAlike) {
    for (unsigned seed = 1; seed <= 200; ++seed) {
        SCOPED_TRACE(seed);
        const auto values = RandomValues(seed).take();
        const auto written = formatSettings(values);
        EXPECT_EQ(parseSettings(written).values, values) << written;
        // QSettings takes a file of the same path, length and time for one that it has read.
        file_ = folder_.path() / (std::to_string(seed) + ".ini");
        writeAtomically(file_, written);
        ASSERT_EQ(readByQt(), values) << written;
    }
}

struct Spelling {
    const char* name;
    const char* file;
    const char* value;  ///< of "key"; null when that is no text
    bool isSound = true;
};

class SettingsSpelling : public testing::TestWithParam<Spelling> {};

TEST_P(SettingsSpelling, isReadAsAPersonMeansIt) {
    const auto& row = GetParam();
    const auto [values, isSound] = parseSettings(row.file);
    EXPECT_EQ(isSound, row.isSound);
    const auto found = values.find("key");
    const auto* const read =
        found == values.end() ? nullptr : std::get_if<std::string>(&found->second);
    ASSERT_EQ(read != nullptr, row.value != nullptr);
    if (read) EXPECT_EQ(*read, row.value);
    EXPECT_EQ(parseSettings(formatSettings(values)).values, values);
}

INSTANTIATE_TEST_SUITE_P(
    Row, SettingsSpelling,
    testing::Values(Spelling{"plain", "[General]\nkey=dark\n", "dark"},
                    Spelling{"withoutASection", "key=dark", "dark"},
                    Spelling{"blanksRoundTheSign", "[General]\n key = dark \n", "dark"},
                    Spelling{"linesOfWindows", "[General]\r\nkey=dark\r\n", "dark"},
                    Spelling{"aByteOrderMark", "\xef\xbb\xbf[General]\nkey=dark\n", "dark"},
                    Spelling{"aComment", "; key=light\n[General]\nkey=dark\n", "dark"},
                    Spelling{"theLastOneCounts", "[General]\nkey=light\nkey=dark\n", "dark"},
                    Spelling{"blanksInQuotes", "[General]\nkey=\" a \"\n", " a "},
                    Spelling{"aBreakInQuotes", "[General]\nkey=\"a\nb\"\n", "a\nb"},
                    Spelling{"anEqualsSign", "[General]\nkey=a=b\n", "a=b"},
                    Spelling{"nothing", "[General]\nkey=\n", ""},
                    Spelling{"aLineThatGoesOn", "[General]\nkey=a\\\nb\n", "ab"},
                    Spelling{"twoCodeUnits", "[General]\nkey=\\xd83d\\xdc4d\n", "👍"},
                    Spelling{"anOctalNumber", "[General]\nkey=\\101\n", "A"},
                    Spelling{"aList", "[General]\nkey=a, b\n", nullptr},
                    Spelling{"aSize", "[General]\nkey=@Size(3 4)\n", nullptr},
                    Spelling{"noValueAtAll", "[General]\nkey=@Invalid()\n", nullptr},
                    Spelling{"anotherSection", "[Other]\nkey=dark\n", nullptr},
                    Spelling{"noSign", "[General]\nkey\n", nullptr, false},
                    Spelling{"aControlInTheKey", "[General]\nk\x01ey=dark\n", nullptr, false},
                    Spelling{"noKey", "[General]\n=dark\n", nullptr, false},
                    Spelling{"anOpenQuote", "[General]\nkey=\"dark\n", nullptr, false},
                    Spelling{"anOpenSection", "[General\nkey=dark\n", "dark", false},
                    Spelling{"aBackslashAtTheEnd", "[General]\nkey=dark\\", "dark"}),
    test::rowName);

TEST(SettingsText, whatIsKeptOfAnotherEncodingIsWrittenAsUTF8) {
    const auto [values, isSound] = parseSettings("[General]\nn\xFCme=Z\xFCrich, Bern\nkey=dark\n");
    EXPECT_FALSE(isSound);
    const auto written = formatSettings(values);
    EXPECT_EQ(validUTF8(written), written);
    EXPECT_TRUE(parseSettings(written).isSound);
}

}  // namespace
}  // namespace elmworth
