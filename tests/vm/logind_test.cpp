// Switches between two sessions of a real logind on a real seat. A fake replaces the service
// manager, and only reports that each session's scope has started. So the test itself puts the
// program into the control group of its session's scope.

#include "agent_session.h"
#include "deadline.h"
#include "desktops/fake_service.h"
#include "device_reader.h"
#include "input_devices.h"
#include "kit/in_environment.h"
#include "ordinary_pad.h"
#include "pad_hand.h"
#include "virtual_pad.h"

#include <gio/gio.h>
#include <gio/gunixfdlist.h>
#include <gtest/gtest.h>
#include <linux/input.h>
#include <sched.h>
#include <sys/mount.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

namespace glidemap::test {
namespace {

namespace fs = std::filesystem;

constexpr const char* logindName = "org.freedesktop.login1";
constexpr const char* logindProgram = "/lib/systemd/systemd-logind";
constexpr const char* socketFile = "/run/dbus/system_bus_socket";
constexpr const char* systemBus = "unix:path=/run/dbus/system_bus_socket";
constexpr const char* keyboardName = "Glidemap Keyboard";
constexpr const char* job = "/org/freedesktop/systemd1/job/1";

const ServiceDescription serviceManager{
    "org.freedesktop.systemd1", "/org/freedesktop/systemd1",
    "<interface name='org.freedesktop.systemd1.Manager'><method name='StartUnit'>"
    "<arg type='s' direction='in'/><arg type='s' direction='in'/>"
    "<arg type='o' direction='out'/></method><method name='StartTransientUnit'>"
    "<arg type='s' direction='in'/><arg type='s' direction='in'/>"
    "<arg type='a(sv)' direction='in'/><arg type='a(sa(sv))' direction='in'/>"
    "<arg type='o' direction='out'/></method>"
    "<signal name='JobRemoved'><arg type='u'/><arg type='o'/><arg type='s'/><arg type='s'/>"
    "</signal></interface>"};

struct Session {
    std::string id;
    std::string path;
    std::shared_ptr<GUnixFDList> open; // closing this descriptor ends the session
};

// A seat with several sessions, each of which is led by its own process.
class Seat {
public:
    Seat() {
        connection.reset(
            g_dbus_connection_new_for_address_sync(
                systemBus,
                static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                  G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
                nullptr, nullptr, nullptr),
            g_object_unref);
    }

    bool waitForLogind() const {
        const Deadline deadline;
        bool isThere = false;
        while (!isThere && !deadline.passed()) {
            GVariant* values = g_dbus_connection_call_sync(
                connection.get(), "org.freedesktop.DBus", "/org/freedesktop/DBus",
                "org.freedesktop.DBus", "NameHasOwner", g_variant_new("(s)", logindName), nullptr,
                G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
            gboolean hasOwner = FALSE;
            if (values != nullptr) {
                g_variant_get(values, "(b)", &hasOwner);
                g_variant_unref(values);
            }
            isThere = hasOwner != FALSE;
            sched_yield();
        }
        return isThere;
    }

    Session open(uid_t user, const Process& leader) const {
        GUnixFDList* descriptors = nullptr;
        GVariant* const values = call(
            "/org/freedesktop/login1", "org.freedesktop.login1.Manager", "CreateSession",
            g_variant_new("(uusssssussbssa(sv))", user, static_cast<guint32>(leader.id()), "test",
                          "x11", "user", "", "seat0", 0U, "", "", FALSE, "", "", nullptr),
            &descriptors);
        Session session;
        if (values != nullptr) {
            const char* id = nullptr;
            const char* path = nullptr;
            g_variant_get_child(values, 0, "&s", &id);
            g_variant_get_child(values, 1, "&o", &path);
            session = {id, path, std::shared_ptr<GUnixFDList>(descriptors, g_object_unref)};
            g_variant_unref(values);
        }
        return session;
    }

    void activate(const Session& session) const {
        GVariant* values = call(session.path.c_str(), "org.freedesktop.login1.Session", "Activate",
                                nullptr, nullptr);
        g_clear_pointer(&values, g_variant_unref);
    }

private:
    GVariant* call(const char* path, const char* interface, const char* method, GVariant* arguments,
                   GUnixFDList** descriptors) const {
        GError* error = nullptr;
        GVariant* const values = g_dbus_connection_call_with_unix_fd_list_sync(
            connection.get(), logindName, path, interface, method, arguments, nullptr,
            G_DBUS_CALL_FLAGS_NONE, -1, nullptr, descriptors, nullptr, &error);
        EXPECT_NE(values, nullptr) << method << ": " << (error != nullptr ? error->message : "");
        g_clear_error(&error);
        return values;
    }

    std::shared_ptr<GDBusConnection> connection;
};

class LogindTest : public testing::Test {
protected:
    void SetUp() override {
        if (!fs::exists(logindProgram)) {
            GTEST_SKIP() << "systemd-logind is not installed";
        }
        fs::create_directories("/run/dbus");
        for (const char* const folder : {"seats", "sessions", "users", "inhibit", "machines"}) {
            fs::create_directories(fs::path("/run/systemd") / folder);
        }
        mount("none", "/sys/fs/cgroup", "cgroup2", 0, nullptr);
        busDaemon = std::make_unique<Process>(
            std::vector<std::string>{"/usr/bin/dbus-daemon", "--system", "--nofork"});
        ASSERT_TRUE(waitForFile(socketFile));
        manager = std::make_unique<FakeService>(systemBus, serviceManager, journal);
        manager->answer("StartTransientUnit", [this] {
            const std::string unit = "session-c" + std::to_string(++scopes) + ".scope";
            manager->announce("org.freedesktop.systemd1.Manager", "JobRemoved",
                              g_variant_new("(uoss)", 1U, job, unit.c_str(), "done"));
            return g_variant_new("(o)", job);
        });
        manager->answer("StartUnit", [this] {
            for (const char* const unit : {"user@0.service", "user@65534.service"}) {
                manager->announce("org.freedesktop.systemd1.Manager", "JobRemoved",
                                  g_variant_new("(uoss)", 1U, job, unit, "done"));
            }
            return g_variant_new("(o)", job);
        });
        logind = std::make_unique<Process>(std::vector<std::string>{logindProgram});
        seat = std::make_unique<Seat>();
        ASSERT_TRUE(seat->waitForLogind()) << logind->errors();
    }

    // Moves this process into the session. Processes that it starts later also belong to the
    // session.
    static void enter(const Session& session) {
        const fs::path scope = fs::path("/sys/fs/cgroup/user.slice/user-0.slice") /
                               ("session-" + session.id + ".scope");
        fs::create_directories(scope);
        std::ofstream(scope / "cgroup.procs") << getpid() << std::endl;
    }

    Journal journal;
    int scopes = 0;
    InEnvironment system{"DBUS_SYSTEM_BUS_ADDRESS", systemBus};
    InEnvironment session{"DBUS_SESSION_BUS_ADDRESS", nullptr};
    std::unique_ptr<Process> busDaemon;
    std::unique_ptr<FakeService> manager;
    std::unique_ptr<Process> logind;
    std::unique_ptr<Seat> seat;
    AgentHome home;
    VirtualPad pad{ordinaryPad()};
    PadHand hand{pad};
};

TEST_F(LogindTest, ProgramUsesTheTouchpadOnlyWhileItsSessionIsActive) {
    const Process ourLeader({"/bin/sleep", "1000"});
    const Process otherLeader({"/bin/sleep", "1000"});
    const Session ours = seat->open(0, ourLeader);
    ASSERT_FALSE(ours.id.empty());
    enter(ours);
    home.writeBindings({bindingJson("twoFingerClick", shortcutJson(17, 0))});
    Agent agent;
    const fs::path keyboard = waitForNode(keyboardName).value_or("/dev/null");
    const fs::path clone = waitForNode(pad.shape().name, pad.node()).value_or("/dev/null");

    // The new session is active immediately, because the seat has no consoles.
    const Session other = seat->open(65534, otherLeader);
    ASSERT_FALSE(other.id.empty());
    EXPECT_TRUE(waitForNoNode(keyboard));
    EXPECT_TRUE(waitForNoNode(clone));
    {
        DeviceReader another(pad.node());
        EXPECT_FALSE(another.isGrabbedByAnother());
        hand.click(2);
        EXPECT_TRUE(another.waitForKey(BTN_LEFT, 0));
    }

    seat->activate(ours);
    DeviceReader keys(waitForNode(keyboardName).value_or("/dev/null"));
    DeviceReader again(waitForNode(pad.shape().name, pad.node()).value_or("/dev/null"));
    hand.waitUntilTaken(again);
    hand.click(2);
    EXPECT_TRUE(keys.waitForKey(KEY_T, 0));
}

} // namespace
} // namespace glidemap::test
