// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/Appcast.h"

#include <QXmlStreamReader>
#include <algorithm>
#include <optional>

#include "platform/ISO8601.h"

namespace elmworth {

namespace {

constexpr std::string_view signatureStart = "<!-- ed25519 ";
constexpr std::string_view signatureEnd = " -->";

const QString sparkle = QStringLiteral("http://www.andymatuschak.org/xml-namespaces/sparkle");
const QString elmworth = QStringLiteral("https://elmworth.example/appcast");

[[noreturn]] void fail(const char* sentence) {
    throw UpdateError(sentence);
}

/// What stands before the line with the signature, once that is found to be right.
std::string_view signedPart(std::string_view document, const UpdateKeys& keys) {
    if (document.size() > largestAppcast) fail("The list of updates is too large to be one.");
    const auto at = document.rfind(signatureStart);
    if (at == std::string_view::npos || (at > 0 && document[at - 1] != '\n')) {
        fail("The list of updates isn't signed, so nothing of it was used.");
    }
    auto line = document.substr(at + signatureStart.size());
    if (line.ends_with('\n')) line.remove_suffix(1);
    const auto signature = line.ends_with(signatureEnd)
                               ? parseSignature(line.substr(0, line.size() - signatureEnd.size()))
                               : std::nullopt;
    const auto content = document.substr(0, at);
    if (!signature || !keys.verify(content, *signature)) {
        fail("The list of updates isn't signed by Elmworth's makers, so nothing of it was used.");
    }
    return content;
}

/// An https address, or empty for any other.
std::string secureAddress(const QString& text) {
    const auto trimmed = text.trimmed();
    return trimmed.startsWith(QStringLiteral("https://")) ? trimmed.toStdString() : std::string();
}

class AppcastReader {
 public:
    explicit AppcastReader(std::string_view content)
        : xml_(QByteArray(content.data(), static_cast<qsizetype>(content.size()))) {}

    Appcast read() {
        while (!xml_.atEnd()) step();
        if (xml_.hasError()) fail("The list of updates can't be read.");
        if (!expires_) fail("The list of updates doesn't say until when it holds.");
        return {*expires_, std::move(releases_)};
    }

 private:
    void step() {
        switch (xml_.readNext()) {
            case QXmlStreamReader::DTD:
            case QXmlStreamReader::EntityReference:
                fail("The list of updates can't be read.");
            case QXmlStreamReader::StartElement:
                readElement();
                break;
            case QXmlStreamReader::EndElement:
                if (xml_.name() == QStringLiteral("item")) endItem();
                break;
            default:
                break;
        }
    }

    void readElement() {
        if (is({}, "item")) {
            item_ = Item();
        } else if (is(elmworth, "expires")) {
            expires_ = parseISO8601(xml_.readElementText().trimmed().toStdString());
        } else if (item_) {
            readItemElement();
        }
    }

    void readItemElement() {
        if (is(sparkle, "shortVersionString") || (is(sparkle, "version") && !item_->version)) {
            item_->version = ReleaseVersion::parse(xml_.readElementText().trimmed().toStdString());
        } else if (is({}, "description")) {
            item_->release.notes = xml_.readElementText().trimmed().toStdString();
        } else if (is({}, "link")) {
            item_->release.page = secureAddress(xml_.readElementText());
        } else if (is({}, "enclosure")) {
            readEnclosure();
        }
    }

    void readEnclosure() {
        const auto attributes = xml_.attributes();
        const auto signature = parseSignature(
            attributes.value(sparkle, QStringLiteral("edSignature")).toString().toStdString());
        auto& release = item_->release;
        release.archive = secureAddress(attributes.value(QStringLiteral("url")).toString());
        release.archiveBytes = attributes.value(QStringLiteral("length")).toLongLong();
        const bool canBeFetched =
            signature && release.archiveBytes > 0 && release.archiveBytes <= largestArchive;
        if (!canBeFetched) release.archive.clear();
        if (signature) release.archiveSignature = *signature;
    }

    void endItem() {
        if (!item_ || !item_->version) fail("The list of updates names a release without version.");
        item_->release.version = *item_->version;
        releases_.push_back(std::move(item_->release));
        item_.reset();
    }

    [[nodiscard]] bool is(const QString& space, const char* name) const {
        return xml_.namespaceUri() == space && xml_.name() == QLatin1String(name);
    }

    struct Item {
        std::optional<ReleaseVersion> version;
        Release release;
    };

    QXmlStreamReader xml_;
    std::optional<Instant> expires_;
    std::vector<Release> releases_;
    std::optional<Item> item_;
};

}  // namespace

const Release* Appcast::newest() const {
    const auto found =
        std::max_element(releases.begin(), releases.end(),
                         [](const auto& a, const auto& b) { return a.version < b.version; });
    return found == releases.end() ? nullptr : &*found;
}

Appcast readAppcast(std::string_view document, const UpdateKeys& keys) {
    return AppcastReader(signedPart(document, keys)).read();
}

}  // namespace elmworth
