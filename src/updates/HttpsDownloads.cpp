// SPDX-FileCopyrightText: 2026 The Elmworth authors
// SPDX-License-Identifier: GPL-3.0-or-later

#include "updates/HttpsDownloads.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>
#include <utility>

namespace elmworth {

namespace {

constexpr int mostRedirects = 5;
constexpr int silenceMilliseconds = 30'000;
constexpr qint64 bufferedBytes = 1 << 16;
constexpr int statusOK = 200;

QNetworkRequest requestFor(const QUrl& address) {
    QNetworkRequest request(address);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setTransferTimeout(silenceMilliseconds);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    // Qt unpacks what it asked to be packed, which can grow without limit.
    request.setRawHeader("Accept-Encoding", "identity");
    // Qt would tell the languages of the desktop.
    request.setRawHeader("Accept-Language", "*");
    request.setRawHeader("User-Agent", "Elmworth/" ELMWORTH_VERSION);
    return request;
}

/// One download; it lives as long as its handle.
class Download {
 public:
    Download(QNetworkAccessManager& network, const Downloads::Wanted& wanted, Downloads::Sink sink,
             Downloads::Ended ended)
        : bytesLeft_(wanted.mostBytes), sink_(std::move(sink)), ended_(std::move(ended)) {
        deadline_.setSingleShot(true);
        deadline_.callOnTimeout(
            [this] { end("The update server takes too long. Try again later."); });
        const QUrl address(QString::fromStdString(wanted.address));
        if (address.scheme() != QStringLiteral("https")) {
            refusal_.callOnTimeout([this] { end("Updates come over https alone."); });
            refusal_.setSingleShot(true);
            refusal_.start(0);
            return;
        }
        reply_.reset(network.get(requestFor(address)));
        reply_->setReadBufferSize(bufferedBytes);
        QObject::connect(reply_.get(), &QNetworkReply::readyRead, [this] { read(); });
        QObject::connect(reply_.get(), &QNetworkReply::finished, [this] { finish(); });
        deadline_.start(wanted.within);
    }

 private:
    struct DeleteLater {
        void operator()(QNetworkReply* reply) const {
            reply->disconnect();
            reply->abort();
            reply->deleteLater();
        }
    };

    [[nodiscard]] bool isFound() const {
        return reply_->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() == statusOK;
    }

    /// Takes what has come; false when the download has ended with it.
    bool read() {
        if (!isFound()) return true;
        const auto bytes = reply_->readAll();
        bytesLeft_ -= bytes.size();
        if (bytesLeft_ < 0) {
            end("The update server sends more than it may.");
            return false;
        }
        if (sink_({bytes.constData(), static_cast<std::size_t>(bytes.size())})) return true;
        end("The update can't be stored. Make room on the disk and try again.");
        return false;
    }

    void finish() {
        if (reply_->error() == QNetworkReply::NoError && !isFound()) {
            end("The update server has no list of updates there.");
        } else if (reply_->error() != QNetworkReply::NoError) {
            end("The update server can't be reached: " + reply_->errorString().toStdString() + ".");
        } else if (read()) {
            end({});
        }
    }

    /// May end this object, with its handle.
    void end(const std::string& failure) {
        deadline_.stop();
        reply_.reset();
        const auto ended = std::exchange(ended_, nullptr);
        if (ended) ended(failure);
    }

    std::int64_t bytesLeft_;
    Downloads::Sink sink_;
    Downloads::Ended ended_;
    std::unique_ptr<QNetworkReply, DeleteLater> reply_;
    QTimer deadline_;
    QTimer refusal_;
};

}  // namespace

Downloads::Handle HttpsDownloads::fetch(const Wanted& wanted, Sink sink, Ended ended) {
    if (!network_) network_.emplace();
    return std::make_shared<Download>(*network_, wanted, std::move(sink), std::move(ended));
}

}  // namespace elmworth
