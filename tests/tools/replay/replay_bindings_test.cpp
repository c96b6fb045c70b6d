// Tests the actions that glidemap-replay prints for a recording's gestures and clicks.

#include "replay_program.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace glidemap::test {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

const std::string global = R"({"kind":"global"})";
const std::string inEditor = R"({"kind":"app","bundleID":"org.example.Editor","name":"Editor"})";
const std::string lockScreen = R"({"kind":"lockScreen"})";
const std::string missionControl = R"({"kind":"missionControl"})";

std::string shortcut(const std::string& keyCode, const std::string& modifiers) {
    return R"({"kind":"keyboardShortcut","shortcut":{"keyCode":)" + keyCode + R"(,"modifiers":)" +
           modifiers + "}}";
}

std::string launch(const std::string& bundleID, const std::string& name) {
    return R"({"kind":"launchApp","bundleID":")" + bundleID + R"(","name":")" + name + "\"}";
}

// Returns the identifier of the binding that binding() creates with this digit.
std::string id(char digit) {
    return std::string(8, digit) + "-0000-4000-8000-00000000000A";
}

std::string binding(char digit, const std::string& gesture, const std::string& action,
                    const std::string& scope = global) {
    return R"({"id":")" + id(digit) + R"(","gesture":")" + gesture + R"(","action":)" + action +
           R"(,"scope":)" + scope + R"(,"enabled":true})";
}

std::string listOf(const std::vector<std::string>& bindings) {
    std::string list;
    for (const std::string& one : bindings) {
        list += (list.empty() ? "" : ",") + one;
    }
    return "[" + list + "]";
}

// Returns the complete output for valid bindings and a valid recording.
std::string replayed(const std::vector<std::string>& bindings, const std::string& recording,
                     std::vector<std::string> options = {"--json"}) {
    const Folder folder;
    const std::string file = folder.write("bindings.json", listOf(bindings));
    options.insert(options.end(), {"--bindings", file, "-"});
    const Ended ended = replay(options, recording);
    EXPECT_EQ(ended.status, 0);
    EXPECT_THAT(ended.errors, IsEmpty());
    return ended.output;
}

std::string matched(const std::string& time, const std::string& gesture, char digit,
                    const std::string& action, const std::string& app = "null") {
    return R"({"t":)" + time + R"(,"gesture":")" + gesture + R"(","delivered":true,"binding":")" +
           id(digit) + R"(","action":")" + action + R"(","app":)" + app + "}\n";
}

std::string keyLine(const std::string& time, const std::string& keyCode, bool down,
                    const std::string& flags) {
    return R"({"t":)" + time + R"(,"keyEvent":{"keyCode":)" + keyCode + R"(,"down":)" +
           (down ? "true" : "false") + R"(,"flags":)" + flags + "}}\n";
}

std::string typed(const std::string& time, const std::string& keyCode, const std::string& flags) {
    return keyLine(time, keyCode, true, flags) + keyLine(time, keyCode, false, flags);
}

std::string performed(const std::string& time, const std::string& what) {
    return R"({"t":)" + time + R"(,"perform":)" + what + "}\n";
}

// Returns a line of a recording. The overload with `swallowed` returns a line of the output.
std::string button(const std::string& time, int number, bool down) {
    return R"({"t":)" + time + R"(,"button":)" + std::to_string(number) + R"(,"down":)" +
           (down ? "true" : "false") + "}\n";
}

std::string button(const std::string& time, int number, bool down, bool swallowed) {
    std::string line = button(time, number, down);
    line.resize(line.size() - 2);
    return line + R"(,"swallowed":)" + (swallowed ? "true" : "false") + "}\n";
}

std::string frontmost(const std::string& time, const std::string& application) {
    return R"({"t":)" + time + R"(,"frontmost":)" + application + "}\n";
}

const std::string editor = R"({"bundleID":"org.example.Editor","name":"Editor"})";

// Returns a report of resting fingers, which the tests hold too long for a tap and too briefly for
// a long press.
std::string resting(int count, double from) {
    std::string tap = tapOf(count, from, from);
    return tap.substr(0, tap.find('\n') + 1);
}

TEST(ReplayBindings, ShortcutPrintsTheGestureThenKeyDownAndUp) {
    EXPECT_EQ(replayed({binding('1', "twoFingerTap", shortcut("124", "1572864"))},
                       tapOf(2, 12.5, 12.625)),
              matched("12.625", "twoFingerTap", '1', "Shortcut ⌥⌘→") +
                  typed("12.625", "124", "1572864"));
}

TEST(ReplayBindings, PrintsExactFlagsAndKeyCodesUpToTheirLimits) {
    EXPECT_EQ(replayed({binding('1', "twoFingerTap", shortcut("65535", "18446744073709551615"))},
                       tapOf(2, 0, 0.1)),
              matched("0.1", "twoFingerTap", '1', "Shortcut ⌃⌥⇧⌘Key 65535") +
                  typed("0.1", "65535", "18446744073709551615"));
    EXPECT_EQ(replayed({binding('1', "twoFingerTap", shortcut("0", "9007199254740993"))},
                       tapOf(2, 0, 0.1)),
              matched("0.1", "twoFingerTap", '1', "Shortcut A") +
                  typed("0.1", "0", "9007199254740993"));
}

TEST(ReplayBindings, ActionsExceptShortcutsPrintASeparateLine) {
    const std::pair<std::string, std::pair<std::string, std::string>> rows[] = {
        {lockScreen, {"Lock Screen", R"("lockScreen")"}},
        {missionControl, {"Mission Control", R"("missionControl")"}},
        {launch("org.example.Editor", "My \\\"Editor\\\""),
         {R"(Open My \"Editor\")",
          R"("launchApp","bundleID":"org.example.Editor","name":"My \"Editor\"")"}},
    };
    for (const auto& [action, expected] : rows) {
        EXPECT_EQ(replayed({binding('1', "twoFingerTap", action)}, tapOf(2, 0, 0.1)),
                  matched("0.1", "twoFingerTap", '1', expected.first) +
                      performed("0.1", expected.second));
    }
}

TEST(ReplayBindings, PrintsALaunchedApplicationWithTheNameInTheBinding) {
    EXPECT_EQ(
        replayed({binding('1', "twoFingerTap", launch("org.example.Editor", "First")),
                  binding('2', "threeFingerTap", launch("org.example.Editor", "Second"))},
                 tapOf(3, 0, 0.1) + tapOf(2, 1, 1.1)),
        matched("0.1", "threeFingerTap", '2', "Open Second") +
            performed("0.1", R"("launchApp","bundleID":"org.example.Editor","name":"Second")") +
            matched("1.1", "twoFingerTap", '1', "Open First") +
            performed("1.1", R"("launchApp","bundleID":"org.example.Editor","name":"First")"));
}

TEST(ReplayBindings, UnboundGestureHasNullFields) {
    EXPECT_EQ(replayed({binding('1', "threeFingerTap", lockScreen)}, tapOf(2, 0, 0.1)),
              deliveredLine("0.1", "twoFingerTap"));
    EXPECT_EQ(replayed({}, tapOf(2, 0, 0.1)), deliveredLine("0.1", "twoFingerTap"));
}

TEST(ReplayBindings, GestureDroppedByTheCooldownHasNoBinding) {
    EXPECT_EQ(replayed({binding('1', "fiveFingerTap", lockScreen)},
                       tapOf(5, 1, 1.125) + tapOf(5, 1.25, 1.3125)),
              matched("1.125", "fiveFingerTap", '1', "Lock Screen") +
                  performed("1.125", R"("lockScreen")") +
                  R"({"t":1.3125,"gesture":"fiveFingerTap","delivered":false})" + "\n");
}

TEST(ReplayBindings, FrontmostApplicationSelectsTheBindingAndIsPrinted) {
    const std::string taps = tapOf(2, 0, 0.1) + frontmost("1", editor) + tapOf(2, 2, 2.1) +
                             frontmost("3", R"({"bundleID":"org.example.Other","name":"Other"})") +
                             tapOf(2, 4, 4.1) +
                             frontmost("5", R"({"bundleID":"org.example.Editor"})") +
                             tapOf(2, 6, 6.1) + frontmost("7", "null") + tapOf(2, 8, 8.1);
    EXPECT_EQ(replayed({binding('1', "twoFingerTap", lockScreen),
                        binding('2', "twoFingerTap", missionControl, inEditor)},
                       taps),
              matched("0.1", "twoFingerTap", '1', "Lock Screen") +
                  performed("0.1", R"("lockScreen")") +
                  matched("2.1", "twoFingerTap", '2', "Mission Control", "\"Editor\"") +
                  performed("2.1", R"("missionControl")") +
                  matched("4.1", "twoFingerTap", '1', "Lock Screen", "\"Other\"") +
                  performed("4.1", R"("lockScreen")") +
                  matched("6.1", "twoFingerTap", '2', "Mission Control") +
                  performed("6.1", R"("missionControl")") +
                  matched("8.1", "twoFingerTap", '1', "Lock Screen") +
                  performed("8.1", R"("lockScreen")"));
}

TEST(ReplayBindings, PrintsTheFrontmostApplicationEvenWithoutBindings) {
    EXPECT_EQ(replay({"--json", "-"}, frontmost("0", editor) + tapOf(2, 1, 1.1)).output,
              R"({"t":1.1,"gesture":"twoFingerTap","delivered":true,"binding":null,"action":null,)"
              R"("app":"Editor"})"
              "\n");
}

TEST(ReplayBindings, SwallowsABoundClickAndPrintsItsActionAfterTheClick) {
    EXPECT_EQ(
        replayed({binding('1', "twoFingerClick", shortcut("1", "0"))},
                 resting(2, 0) + button("0.4", 0, true) + button("0.5", 0, false) + nothingAt(0.6)),
        button("0.4", 0, true, true) + typed("0.4", "1", "0") + button("0.5", 0, false, true));
}

TEST(ReplayBindings, SwallowsTheReleaseOfASwallowedPressAfterAllFingersLift) {
    EXPECT_EQ(replayed({binding('1', "threeFingerClick", lockScreen)},
                       resting(3, 0) + button("0.4", 1, true) + nothingAt(0.6) +
                           button("0.7", 1, false) + button("0.8", 1, false)),
              button("0.4", 1, true, true) + performed("0.4", R"("lockScreen")") +
                  button("0.7", 1, false, true) + button("0.8", 1, false, false));
}

struct ClickRow {
    std::string fact;
    int fingers;
    int number;
    std::string extra; // lines before the click
    bool isSwallowed;
};

TEST(ReplayBindings, SwallowsAClickOnlyIfFingersButtonAndApplicationMatch) {
    const std::vector<std::string> bindings = {
        binding('2', "twoFingerClick", lockScreen), binding('3', "threeFingerClick", lockScreen),
        binding('4', "fourFingerClick", lockScreen, inEditor)};
    const ClickRow rows[] = {
        {"one finger", 1, 0, "", false},
        {"two fingers, left", 2, 0, "", true},
        {"two fingers, right", 2, 1, "", true},
        {"two fingers, middle", 2, 2, "", false},
        {"two fingers, a button without a name", 2, -1, "", false},
        {"three fingers", 3, 0, "", true},
        {"four fingers in another application", 4, 0, "", false},
        {"four fingers in the editor", 4, 0, frontmost("0.3", editor), true},
        {"five fingers", 5, 0, "", false},
    };
    for (const ClickRow& row : rows) {
        SCOPED_TRACE(row.fact);
        const std::string recording = resting(row.fingers, 0) + row.extra +
                                      button("0.4", row.number, true) +
                                      button("0.5", row.number, false) + nothingAt(0.6);
        const std::string action = row.isSwallowed ? performed("0.4", R"("lockScreen")") : "";
        EXPECT_EQ(replayed(bindings, recording),
                  button("0.4", row.number, true, row.isSwallowed) + action +
                      button("0.5", row.number, false, row.isSwallowed));
    }
}

TEST(ReplayBindings, EveryButtonPassesWithoutBindings) {
    EXPECT_EQ(replay({"--json", "-"}, resting(2, 0) + button("0.4", 0, true) +
                                          button("0.5", 0, false) + nothingAt(0.6))
                  .output,
              button("0.4", 0, true, false) + button("0.5", 0, false, false));
}

TEST(ReplayBindings, ButtonHeldAtTheEndOfAFileDoesNotAffectTheNextFile) {
    const Folder folder;
    const std::string bindings =
        folder.write("bindings.json", listOf({binding('1', "twoFingerClick", lockScreen)}));
    const std::string held = folder.write("held", resting(2, 0) + button("0.4", 0, true));
    const std::string released = folder.write("released", button("0.5", 0, false));
    EXPECT_EQ(replay({"--json", "--bindings", bindings, held, released}).output,
              R"({"file":")" + held + "\"}\n" + button("0.4", 0, true, true) +
                  performed("0.4", R"("lockScreen")") + R"({"file":")" + released + "\"}\n" +
                  button("0.5", 0, false, false));
}

TEST(ReplayBindings, BoundDoubleTapDelaysSingleTapsWithTheSameFingerCount) {
    const std::vector<std::string> bindings = {binding('1', "twoFingerTap", lockScreen),
                                               binding('2', "twoFingerDoubleTap", missionControl)};
    EXPECT_EQ(replayed(bindings, tapOf(2, 0, 0.2) + nothingAt(5)),
              matched("0.65", "twoFingerTap", '1', "Lock Screen") +
                  performed("0.65", R"("lockScreen")"));
    EXPECT_EQ(replayed(bindings, tapOf(2, 0, 0.1) + tapOf(2, 0.2, 0.3)),
              matched("0.3", "twoFingerDoubleTap", '2', "Mission Control") +
                  performed("0.3", R"("missionControl")"));
}

TEST(ReplayBindings, CombinesDoubleTapsFromBindingsAndCommandLine) {
    const std::vector<std::string> bindings = {binding('1', "twoFingerDoubleTap", lockScreen)};
    EXPECT_EQ(replayed(bindings, tapOf(2, 0, 0.1) + tapOf(3, 2, 2.1) + tapOf(4, 4, 4.1),
                       {"--json", "--double-tap=4"}),
              deliveredLine("0.55", "twoFingerTap") + deliveredLine("2.1", "threeFingerTap") +
                  deliveredLine("4.55", "fourFingerTap"));
}

TEST(ReplayBindings, DelayedTapUsesTheApplicationThatIsFrontmostWhenTheTapFires) {
    EXPECT_EQ(replayed({binding('1', "twoFingerTap", lockScreen, inEditor),
                        binding('2', "twoFingerDoubleTap", lockScreen)},
                       tapOf(2, 0, 0.2) + frontmost("0.6", editor)),
              matched("0.65", "twoFingerTap", '1', "Lock Screen", "\"Editor\"") +
                  performed("0.65", R"("lockScreen")"));
}

TEST(ReplayBindings, PrintsNamesAndActionsInChinese) {
    const std::vector<std::string> bindings = {
        binding('1', "twoFingerTap", shortcut("124", "1572864"))};
    EXPECT_EQ(replayed(bindings, tapOf(2, 0, 0.1), {"--json", "--lang", "zh"}),
              matched("0.1", "twoFingerTap", '1', "快捷键 ⌥⌘→") + typed("0.1", "124", "1572864"));
    EXPECT_EQ(replayed(bindings, tapOf(2, 0, 0.1), {"--lang=zh"}),
              "       0.100  twoFingerTap                两指轻点  → 快捷键 ⌥⌘→\n");
    EXPECT_EQ(replayed(bindings, tapOf(2, 0, 0.1), {"--lang=en"}),
              "       0.100  twoFingerTap                Two-Finger Tap  → Shortcut ⌥⌘→\n");
}

TEST(ReplayBindings, TextOutputAppendsActionAndApplicationOnlyToBoundGestures) {
    EXPECT_EQ(replayed({binding('1', "twoFingerTap", lockScreen)},
                       tapOf(2, 0, 0.1) + tapOf(3, 1, 1.1) + frontmost("1.5", editor) +
                           tapOf(2, 2, 2.1) + tapOf(3, 3, 3.1),
                       {}),
              "       0.100  twoFingerTap                Two-Finger Tap  → Lock Screen\n"
              "       1.100  threeFingerTap              Three-Finger Tap\n"
              "       2.100  twoFingerTap                Two-Finger Tap  → Lock Screen @ Editor\n"
              "       3.100  threeFingerTap              Three-Finger Tap\n");
}

TEST(ReplayBindings, TextOutputShowsSwallowedButtons) {
    EXPECT_EQ(replayed({binding('1', "twoFingerClick", lockScreen)},
                       button("0", 0, true) + button("0.1", 0, false) + resting(2, 0.2) +
                           button("0.4", 0, true) + button("0.5", 0, false) + nothingAt(0.9),
                       {}),
              "       0.400  button 0 down               swallowed: Two-Finger Click"
              "  → Lock Screen\n"
              "       0.500  button 0 up                 swallowed\n");
}

TEST(ReplayBindings, RealTimePlaybackPrintsTheSameOutput) {
    const std::vector<std::string> bindings = {binding('1', "twoFingerTap", lockScreen),
                                               binding('2', "twoFingerDoubleTap", lockScreen),
                                               binding('3', "threeFingerClick", missionControl)};
    const std::string recording = resting(3, 0) + button("0.05", 0, true) +
                                  button("0.1", 0, false) + nothingAt(0.35) + tapOf(2, 0.4, 0.45);
    const std::string all = replayed(bindings, recording);
    EXPECT_THAT(all, HasSubstr(R"({"t":0.9,"perform":"lockScreen"})"));
    EXPECT_EQ(replayed(bindings, recording, {"--json", "--real-time"}), all);
}

std::string contentOf(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(ReplayBindings, DoesNotWriteTheBindingsFile) {
    const Folder folder;
    const std::string content = "  " + listOf({binding('1', "twoFingerTap", lockScreen)}) + "\n\n";
    const std::string file = folder.write("bindings.json", content);
    const auto parent = std::filesystem::path(file).parent_path();
    const auto before = std::filesystem::last_write_time(file);
    EXPECT_EQ(replay({"--bindings", file, "-"}, tapOf(2, 0, 0.1)).status, 0);
    EXPECT_EQ(contentOf(file), content);
    EXPECT_EQ(std::filesystem::last_write_time(file), before);
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(parent), {}), 1);
}

struct BadFile {
    std::string content;
    std::string reason; // a substring of the message
};

TEST(ReplayBindings, ReportsTheNameAndReasonForAnInvalidFile) {
    const std::string good = binding('1', "twoFingerTap", lockScreen);
    const BadFile rows[] = {
        {"", "not JSON"},
        {"nonsense", "not JSON"},
        {"{}", "not an array"},
        {"[" + good, "not JSON"},
        {listOf({good, binding('2', "sixFingerTap", lockScreen)}), "[1].gesture"},
        {listOf({binding('1', "twoFingerTap", shortcut("65536", "0"))}), "keyCode"},
        {listOf({binding('1', "twoFingerTap", R"({"kind":"dance"})")}), "[0].action.kind"},
    };
    for (const BadFile& row : rows) {
        SCOPED_TRACE(row.content);
        const Folder folder;
        const std::string file = folder.write("bindings.json", row.content);
        const Ended ended = replay({"--json", "--bindings", file, "-"}, tapOf(2, 0, 0.1));
        EXPECT_EQ(ended.status, 2);
        EXPECT_THAT(ended.output, IsEmpty());
        EXPECT_THAT(ended.errors, StartsWith("glidemap-replay: " + file + ": "));
        EXPECT_THAT(ended.errors, HasSubstr(row.reason));
        EXPECT_EQ(contentOf(file), row.content);
    }
}

TEST(ReplayBindings, ReportsTheNameAndSystemErrorForAnUnreadableFile) {
    const Ended missing = replay({"--bindings", "/nonexistent/bindings.json", "-"}, "");
    EXPECT_EQ(
        missing,
        (Ended{2, "", "glidemap-replay: /nonexistent/bindings.json: No such file or directory\n"}));
    EXPECT_EQ(replay({"--bindings", "/dev/zero", "-"}, ""),
              (Ended{2, "", "glidemap-replay: /dev/zero: the file is too large\n"}));
    EXPECT_EQ(replay({"--bindings", "/", "-"}, ""),
              (Ended{2, "", "glidemap-replay: /: Is a directory\n"}));
}

} // namespace
} // namespace glidemap::test
