// Tests update checks with a real server.
#include "app/https_fetch.h"
#include "app/update_checker.h"
#include "application.h"
#include "https_server.h"

#include <gtest/gtest.h>

#include <QTimer>
#include <algorithm>

namespace glidemap {
namespace {

using namespace std::chrono_literals;
using test::Application;
using test::HttpsServer;
using test::ok;
using test::respond;
using test::say;
using Version = std::optional<std::string>;
using Kind = UpdateError::Kind;

std::string manifest(const std::string& version) {
    return R"({"version": ")" + version + R"("})";
}

class HttpsCheckTest : public testing::Test {
protected:
    std::shared_ptr<UpdateChecker> checkerRunning(const std::string& version) {
        return UpdateChecker::create(
            {.host = server.host(), .currentVersion = version, .fetch = countedFetch()});
    }

    // Waits for the requests that the test has left unfinished.
    void TearDown() override {
        EXPECT_TRUE(Application::runUntil([this] { return underWay == 0; }));
    }

    UpdateResult check(UpdateChecker& checker) {
        std::vector<UpdateResult> results;
        checker.check([&](const UpdateResult& result) { results.push_back(result); });
        EXPECT_TRUE(results.empty());
        EXPECT_TRUE(Application::runUntil([&] { return !results.empty(); }));
        Application::runPendingTasks();
        EXPECT_EQ(results.size(), 1U);
        return results.empty() ? UpdateResult(UpdateError()) : results.front();
    }

    void expectNewer(const Version& expected, const UpdateResult& result) {
        const auto* const error = std::get_if<UpdateError>(&result);
        ASSERT_EQ(error, nullptr) << error->text;
        EXPECT_EQ(std::get<Version>(result), expected);
    }

    void expectFailure(Kind kind, const UpdateResult& result) {
        const auto* const error = std::get_if<UpdateError>(&result);
        ASSERT_NE(error, nullptr);
        EXPECT_EQ(error->kind, kind) << error->text;
        EXPECT_FALSE(error->text.empty());
    }

    // Returns a checker that has already found this version.
    std::shared_ptr<UpdateChecker> checkerThatKnows(const std::string& version) {
        server.setAnswer(ok(manifest(version)));
        auto checker = checkerRunning("1.2");
        expectNewer(version, check(*checker));
        return checker;
    }

    Fetch countedFetch() {
        return [this,
                fetch = httpsFetch({.silence = silence, .authorities = authority.certificates()})](
                   const std::string& url, const auto& done) {
            ++underWay;
            fetch(url, [this, done](const Fetched& fetched) {
                --underWay;
                done(fetched);
            });
        };
    }

    const Application application;
    const test::Authority authority;
    HttpsServer server{authority.vouchFor("IP:127.0.0.1"), ok(manifest("1.2.1"))};
    std::chrono::milliseconds silence = 30s;
    int underWay = 0;
};

TEST_F(HttpsCheckTest, NewerVersionIsReportedAndStored) {
    const auto checker = checkerRunning("1.2");
    expectNewer("1.2.1", check(*checker));
    EXPECT_EQ(checker->latestVersion(), "1.2.1");
}

TEST_F(HttpsCheckTest, SameVersionIsUpToDateAndClearsTheKnownVersion) {
    const auto checker = checkerThatKnows("1.3");
    server.setAnswer(ok(manifest("1.2")));
    expectNewer(std::nullopt, check(*checker));
    EXPECT_EQ(checker->latestVersion(), std::nullopt);
}

TEST_F(HttpsCheckTest, OlderVersionIsNeverOffered) {
    server.setAnswer(ok(manifest("1.0")));
    const auto checker = checkerRunning("1.1");
    expectNewer(std::nullopt, check(*checker));
    EXPECT_EQ(checker->latestVersion(), std::nullopt);
}

TEST_F(HttpsCheckTest, InvalidManifestIsABadResponseAndKeepsTheKnownVersion) {
    const auto checker = checkerThatKnows("1.3");
    for (const HttpsServer::Answer& answer : {
             ok(R"({"version": 2})"),
             ok("[]"),
             ok("{}"),
             ok("<html></html>"),
             ok(""),
             respond("204 No Content", ""),
             respond("404 Not Found", "<html></html>"),
             respond("404 Not Found", ""),
             respond("500 Internal Server Error", "out of order"),
             respond("401 Unauthorized", "who?", "WWW-Authenticate: Basic realm=\"x\"\r\n"),
         }) {
        server.setAnswer(answer);
        expectFailure(Kind::badServerResponse, check(*checker));
        EXPECT_EQ(checker->latestVersion(), "1.3");
    }
}

TEST_F(HttpsCheckTest, FailedCheckDoesNotNotifyObservers) {
    const auto checker = checkerThatKnows("1.3");
    server.setAnswer(ok(R"({"version": 2})"));
    const auto watch = checker->changes().subscribe([] { ADD_FAILURE() << "announced"; });
    checker->check();
    expectFailure(Kind::badServerResponse, check(*checker));
    EXPECT_TRUE(Application::runUntil([this] { return underWay == 0; }));
    EXPECT_EQ(server.requests().size(), 3U);
    EXPECT_EQ(checker->latestVersion(), "1.3");
}

TEST_F(HttpsCheckTest, AcceptsAManifestWithAnyHttpStatus) {
    for (const char* const status :
         {"404 Not Found", "500 Internal Server Error", "503 Service Unavailable", "403 Forbidden",
          "410 Gone", "429 Too Many Requests", "203 Non-Authoritative Information"}) {
        server.setAnswer(respond(status, manifest("1.2.1")));
        const auto checker = checkerRunning("1.2");
        SCOPED_TRACE(status);
        expectNewer("1.2.1", check(*checker));
        EXPECT_EQ(checker->latestVersion(), "1.2.1");
    }
}

TEST_F(HttpsCheckTest, TruncatedBodyIsATransportError) {
    const auto checker = checkerThatKnows("1.3");
    server.setAnswer([](QSslSocket& socket, const std::string& /*request*/) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n{\"version\": \"9.");
        socket.disconnectFromHost();
    });
    expectFailure(Kind::transport, check(*checker));
    EXPECT_EQ(checker->latestVersion(), "1.3");
}

TEST_F(HttpsCheckTest, AcceptsACompleteManifestInATruncatedBody) {
    server.setAnswer([](QSslSocket& socket, const std::string& /*request*/) {
        socket.write("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\n{\"version\": \"1.3\"}");
        socket.disconnectFromHost();
    });
    expectNewer("1.3", check(*checkerRunning("1.2")));
}

// Raises the timeout until the request arrives in time, because the machine's speed is unknown.
TEST_F(HttpsCheckTest, SilentServerTimesOut) {
    server.setAnswer(say(""));
    for (silence = 1s; server.requests().empty() && silence <= test::maxTimeout; silence *= 2) {
        const auto checker = checkerRunning("1.2");
        expectFailure(Kind::transport, check(*checker));
    }
    EXPECT_EQ(server.requests().size(), 1U);
    EXPECT_TRUE(Application::runUntil([&] { return server.connections() == 0; }));
}

TEST_F(HttpsCheckTest, UnreachableServerIsATransportError) {
    const auto checker = checkerThatKnows("1.3");
    server.shutDown();
    expectFailure(Kind::transport, check(*checker));
    EXPECT_EQ(checker->latestVersion(), "1.3");
}

TEST_F(HttpsCheckTest, DisconnectIsATransportError) {
    const auto checker = checkerThatKnows("1.3");
    server.setAnswer([this](QSslSocket& /*socket*/, const std::string& /*request*/) {
        QTimer::singleShot(0, QCoreApplication::instance(), [this] { server.shutDown(); });
    });
    expectFailure(Kind::transport, check(*checker));
    EXPECT_EQ(checker->latestVersion(), "1.3");
}

TEST_F(HttpsCheckTest, RedirectToPlainHttpIsRefusedAndItsBodyDiscarded) {
    server.setAnswer(test::redirect("http://" + server.host() + "/other.json"));
    const auto checker = checkerRunning("1.2");
    expectFailure(Kind::transport, check(*checker));
    EXPECT_EQ(checker->latestVersion(), std::nullopt);
    EXPECT_EQ(server.requests().size(), 1U);
}

TEST_F(HttpsCheckTest, ConcurrentChecksEachGetTheirOwnResult) {
    int served = 0;
    server.setAnswer([&](QSslSocket& socket, const std::string& request) {
        ok(manifest("1." + std::to_string(10 + ++served)))(socket, request);
    });
    const auto checker = checkerRunning("1.2");
    std::vector<std::string> versions;
    for (int check = 0; check < 5; ++check) {
        checker->check([&](const UpdateResult& result) {
            versions.push_back(std::get<Version>(result).value_or("none"));
        });
    }
    ASSERT_TRUE(Application::runUntil([&] { return versions.size() == 5; }));
    EXPECT_EQ(checker->latestVersion(), versions.back());
    std::sort(versions.begin(), versions.end());
    EXPECT_EQ(versions, (std::vector<std::string>{"1.11", "1.12", "1.13", "1.14", "1.15"}));
}

TEST_F(HttpsCheckTest, CheckCompletesAfterTheCheckerIsDestroyed) {
    auto checker = checkerRunning("1.2");
    std::vector<UpdateResult> results;
    checker->check([&](const UpdateResult& result) { results.push_back(result); });
    checker.reset();
    ASSERT_TRUE(Application::runUntil([&] { return !results.empty(); }));
    expectNewer("1.2.1", results.front());
}

TEST_F(HttpsCheckTest, DownloadOfAGigabyteBodyIsStoppedEarlyAndTheCheckFails) {
    const auto checker = checkerThatKnows("1.3");
    constexpr qint64 gigabyte = 1'000'000'000;
    for (const std::string& length :
         {std::string("Content-Length: 1000000000\r\n"), std::string("Connection: close\r\n")}) {
        const qint64 before = server.bytesTaken();
        server.setAnswer(
            test::pour("HTTP/1.1 200 OK\r\n" + length + "\r\n" + manifest("9.9"), gigabyte));
        expectFailure(Kind::transport, check(*checker));
        EXPECT_EQ(checker->latestVersion(), "1.3");
        EXPECT_TRUE(Application::runUntil([&] { return server.connections() == 0; }));
        EXPECT_LT(server.bytesTaken() - before, 32'000'000) << length;
    }
}

} // namespace
} // namespace glidemap
