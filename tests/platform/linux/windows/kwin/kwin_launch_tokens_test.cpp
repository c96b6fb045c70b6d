#include "desktops/fake_window_listener.h"
#include "desktops/listening.h"
#include "desktops/private_bus.h"
#include "desktops/runtime_folder.h"
#include "desktops/scoped_environment.h"
#include "fake_kwin.h"
#include "platform/linux/windows/activation/fake_activation.h"
#include "platform/linux/windows/activation/received_token.h"
#include "platform/linux/windows/kwin/kwin_launch_tokens.h"
#include "platform/linux/windows/kwin/kwin_window_backend.h"
#include "platform/linux/windows/wlr/fake_compositor.h"

#include <gmock/gmock.h>
#include <wayland-util.h>

#include <memory>
#include <string>

namespace glidemap {

namespace {

using test::ScopedEnvironment;
using testing::ElementsAre;
using Token = ReceivedToken<LaunchToken>;

constexpr wl_interface windowManagement = {
    "org_kde_plasma_window_management", 1, 0, nullptr, 0, nullptr};

// The fake KWin serves the bus; the fake compositor is KWin's Wayland side.
class KWinLaunchTokensTest : public testing::Test {
protected:
    void requestToken(Token& token) {
        listening->use([&](KWinWindowBackend& backend) {
            backend.requestToken({"editor", "", ""},
                                 [&](const LaunchToken& value) { token.receive(value); });
        });
    }

    void start() {
        kwin = std::make_unique<FakeKWin>(bus.address(), FakeKWin::Nature{});
        listening = std::make_unique<test::Listening<KWinWindowBackend>>(reported);
        kwin->expectCalls(FakeKWin::loading);
        tokens.waitForClient();
    }

    test::RuntimeFolder folder;
    test::PrivateBus bus;
    ScopedEnvironment here{{{"DBUS_SESSION_BUS_ADDRESS", bus.address()},
                            {"XDG_CURRENT_DESKTOP", "KDE"},
                            {"XDG_RUNTIME_DIR", folder.path()},
                            {"WAYLAND_DISPLAY", FakeCompositor::socketName}}};
    test::FakeWindowListener reported;
    FakeActivation tokens; // outlives the compositor
    FakeCompositor compositor{0};
    std::unique_ptr<FakeKWin> kwin;
    Token token; // outlives the backend
    std::unique_ptr<test::Listening<KWinWindowBackend>> listening;
};

TEST_F(KWinLaunchTokensTest, TokenIsForWaylandPrograms) {
    FakeActivation::offerInterface(compositor, windowManagement);
    tokens.offerOn(compositor);
    start();
    requestToken(token);
    EXPECT_THAT(tokens.nextRequest(), ElementsAre("editor"));
    tokens.reply(compositor, 0, "kwin-1");
    EXPECT_EQ(token.value().activationToken, "kwin-1");
    EXPECT_EQ(token.value().startupID, "");
}

TEST_F(KWinLaunchTokensTest, RequestsNoTokenWithoutTheOfferOfWindowManagement) {
    tokens.offerOn(compositor);
    start();
    requestToken(token);
    EXPECT_EQ(token.value().activationToken, "");
    EXPECT_EQ(tokens.openRequests(compositor), 0U);
}

TEST_F(KWinLaunchTokensTest, LaunchContinuesWithoutATokenWhenKWinLeavesTheBus) {
    FakeActivation::offerInterface(compositor, windowManagement);
    tokens.offerOn(compositor);
    start();
    requestToken(token);
    tokens.nextRequest();
    kwin.reset();
    EXPECT_EQ(token.value().activationToken, "");
}

TEST_F(KWinLaunchTokensTest, LaunchContinuesWithoutATokenIfNoCompositorListens) {
    const ScopedEnvironment nowhere{{{"WAYLAND_DISPLAY", "wayland-nowhere"}}};
    kwin = std::make_unique<FakeKWin>(bus.address(), FakeKWin::Nature{});
    listening = std::make_unique<test::Listening<KWinWindowBackend>>(reported);
    kwin->expectCalls(FakeKWin::loading);
    requestToken(token);
    EXPECT_EQ(token.value().activationToken, "");
}

} // namespace

} // namespace glidemap
