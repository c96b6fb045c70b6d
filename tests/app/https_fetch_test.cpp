#include "app/https_fetch.h"
#include "application.h"
#include "https_server.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTcpServer>
#include <QTcpSocket>
#include <QTimer>
#include <algorithm>
#include <filesystem>

namespace glidemap {
namespace {

using namespace std::chrono_literals;
using test::Application;
using test::contentOf;
using test::HttpsServer;
using test::ok;
using test::redirect;
using test::respond;
using test::say;

constexpr qint64 largest = 1024L * 1024;

class HttpsFetchTest : public testing::Test {
protected:
    // No timeout applies unless the test sets one.
    HttpsFetchSetup trusting() const {
        return {.silence = 1h, .whole = 1h, .authorities = authority.certificates()};
    }

    Fetched fetch(const HttpsFetchSetup& setup, const std::string& url) {
        std::vector<Fetched> results;
        httpsFetch(setup)(url, [&](const Fetched& fetched) { results.push_back(fetched); });
        EXPECT_TRUE(results.empty());
        EXPECT_TRUE(Application::runUntil([&] { return !results.empty(); }));
        Application::runPendingTasks();
        EXPECT_EQ(results.size(), 1U);
        return results.empty() ? Fetched() : results.front();
    }
    Fetched fetch(const HttpsFetchSetup& setup) { return fetch(setup, server.url()); }

    void expectBody(const std::string& body, const Fetched& fetched) {
        EXPECT_EQ(fetched.body.size(), body.size());
        EXPECT_TRUE(fetched.body == body) << fetched.body.substr(0, 200);
        EXPECT_EQ(fetched.transportError, std::nullopt);
    }
    void expectNothing(const Fetched& fetched) {
        EXPECT_EQ(fetched.body, "");
        EXPECT_TRUE(fetched.transportError.has_value());
    }

    const Application application;
    const test::Authority authority;
    HttpsServer server{authority.vouchFor("IP:127.0.0.1"), ok("content")};
};

TEST_F(HttpsFetchTest, DefaultSetupLimitsSilenceTotalTimeAndBodySize) {
    const HttpsFetchSetup setup;
    EXPECT_EQ(setup.silence, 15s);
    EXPECT_EQ(setup.whole, 60s);
    EXPECT_EQ(setup.maxBody, largest);
    EXPECT_TRUE(setup.authorities.isEmpty());
}

// HTTP header names are case-insensitive: Qt 6.8 writes them in lower case, older versions do not.
std::string lowerCase(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    });
    return text;
}

TEST_F(HttpsFetchTest, RequestNamesTheProgramAndBypassesCaches) {
    expectBody("content", fetch(trusting()));
    ASSERT_EQ(server.requests().size(), 1U);
    EXPECT_TRUE(server.requests()[0].starts_with("GET /version.json HTTP/1.1\r\n"))
        << server.requests()[0];
    const std::string request = lowerCase(server.requests()[0]);
    for (const char* const header :
         {"\r\nuser-agent: glidemap/" GLIDEMAP_VERSION "\r\n", "\r\ncache-control: no-cache\r\n",
          "\r\naccept-encoding: identity\r\n"}) {
        EXPECT_NE(request.find(header), std::string::npos) << request;
    }
    for (const char* const header : {"\r\ncookie", "\r\nif-", "\r\nauthorization", "\r\nreferer"}) {
        EXPECT_EQ(request.find(header), std::string::npos) << request;
    }
}

TEST_F(HttpsFetchTest, FetchesShareNoState) {
    server.setAnswer(respond("200 OK", "content",
                             "Set-Cookie: a=b; Path=/\r\nETag: \"1\"\r\n"
                             "Cache-Control: max-age=100000\r\n"
                             "Last-Modified: Sat, 01 Jan 2000 00:00:00 GMT\r\n"));
    const Fetch fetchAgain = httpsFetch(trusting());
    int answered = 0;
    for (int time = 1; time <= 2; ++time) {
        fetchAgain(server.url(), [&](const Fetched& /*fetched*/) { ++answered; });
        ASSERT_TRUE(Application::runUntil([&] { return answered == time; }));
    }
    ASSERT_EQ(server.requests().size(), 2U);
    EXPECT_EQ(server.requests()[0], server.requests()[1]);
}

// Returns whether this process has a network thread.
bool hasNetworkThread() {
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        if (contentOf(task.path() / "comm") == "QNetworkAccessM\n") {
            return true;
        }
    }
    return false;
}

TEST_F(HttpsFetchTest, NetworkThreadExistsOnlyDuringAFetch) {
    const Fetch onlyMade = httpsFetch(trusting());
    EXPECT_FALSE(hasNetworkThread());
    bool duringIt = false;
    server.setAnswer([&](QSslSocket& socket, const std::string& request) {
        duringIt = hasNetworkThread();
        ok("content")(socket, request);
    });
    bool reported = false;
    onlyMade(server.url(), [&](const Fetched& /*fetched*/) { reported = true; });
    ASSERT_TRUE(Application::runUntil([&] { return reported; }));
    EXPECT_TRUE(duringIt);
    EXPECT_TRUE(Application::runUntil([] { return !hasNetworkThread(); }));
}

TEST_F(HttpsFetchTest, RedirectToHttpsIsFollowed) {
    HttpsServer other(authority.vouchFor("IP:127.0.0.1"), ok("moved"));
    server.setAnswer(redirect(other.url("/elsewhere")));
    expectBody("moved", fetch(trusting()));
    ASSERT_EQ(other.requests().size(), 1U);
    EXPECT_TRUE(other.requests()[0].starts_with("GET /elsewhere HTTP/1.1\r\n"));
}

TEST_F(HttpsFetchTest, RedirectToAnotherSchemeIsRefusedAndItsBodyDiscarded) {
    const test::TemporaryFolder folder;
    const auto file = folder.write("file", "secret");
    for (const std::string& location :
         {"http://" + server.host() + "/other", "file://" + file.string(),
          std::string("data:text/plain,other"), std::string("ftp://127.0.0.1/other"),
          std::string("https://"), std::string("glidemap:other")}) {
        server.setAnswer(redirect(location));
        SCOPED_TRACE(location);
        const auto before = server.requests().size();
        expectNothing(fetch(trusting()));
        EXPECT_EQ(server.requests().size(), before + 1);
    }
}

TEST_F(HttpsFetchTest, RedirectLoopFails) {
    server.setAnswer(redirect("/again"));
    expectNothing(fetch(trusting()));
    EXPECT_LE(server.requests().size(), 12U);
}

TEST_F(HttpsFetchTest, RedirectToAnUntrustedServerIsRefused) {
    HttpsServer stranger(test::Authority().vouchFor("IP:127.0.0.1"), ok("forged"));
    server.setAnswer(redirect(stranger.url()));
    expectNothing(fetch(trusting()));
    EXPECT_TRUE(stranger.requests().empty());
}

TEST_F(HttpsFetchTest, UntrustedServerReceivesNoRequest) {
    const test::Authority unknown;
    struct Row {
        const char* what;
        test::Identity identity;
        const char* reason;
    };
    const Row rows[] = {
        {"vouched for by a stranger", unknown.vouchFor("IP:127.0.0.1"), "issuer"},
        {"another host's", authority.vouchFor("DNS:updates.example"), "host name"},
        {"another address's", authority.vouchFor("IP:127.0.0.2"), "host name"},
        {"expired", authority.vouchFor("IP:127.0.0.1", -1), "expired"},
    };
    for (const Row& row : rows) {
        HttpsServer other(row.identity, ok("forged"));
        SCOPED_TRACE(row.what);
        const Fetched fetched = fetch(trusting(), other.url());
        expectNothing(fetched);
        EXPECT_THAT(*fetched.transportError, testing::HasSubstr(row.reason));
        EXPECT_TRUE(other.requests().empty());
    }
}

// No authorities are given here, so the client trusts those of the system, which do not include the
// test's own.
TEST_F(HttpsFetchTest, TrustsOnlySystemCertificateAuthoritiesByDefault) {
    expectNothing(fetch({}));
    EXPECT_TRUE(server.requests().empty());
}

TEST_F(HttpsFetchTest, FetchFromAServerWithoutTlsFails) {
    QTcpServer plain;
    ASSERT_TRUE(plain.listen(QHostAddress::LocalHost));
    QObject::connect(&plain, &QTcpServer::newConnection, &plain, [&] {
        plain.nextPendingConnection()->write("HTTP/1.1 200 OK\r\nContent-Length: 2\r\n\r\n{}");
    });
    expectNothing(fetch(trusting(), "https://127.0.0.1:" + std::to_string(plain.serverPort())));
}

TEST_F(HttpsFetchTest, ConnectionToASilentServerTimesOut) {
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    HttpsFetchSetup setup = trusting();
    setup.silence = 200ms;
    expectNothing(fetch(setup, "https://127.0.0.1:" + std::to_string(silent.serverPort())));
}

// Raises the timeout until the response arrives in time, because the machine's speed is unknown.
TEST_F(HttpsFetchTest, ServerThatStallsTimesOutWithThePartialBody) {
    server.setAnswer(say("HTTP/1.1 200 OK\r\nContent-Length: 100\r\n\r\ncontent"));
    HttpsFetchSetup setup = trusting();
    Fetched fetched;
    for (setup.silence = 1s; fetched.body.empty() && setup.silence <= test::maxTimeout;
         setup.silence *= 2) {
        fetched = fetch(setup);
    }
    EXPECT_EQ(fetched.body, "content");
    EXPECT_EQ(fetched.transportError, "the server stopped responding");
}

// Sends one letter at a time, a given number of times or endlessly.
class Drip {
public:
    Drip(std::chrono::milliseconds interval, int letters) : left(letters) {
        timer.setInterval(interval);
    }

    HttpsServer::Answer answer(const std::string& header) {
        return [this, header](QSslSocket& socket, const std::string& /*request*/) {
            socket.write(header.c_str());
            QObject::connect(&timer, &QTimer::timeout, &socket, [this, &socket] {
                if (left-- > 0) {
                    socket.write("x");
                }
            });
            timer.start();
        };
    }

private:
    QTimer timer;
    int left;
};

TEST_F(HttpsFetchTest, SlowEndlessServerHitsTheTotalTimeout) {
    Drip drip(10ms, 1'000'000'000);
    for (const char* const header :
         {"HTTP/1.1 200 OK\r\nContent-Length: 1000000\r\n\r\n", "HTTP/1.1 200 OK\r\nX-Endless: "}) {
        server.setAnswer(drip.answer(header));
        HttpsFetchSetup setup = trusting();
        setup.whole = 500ms;
        EXPECT_EQ(fetch(setup).transportError, "the transfer timed out");
    }
}

// All letters together take longer than the silence timeout, but each pause is shorter. On a busy
// machine the test repeats with longer times.
TEST_F(HttpsFetchTest, FetchFromASlowServerSucceedsIfTheServerKeepsSending) {
    HttpsFetchSetup setup = trusting();
    Fetched fetched;
    for (auto interval = 700ms; fetched.body != "xxxx" && 3 * interval <= test::maxTimeout;
         interval *= 2) {
        Drip drip(interval, 4);
        server.setAnswer(drip.answer("HTTP/1.1 200 OK\r\nContent-Length: 4\r\n\r\n"));
        setup.silence = 3 * interval;
        fetched = fetch(setup);
    }
    expectBody("xxxx", fetched);
}

TEST_F(HttpsFetchTest, BodyMayBeAsLargeAsTheLimitButNotLarger) {
    const std::string body(largest, 'x');
    const std::string tooLarge = body + "x";
    const std::string untilTheEnd = "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n";
    const auto unannounced = [&](const std::string& text) {
        return [=](QSslSocket& socket, const std::string& /*request*/) {
            const std::string all = untilTheEnd + text;
            socket.write(all.data(), static_cast<qint64>(all.size()));
            socket.disconnectFromHost();
        };
    };
    server.setAnswer(ok(body));
    expectBody(body, fetch(trusting()));
    server.setAnswer(unannounced(body));
    expectBody(body, fetch(trusting()));
    server.setAnswer(ok(tooLarge));
    expectNothing(fetch(trusting()));
    server.setAnswer(unannounced(tooLarge));
    expectNothing(fetch(trusting()));
}

TEST_F(HttpsFetchTest, EndlessResponseIsCutOff) {
    struct Row {
        const char* what;
        std::string start;
    };
    const std::string chunked = "HTTP/1.1 200 OK\r\nTransfer-Encoding: chunked\r\n\r\n40000000\r\n";
    const Row rows[] = {
        {"a body", "HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n"},
        {"a chunk", chunked},
        {"an error's body", "HTTP/1.1 404 Not Found\r\nConnection: close\r\n\r\n"},
        {"a redirect's body",
         "HTTP/1.1 302 Found\r\nLocation: /other\r\nConnection: close\r\n\r\n"},
        {"a refused redirect's body",
         "HTTP/1.1 302 Found\r\nLocation: http://127.0.0.1/\r\nConnection: close\r\n\r\n"},
        {"a header", "HTTP/1.1 200 OK\r\nX-Endless: "},
        {"a status", "HTTP/1.1 200 "},
        {"nothing of HTTP", ""},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const qint64 before = server.bytesTaken();
        HttpsFetchSetup setup = trusting();
        // This limit also ends an endless header, because data received before the header is
        // complete does not restart it.
        setup.silence = 1s;
        server.setAnswer(test::pour(row.start, 1'000'000'000));
        expectNothing(fetch(setup));
        ASSERT_TRUE(Application::runUntil([&] { return server.connections() == 0; }));
        EXPECT_LT(server.bytesTaken() - before, 100'000'000);
    }
}

TEST_F(HttpsFetchTest, BodyWithAnUnrequestedContentEncodingIsReturnedUnchanged) {
    server.setAnswer(respond("200 OK", "not really", "Content-Encoding: gzip\r\n"));
    EXPECT_EQ(fetch(trusting()).body, "not really");
}

TEST_F(HttpsFetchTest, PendingFetchIsDroppedWithoutACallbackOnQuit) {
    server.setAnswer(
        [](QSslSocket& /*socket*/, const std::string& /*request*/) { QCoreApplication::quit(); });
    const auto reported = std::make_shared<int>();
    httpsFetch(trusting())(server.url(), [reported](const Fetched& /*fetched*/) { ++*reported; });
    EXPECT_EQ(reported.use_count(), 2);
    QCoreApplication::exec();
    EXPECT_EQ(reported.use_count(), 1);
    EXPECT_EQ(*reported, 0);
    EXPECT_TRUE(Application::runUntil([] { return !hasNetworkThread(); }));
}

TEST_F(HttpsFetchTest, InvalidAddressAbortsTheProgram) {
    for (const char* const url :
         {"", "http://127.0.0.1/", "https://", "https://a b/", "file:///"}) {
        EXPECT_DEATH(httpsFetch({})(url, [](const Fetched& /*fetched*/) {}), "not an address")
            << url;
    }
}

} // namespace
} // namespace glidemap
