#include "core/log.h"
#include "core/open_file.h"
#include "kit/in_environment.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace glidemap {
namespace {

using testing::EndsWith;
using testing::MatchesRegex;

// Replaces standard error with a pipe during its lifetime.
class StandardErrorPipe {
public:
    StandardErrorPipe() : saved(dup(STDERR_FILENO)) {
        std::array<int, 2> ends{};
        if (pipe2(ends.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
            std::abort();
        }
        readEnd = OpenFile(ends[0]);
        writeEnd = OpenFile(ends[1]);
        dup2(writeEnd->descriptor(), STDERR_FILENO);
        blockOnWrites();
    }
    StandardErrorPipe(const StandardErrorPipe&) = delete;
    StandardErrorPipe& operator=(const StandardErrorPipe&) = delete;
    ~StandardErrorPipe() { dup2(saved.descriptor(), STDERR_FILENO); }

    // Returns all text written since the last call.
    std::string text() {
        std::string all;
        std::array<char, 4096> piece{};
        ssize_t count = 0;
        while ((count = read(readEnd->descriptor(), piece.data(), piece.size())) > 0) {
            all.append(piece.data(), static_cast<std::size_t>(count));
        }
        return all;
    }

    void fill() {
        fcntl(STDERR_FILENO, F_SETFL, O_NONBLOCK);
        const std::string garbage(4096, '-');
        while (write(STDERR_FILENO, garbage.data(), garbage.size()) > 0) {
        }
        blockOnWrites();
    }

    void closeReader() { readEnd.reset(); }

private:
    static void blockOnWrites() { fcntl(STDERR_FILENO, F_SETFL, 0); }

    OpenFile saved;
    std::optional<OpenFile> readEnd;
    std::optional<OpenFile> writeEnd;
};

class LogTest : public testing::Test {
protected:
    LogTest() { log_detail::on = true; }
    ~LogTest() override { log_detail::on = false; }

    StandardErrorPipe standardError;
};

TEST_F(LogTest, WritesNothingWhileDisabled) {
    log_detail::on = false;
    EXPECT_FALSE(isLogging());
    logLine("touchpads", "grabbed ", "/dev/input/event5");
    EXPECT_EQ(standardError.text(), "");
}

TEST_F(LogTest, WritesOneLineWithTimeAndTopic) {
    const std::string node = "/dev/input/event5";
    logLine("touchpads", "grabbed ", node, " after ", 2, " attempts, ", std::size_t{0}, " left, ",
            -7);
    EXPECT_THAT(standardError.text(),
                MatchesRegex("glidemap [0-9]+\\.[0-9][0-9][0-9] touchpads: grabbed "
                             "/dev/input/event5 after 2 attempts, 0 left, -7\n"));
}

TEST_F(LogTest, WritesTheSmallestAndLargestIntegers) {
    logLine("limits", std::numeric_limits<std::int64_t>::min(), " ",
            std::numeric_limits<std::uint64_t>::max());
    EXPECT_THAT(standardError.text(),
                EndsWith("limits: -9223372036854775808 18446744073709551615\n"));
}

TEST_F(LogTest, ReplacesControlCharacters) {
    logLine("touchpads", "seen ", std::string_view("Pad\n\x1b[2J\x7f\0\t", 11), " 触控板");
    EXPECT_THAT(standardError.text(), EndsWith("seen Pad??[2J??? 触控板\n"));
}

TEST_F(LogTest, AcceptsANullText) {
    logLine("touchpads", "named ", static_cast<const char*>(nullptr));
    EXPECT_THAT(standardError.text(), EndsWith("named (null)\n"));
}

TEST_F(LogTest, TruncatesALongLine) {
    logLine("windows", std::string(5000, 'x'), "tail");
    const std::string line = standardError.text();
    EXPECT_EQ(line.size(), 1000U);
    EXPECT_THAT(line, EndsWith("xxx\n"));
}

TEST_F(LogTest, DropsALineInsteadOfWaitingForAReader) {
    standardError.fill();
    logLine("touchpads", "grabbed");
    EXPECT_EQ(standardError.text().find("grabbed"), std::string::npos);
    logLine("touchpads", "given back");
    EXPECT_THAT(standardError.text(), EndsWith("given back\n"));
}

TEST_F(LogTest, SurvivesAClosedReader) {
    standardError.closeReader();
    logLine("touchpads", "grabbed");
}

TEST_F(LogTest, PreservesErrno) {
    standardError.closeReader();
    errno = EBUSY;
    logLine("touchpads", "grab failed");
    EXPECT_EQ(errno, EBUSY);
}

TEST_F(LogTest, DoesNotInterleaveLinesOfSeveralThreads) {
    constexpr int linesEach = 200;
    const std::vector<std::string> words = {std::string(40, 'a'), std::string(40, 'b')};
    std::vector<std::thread> writers;
    for (const std::string& word : words) {
        writers.emplace_back([&word] {
            for (int line = 0; line < linesEach; ++line) {
                logLine("threads", word);
            }
        });
    }
    std::ranges::for_each(writers, &std::thread::join);
    std::string text = standardError.text();
    int count = 0;
    for (std::size_t end = 0; (end = text.find('\n')) != std::string::npos;
         text.erase(0, end + 1)) {
        EXPECT_THAT(text.substr(0, end), MatchesRegex("glidemap [0-9.]+ threads: (a{40}|b{40})"));
        ++count;
    }
    EXPECT_EQ(count, 2 * linesEach);
}

TEST_F(LogTest, EnablingTheLogSetsTheEnvironmentVariableForLibrariesLoadedLater) {
    const test::InEnvironment restored("GLIDEMAP_LOG", nullptr);
    log_detail::on = false;
    enableLog();
    EXPECT_TRUE(isLogging());
    EXPECT_STREQ(std::getenv("GLIDEMAP_LOG"), "1");
}

} // namespace
} // namespace glidemap
