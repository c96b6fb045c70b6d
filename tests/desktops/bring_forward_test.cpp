// Tests that launching a running application brings its window forward and starts no second
// process.
#include "desktop_test_base.h"
#include "desktops/fake_window_listener.h"
#include "desktops/scoped_environment.h"
#include "kit/leash.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/desktop_backends.h"
#include "seen_workspace.h"
#include "waiting.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace glidemap::test {
namespace {

// Reads the title of the active window from a new backend.
class ActiveTitle {
public:
    ActiveTitle() {
        thread.call([this] {
            for (const WindowBackendFactory& make : desktopBackends(thread)) {
                backend = make();
                if (backend->start(listener)) {
                    return;
                }
            }
        });
    }
    ActiveTitle(const ActiveTitle&) = delete;
    ActiveTitle& operator=(const ActiveTitle&) = delete;
    ~ActiveTitle() {
        thread.call([this] { backend.reset(); });
    }

    bool becomes(const std::string& title) {
        return waitUntil([&] { return listener.title() == title; });
    }

private:
    class Listener : public WindowListener {
    public:
        void activeWindowChanged(const std::optional<WindowIdentity>& window) override {
            const std::lock_guard lock(mutex);
            current = window ? window->title : "";
        }
        void windowsChanged(const std::vector<WindowIdentity>& /*windows*/) override {}

        std::string title() {
            const std::lock_guard lock(mutex);
            return current;
        }

    private:
        std::mutex mutex;
        std::string current;
    };

    Listener listener;
    DesktopThread thread;
    std::unique_ptr<WindowBackend> backend;
};

class BringForwardTest : public DesktopTest {
protected:
    void SetUp() override {
        DesktopTest::SetUp();
        std::filesystem::remove(starts());
    }

    // Creates a script that records each start and shows a window until the leash is released.
    std::filesystem::path noting(const std::string& application, const Leash& leash) const {
        return folder.script(application, "echo " + application + " >>" + starts().string() +
                                              "\nexec " + desktop->windowProgram() + " " +
                                              application + " Title <" + leash.path.string() +
                                              " >/dev/null\n");
    }

    void install(const std::string& application, const std::filesystem::path& program,
                 const std::string& keys = "") const {
        folder.install(application, "Name=Some\nExec=" + program.string() + "\n" + keys);
    }

    void launch(SeenWorkspace& seen, const std::string& application) const {
        std::optional<std::string> url;
        ASSERT_TRUE(waitUntil([&] {
            url = seen.port().urlForApplication(application);
            return url.has_value();
        }));
        seen.port().openApplication(*url);
    }

    long countOfStarts(const std::string& application) const {
        std::ifstream file(starts());
        return std::count(std::istream_iterator<std::string>(file), {}, application);
    }

    // Expects that the application has started `count` times in all. Before counting, launches
    // another program and waits until its start is recorded, because any pending launch is recorded
    // before it.
    void expectStarts(SeenWorkspace& seen, const std::string& application, long count) {
        const auto script = folder.script("end", "echo end >>" + starts().string() + "\n");
        install("end", script);
        launch(seen, "end");
        EXPECT_TRUE(waitUntil([&] { return countOfStarts("end") == 1; }));
        EXPECT_EQ(countOfStarts(application), count);
    }

    std::filesystem::path starts() const { return folder.path() / "starts"; }
};

TEST_P(BringForwardTest, ApplicationStartsOnceAndComesForwardTenTimes) {
    const Leash leash(folder.path() / "leash");
    install("launched", noting("launched", leash));
    SeenWorkspace seen;
    const auto other = open("other");
    seen.expectRunning({"other"});
    launch(seen, "launched");
    seen.expectRunning({"launched", "other"});
    seen.expectFrontmost("launched"); // a desktop may activate a window some time after showing it
    for (int time = 0; time < 10; ++time) {
        desktop->activate("other");
        seen.expectFrontmost("other");
        launch(seen, "launched");
        seen.expectFrontmost("launched");
    }
    expectStarts(seen, "launched", 1);
}

TEST_P(BringForwardTest, MinimisedWindowIsRestored) {
    if (GetParam().minimizing == Minimizing::none) {
        GTEST_SKIP() << "this desktop does not minimise windows";
    }
    const Leash leash(folder.path() / "leash");
    install("first", noting("first", leash));
    SeenWorkspace seen;
    const auto other = open("other");
    const auto first = open("first");
    seen.expectRunning({"first", "other"});
    desktop->activate("first");
    seen.expectFrontmost("first");
    desktop->minimize("first");
    desktop->activate("other");
    seen.expectFrontmost("other");
    launch(seen, "first");
    seen.expectFrontmost("first");
    expectStarts(seen, "first", 0);
}

TEST_P(BringForwardTest, WindowOnAnotherWorkspaceIsShown) {
    if (GetParam().workspaces == Workspaces::one) {
        GTEST_SKIP() << "the test cannot switch workspaces here";
    }
    const Leash leash(folder.path() / "leash");
    install("first", noting("first", leash));
    SeenWorkspace seen;
    const auto first = open("first");
    seen.expectRunning({"first"});
    desktop->activate("first");
    seen.expectFrontmost("first");
    desktop->showSecondWorkspace();
    seen.expectFrontmost("none");
    const auto other = open("other");
    seen.expectRunning({"first", "other"});
    desktop->activate("other");
    seen.expectFrontmost("other");
    launch(seen, "first");
    seen.expectFrontmost("first");
    expectStarts(seen, "first", 0);
}

TEST_P(BringForwardTest, MostRecentlyUsedWindowComesForward) {
    const Leash leash(folder.path() / "leash");
    install("two", noting("two", leash));
    SeenWorkspace seen;
    const auto old = open("two", "Old");
    seen.expectRunning({"two"});
    desktop->activate("two");
    seen.expectFrontmost("two");
    const auto other = open("other");
    seen.expectRunning({"other", "two"});
    desktop->activate("other");
    seen.expectFrontmost("other");
    const auto recent = open("two", "Recent");
    if (GetParam().newWindow == NewWindow::comesForward) {
        seen.expectFrontmost("two");
        desktop->activate("other");
        seen.expectFrontmost("other");
        launch(seen, "two");
        EXPECT_TRUE(ActiveTitle().becomes("Recent"));
    } else {
        launch(seen, "two");
        seen.expectFrontmost("two");
    }
    expectStarts(seen, "two", 0);
}

TEST_P(BringForwardTest, ApplicationThatHasExitedStartsAgain) {
    SeenWorkspace seen;
    const auto other = open("other");
    {
        const Leash leash(folder.path() / "leash");
        install("launched", noting("launched", leash));
        launch(seen, "launched");
        seen.expectRunning({"launched", "other"});
    }
    seen.expectRunning({"other"});
    const Leash leash(folder.path() / "leash");
    launch(seen, "launched");
    seen.expectRunning({"launched", "other"});
    expectStarts(seen, "launched", 2);
}

// The program runs in the user's terminal. Glidemap launches the terminal, and finds its window by
// the terminal's process. If the desktop does not report the processes of windows, each launch
// starts the program again.
TEST_P(BringForwardTest, ProgramInATerminalComesForward) {
    const Terminal& terminal = GetParam().terminal;
    if (!isInstalled(terminal.program)) {
        GTEST_SKIP() << "no " << terminal.program << " is installed";
    }
    // A terminal that outlives the test must not keep the output of the test open.
    folder.script("xdg-terminal-exec", "exec " + terminal.command + " \"$@\" >/dev/null 2>&1\n");
    const ScopedEnvironment path({{"PATH", folder.path().string() + ":" + std::getenv("PATH")}});
    const Leash leash(folder.path() / "leash");
    install("inside",
            folder.script("inside", "echo inside >>" + starts().string() + "\nread end <" +
                                        leash.path.string() + "\n"),
            "Terminal=true\n");
    SeenWorkspace seen;
    const auto other = open("other");
    seen.expectRunning({"other"});
    launch(seen, "inside");
    ASSERT_TRUE(waitUntil([&] { return seen.running().size() == 2; }));
    const auto running = seen.running();
    const std::string window = *running.begin() == "other" ? *running.rbegin() : *running.begin();
    seen.expectFrontmost(window);
    for (int time = 0; time < 3; ++time) {
        desktop->activate("other");
        seen.expectFrontmost("other");
        launch(seen, "inside");
        seen.expectFrontmost(window);
    }
    expectStarts(seen, "inside", GetParam().processes == Processes::known ? 1 : 4);
}

// The application allows only one process. If Glidemap launched it again, the second process would
// record its start and exit at once.
TEST_P(BringForwardTest, SingleInstanceApplicationComesForwardWithoutASecondProcess) {
    const Leash leash(folder.path() / "leash");
    const auto alone = folder.path() / "alone";
    install("single",
            folder.script("single", "echo single >>" + starts().string() + "\nmkdir " +
                                        alone.string() + " || exit 0\nexec " +
                                        desktop->windowProgram() + " single Title <" +
                                        leash.path.string() + " >/dev/null\n"),
            "StartupNotify=true\n");
    SeenWorkspace seen;
    const auto other = open("other");
    seen.expectRunning({"other"});
    launch(seen, "single");
    seen.expectRunning({"other", "single"});
    desktop->activate("other");
    seen.expectFrontmost("other");
    launch(seen, "single");
    seen.expectFrontmost("single");
    expectStarts(seen, "single", 1);
    std::filesystem::remove(alone);
}

INSTANTIATE_TEST_SUITE_P(On, BringForwardTest, testing::ValuesIn(allDesktops()), nameOf);

} // namespace
} // namespace glidemap::test
