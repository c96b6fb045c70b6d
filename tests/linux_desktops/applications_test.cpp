// Which application is frontmost, which ones run, and launching one, on each desktop.
#include "desktop_test_base.h"
#include "seen_workspace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <fstream>

namespace glidemap::desktops {
namespace {

class ApplicationsTest : public DesktopTest {
protected:
    void expectInFront(const SeenWorkspace& seen, const std::string& opened) const {
        if (GetParam().newWindow == NewWindow::comesForward) {
            seen.expectFrontmost(opened);
        }
    }
};

TEST_P(ApplicationsTest, TheFrontmostOneFollowsOpeningActivatingAndClosing) {
    const SeenWorkspace seen;
    seen.expectRunning({});
    seen.expectFrontmost("none");
    const auto first = open("first");
    seen.expectFrontmost("first");
    seen.expectRunning({"first"});
    const auto second = open("second");
    seen.expectRunning({"first", "second"});
    expectInFront(seen, "second");
    desktop->activate("second");
    seen.expectFrontmost("second");
    desktop->activate("first");
    seen.expectFrontmost("first");
    first->finish();
    seen.expectFrontmost("second");
    seen.expectRunning({"second"});
    second->finish();
    seen.expectFrontmost("none");
    seen.expectRunning({});
}

TEST_P(ApplicationsTest, TheOnesThatRunAlreadyAreKnown) {
    const auto first = open("first");
    const auto second = open("second");
    const SeenWorkspace seen;
    seen.expectRunning({"first", "second"});
    desktop->activate("first");
    seen.expectFrontmost("first");
}

// Keeps what a launched program reads from: it ends with the test.
class Leash {
public:
    explicit Leash(std::filesystem::path at) : path(std::move(at)) {
        EXPECT_EQ(mkfifo(path.c_str(), 0600), 0) << path;
        descriptor = ::open(path.c_str(), O_RDWR | O_CLOEXEC);
    }
    Leash(const Leash&) = delete;
    Leash& operator=(const Leash&) = delete;
    ~Leash() {
        close(descriptor);
        std::filesystem::remove(path);
    }

    const std::filesystem::path path;

private:
    int descriptor = -1;
};

TEST_P(ApplicationsTest, ALaunchedOneRunsAndComesForward) {
    const Leash leash(folder.path() / "leash");
    const auto script =
        folder.script("launch", "exec " + desktop->windowProgram() + " launched Title <" +
                                    leash.path.string() + " >/dev/null\n");
    folder.install("launched", "Name=Launched\nExec=" + script.string() + "\n");
    SeenWorkspace seen;
    const auto first = open("first");
    seen.expectFrontmost("first");
    std::optional<std::string> url;
    ASSERT_TRUE(application::waitUntil([&] {
        url = seen.port().urlForApplication("launched");
        return url.has_value();
    }));
    seen.port().openApplication(*url);
    seen.expectRunning({"first", "launched"});
    expectInFront(seen, "launched");
    desktop->activate("launched");
    seen.expectFrontmost("launched");
}

INSTANTIATE_TEST_SUITE_P(On, ApplicationsTest, testing::ValuesIn(allDesktops()), nameOf);

} // namespace
} // namespace glidemap::desktops
