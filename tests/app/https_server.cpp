#include "https_server.h"

#include <gtest/gtest.h>

#include <QHostAddress>
#include <QSslConfiguration>
#include <algorithm>
#include <memory>

namespace glidemap::test {

HttpsServer::HttpsServer(const Identity& identity, Answer how) : answer(std::move(how)) {
    QSslConfiguration security = QSslConfiguration::defaultConfiguration();
    security.setLocalCertificate(identity.certificate);
    security.setPrivateKey(identity.key);
    security.setPeerVerifyMode(QSslSocket::VerifyNone);
    server.setSslConfiguration(security);
    QObject::connect(&server, &QTcpServer::pendingConnectionAvailable, &server,
                     [this] { welcome(); });
    EXPECT_TRUE(server.listen(QHostAddress::LocalHost));
}

HttpsServer::~HttpsServer() {
    shutDown();
}

std::string HttpsServer::host() const {
    return "127.0.0.1:" + std::to_string(server.serverPort());
}

void HttpsServer::shutDown() {
    server.close();
    for (QSslSocket* const socket : server.findChildren<QSslSocket*>()) {
        socket->disconnect(&server);
        socket->abort();
        delete socket;
    }
    connected = 0;
}

void HttpsServer::welcome() {
    auto* const socket = static_cast<QSslSocket*>(server.nextPendingConnection());
    ++connected;
    const auto request = std::make_shared<std::string>();
    QObject::connect(socket, &QSslSocket::readyRead, &server, [this, socket, request] {
        *request += socket->readAll().toStdString();
        if (request->ends_with("\r\n\r\n")) {
            _requests.push_back(std::exchange(*request, {}));
            answer(*socket, _requests.back());
        }
    });
    QObject::connect(socket, &QSslSocket::encryptedBytesWritten, &server,
                     [this](qint64 bytes) { taken += bytes; });
    QObject::connect(socket, &QSslSocket::disconnected, &server, [this, socket] {
        --connected;
        socket->deleteLater();
    });
}

HttpsServer::Answer respond(const std::string& statusLine, const std::string& body,
                            const std::string& headers) {
    const std::string text = "HTTP/1.1 " + statusLine +
                             "\r\nContent-Length: " + std::to_string(body.size()) + "\r\n" +
                             headers + "Connection: close\r\n\r\n" + body;
    return [text](QSslSocket& socket, const std::string& /*request*/) {
        socket.write(text.data(), static_cast<qint64>(text.size()));
        socket.disconnectFromHost();
    };
}

HttpsServer::Answer ok(const std::string& body) {
    return respond("200 OK", body);
}

HttpsServer::Answer redirect(const std::string& location) {
    // The body is a valid manifest, which the client must not use.
    return respond("302 Found", R"({"version": "9.9"})", "Location: " + location + "\r\n");
}

HttpsServer::Answer say(const std::string& text) {
    return [text](QSslSocket& socket, const std::string& /*request*/) {
        socket.write(text.data(), static_cast<qint64>(text.size()));
    };
}

HttpsServer::Answer pour(const std::string& text, qint64 bytes) {
    return [text, bytes](QSslSocket& socket, const std::string& /*request*/) {
        socket.write(text.data(), static_cast<qint64>(text.size()));
        const auto left = std::make_shared<qint64>(bytes);
        const auto more = [&socket, left] {
            constexpr qint64 atOnce = 64L * 1024;
            while (*left > 0 && socket.bytesToWrite() + socket.encryptedBytesToWrite() < atOnce) {
                const qint64 size = std::min(*left, atOnce);
                socket.write(QByteArray(size, ' '));
                *left -= size;
            }
        };
        QObject::connect(&socket, &QSslSocket::encryptedBytesWritten, &socket, more);
        more();
    };
}

} // namespace glidemap::test
