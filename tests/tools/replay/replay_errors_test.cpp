// Tests how glidemap-replay handles invalid recordings.

#include "replay_program.h"

#include <gmock/gmock.h>

#include <string>

namespace glidemap::test {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const std::string twoFingerTapLine = deliveredLine("0.1", "twoFingerTap");

TEST(ReplayErrors, ReportsAMalformedLineAndPrintsTheGesturesBeforeIt) {
    const Folder folder;
    const std::string file =
        folder.write("bad", tapOf(2, 0, 0.1) + "{\"t\":1,\n" + tapOf(5, 2, 2.1));
    const Ended ended = replay({"--json", file});
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, twoFingerTapLine);
    EXPECT_THAT(ended.errors, StartsWith("glidemap-replay: " + file + ":3: "));
}

TEST(ReplayErrors, DelayedTapFiresOnceBeforeAMalformedLine) {
    const Ended ended = replay({"--json", "--double-tap=2", "-"}, tapOf(2, 0, 0.2) + "nonsense\n");
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output, deliveredLine("0.65", "twoFingerTap"));
    EXPECT_THAT(ended.errors, StartsWith("glidemap-replay: standard input:3: "));
}

TEST(ReplayErrors, PlaysTheRemainingFilesAfterAnInvalidFile) {
    const Folder folder;
    const std::string bad = folder.write("bad", "{\"t\":\"now\",\"touches\":[]}\n");
    const std::string good = folder.write("good", tapOf(2, 0, 0.1));
    const Ended ended = replay({"--json", bad, good});
    EXPECT_EQ(ended.status, 2);
    EXPECT_EQ(ended.output,
              R"({"file":")" + bad + "\"}\n" + R"({"file":")" + good + "\"}\n" + twoFingerTapLine);
    EXPECT_THAT(ended.errors, StartsWith("glidemap-replay: " + bad + ":1: "));
}

TEST(ReplayErrors, ReportsAMissingFileByName) {
    const Ended ended = replay({"/nonexistent/recording"});
    EXPECT_EQ(ended.status, 2);
    EXPECT_THAT(ended.output, IsEmpty());
    EXPECT_THAT(ended.errors, AllOf(StartsWith("glidemap-replay: /nonexistent/recording: "),
                                    HasSubstr("No such file")));
}

TEST(ReplayErrors, RejectsAFolder) {
    const Ended ended = replay({"/"});
    EXPECT_EQ(ended.status, 2);
    EXPECT_THAT(ended.errors, StartsWith("glidemap-replay: /:"));
}

TEST(ReplayErrors, RejectsUnknownContent) {
    const Ended ended = replay({"-"}, "Dear diary,\n");
    EXPECT_EQ(ended.status, 2);
    EXPECT_THAT(ended.errors, StartsWith("glidemap-replay: standard input:1: "));
}

TEST(ReplayErrors, FailsIfTheOutputCannotBeWritten) {
    const Folder folder;
    const Ended ended = replayInto("/dev/full", {folder.write("tap", tapOf(2, 0, 0.1))});
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.errors, HasSubstr("cannot be written"));
}

TEST(ReplayErrors, FailsWithoutTheReplayDriver) {
    const Folder folder;
    const std::string program = folder.copy(GLIDEMAP_REPLAY_PROGRAM, "bin/glidemap-replay");
    const Ended ended = replayWith(program, {"-"}, tapOf(2, 0, 0.1));
    EXPECT_EQ(ended.status, 1);
    EXPECT_THAT(ended.output, IsEmpty());
    EXPECT_THAT(ended.errors, AllOf(StartsWith("glidemap-replay: the replay driver cannot be used"),
                                    HasSubstr("lib/glidemap/libglidemap-replay.so")));
}

struct CommandLine {
    std::vector<std::string> arguments;
    std::string message;
};

TEST(ReplayErrors, ExplainsAnInvalidCommandLineAndPlaysNothing) {
    const CommandLine rows[] = {
        {{}, "no recording given"},
        {{"--json"}, "no recording given"},
        {{"--nonsense", "-"}, "invalid option --nonsense"},
        {{"--json=yes", "-"}, "invalid option --json=yes"},
        {{"--json", "-xy", "-"}, "unknown option -x"},
        {{"--double-tap"}, "--double-tap needs a value"},
        {{"--double-tap", "1", "-"}, "--double-tap takes 2, 3 or 4, not \"1\""},
        {{"--double-tap", "5", "-"}, "--double-tap takes 2, 3 or 4, not \"5\""},
        {{"--double-tap", "2x", "-"}, "--double-tap takes 2, 3 or 4, not \"2x\""},
        {{"--double-tap", "", "-"}, "--double-tap takes 2, 3 or 4, not \"\""},
        {{"--seed", "3", "-"}, "--seed needs --demonstrate or --write-demonstration"},
        {{"--write-demonstration"}, "--write-demonstration needs a value"},
        {{"--write-demonstration", "x", "-"},
         "--write-demonstration cannot be combined with --demonstrate or with files"},
        {{"--write-demonstration", "x", "--demonstrate"},
         "--write-demonstration cannot be combined with --demonstrate or with files"},
        {{"--demonstrate", "--seed", "-1"}, "--seed takes a whole number, not \"-1\""},
        {{"--demonstrate", "-"}, "--demonstrate does not play files"},
        {{"--demonstrate", "--double-tap=2"}, "--demonstrate cannot be combined with --double-tap"},
        {{"--demonstrate", "--bindings=x"}, "--demonstrate cannot be combined with --bindings"},
        {{"--bindings"}, "--bindings needs a value"},
        {{"--lang", "fr", "-"}, "--lang takes en or zh, not \"fr\""},
        {{"--lang=", "-"}, "--lang takes en or zh, not \"\""},
        {{"--lang"}, "--lang needs a value"},
    };
    for (const CommandLine& row : rows) {
        EXPECT_EQ(replay(row.arguments, tapOf(2, 0, 0.1)),
                  (Ended{2, "", "glidemap-replay: " + row.message + " (see --help)\n"}));
    }
}

} // namespace
} // namespace glidemap::test
