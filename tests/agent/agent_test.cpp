// Tests the headless agent, which is the program without a user interface. A recording provides the
// touches, and each test has its own message buses. The tests in tests/vm use the kernel's virtual
// touchpads instead.
#include "choreography/performance.h"
#include "desktops/fake_service.h"
#include "desktops/private_bus.h"
#include "kit/in_environment.h"
#include "kit/temporary_folder.h"
#include "process.h"
#include "recording/recording_writer.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <deque>
#include <fstream>

namespace glidemap {
namespace {

using test::contentOf;
using test::FakeService;
using test::InEnvironment;
using test::Journal;
using test::PrivateBus;
using test::Process;
using test::TemporaryFolder;

const test::ServiceDescription logind{
    "org.freedesktop.login1", "/org/freedesktop/login1/session/auto",
    "<interface name='org.freedesktop.login1.Session'><method name='Lock'/>"
    "<property name='LockedHint' type='b' access='read'/></interface>"};

// Makes the fake logind lock the session when the program calls Lock(), and announce the change.
void lockOnRequest(FakeService& manager) {
    manager.answer("Lock", [&manager] {
        manager.setAndAnnounce("LockedHint", true, "org.freedesktop.login1.Session",
                               "/org/freedesktop/login1/session/_31");
        return g_variant_new("()");
    });
}

class AgentTest : public testing::Test {
protected:
    static std::vector<std::string> command() { return {GLIDEMAP_AGENT, "--never-ask"}; }

    // Writes the gestures to the recording, one second apart.
    void record(const std::vector<GestureType>& gestures) const {
        std::ofstream stream(folder.path() / "recording.jsonl");
        RecordingWriter writer(stream);
        writer.write(Report{0, {}});
        double start = 1;
        for (const GestureType gesture : gestures) {
            double end = start;
            for (const TimedReport& report : perform(gesture, 1)) {
                end = start + report.time;
                writer.write(Report{end, report.touches});
            }
            start = end + 1;
        }
    }

    // Returns the output without "ready". On a busy machine the agent may log the first gesture
    // before "ready".
    static std::string logOf(const Process& agent) {
        const std::string ready = "ready\n";
        std::string log = agent.output();
        const auto place = log.find(ready);
        EXPECT_NE(place, std::string::npos) << log;
        return place != std::string::npos ? log.erase(place, ready.size()) : log;
    }

    void ofUser(const std::string& settings) const {
        folder.write("config/glidemap/glidemap.ini", settings);
    }

    TemporaryFolder folder;
    Journal journal;
    PrivateBus systemBus;
    PrivateBus sessionBus;
    InEnvironment system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus.address().c_str()};
    InEnvironment session{"DBUS_SESSION_BUS_ADDRESS", sessionBus.address().c_str()};
    InEnvironment configuration{"XDG_CONFIG_HOME", (folder.path() / "config").c_str()};
    InEnvironment data{"XDG_DATA_HOME", (folder.path() / "data").c_str()};
    InEnvironment recording{"GLIDEMAP_RECORDING", (folder.path() / "recording.jsonl").c_str()};
    InEnvironment driver{"GLIDEMAP_TOUCH_DRIVER", GLIDEMAP_REPLAY_DRIVER};
    InEnvironment display{"DISPLAY", nullptr};
    InEnvironment wayland{"WAYLAND_DISPLAY", nullptr};
};

TEST_F(AgentTest, LogsEveryGestureAndLocksTheScreen) {
    FakeService manager(systemBus.address(), logind, journal);
    lockOnRequest(manager);
    record({GestureType::threeFingerSwipeUp, GestureType::fixAndTapLeft,
            GestureType::drawCircleClockwise});
    Process agent(command());
    ASSERT_TRUE(agent.waitForOutput("drawCircleClockwise"));
    EXPECT_TRUE(journal.waitFor("login1.Lock()"));
    agent.send(SIGTERM);
    EXPECT_EQ(agent.waitForEnd(), 0);
    EXPECT_EQ(logOf(agent), "threeFingerSwipeUp → (no matching binding) @ (unknown)\n"
                            "fixAndTapLeft → Shortcut ⌥⌘← @ (unknown)\n"
                            "drawCircleClockwise → Lock Screen @ (unknown)\n");
    EXPECT_TRUE(journal.waitFor("login1: no callers left"));
    const Journal::Lines lines = journal.lines();
    EXPECT_EQ(std::ranges::count(lines, "login1.Lock()"), 1);
    EXPECT_NE(contentOf(folder.path() / "data/Glidemap/bindings.json").find("\"drawCircle\""),
              std::string::npos);
    EXPECT_FALSE(std::filesystem::exists(folder.path() / "config/glidemap/glidemap.ini"));
}

TEST_F(AgentTest, LockActionRunsOnALockedScreenButNoGestureIsLogged) {
    test::ServiceDescription locked = logind;
    locked.properties = {{"LockedHint", true}};
    FakeService manager(systemBus.address(), locked, journal);
    record({GestureType::threeFingerSwipeUp, GestureType::fixAndTapLeft,
            GestureType::drawCircleClockwise});
    Process agent(command());
    EXPECT_TRUE(journal.waitFor("login1.Lock()"));
    agent.send(SIGTERM);
    EXPECT_EQ(agent.waitForEnd(), 0);
    EXPECT_EQ(logOf(agent), "");
}

TEST_F(AgentTest, LogUsesTheStoredLanguage) {
    FakeService manager(systemBus.address(), logind, journal);
    lockOnRequest(manager);
    ofUser("[General]\nappLanguage=zh\n");
    record({GestureType::drawCircleClockwise});
    Process agent(command());
    EXPECT_TRUE(agent.waitForOutput("→ 锁定屏幕 @"));
    agent.send(SIGINT);
    EXPECT_EQ(agent.waitForEnd(), 0);
}

TEST_F(AgentTest, NonBooleanSettingLeavesTheMasterSwitchOn) {
    ofUser("[General]\nmasterEnabled=0\n");
    record({GestureType::threeFingerSwipeUp});
    Process agent(command());
    EXPECT_TRUE(agent.waitForOutput("threeFingerSwipeUp"));
    agent.send(SIGTERM);
    EXPECT_EQ(agent.waitForEnd(), 0);
}

TEST_F(AgentTest, StartsAndExitsNormallyWithoutATouchpad) {
    const InEnvironment none("GLIDEMAP_TOUCH_DRIVER", "/nowhere/at/all.so");
    Process agent(command());
    EXPECT_TRUE(agent.waitForOutput("ready"));
    agent.send(SIGTERM);
    EXPECT_EQ(agent.waitForEnd(), 0);
    EXPECT_EQ(agent.output(), "ready\n");
}

TEST_F(AgentTest, RejectsAnUnknownOption) {
    Process agent({GLIDEMAP_AGENT, "--wrong"});
    EXPECT_EQ(agent.waitForEnd(), 2);
    EXPECT_EQ(agent.errors(), "usage: glidemap-agent [--never-ask]\n");
}

TEST_F(AgentTest, LogsEachDecisionButNotTheTypedKeys) {
    const InEnvironment log("GLIDEMAP_LOG", "1");
    record({GestureType::drawCircleClockwise, GestureType::threeFingerSwipeUp,
            GestureType::fixAndTapLeft});
    Process agent(command());
    ASSERT_TRUE(agent.waitForOutput("fixAndTapLeft"));
    agent.send(SIGTERM);
    EXPECT_EQ(agent.waitForEnd(), 0);
    const std::string& lines = agent.errors();
    for (const char* line :
         {" bindings: cannot read bindings from ", " bindings: saved ", " touchpads: started 1\n",
          " gestures: drawCircleClockwise in (unknown): bound to lockScreen\n",
          " actions: runs lockScreen\n", " services: org.freedesktop.login1 Lock: ",
          " gestures: threeFingerSwipeUp in (unknown): not bound\n",
          " gestures: fixAndTapLeft in (unknown): bound to keyboardShortcut\n",
          " actions: runs keyboardShortcut\n"}) {
        EXPECT_NE(lines.find(line), std::string::npos) << line << "is not in\n" << lines;
    }
    EXPECT_EQ(lines.find("⌥"), std::string::npos) << lines;
    EXPECT_EQ(lines.find("keyboardShortcut "), std::string::npos) << lines;
}

TEST_F(AgentTest, LogsNothingByDefault) {
    for (const char* value : {static_cast<const char*>(nullptr), "", "0"}) {
        const InEnvironment log("GLIDEMAP_LOG", value);
        record({GestureType::threeFingerSwipeUp});
        Process agent(command());
        EXPECT_TRUE(agent.waitForOutput("threeFingerSwipeUp"));
        agent.send(SIGTERM);
        EXPECT_EQ(agent.waitForEnd(), 0);
        EXPECT_EQ(agent.errors(), "");
    }
}

TEST_F(AgentTest, LogsAFailedSave) {
    const InEnvironment log("GLIDEMAP_LOG", "1");
    folder.write("file", "in the way");
    const InEnvironment blocked("XDG_DATA_HOME", (folder.path() / "file").c_str());
    Process agent(command());
    EXPECT_TRUE(agent.waitForOutput("ready"));
    agent.send(SIGTERM);
    EXPECT_EQ(agent.waitForEnd(), 0);
    EXPECT_NE(agent.errors().find(" bindings: saving failed: "), std::string::npos)
        << agent.errors();
}

} // namespace
} // namespace glidemap
