#include "desktops/fake_window_listener.h"
#include "desktops/listening.h"
#include "desktops/program.h"
#include "desktops/runtime_folder.h"
#include "desktops/scoped_environment.h"
#include "platform/linux/windows/activation/fake_activation.h"
#include "platform/linux/windows/activation/received_token.h"
#include "platform/linux/windows/wlr/fake_compositor.h"
#include "platform/linux/windows/wlr/wlr_window_backend.h"

#include <gmock/gmock.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <chrono>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

namespace glidemap {

namespace {

using Listening = test::Listening<WlrWindowBackend>;
using test::FakeWindowListener;
using test::ScopedEnvironment;

constexpr std::uint32_t maximized = 0;
constexpr std::uint32_t minimized = 1;
constexpr std::uint32_t activated = 2;
constexpr std::uint32_t fullscreen = 3;

class WlrWindows : public testing::Test {
protected:
    void openActive(FakeCompositor& compositor, const char* appID) {
        compositor.open(appID, "Title");
        compositor.states(opened, {activated});
        compositor.done(opened++);
    }

    test::RuntimeFolder folder;
    ScopedEnvironment here{
        {{"XDG_RUNTIME_DIR", folder.path()}, {"WAYLAND_DISPLAY", FakeCompositor::socketName}}};
    FakeWindowListener reported;
    std::size_t opened = 0;
};

TEST_F(WlrWindows, AppliesEventsOnlyAfterTheDoneEvent) {
    FakeCompositor compositor;
    Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    compositor.say([&] {
        compositor.open("one", "Title");
        compositor.states(0, {activated});
        compositor.open("two", "Title");
        compositor.done(1);
    });
    reported.expectReported({"windows: two"});
    compositor.say([&] { compositor.done(0); });
    reported.expectReported({"windows: one, two", "active: one"});
    compositor.say([&] {
        compositor.states(0, {});
        compositor.states(1, {activated});
        compositor.done(1);
    });
    reported.expectReported(
        {"active: two"}); // "two" was activated last, but "one" is still active, too
}

TEST_F(WlrWindows, IgnoresStatesOtherThanActivated) {
    FakeCompositor compositor;
    Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    compositor.say([&] {
        compositor.open("one", "Title");
        compositor.states(0, {maximized, minimized, fullscreen, 4, 4000000000});
        compositor.done(0);
    });
    reported.expectReported({"windows: one"});
    compositor.say([&] {
        compositor.states(0, {maximized, activated, 77});
        compositor.done(0);
    });
    reported.expectReported({"active: one"});
}

TEST_F(WlrWindows, ReportsFocusEventsThatArriveTogetherAsOneChange) {
    FakeCompositor compositor;
    Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    compositor.say([&] { openActive(compositor, "one"); });
    reported.expectReported({"windows: one", "active: one"});
    compositor.say([&] {
        compositor.states(0, {});
        compositor.done(0);
        openActive(compositor, "two");
    });
    reported.expectReported({"windows: one, two", "active: two"});
}

TEST_F(WlrWindows, ReportsTheLatestOfTwoActiveWindowsUntilThatWindowCloses) {
    FakeCompositor compositor;
    Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    compositor.say([&] {
        openActive(compositor, "one");
        openActive(compositor, "two");
    });
    reported.expectReported({"windows: one, two", "active: two"});
    compositor.say([&] { // "one" stays active, but is not activated again
        compositor.states(0, {activated, maximized});
        compositor.done(0);
        compositor.open("three", nullptr);
        compositor.done(2);
    });
    reported.expectReported({"windows: one, two, three"});
    compositor.say([&] { compositor.closed(1); });
    reported.expectReported({"windows: one, three", "active: one"});
}

TEST_F(WlrWindows, ReportsTheTitleOfAWindowWithoutAnAppID) {
    FakeCompositor compositor;
    Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    compositor.say([&] { // windows without an app ID, as Xwayland's may be
        compositor.open(nullptr, "xterm");
        compositor.states(0, {activated});
        compositor.done(0);
        compositor.open(nullptr, nullptr);
        compositor.done(1);
    });
    reported.expectReported({"windows: , ", "active: "});
    EXPECT_THAT(reported.windows(),
                testing::ElementsAre(WindowIdentity{"", "", "xterm", std::nullopt},
                                     WindowIdentity{"", "", "", std::nullopt}));
}

TEST_F(WlrWindows, DestroysAClosedWindowsHandle) {
    FakeCompositor compositor;
    Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    compositor.say([&] {
        openActive(compositor, "one");
        openActive(compositor, "two");
        compositor.closed(0);
    });
    reported.expectReported({"windows: two", "active: two"});
    const auto deadline = std::chrono::steady_clock::now() + test::patience;
    while (compositor.handles() != 1) {
        ASSERT_LT(std::chrono::steady_clock::now(), deadline);
    }
}

TEST_F(WlrWindows, ReportsNoWindowsWhenTheCompositorEndsTheProtocol) {
    FakeCompositor compositor;
    Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    compositor.say([&] { openActive(compositor, "one"); });
    reported.expectReported({"windows: one", "active: one"});
    compositor.say([&] { compositor.finished(); });
    reported.expectReported({"windows:", "active: none"});
}

TEST_F(WlrWindows, ReportsNoWindowsWhenTheConnectionIsLost) {
    FakeCompositor compositor;
    Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    compositor.say([&] { openActive(compositor, "one"); });
    reported.expectReported({"windows: one", "active: one"});
    compositor.say([&] { compositor.breakOff(); });
    reported.expectReported({"windows:", "active: none"});
}

TEST_F(WlrWindows, ReportsAThousandWindowsThatOpenTogether) {
    FakeCompositor compositor;
    Listening listening(reported);
    reported.expectReported({"windows:", "active: none"});
    compositor.say([&] {
        for (int count = 0; count < 1000; ++count) {
            openActive(compositor, "many");
        }
    });
    std::string all = "windows: many";
    for (int count = 1; count < 1000; ++count) {
        all += ", many";
    }
    reported.expectInTheEnd(all, "active: many");
}

TEST_F(WlrWindows, SupportsEveryProtocolVersion) {
    for (const int version : {1, 2, 3}) {
        opened = 0;
        FakeCompositor compositor(version);
        FakeWindowListener listener;
        Listening listening(listener);
        listener.expectReported({"windows:", "active: none"});
        compositor.say([&] { openActive(compositor, "one"); });
        listener.expectReported({"windows: one", "active: one"});
    }
}

TEST_F(WlrWindows, DoesNotStartWithoutTheProtocol) {
    FakeCompositor compositor(0);
    EXPECT_FALSE(Listening(reported).started);
    reported.expectReported({});
}

TEST_F(WlrWindows, DoesNotStartWithoutADisplay) {
    const FakeCompositor compositor;
    const ScopedEnvironment none{{{"WAYLAND_DISPLAY", ""}}};
    EXPECT_FALSE(Listening(reported).started);
    reported.expectReported({});
}

TEST_F(WlrWindows, DoesNotStartIfNoCompositorListens) {
    EXPECT_FALSE(Listening(reported).started);
    reported.expectReported({});
}

// A compositor that accepts connections and never replies.
class MuteCompositor {
public:
    explicit MuteCompositor(const std::filesystem::path& path)
        : listener(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0)) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strncpy(address.sun_path, path.c_str(), sizeof address.sun_path - 1);
        EXPECT_EQ(bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
        EXPECT_EQ(listen(listener, 1), 0);
    }

    MuteCompositor(const MuteCompositor&) = delete;
    MuteCompositor& operator=(const MuteCompositor&) = delete;
    ~MuteCompositor() { close(listener); }

private:
    int listener;
};

TEST_F(WlrWindows, StartTimesOutOnACompositorThatNeverReplies) {
    const MuteCompositor mute(folder.path() / FakeCompositor::socketName);
    EXPECT_FALSE(Listening(reported, std::chrono::milliseconds(50)).started);
    reported.expectReported({});
}

void requestToken(Listening& listening, ReceivedToken<LaunchToken>& token) {
    listening.use([&](WlrWindowBackend& backend) {
        backend.requestToken({"editor", "", ""},
                             [&](const LaunchToken& value) { token.receive(value); });
    });
}

TEST_F(WlrWindows, TokenOfTheCompositorIsForWaylandAndX11Programs) {
    FakeActivation tokens;
    FakeCompositor compositor;
    tokens.offerOn(compositor);
    Listening listening(reported);
    ReceivedToken<LaunchToken> token;
    requestToken(listening, token);
    EXPECT_THAT(tokens.nextRequest(), testing::ElementsAre("editor"));
    tokens.reply(compositor, 0, "issued");
    EXPECT_EQ(token.value().activationToken, "issued");
    EXPECT_EQ(token.value().startupID, "issued");
}

TEST_F(WlrWindows, LaunchContinuesWithoutATokenWhenTheConnectionIsLost) {
    FakeActivation tokens;
    auto compositor = std::make_unique<FakeCompositor>();
    tokens.offerOn(*compositor);
    Listening listening(reported);
    ReceivedToken<LaunchToken> token;
    requestToken(listening, token);
    tokens.nextRequest();
    compositor.reset();
    EXPECT_EQ(token.value().activationToken, "");
    ReceivedToken<LaunchToken> next;
    requestToken(listening, next);
    EXPECT_EQ(next.value().activationToken, "");
}

} // namespace

} // namespace glidemap
