// Tests of glidemap-replay --demonstrate.

#include "choreography/performance.h"
#include "replay_program.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    for (std::string line; std::getline(stream, line);) {
        lines.push_back(line);
    }
    return lines;
}

TEST(Demonstration, PerformsEveryPerformableGestureOnceInOrder) {
    const Ended ended = replay({"--demonstrate"});
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.errors, IsEmpty());
    std::vector<std::string> lines = linesOf(ended.output);
    const std::vector<GestureType> gestures = performableGestures();
    ASSERT_EQ(lines.size(), gestures.size() + 1);
    for (std::size_t index = 0; index < gestures.size(); ++index) {
        const std::string name(rawValue(gestures[index]));
        EXPECT_THAT(lines[index], MatchesRegex(name + " +[A-Z].+ recognised: " + name));
    }
    EXPECT_EQ(lines.back(), "44 of 44 gestures recognised as intended");
}

TEST(Demonstration, JsonLinesContainTheCompleteListOfRecognisedGestures) {
    const Ended ended = replay({"--demonstrate", "--json"});
    EXPECT_EQ(ended.status, 0);
    std::vector<std::string> lines = linesOf(ended.output);
    const std::vector<GestureType> gestures = performableGestures();
    ASSERT_EQ(lines.size(), gestures.size() + 1);
    for (std::size_t index = 0; index < gestures.size(); ++index) {
        const std::string name(rawValue(gestures[index]));
        EXPECT_THAT(lines[index],
                    MatchesRegex(R"(\{"intended":")" + name +
                                 R"(","recognised":\[\{"t":[0-9.]+,"gesture":")" + name +
                                 R"(","delivered":true\}\],"asIntended":true\})"));
    }
    EXPECT_EQ(lines.back(), R"({"performed":44,"asIntended":44})");
}

TEST(Demonstration, EachSeedPerformsAllGesturesDifferently) {
    const std::string first = replay({"--demonstrate", "--json"}).output;
    EXPECT_EQ(replay({"--demonstrate", "--json", "--seed=1"}).output, first);
    for (int seed = 2; seed < 20; ++seed) {
        const Ended ended = replay({"--demonstrate", "--json", "--seed", std::to_string(seed)});
        EXPECT_EQ(ended.status, 0) << seed;
        EXPECT_NE(ended.output, first);
    }
}

TEST(Demonstration, PrintsStatistics) {
    const Ended ended = replay({"--demonstrate", "--stats"});
    // Three of the 44 gestures are double taps, which take two sessions each.
    EXPECT_THAT(ended.errors, HasSubstr("touch sessions  47\n"));
    EXPECT_THAT(ended.errors, HasSubstr("gestures        44 delivered, 0 dropped\n"));
}

TEST(Demonstration, FailsIfTheDriverLosesReports) {
    const Folder folder;
    folder.copy(GLIDEMAP_DROPPING_DRIVER, "lib/glidemap/libglidemap-replay.so");
    const Ended ended =
        replayWith(folder.copy(GLIDEMAP_REPLAY_PROGRAM, "bin/glidemap-replay"), {"--demonstrate"});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(linesOf(ended.output).front(),
                MatchesRegex("drawCircleClockwise .+ WRONG, recognised: nothing"));
    EXPECT_EQ(linesOf(ended.output).back(), "0 of 44 gestures recognised as intended");
}

} // namespace
} // namespace glidemap::test
