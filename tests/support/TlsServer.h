#pragma once

#include <QFile>
#include <QHostAddress>
#include <QSslCertificate>
#include <QSslKey>
#include <QSslSocket>
#include <QTcpServer>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace noonward::test {

/// An HTTPS server on this computer alone. Its certificate, which it issued itself, is for
/// "localhost"; certificate and key are for tests and open to all.
class TlsServer final : public QTcpServer {
 public:
    using Answer = std::function<void(QSslSocket& to)>;

    TlsServer() : certificate_(read("loopback.pem")), key_(read("loopback.key"), QSsl::Ec) {
        listen(QHostAddress::LocalHost);
    }
    ~TlsServer() override {
        for (QSslSocket* socket : findChildren<QSslSocket*>()) {
            socket->disconnect();
            delete socket;
        }
    }

    /// What is sent for a path; without one for it, nothing ever is.
    std::map<std::string, Answer> answers;
    std::vector<std::string> requests;  ///< heads, up to the empty line
    std::vector<std::string> paths;     ///< of these, as they were sent

    QSslCertificate certificate() const { return certificate_; }
    std::string origin(const std::string& host = "localhost") const {
        return "https://" + host + ":" + std::to_string(serverPort());
    }

    /// A whole answer with a body of known length.
    static Answer whole(const std::string& status, const std::string& body,
                        const std::string& headers = {}) {
        return [=](QSslSocket& to) {
            to.write(QByteArray::fromStdString(
                "HTTP/1.1 " + status + "\r\nContent-Length: " + std::to_string(body.size()) +
                "\r\n" + headers + "\r\n" + body));
        };
    }

 protected:
    void incomingConnection(qintptr descriptor) override {
        auto* socket = new QSslSocket(this);
        socket->setSocketDescriptor(descriptor);
        socket->setLocalCertificate(certificate_);
        socket->setPrivateKey(key_);
        connect(socket, &QSslSocket::readyRead, this, [this, socket] { read(*socket); });
        socket->startServerEncryption();
    }

 private:
    static QByteArray read(const char* name) {
        QFile file(QStringLiteral(NOONWARD_TEST_DATA "/") + QString::fromLatin1(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    void read(QSslSocket& socket) {
        std::string& head = heads_[&socket];
        head += socket.readAll().toStdString();
        if (head.find("\r\n\r\n") == std::string::npos) return;
        requests.push_back(std::exchange(head, {}));
        const std::string& request = requests.back();
        const auto from = request.find(' ') + 1;
        paths.push_back(request.substr(from, request.find(' ', from) - from));
        const auto answer = answers.find(paths.back());
        if (answer != answers.end()) answer->second(socket);
    }

    QSslCertificate certificate_;
    QSslKey key_;
    std::map<const QSslSocket*, std::string> heads_;
};

}  // namespace noonward::test
