// Fetches with shell scripts in place of the helper, and with the real helper, which trusts none of
// the tests' servers.
#include "app/fetch_program.h"
#include "application.h"
#include "https_server.h"
#include "kit/patience.h"
#include "kit/temporary_folder.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QHostAddress>
#include <QProcess>
#include <QTcpServer>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using namespace std::chrono_literals;
using test::Application;

constexpr const char* address = "https://nowhere.invalid/version.json";

class FetchProgramTest : public testing::Test {
protected:
    std::filesystem::path script(const std::string& text) const {
        const auto file = folder.path() / "program";
        std::ofstream(file) << "#!/bin/sh\n" << text;
        chmod(file.c_str(), S_IRWXU);
        return file;
    }

    Fetched fetchBy(const std::filesystem::path& program, const std::string& url = address) {
        std::vector<Fetched> fetched;
        fetchByProgram(program, 0ms)(url, [&](const Fetched& what) { fetched.push_back(what); });
        EXPECT_TRUE(fetched.empty());
        EXPECT_TRUE(Application::runUntil([&] { return !fetched.empty(); }));
        Application::runPendingTasks();
        EXPECT_EQ(fetched.size(), 1U);
        return fetched.empty() ? Fetched() : fetched.front();
    }

    test::TemporaryFolder folder;
    Application application;
};

TEST_F(FetchProgramTest, ReturnsStandardOutputAsTheBody) {
    const Fetched fetched = fetchBy(script("printf 'of %s' \"$1\""));
    EXPECT_EQ(fetched.body, "of https://nowhere.invalid/version.json");
    EXPECT_FALSE(fetched.transportError);
}

TEST_F(FetchProgramTest, FailedProgramYieldsItsOutputAndTheErrorMessageFromStandardError) {
    const Fetched fetched = fetchBy(script("printf half; echo 'cut off' >&2; exit 1"));
    EXPECT_EQ(fetched.body, "half");
    EXPECT_EQ(fetched.transportError, "cut off");
}

TEST_F(FetchProgramTest, StandardErrorIsIgnoredIfTheProgramSucceeds) {
    EXPECT_FALSE(fetchBy(script("printf whole; echo careful >&2")).transportError);
}

TEST_F(FetchProgramTest, ProgramThatFailsSilentlyIsReportedAsATransportError) {
    EXPECT_TRUE(fetchBy(script("exit 3")).transportError);
    EXPECT_TRUE(fetchBy(script("kill -KILL $$")).transportError);
}

TEST_F(FetchProgramTest, MissingProgramIsReportedAsATransportError) {
    EXPECT_TRUE(fetchBy(folder.path() / "nothing").transportError);
}

TEST_F(FetchProgramTest, ProgramDoesNotStartBeforeTheDelayHasPassed) {
    const auto program = script("touch \"$0.ran\"");
    bool isDone = false;
    fetchByProgram(program, 1h)(address, [&](const Fetched&) { isDone = true; });
    Application::runPendingTasks();
    EXPECT_FALSE(std::filesystem::exists(program.native() + ".ran"));
    EXPECT_FALSE(isDone);
}

TEST_F(FetchProgramTest, InstalledProgramAcceptsOnlyHttps) {
    const Fetched fetched = fetchBy(GLIDEMAP_FETCH_PROGRAM, "http://nowhere.invalid/");
    EXPECT_TRUE(fetched.body.empty());
    ASSERT_TRUE(fetched.transportError);
    EXPECT_NE(fetched.transportError->find("usage"), std::string::npos);
}

TEST_F(FetchProgramTest, InstalledProgramRejectsAnUntrustedServer) {
    const test::Authority authority;
    const test::HttpsServer server(authority.vouchFor("IP:127.0.0.1"),
                                   test::ok(R"({"version": "9"})"));
    const Fetched fetched = fetchBy(GLIDEMAP_FETCH_PROGRAM, server.url());
    EXPECT_TRUE(fetched.body.empty());
    ASSERT_TRUE(fetched.transportError);
    EXPECT_NE(fetched.transportError->find("certificate"), std::string::npos)
        << *fetched.transportError;
    EXPECT_TRUE(server.requests().empty());
}

#ifndef GLIDEMAP_SANITIZED // sanitizers reserve terabytes of address space

std::string addressSpaceLimitOf(qint64 process) {
    std::ifstream limits("/proc/" + std::to_string(process) + "/limits");
    const std::string name = "Max address space";
    for (std::string line; std::getline(limits, line);) {
        if (line.starts_with(name)) {
            std::istringstream words(line.substr(name.size()));
            std::string soft;
            words >> soft;
            return soft;
        }
    }
    return "";
}

// The previous test shows that TLS works under this limit: the program checks the certificate.
TEST_F(FetchProgramTest, InstalledProgramLimitsItsMemory) {
    if (!std::filesystem::exists("/proc/self/limits")) {
        GTEST_SKIP() << "this system does not show a process's limits";
    }
    QTcpServer silent;
    ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
    QProcess process;
    process.start(GLIDEMAP_FETCH_PROGRAM,
                  {QString("https://127.0.0.1:%1/version.json").arg(silent.serverPort())});
    ASSERT_TRUE(silent.waitForNewConnection(
        static_cast<int>(std::chrono::milliseconds(test::patience).count())));
    EXPECT_EQ(addressSpaceLimitOf(process.processId()), std::to_string(512UL * 1024 * 1024));
    process.kill();
    process.waitForFinished();
}

#endif

} // namespace
} // namespace glidemap
