#pragma once

#include <QList>
#include <QObject>
#include <QSslCertificate>
#include <chrono>
#include <cstddef>
#include <memory>

#include "holidays/HttpClient.h"

class QNetworkAccessManager;

namespace noonward {

/// HTTPS and nothing else: certificates are checked, redirects lead to HTTPS only, and neither
/// cookies nor anything else is kept. A document that is too long, too late or too slow is none.
class HttpsClient final : public HttpClient {
 public:
    struct Options {
        std::chrono::milliseconds stall{10'000};  ///< longest time without a byte
        std::chrono::milliseconds total{60'000};  ///< longest time for the whole document
        std::size_t body = 8U << 20U;             ///< most bytes, unpacked
        /// Issuers to trust beside the system's.
        QList<QSslCertificate> issuers;
    };

    HttpsClient();
    explicit HttpsClient(Options options);
    ~HttpsClient() override;

    /// What is under way when this object goes is given up without a call.
    void get(const std::string& url,
             std::function<void(std::optional<HttpResponse>)> done) override;

 private:
    void start(const std::string& url,
               const std::function<void(std::optional<HttpResponse>)>& done);
    void finished();

    Options options_;
    QObject context_;
    // With a thread and TLS state of its own: there only while something is under way.
    std::unique_ptr<QNetworkAccessManager> manager_;
    int underWay_ = 0;
};

}  // namespace noonward
