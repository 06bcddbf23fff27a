#include "platform/HttpsClient.h"

#include <QMetaObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QSslConfiguration>
#include <QTimer>
#include <QUrl>
#include <utility>

namespace noonward {
namespace {

using Done = std::function<void(std::optional<HttpResponse>)>;

constexpr int mostRedirects = 5;
constexpr qint64 bufferSize = 64 << 10;  // what may arrive unread

bool isHttps(const QUrl& url) {
    return url.isValid() && url.scheme() == QLatin1String("https") && !url.host().isEmpty();
}

QNetworkRequest requestFor(const QUrl& url, const HttpsClient::Options& options) {
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirects);
    request.setAttribute(QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CookieSaveControlAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::AuthenticationReuseAttribute, QNetworkRequest::Manual);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    if (!options.issuers.isEmpty()) {
        auto security = QSslConfiguration::defaultConfiguration();
        security.addCaCertificates(options.issuers);
        request.setSslConfiguration(security);
    }
    return request;
}

// The server's answer as a whole, be it a refusal: those count as errors of the content, which come
// after all that concern the way to the server.
std::optional<int> answeredStatus(const QNetworkReply& reply) {
    const QVariant status = reply.attribute(QNetworkRequest::HttpStatusCodeAttribute);
    const bool isRefusal =
        status.toInt() >= 400 && reply.error() > QNetworkReply::UnknownProxyError;
    if (!status.isValid() || (reply.error() != QNetworkReply::NoError && !isRefusal))
        return std::nullopt;
    return status.toInt();
}

/// One document on its way; a child of its reply, which it deletes in the end.
class Fetch final : public QObject {
 public:
    Fetch(QNetworkReply* reply, const HttpsClient::Options& options, Done done)
        : QObject(reply), reply_(*reply), most_(options.body), done_(std::move(done)) {
        reply_.setReadBufferSize(bufferSize);
        for (QTimer* timer : {&stall_, &total_}) {
            timer->setSingleShot(true);
            connect(timer, &QTimer::timeout, this, [this] { giveUp(); });
        }
        stall_.start(options.stall);
        total_.start(options.total);
        connect(&reply_, &QNetworkReply::encrypted, this, [this] { stall_.start(); });
        connect(&reply_, &QNetworkReply::metaDataChanged, this, [this] { stall_.start(); });
        connect(&reply_, &QNetworkReply::redirected, this, [this] { stall_.start(); });
        connect(&reply_, &QNetworkReply::readyRead, this, [this] { read(); });
        connect(&reply_, &QNetworkReply::finished, this, [this] { finish(); });
    }

 private:
    void read() {
        stall_.start();
        const QByteArray part = reply_.readAll();
        if (body_.size() + static_cast<std::size_t>(part.size()) > most_) return giveUp();
        body_.append(part.constData(), static_cast<std::size_t>(part.size()));
    }

    void giveUp() {
        isGivenUp_ = true;
        reply_.abort();  // which finishes it
    }

    void finish() {
        if (!isGivenUp_) read();
        const auto status = isGivenUp_ ? std::nullopt : answeredStatus(reply_);
        reply_.deleteLater();
        const Done done = std::exchange(done_, nullptr);
        if (!done) return;
        done(status ? std::optional(HttpResponse{*status, std::move(body_)}) : std::nullopt);
    }

    QNetworkReply& reply_;
    std::size_t most_;
    Done done_;
    std::string body_;
    bool isGivenUp_ = false;
    QTimer stall_;
    QTimer total_;
};

}  // namespace

HttpsClient::HttpsClient() : HttpsClient(Options()) {}
HttpsClient::HttpsClient(Options options) : options_(std::move(options)) {}
HttpsClient::~HttpsClient() = default;

// In a later turn: the first request loads what TLS needs, which costs a start of the program more
// than all of its own does.
void HttpsClient::get(const std::string& url, Done done) {
    QMetaObject::invokeMethod(
        &context_, [this, url, done = std::move(done)] { start(url, done); }, Qt::QueuedConnection);
}

void HttpsClient::start(const std::string& url, const Done& done) {
    const QUrl address(QString::fromStdString(url), QUrl::StrictMode);
    if (!isHttps(address)) {
        done(std::nullopt);
        return;
    }
    if (!manager_) manager_ = std::make_unique<QNetworkAccessManager>();
    QNetworkReply* reply = manager_->get(requestFor(address, options_));
    ++underWay_;
    new Fetch(reply, options_, done);  // the reply owns it
    // After the call, which may have asked for more.
    QObject::connect(reply, &QNetworkReply::finished, &context_, [this] { finished(); });
}

void HttpsClient::finished() {
    if (--underWay_ == 0) manager_.release()->deleteLater();
}

}  // namespace noonward
