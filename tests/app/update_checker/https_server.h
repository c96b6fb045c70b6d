// A real HTTPS server at a port of its own, which answers as the test says: badly, too.
//
// Thread:  the main thread; it lives on the application's event loop.
// Owner:   a test.
#pragma once

#include "authority.h"

#include <QByteArray>
#include <QSslServer>
#include <QSslSocket>
#include <functional>
#include <string>
#include <vector>

namespace glidemap::test {

class HttpsServer {
public:
    // Called with each complete request; may write and close whenever it likes.
    using Answer = std::function<void(QSslSocket& to, const std::string& request)>;

    HttpsServer(const Identity& identity, Answer how);
    HttpsServer(const HttpsServer&) = delete;
    HttpsServer& operator=(const HttpsServer&) = delete;
    ~HttpsServer();

    std::string host() const; // "127.0.0.1:PORT"
    std::string url(const std::string& path = "/version.json") const {
        return "https://" + host() + path;
    }

    // Headers and all.
    const std::vector<std::string>& requests() const { return _requests; }

    // How much the other sides have taken off us, their systems' buffers included.
    qint64 bytesTaken() const { return taken; }

    // How many of those who have come are still connected.
    int connections() const { return connected; }

    void setAnswer(Answer how) { answer = std::move(how); }

    // Nobody can connect any more, and who has is cut off.
    void shutDown();

private:
    void welcome();

    Answer answer;
    QSslServer server;
    std::vector<std::string> _requests;
    qint64 taken = 0;
    int connected = 0;
};

// The whole answer, with the length of the body, and the end of the connection after it.
HttpsServer::Answer respond(const std::string& statusLine, const std::string& body,
                            const std::string& headers = "");
HttpsServer::Answer ok(const std::string& body);
HttpsServer::Answer redirect(const std::string& location);

// Sends the text and leaves it at that.
HttpsServer::Answer say(const std::string& text);

// Sends the text, and then spaces, as fast as they are taken, until that many have been sent.
HttpsServer::Answer pour(const std::string& text, qint64 bytes);

} // namespace glidemap::test
