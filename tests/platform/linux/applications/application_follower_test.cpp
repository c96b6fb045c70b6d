#include "desktops/application_folder.h"
#include "kit/patience.h"
#include "platform/linux/applications/application_follower.h"

#include <gmock/gmock.h>
#include <unistd.h>

#include <chrono>
#include <future>
#include <thread>

namespace glidemap {
namespace {

using namespace std::chrono_literals;
using testing::ElementsAre;
using testing::IsEmpty;

// Reports no properties for any process, and counts the queries.
class NoProcesses : public ProcessReader {
public:
    ProcessFacts read(pid_t /*process*/) const override {
        ++reads;
        return {};
    }

    mutable int reads = 0;
};

WindowIdentity window(const std::string& appID, pid_t process = 1) {
    return {appID, "", "a title", process};
}

class ApplicationFollowerTest : public testing::Test {
protected:
    ApplicationFollowerTest() {
        folder.clear();
        folder.install("editor", "Name=The Editor\nExec=sh\n");
        thread.call([this] { make(10min); });
    }

    ~ApplicationFollowerTest() override {
        thread.call([this] { follower.reset(); });
    }

    void make(std::chrono::milliseconds patience) {
        follower.reset();
        follower = std::make_unique<ApplicationFollower>(thread, published, processes, patience);
    }

    void activate(const std::optional<WindowIdentity>& active) {
        thread.call([&] { follower->activeWindowChanged(active); });
    }

    void open(const std::vector<WindowIdentity>& windows) {
        thread.call([&] { follower->windowsChanged(windows); });
    }

    Application frontmost() const { return *published.frontmost.load(); }

    // Waits for the application, because GIO notices new entries with a delay.
    void expectFrontmost(const Application& expected) const {
        const auto deadline = std::chrono::steady_clock::now() + test::patience;
        while (!(frontmost() == expected) && std::chrono::steady_clock::now() < deadline)
            std::this_thread::yield();
        EXPECT_EQ(frontmost(), expected);
    }

    std::vector<Application> running() const { return *published.running.get(); }

    ApplicationFolder& folder = ApplicationFolder::instance();
    DesktopThread thread;
    NoProcesses processes;
    PublishedApplications published;
    std::unique_ptr<ApplicationFollower> follower;
};

const Application editor = {"editor", "The Editor"};
const Application tool = {"my-tool", "My Tool"};
const Application nothing;

TEST_F(ApplicationFollowerTest, ReportsNoApplicationBeforeTheFirstWindowReport) {
    EXPECT_EQ(frontmost(), nothing);
    EXPECT_THAT(running(), IsEmpty());
}

TEST_F(ApplicationFollowerTest, ApplicationOfTheActiveWindowIsFrontmost) {
    activate(window("my-tool"));
    EXPECT_EQ(frontmost(), tool);
    activate(window("editor"));
    expectFrontmost(editor);
    activate(WindowIdentity{});
    EXPECT_EQ(frontmost(), nothing) << "a window without properties";
}

TEST_F(ApplicationFollowerTest, KeepsTheFrontmostApplicationBrieflyWithoutAnActiveWindow) {
    activate(window("my-tool"));
    activate(std::nullopt);
    EXPECT_EQ(frontmost(), tool);
    activate(window("other"));
    EXPECT_EQ(frontmost(), (Application{"other", "Other"}));
}

TEST_F(ApplicationFollowerTest, NoApplicationIsFrontmostAfterATimeoutWithoutAWindow) {
    thread.call([this] { make(1ms); });
    activate(window("my-tool"));
    activate(std::nullopt);
    expectFrontmost(nothing);
}

TEST_F(ApplicationFollowerTest, NewActiveWindowCancelsTheTimeoutOfAMissingActiveWindow) {
    thread.call([this] { make(1ms); });
    activate(window("my-tool"));
    thread.call([this] {
        follower->activeWindowChanged(std::nullopt);
        follower->activeWindowChanged(window("my-tool"));
    });
    std::promise<void> later;
    DesktopThread::Watch watch;
    thread.call([&] { watch = thread.after(50ms, [&] { later.set_value(); }); });
    later.get_future().wait();
    thread.call([&] { watch = {}; });
    EXPECT_EQ(frontmost(), tool);
}

TEST_F(ApplicationFollowerTest, ListsEachRunningApplicationOnceInWindowOrder) {
    open({window("my-tool", 1), window("zebra", 2), window("my-tool", 3), WindowIdentity{},
          window("ant", 4)});
    EXPECT_THAT(running(),
                ElementsAre(tool, Application{"zebra", "Zebra"}, Application{"ant", "Ant"}));
    open({window("ant", 4)});
    EXPECT_THAT(running(), ElementsAre(Application{"ant", "Ant"}));
    open({});
    EXPECT_THAT(running(), IsEmpty());
}

TEST_F(ApplicationFollowerTest, DesktopEntryChangesRenameRunningApplications) {
    activate(window("late"));
    open({window("late")});
    EXPECT_EQ(frontmost(), (Application{"late", "Late"}));
    folder.install("late", "Name=Installed at last\nExec=sh\n");
    const Application installed = {"late", "Installed at last"};
    expectFrontmost(installed);
    thread.call([] {});
    EXPECT_THAT(running(), ElementsAre(installed));
    folder.remove("late");
    expectFrontmost({"late", "Late"});
}

TEST_F(ApplicationFollowerTest, WindowIsNotMatchedAgainAfterATitleChange) {
    open({window("my-tool")});
    const int before = processes.reads;
    for (int count = 0; count < 100; ++count) {
        WindowIdentity renamed = window("my-tool");
        renamed.title = std::to_string(count);
        open({renamed});
        activate(renamed);
    }
    EXPECT_EQ(processes.reads, before);
}

TEST_F(ApplicationFollowerTest, ApplicationsBeyondTheTableLimitAreUnknown) {
    thread.call([this] {
        for (int count = 0; count < 20'000; ++count)
            follower->activeWindowChanged(window("name" + std::to_string(count)));
    });
    EXPECT_EQ(frontmost(), nothing);
    activate(window("name7"));
    EXPECT_EQ(frontmost(), (Application{"name7", "Name7"})) << "earlier applications stay";
    activate(window("editor"));
    expectFrontmost(editor);
}

TEST_F(ApplicationFollowerTest, OtherThreadsReadCompleteApplicationsDuringChanges) {
    std::atomic<bool> over = false;
    std::atomic<int> torn = 0;
    std::thread reader([&] {
        while (!over) {
            const Application application = frontmost();
            if (application.bundleID && "A" + application.bundleID->substr(1) != *application.name)
                ++torn;
        }
    });
    thread.call([this] {
        for (int count = 0; count < 20'000; ++count)
            follower->activeWindowChanged(window("a" + std::to_string(count % 1000)));
    });
    over = true;
    reader.join();
    EXPECT_EQ(torn, 0);
}

TEST_F(ApplicationFollowerTest, DoesNotListGlidemapAmongRunningApplications) {
    open({window("editor"), window("Glidemap", getpid()), window("org.glidemap.Glidemap")});
    EXPECT_THAT(running(), ElementsAre(Application{"editor", "The Editor"}));
    folder.install("org.glidemap.Glidemap", "Name=Glidemap\nExec=sh\n");
    activate(window("org.glidemap.Glidemap", 3));
    expectFrontmost({"org.glidemap.Glidemap", "Glidemap"}); // bindings for Glidemap must work
    EXPECT_THAT(running(), ElementsAre(Application{"editor", "The Editor"}));
}

} // namespace
} // namespace glidemap
