#include "desktops/fake_programs.h"
#include "kit/in_environment.h"
#include "platform/linux/session/session_lockers.h"
#include "platform/linux/session/session_processes.h"

#include <gmock/gmock.h>

#include <array>
#include <string>
#include <vector>

namespace glidemap {
namespace {

using test::FakePrograms;
using test::InEnvironment;
using testing::ElementsAre;
using testing::IsEmpty;
using Words = std::vector<std::string>;

std::vector<Words> commandsOf(const SessionLockers& lockers) {
    std::vector<Words> commands;
    for (const LockCommand& command : lockers.commands()) {
        commands.push_back(command.words);
    }
    return commands;
}

TEST(SessionLockers, ReturnsNoCommandWithoutALocker) {
    const SessionLockers none({}, "sway", "");
    EXPECT_THAT(none.commands(), IsEmpty());
    EXPECT_FALSE(none.isLocked());
    EXPECT_FALSE(none.listensToLogind());
}

TEST(SessionLockers, ReturnsTheLockCommandOfEachSupportedDaemon) {
    EXPECT_THAT(commandsOf({{{"xscreensaver", {}}}, "", ""}),
                ElementsAre(Words{"xscreensaver-command", "-lock"}));
    EXPECT_THAT(commandsOf({{{"light-locker", {}}}, "", ""}),
                ElementsAre(Words{"light-locker-command", "--lock"}));
    EXPECT_THAT(commandsOf({{{"xautolock", {}}}, "", ""}),
                ElementsAre(Words{"xautolock", "-locknow"}));
    EXPECT_THAT(commandsOf({{{"xss-lock", {"xss-lock", "--", "i3lock"}}}, "", ""}),
                ElementsAre(Words{"xset", "s", "activate"}));
}

TEST(SessionLockers, XfceCommandPrecedesTheCommandOfARunningLocker) {
    EXPECT_THAT(commandsOf({{{"xscreensaver", {}}}, "XFCE", ""}),
                ElementsAre(Words{"xflock4"}, Words{"xscreensaver-command", "-lock"}));
}

TEST(SessionLockers, LogindListenersAreDetected) {
    EXPECT_TRUE(SessionLockers({{"xss-lock", {}}}, "", "").listensToLogind());
    EXPECT_TRUE(SessionLockers({{"light-locker", {}}}, "", "").listensToLogind());
    EXPECT_FALSE(SessionLockers({{"xscreensaver", {}}}, "", "").listensToLogind());
    EXPECT_FALSE(SessionLockers({{"swayidle", {"swayidle"}}}, "", "").listensToLogind());
    EXPECT_FALSE(SessionLockers({{"swayidle", {"swayidle", "timeout", "9", "swaylock"}}}, "", "")
                     .listensToLogind());
    EXPECT_TRUE(SessionLockers({{"swayidle", {"swayidle", "lock", "swaylock -f"}}}, "", "")
                    .listensToLogind());
}

TEST(SessionLockers, ReadsTheLockerFromTheSwayidleArguments) {
    const Words arguments = {"swayidle",
                             "-w",
                             "timeout",
                             "300",
                             "swaylock -f -c 'a b'",
                             "timeout",
                             "600",
                             "swaymsg output * dpms off",
                             "before-sleep",
                             "/usr/bin/swaylock -f"};
    const SessionLockers lockers({{"swayidle", arguments}}, "sway", "");
    EXPECT_THAT(commandsOf(lockers), ElementsAre(Words{"/bin/sh", "-c", "swaylock -f -c 'a b'"},
                                                 Words{"/bin/sh", "-c", "/usr/bin/swaylock -f"}));
    EXPECT_TRUE(lockers.commands().front().stays);
}

TEST(SessionLockers, ReadsTheLockerFromTheSwayidleConfiguration) {
    const std::string file =
        "# swaylock is not here\ntimeout 300 'swaylock -f'\n\nlock \"gtklock -d\"";
    const SessionLockers lockers({{"swayidle", {"swayidle"}}}, "sway", file);
    EXPECT_THAT(commandsOf(lockers), ElementsAre(Words{"/bin/sh", "-c", "swaylock -f"},
                                                 Words{"/bin/sh", "-c", "gtklock -d"}));
    EXPECT_TRUE(lockers.listensToLogind());
    EXPECT_THAT(SessionLockers({}, "sway", file).commands(), IsEmpty()); // swayidle is not running
}

TEST(SessionLockers, LockerThatCoversTheScreenIsDetected) {
    EXPECT_TRUE(SessionLockers({{"swaylock", {}}}, "", "").isLocked());
    EXPECT_TRUE(SessionLockers({{"i3lock", {}}}, "", "").isLocked());
    EXPECT_FALSE(SessionLockers({{"light-locker", {}}}, "", "").isLocked());
}

class SessionProcessesTest : public testing::Test {
protected:
    static std::vector<SessionProcess> found(std::string_view name) {
        const std::array<std::string_view, 1> names = {name};
        return sessionProcesses(names);
    }

    FakePrograms doubles;
    // No real session uses this display name.
    InEnvironment display{"DISPLAY", ":session-processes"};
    InEnvironment socket{"WAYLAND_DISPLAY", nullptr};
};

TEST_F(SessionProcessesTest, FindsProcessesByNameAndDisplay) {
    doubles.start("a-program", {"two words"}, {{"DISPLAY", ":session-processes"}});
    doubles.start("a-program", {"elsewhere"}, {{"DISPLAY", ":session-processes-2"}});
    doubles.start("a-program", {"nowhere"}, {});
    const auto processes = found("a-program");
    ASSERT_EQ(processes.size(), 1U);
    EXPECT_EQ(processes[0].name, "a-program");
    EXPECT_EQ(processes[0].arguments.back(), "two words");
    EXPECT_THAT(found("another"), IsEmpty());
}

TEST_F(SessionProcessesTest, MatchesWaylandDisplaysOnlyInTheSameRuntimeFolder) {
    const InEnvironment noDisplay("DISPLAY", nullptr);
    const InEnvironment wayland("WAYLAND_DISPLAY", "wayland-9");
    const InEnvironment folder("XDG_RUNTIME_DIR", "/run/of/this");
    doubles.start("a-program", {"here"},
                  {{"WAYLAND_DISPLAY", "wayland-9"}, {"XDG_RUNTIME_DIR", "/run/of/this"}});
    doubles.start("a-program", {"elsewhere"},
                  {{"WAYLAND_DISPLAY", "wayland-9"}, {"XDG_RUNTIME_DIR", "/run/of/another"}});
    const auto processes = found("a-program");
    ASSERT_EQ(processes.size(), 1U);
    EXPECT_EQ(processes[0].arguments.back(), "here");
}

} // namespace
} // namespace glidemap
