// Tests which gestures glidemap-replay recognises and how it prints them.

#include "choreography/performance.h"
#include "recording/recording_writer.h"
#include "replay_program.h"

#include <gmock/gmock.h>

#include <sstream>
#include <string>

namespace glidemap::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

std::string json(const std::string& time, const std::string& gesture, bool delivered = true) {
    return delivered
               ? deliveredLine(time, gesture)
               : R"({"t":)" + time + R"(,"gesture":")" + gesture + "\",\"delivered\":false}\n";
}

// Returns the complete output for a valid recording on standard input.
std::string replayed(const std::string& recording, std::vector<std::string> options = {}) {
    options.insert(options.end(), {"--json", "-"});
    const Ended ended = replay(options, recording);
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.errors, IsEmpty());
    return ended.output;
}

TEST(Replay, TextOutputShowsTimeRawValueAndDisplayName) {
    EXPECT_EQ(replay({"-"}, tapOf(2, 12.5, 12.625)),
              (Ended{0, "      12.625  twoFingerTap                Two-Finger Tap\n", ""}));
}

TEST(Replay, TextOutputMarksGesturesThatTheCooldownDropped) {
    EXPECT_EQ(replay({"-"}, tapOf(3, 1, 1.1) + tapOf(3, 1.2, 1.3)).output,
              "       1.100  threeFingerTap              Three-Finger Tap\n"
              "       1.300  threeFingerDoubleTap        Three-Finger Double Tap"
              "  (dropped: cooldown)\n");
}

TEST(Replay, JsonOutputHasOneObjectPerLine) {
    EXPECT_EQ(replayed(tapOf(2, 12.5, 12.625)), json("12.625", "twoFingerTap"));
}

TEST(Replay, DeliversTheFirstGestureInARecordingThatStartsAtZero) {
    EXPECT_EQ(replayed(tapOf(4, 0, 0.1)), json("0.1", "fourFingerTap"));
}

TEST(Replay, DropsAGestureLessThanAQuarterSecondAfterADeliveredGesture) {
    EXPECT_EQ(replayed(tapOf(5, 1, 1.125) + tapOf(5, 1.25, 1.3125)),
              json("1.125", "fiveFingerTap") + json("1.3125", "fiveFingerTap", false));
    EXPECT_EQ(replayed(tapOf(5, 1, 1.125) + tapOf(5, 1.25, 1.375)),
              json("1.125", "fiveFingerTap") + json("1.375", "fiveFingerTap"));
}

TEST(Replay, DroppedGestureDoesNotProlongTheCooldown) {
    EXPECT_EQ(replayed(tapOf(5, 1, 1.125) + tapOf(5, 1.25, 1.3125) + tapOf(5, 1.375, 1.4375)),
              json("1.125", "fiveFingerTap") + json("1.3125", "fiveFingerTap", false) +
                  json("1.4375", "fiveFingerTap"));
}

TEST(Replay, SingleTapIsImmediateWhileTheDoubleTapIsUnbound) {
    EXPECT_EQ(replayed(tapOf(2, 0, 0.2)), json("0.2", "twoFingerTap"));
}

TEST(Replay, SingleTapIsDelayedBy450MillisecondsWhileTheDoubleTapIsBound) {
    const std::string later = nothingAt(5);
    EXPECT_EQ(replayed(tapOf(2, 0, 0.2) + later, {"--double-tap", "2"}),
              json("0.65", "twoFingerTap"));
}

TEST(Replay, DelayedTapFiresAtTheEndOfTheRecording) {
    EXPECT_EQ(replayed(tapOf(2, 0, 0.2), {"--double-tap", "2"}), json("0.65", "twoFingerTap"));
}

TEST(Replay, DelayedTapFiresBeforeARecordWithTheSameTime) {
    const std::string tap = tapOf(2, 0, 0.25); // the delayed tap is due at 0.7
    const std::string fiveAt = tapOf(5, 0.5, 0.7);
    EXPECT_EQ(replayed(tap + fiveAt, {"--double-tap", "2"}),
              json("0.7", "twoFingerTap") + json("0.7", "fiveFingerTap", false));
    const std::string fiveJustBefore = tapOf(5, 0.5, 0.699);
    EXPECT_EQ(replayed(tap + fiveJustBefore, {"--double-tap", "2"}),
              json("0.699", "fiveFingerTap") + json("0.7", "twoFingerTap", false));
}

TEST(Replay, SecondTapCancelsTheDelayedFirstTap) {
    EXPECT_EQ(replayed(tapOf(2, 0, 0.1) + tapOf(2, 0.2, 0.3), {"--double-tap", "2"}),
              json("0.3", "twoFingerDoubleTap"));
}

TEST(Replay, DoubleTapBindingDelaysOnlyTapsWithTheSameFingerCount) {
    const std::string taps = tapOf(2, 0, 0.1) + tapOf(3, 2, 2.1) + tapOf(4, 4, 4.1);
    EXPECT_EQ(replayed(taps, {"--double-tap", "3"}), json("0.1", "twoFingerTap") +
                                                         json("2.55", "threeFingerTap") +
                                                         json("4.1", "fourFingerTap"));
    EXPECT_EQ(replayed(taps, {"--double-tap", "2", "--double-tap=4"}),
              json("0.55", "twoFingerTap") + json("2.1", "threeFingerTap") +
                  json("4.55", "fourFingerTap"));
}

TEST(Replay, FrontmostAndUnknownRecordsAdvanceTime) {
    const std::string others = R"({"t":0.4,"frontmost":{"bundleID":"org.example","name":"Any"}})"
                               "\n"
                               R"({"t":0.64,"frontmost":null})"
                               "\n"
                               R"({"t":0.65,"weather":"fine"})"
                               "\n";
    EXPECT_EQ(replayed(tapOf(2, 0, 0.2) + others + tapOf(5, 1, 1.1), {"--double-tap", "2"}),
              json("0.65", "twoFingerTap") + json("1.1", "fiveFingerTap"));
}

TEST(Replay, FirstLineMayDescribeTheDevice) {
    EXPECT_EQ(replayed(R"({"glidemap-recording":1,"device":"a pad","more":[]})"
                       "\n" +
                       tapOf(2, 1, 1.1)),
              json("1.1", "twoFingerTap"));
}

TEST(Replay, EmptyRecordingHasNoGestures) {
    EXPECT_EQ(replayed(""), "");
}

TEST(Replay, UnfinishedTouchIsNotAGesture) {
    EXPECT_EQ(replayed(R"({"t":1,"touches":[[1,0.3,0.5,4],[2,0.5,0.5,4]]})"
                       "\n"),
              "");
}

TEST(Replay, PlaysARecordingWhoseTimesGoBackwards) {
    EXPECT_EQ(replayed(tapOf(5, 10, 10.1) + tapOf(5, 1, 1.1) + tapOf(5, 20, 20.1)),
              json("10.1", "fiveFingerTap") + json("1.1", "fiveFingerTap", false) +
                  json("20.1", "fiveFingerTap"));
}

TEST(Replay, RecognisesEveryRecordedGesturePerformance) {
    for (const GestureType gesture : performableGestures()) {
        std::ostringstream recording;
        RecordingWriter writer(recording);
        for (const TimedReport& report : perform(gesture, 4)) {
            writer.write(Report{report.time, report.touches});
        }
        const std::string all =
            replayed(recording.str(), {"--double-tap=2", "--double-tap=3", "--double-tap=4"});
        EXPECT_THAT(all, testing::MatchesRegex(R"(\{"t":[0-9.]+,"gesture":")" +
                                               std::string(rawValue(gesture)) +
                                               R"(","delivered":true,"binding":null,"action":null,)"
                                               R"("app":null\})"
                                               "\n"));
    }
}

TEST(Replay, PlaysSeveralFilesIndependentlyAndPrintsTheirNames) {
    const Folder folder;
    // If both taps were in the same recording, they would form a double tap, or the cooldown would
    // drop the second one.
    const std::string first = folder.write("first", tapOf(2, 0, 0.1));
    const std::string second = folder.write("second \"two\"", tapOf(2, 0.2, 0.3));
    EXPECT_EQ(replay({first, second}).output,
              first + "\n       0.100  twoFingerTap                Two-Finger Tap\n" + second +
                  "\n       0.300  twoFingerTap                Two-Finger Tap\n");
    const std::string folderPath = std::filesystem::path(first).parent_path().string();
    EXPECT_EQ(replay({"--json", first, second}).output,
              R"({"file":")" + first + "\"}\n" + json("0.1", "twoFingerTap") + R"({"file":")" +
                  folderPath + R"(/second \"two\""})" + "\n" + json("0.3", "twoFingerTap"));
}

TEST(Replay, DelayedTapIsPrintedBeforeTheNameOfTheNextFile) {
    const Folder folder;
    const std::string file = folder.write("a", tapOf(2, 0, 0.2));
    const std::string header = R"({"file":")" + file + "\"}\n";
    EXPECT_EQ(replay({"--json", "--double-tap=2", file, file}).output,
              header + json("0.65", "twoFingerTap") + header + json("0.65", "twoFingerTap"));
}

TEST(Replay, FingerLeftDownInAFileDoesNotAffectTheNextFile) {
    const Folder folder;
    const std::string down = folder.write("down", R"({"t":0,"touches":[[9,0.9,0.1,4]]})"
                                                  "\n");
    const std::string tap = folder.write("tap", tapOf(2, 0, 0.1));
    EXPECT_THAT(replay({"--json", down, tap}).output, HasSubstr(json("0.1", "twoFingerTap")));
}

TEST(Replay, StandardInputMayBeAmongSeveralFiles) {
    const Folder folder;
    const std::string file = folder.write("a", tapOf(3, 0, 0.1));
    EXPECT_EQ(replay({"--json", file, "-"}, tapOf(2, 0, 0.1)).output,
              R"({"file":")" + file + "\"}\n" + json("0.1", "threeFingerTap") +
                  "{\"file\":\"-\"}\n" + json("0.1", "twoFingerTap"));
}

} // namespace
} // namespace glidemap::test
