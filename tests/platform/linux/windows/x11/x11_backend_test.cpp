#include "desktops/x_client.h"
#include "desktops/x_server.h"
#include "platform/linux/windows/x11/x11_backend.h"

#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <filesystem>
#include <fstream>
#include <functional>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

namespace glidemap {
namespace {

using namespace test;
using namespace std::chrono_literals;

std::string describe(const WindowIdentity& window) {
    return window.instance + "/" + window.appID;
}

// Keeps the last reported state, because window managers pass through intermediate states.
class LastReport : public WindowListener {
public:
    void activeWindowChanged(const std::optional<WindowIdentity>& window) override {
        const std::lock_guard lock(mutex);
        active = window;
        ++count;
        reported.notify_all();
    }

    void windowsChanged(const std::vector<WindowIdentity>& all) override {
        const std::lock_guard lock(mutex);
        windows = all;
        ++count;
        reported.notify_all();
    }

    void expectActive(const std::string& expected) {
        expect(expected, [this] { return active ? describe(*active) : "none"; });
    }

    void expectWindows(const std::string& expected) {
        expect(expected, [this] {
            std::string all;
            for (const WindowIdentity& window : windows)
                all += (all.empty() ? "" : " ") + describe(window);
            return all;
        });
    }

    WindowIdentity activeWindow() {
        const std::lock_guard lock(mutex);
        return active.value_or(WindowIdentity{});
    }

    int notifications() {
        const std::lock_guard lock(mutex);
        return count;
    }

private:
    void expect(const std::string& expected, const std::function<std::string()>& now) {
        std::unique_lock lock(mutex);
        reported.wait_for(lock, patience, [&] { return now() == expected; });
        EXPECT_EQ(now(), expected);
    }

    std::mutex mutex;
    std::condition_variable reported;
    std::optional<WindowIdentity> active;
    std::vector<WindowIdentity> windows;
    int count = 0;
};

class X11BackendTest : public testing::Test {
protected:
    void SetUp() override {
        if (const std::string reason = XServer::whyNot(); !reason.empty())
            GTEST_SKIP() << reason;
    }

    ~X11BackendTest() override {
        thread.call([this] { backend.reset(); });
    }

    void startServer(const std::vector<std::string>& arguments = {}) {
        server = std::make_unique<XServer>(arguments);
    }

    void listen() {
        thread.call([this] {
            backend = std::make_unique<X11Backend>(thread, server->display());
            EXPECT_TRUE(backend->start(reported));
        });
    }

    void startDesktop() {
        startServer();
        server->startWindowManager();
        listen();
    }

    // Starts a server without a window manager: the test sets the properties itself.
    void startBareServer(const std::vector<std::string>& arguments = {}) {
        startServer(arguments);
        manager = std::make_unique<XClient>(*server);
        manager->useRoot();
        listen();
    }

    std::unique_ptr<XClient> window(const std::string& instance, const std::string& name) {
        auto client = std::make_unique<XClient>(*server);
        client->describe(instance, name);
        client->map();
        return client;
    }

    void setActive(const XClient& client) {
        manager->setNumbers("_NET_ACTIVE_WINDOW", std::to_string(client.window()));
    }

    void list(const std::string& numbers) { manager->setNumbers("_NET_CLIENT_LIST", numbers); }

    static std::string number(const XClient& client) { return std::to_string(client.window()); }

    std::unique_ptr<XServer> server;
    std::unique_ptr<XClient> manager;
    LastReport reported;
    DesktopThread thread;
    std::unique_ptr<X11Backend> backend;
};

TEST_F(X11BackendTest, DoesNotStartWithoutAServer) {
    thread.call([this] {
        backend = std::make_unique<X11Backend>(thread, ":54321");
        EXPECT_FALSE(backend->start(reported));
    });
}

TEST_F(X11BackendTest, ReportsThePropertiesOfAWindow) {
    startDesktop();
    XClient client(*server);
    client.describe("an-instance", "A-class");
    client.setText("WM_NAME", "an old title");
    client.setText("_NET_WM_NAME", "a title");
    client.map();
    reported.expectActive("an-instance/A-class");
    reported.expectWindows("an-instance/A-class");
    EXPECT_EQ(reported.activeWindow(),
              (WindowIdentity{"A-class", "an-instance", "a title", client.process()}));
}

TEST_F(X11BackendTest, FindsWindowsThatAreOpenBeforeTheStart) {
    startServer();
    server->startWindowManager();
    const auto one = window("one", "One");
    const auto two = window("two", "Two");
    two->activate();
    listen();
    reported.expectWindows("one/One two/Two");
    reported.expectActive("two/Two");
}

TEST_F(X11BackendTest, FollowsTheActiveWindow) {
    startDesktop();
    const auto one = window("one", "One");
    reported.expectActive("one/One");
    const auto two = window("two", "Two");
    reported.expectActive("two/Two");
    for (int round = 0; round < 20; ++round) {
        one->activate();
        reported.expectActive("one/One");
        two->activate();
        reported.expectActive("two/Two");
    }
    two->destroy();
    reported.expectActive("one/One");
    reported.expectWindows("one/One");
}

TEST_F(X11BackendTest, NoWindowIsActiveAfterTheLastWindowCloses) {
    startDesktop();
    const auto one = window("one", "One");
    reported.expectActive("one/One");
    one->destroy();
    reported.expectActive("none");
    reported.expectWindows("");
    const auto two = window("two", "Two");
    reported.expectActive("two/Two");
    two->kill();
    reported.expectActive("none");
    reported.expectWindows("");
}

TEST_F(X11BackendTest, IgnoresPanelsDesktopsAndSplashScreens) {
    startDesktop();
    const auto plain = window("plain", "Plain");
    struct Row {
        const char* type;
        const char* state;
        const char* windows;
    };
    const Row rows[] = {
        {"_NET_WM_WINDOW_TYPE_NORMAL", "", "plain/Plain it/It"},
        {"_NET_WM_WINDOW_TYPE_DIALOG", "", "plain/Plain it/It"},
        {"_NET_WM_WINDOW_TYPE_UTILITY", "", "plain/Plain it/It"},
        {"_SOME_OTHER_TYPE _NET_WM_WINDOW_TYPE_NORMAL", "", "plain/Plain it/It"},
        {"_NET_WM_WINDOW_TYPE_DOCK", "", "plain/Plain"},
        {"_NET_WM_WINDOW_TYPE_DESKTOP", "", "plain/Plain"},
        {"_NET_WM_WINDOW_TYPE_SPLASH", "", "plain/Plain"},
        {"_NET_WM_WINDOW_TYPE_NORMAL", "_NET_WM_STATE_SKIP_TASKBAR", "plain/Plain"},
        {"", "", "plain/Plain it/It"},
    };
    // All clients stay connected, so that the server does not reuse the ids of their closed
    // windows: openbox handles the end of a window late, and would delete the state of a new window
    // with the same id.
    std::vector<std::unique_ptr<XClient>> programs;
    for (const Row& row : rows) {
        XClient& client = *programs.emplace_back(std::make_unique<XClient>(*server));
        client.describe("it", "It");
        client.setAtoms("_NET_WM_WINDOW_TYPE", row.type);
        client.setAtoms("_NET_WM_STATE", row.state);
        client.map();
        XClient& after = *programs.emplace_back(window("after", "After"));
        reported.expectWindows(std::string(row.windows) + " after/After");
        after.destroy();
        client.destroy();
        reported.expectWindows("plain/Plain");
    }
}

TEST_F(X11BackendTest, FollowsPropertyChangesOfAnOpenWindow) {
    startDesktop();
    const auto office = window("office", "Office-start");
    reported.expectActive("office/Office-start");
    office->describe("office", "Office-writer");
    reported.expectActive("office/Office-writer");
    reported.expectWindows("office/Office-writer");
}

TEST_F(X11BackendTest, KeepsFollowingWindowsAfterTheWindowManagerIsReplaced) {
    startDesktop();
    const auto one = window("one", "One");
    reported.expectActive("one/One");
    server->killWindowManager();
    server->startWindowManager();
    const auto two = window("two", "Two");
    reported.expectActive("two/Two");
    reported.expectWindows("one/One two/Two");
}

TEST_F(X11BackendTest, ReportsNoWindowsWhenTheServerExits) {
    startDesktop();
    const auto one = window("one", "One");
    reported.expectActive("one/One");
    reported.expectWindows("one/One");
    server->kill();
    reported.expectActive("none");
    reported.expectWindows("");
}

TEST_F(X11BackendTest, ProcessIDFromTheServerOverridesTheWindowProperty) {
    startBareServer();
    const auto liar = window("liar", "Liar");
    liar->setNumbers("_NET_WM_PID", "1");
    setActive(*liar);
    reported.expectActive("liar/Liar");
    EXPECT_EQ(reported.activeWindow().process, liar->process());
}

TEST_F(X11BackendTest, WithoutXResourceOnlyLocalWindowsHaveAProcessID) {
    startBareServer({"-extension", "X-Resource"});
    const auto one = window("one", "One");
    setActive(*one);
    reported.expectActive("one/One");
    EXPECT_EQ(reported.activeWindow().process, one->process());

    const auto far = window("far", "Far");
    far->setText("WM_CLIENT_MACHINE", "elsewhere.example.org");
    setActive(*far);
    reported.expectActive("far/Far");
    EXPECT_EQ(reported.activeWindow().process, std::nullopt);
}

TEST_F(X11BackendTest, InvalidPropertiesAreIgnored) {
    startBareServer({"-extension", "X-Resource"});
    struct Row {
        const char* what;
        std::function<void(XClient&)> spoil;
        const char* expected;
    };
    const Row rows[] = {
        {"nothing", [](XClient& client) { client.setText("WM_CLASS", ""); }, "/"},
        {"no null", [](XClient& client) { client.setText("WM_CLASS", "one"); }, "one/"},
        {"one null", [](XClient& client) { client.setText("WM_CLASS", "one\\0two"); }, "one/two"},
        {"only nulls", [](XClient& client) { client.setText("WM_CLASS", "\\0\\0\\0"); }, "/"},
        {"three", [](XClient& client) { client.setText("WM_CLASS", "a\\0b\\0c\\0"); }, "a/b"},
        {"numbers", [](XClient& client) { client.setNumbers("WM_CLASS", "65 66"); }, "/"},
        {"Latin-1", [](XClient& client) { client.setText("WM_CLASS", "a\xe9\\0b\\0"); }, "a\xe9/b"},
    };
    for (const Row& row : rows) {
        XClient client(*server);
        row.spoil(client);
        client.setText("_NET_WM_PID", "not a number");
        client.setNumbers("WM_CLIENT_MACHINE", "1 2 3");
        client.setText("_NET_WM_WINDOW_TYPE", "x");
        client.map();
        list(number(client));
        setActive(client);
        reported.expectActive(row.expected);
        reported.expectWindows(row.expected);
        EXPECT_EQ(reported.activeWindow().process, std::nullopt) << row.what;
        list(""); // the backend must forget the window, because the next one may have the same id
        reported.expectActive("none");
        reported.expectWindows("");
    }
}

// A window manager may keep a hidden window as the active one although it no longer lists the
// window.
TEST_F(X11BackendTest, IgnoresAnActiveWindowThatIsNotInTheWindowList) {
    startBareServer();
    const auto one = window("one", "One");
    const auto two = window("two", "Two");
    setActive(*one);
    reported.expectActive("one/One");
    list(number(*two));
    reported.expectActive("none");
    list(number(*two) + " " + number(*one));
    reported.expectActive("one/One");
}

TEST_F(X11BackendTest, LongPropertyIsTruncated) {
    startBareServer();
    XClient client(*server);
    client.repeatText("WM_CLASS", "0123456789abcdef", 200'000);
    client.map();
    setActive(client);
    std::string most;
    while (most.size() < 1024)
        most += "0123456789abcdef";
    reported.expectActive(most + "/");
}

TEST_F(X11BackendTest, IgnoresAnInvalidWindowList) {
    startBareServer();
    const auto one = window("one", "One");
    const auto two = window("two", "Two");
    const std::string both = number(*one) + " " + number(*two);
    list(both);
    reported.expectWindows("one/One two/Two");
    list(number(*two) + " 0 123456789 4294967295 " + number(*two) + " " + number(*one));
    reported.expectWindows("two/Two one/One");
    list("");
    reported.expectWindows("");
    list(both);
    reported.expectWindows("one/One two/Two");
    manager->setText("_NET_CLIENT_LIST", "windows");
    reported.expectWindows("");

    setActive(*one);
    reported.expectActive("one/One");
    manager->setNumbers("_NET_ACTIVE_WINDOW", "123456789");
    reported.expectActive("none");
    setActive(*two);
    reported.expectActive("two/Two");
    manager->setText("_NET_ACTIVE_WINDOW", "window");
    reported.expectActive("none");
}

TEST_F(X11BackendTest, TruncatesALongWindowList) {
    startBareServer();
    const auto one = window("one", "One");
    std::string numbers = number(*one);
    for (int count = 1; count < 4096; ++count)
        numbers += " 7";
    list(numbers + " 8 9 10");
    reported.expectWindows("one/One");
}

TEST_F(X11BackendTest, GrabbedServerDoesNotBlockTheThread) {
    startBareServer();
    const auto one = window("one", "One");
    const auto two = window("two", "Two");
    setActive(*one);
    reported.expectActive("one/One");
    manager->grabServer();
    setActive(*two); // the server reports the change, but replies to no query
    thread.call([] {});
    reported.expectActive("one/One");
    manager->ungrabServer();
    reported.expectActive("two/Two");
}

TEST_F(X11BackendTest, WindowWithManyChangesDoesNotBlockTheThread) {
    startBareServer();
    const auto restless = window("r", "0");
    const auto calm = window("calm", "Calm");
    list(number(*restless) + " " + number(*calm));
    for (int count = 1; count <= 2000; ++count)
        restless->setText("WM_CLASS", "r\\0" + std::to_string(count) + "\\0");
    thread.call([] {});
    setActive(*calm);
    reported.expectActive("calm/Calm");
    reported.expectWindows("r/2000 calm/Calm");
}

// Returns how often the desktop thread has gone to sleep, which equals the number of its wake-ups.
long sleepsOfDesktopThread() {
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::string name;
        std::getline(std::ifstream(task.path() / "comm"), name);
        if (name != "lidemap-desktop")
            continue;
        std::ifstream status(task.path() / "status");
        for (std::string key; status >> key;) {
            long count = 0;
            if (key == "voluntary_ctxt_switches:" && status >> count)
                return count;
        }
    }
    ADD_FAILURE() << "the thread was not found";
    return 0;
}

// Waits for `length` and expects no report.
void expectNothingReported(LastReport& reported, std::chrono::milliseconds length) {
    const int before = reported.notifications();
    std::mutex mutex;
    std::condition_variable never;
    std::unique_lock lock(mutex);
    never.wait_for(lock, length, [] { return false; });
    EXPECT_EQ(reported.notifications(), before);
}

TEST_F(X11BackendTest, SleepsWhileNoRelevantEventArrives) {
    startBareServer();
    const auto one = window("one", "One");
    list(number(*one));
    setActive(*one);
    reported.expectActive("one/One");
    reported.expectWindows("one/One");
    long before = 0;
    do { // waits until the thread is idle
        before = sleepsOfDesktopThread();
        expectNothingReported(reported, 200ms);
    } while (sleepsOfDesktopThread() != before);
    for (int round = 0; round < 10; ++round)
        one->wander();
    expectNothingReported(reported, 1500ms);
    EXPECT_EQ(sleepsOfDesktopThread(), before);
    one->describe("one", "Another");
    reported.expectActive("one/Another"); // the thread wakes up, and sleeps again
    const auto deadline = std::chrono::steady_clock::now() + patience;
    while (sleepsOfDesktopThread() == before && std::chrono::steady_clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_GT(sleepsOfDesktopThread(), before);
}

} // namespace
} // namespace glidemap
