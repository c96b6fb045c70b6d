// Tests the options of glidemap-replay that do not affect recognition.

#include "replay_program.h"

#include <gmock/gmock.h>

#include <chrono>
#include <string>

namespace glidemap::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

std::chrono::duration<double> timeOf(const std::vector<std::string>& arguments,
                                     const std::string& input, Ended& ended) {
    const auto begin = std::chrono::steady_clock::now();
    ended = replay(arguments, input);
    return std::chrono::steady_clock::now() - begin;
}

TEST(ReplayOptions, HelpDocumentsEveryOptionAndExitStatus) {
    const Ended ended = replay({"--help"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.errors, IsEmpty());
    for (const char* word :
         {"--double-tap COUNT", "--bindings FILE", "--lang en|zh", "--json", "--real-time",
          "--stats", "--demonstrate", "--seed N", "--help", "Exit status: 0", "1 when", "2 for"}) {
        EXPECT_THAT(ended.output, HasSubstr(word));
    }
}

TEST(ReplayOptions, PrintsStatisticsOnlyToStandardError) {
    const std::string recording =
        tapOf(5, 1, 1.125) + tapOf(5, 1.25, 1.3125) + R"({"t":3,"button":0,"down":true})" + "\n";
    const Ended ended = replay({"--stats", "--json", "-"}, recording);
    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, replay({"--json", "-"}, recording).output);
    EXPECT_THAT(ended.errors, MatchesRegex("frames          4\n"
                                           "contacts        10\n"
                                           "touch sessions  2\n"
                                           "gestures        1 delivered, 1 dropped\n"
                                           "recorded time   2.000 s\n"
                                           "wall time       [0-9.]+ s\n"
                                           "speed           [0-9]+ frames/s\n"));
}

TEST(ReplayOptions, StatisticsAreSumsOverAllFiles) {
    const Folder folder;
    const std::string file = folder.write("a", tapOf(2, 100, 100.5));
    const Ended ended = replay({"--stats", file, file});
    EXPECT_THAT(ended.errors, HasSubstr("frames          4\n"));
    EXPECT_THAT(ended.errors, HasSubstr("recorded time   1.000 s\n"));
}

TEST(ReplayOptions, RealTimePlaybackTakesAsLongAsTheRecording) {
    const std::string recording = tapOf(3, 70, 70.1) + nothingAt(70.4);
    Ended slow;
    EXPECT_GE(timeOf({"--real-time", "--json", "-"}, recording, slow).count(), 0.4);
    EXPECT_EQ(slow, replay({"--json", "-"}, recording));
}

TEST(ReplayOptions, RealTimePlaybackWaitsForADelayedTapAtTheEnd) {
    const std::string recording = tapOf(3, 70, 70.1);
    const std::vector<std::string> options = {"--json", "--double-tap=3", "-"};
    Ended slow;
    EXPECT_GE(timeOf({"--real-time", "--json", "--double-tap=3", "-"}, recording, slow).count(),
              0.55);
    EXPECT_EQ(slow, replay(options, recording));
    EXPECT_THAT(slow.output, HasSubstr("\"t\":70.55,"));
}

TEST(ReplayOptions, RealTimePlaybackDoesNotWaitWhenTimeGoesBackwards) {
    const std::string recording = tapOf(5, 1000, 1000.1) + tapOf(5, 1, 1.1);
    Ended slow;
    const auto took = timeOf({"--real-time", "--json", "-"}, recording, slow);
    EXPECT_GE(took.count(), 0.2);
    EXPECT_LT(took.count(), 100);
    EXPECT_EQ(slow, replay({"--json", "-"}, recording));
}

} // namespace
} // namespace glidemap::test
