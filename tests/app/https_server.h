// A real HTTPS server on its own port. The test writes its responses, including invalid ones.
//
// Thread:  the main thread, on the application's event loop.
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
    // Called with each complete request; may write and close at any time.
    using Answer = std::function<void(QSslSocket& to, const std::string& request)>;

    HttpsServer(const Identity& identity, Answer how);
    HttpsServer(const HttpsServer&) = delete;
    HttpsServer& operator=(const HttpsServer&) = delete;
    ~HttpsServer();

    std::string host() const; // "127.0.0.1:PORT"
    std::string url(const std::string& path = "/version.json") const {
        return "https://" + host() + path;
    }

    // Complete requests, including their headers.
    const std::vector<std::string>& requests() const { return _requests; }

    // The number of encrypted bytes written to the clients, including those in system buffers.
    qint64 bytesTaken() const { return taken; }

    // The number of open connections.
    int connections() const { return connected; }

    void setAnswer(Answer how) { answer = std::move(how); }

    // Stops listening and closes all connections.
    void shutDown();

private:
    void welcome();

    Answer answer;
    QSslServer server;
    std::vector<std::string> _requests;
    qint64 taken = 0;
    int connected = 0;
};

// Sends a complete response with Content-Length, and closes the connection.
HttpsServer::Answer respond(const std::string& statusLine, const std::string& body,
                            const std::string& headers = "");
HttpsServer::Answer ok(const std::string& body);
HttpsServer::Answer redirect(const std::string& location);

// Sends the text without closing the connection.
HttpsServer::Answer say(const std::string& text);

// Sends the text and then at most `bytes` spaces, as fast as the client reads.
HttpsServer::Answer pour(const std::string& text, qint64 bytes);

} // namespace glidemap::test
