#include "desktops/runtime_folder.h"
#include "desktops/scoped_environment.h"
#include "kit/patience.h"
#include "platform/linux/windows/activation/fake_activation.h"
#include "platform/linux/windows/activation/received_token.h"
#include "platform/linux/windows/activation/xdg_activation.h"
#include "platform/linux/windows/wlr/fake_compositor.h"
#include "platform/linux/windows/wlr/wlr_connection.h"

#include <gmock/gmock.h>
#include <wayland-util.h>

#include <chrono>
#include <memory>
#include <string>

namespace glidemap {

namespace {

using test::ScopedEnvironment;
using testing::ElementsAre;
using Token = ReceivedToken<std::string>;

// A time limit that no test reaches.
constexpr std::chrono::milliseconds never = std::chrono::hours(1);

constexpr wl_interface permission = {"example_permission", 1, 0, nullptr, 0, nullptr};

// A client with its own connection to the compositor, like a window backend.
class Client {
public:
    explicit Client(std::chrono::milliseconds patience = never, const std::string& required = "") {
        thread.call([&] {
            connection = WlrConnection::open();
            ASSERT_NE(connection, nullptr);
            activation = std::make_unique<XdgActivation>(thread, connection->display(), patience);
            if (!required.empty()) {
                activation->requireInterface(required);
            }
            EXPECT_TRUE(connection->roundTrip(test::patience));
            watch = thread.watch(connection->descriptor(), [this] {
                if (!connection->dispatchArrived()) {
                    watch = {};
                    activation->abandonRequests();
                }
            });
        });
    }
    Client(const Client&) = delete;
    Client& operator=(const Client&) = delete;
    ~Client() { end(); }

    void requestToken(const std::string& application, Token& token) {
        thread.call([&] {
            activation->requestToken(application,
                                     [&token](const std::string& value) { token.receive(value); });
        });
    }

    void end() {
        thread.call([&] {
            watch = {};
            activation.reset();
            connection.reset();
        });
    }

private:
    std::unique_ptr<WlrConnection> connection;
    std::unique_ptr<XdgActivation> activation;
    DesktopThread::Watch watch;
    DesktopThread thread; // destroyed first
};

class XdgActivationTest : public testing::Test {
protected:
    test::RuntimeFolder folder;
    ScopedEnvironment here{
        {{"XDG_RUNTIME_DIR", folder.path()}, {"WAYLAND_DISPLAY", FakeCompositor::socketName}}};
    FakeActivation tokens; // outlives the compositor
    FakeCompositor compositor{0};
    Token token;
};

TEST_F(XdgActivationTest, ReturnsTheTokenOfTheCompositor) {
    tokens.offerOn(compositor);
    Client client;
    client.requestToken("org.example.Editor", token);
    EXPECT_THAT(tokens.nextRequest(), ElementsAre("org.example.Editor"));
    EXPECT_TRUE(token.isEmpty());
    tokens.reply(compositor, 0, "issued-1");
    EXPECT_EQ(token.value(), "issued-1");
}

TEST_F(XdgActivationTest, EachRequestReceivesItsOwnToken) {
    tokens.offerOn(compositor);
    Client client;
    Token other;
    client.requestToken("first", token);
    client.requestToken("second", other);
    EXPECT_THAT(tokens.nextRequest(), ElementsAre("first"));
    EXPECT_THAT(tokens.nextRequest(), ElementsAre("second"));
    tokens.reply(compositor, 1, "for the second");
    EXPECT_EQ(other.value(), "for the second");
    EXPECT_TRUE(token.isEmpty());
    tokens.reply(compositor, 0, "for the first");
    EXPECT_EQ(token.value(), "for the first");
}

TEST_F(XdgActivationTest, FinishedRequestIsDestroyed) {
    tokens.offerOn(compositor);
    Client client;
    client.requestToken("editor", token);
    tokens.nextRequest();
    EXPECT_EQ(tokens.openRequests(compositor), 1U);
    tokens.reply(compositor, 0, "issued");
    EXPECT_EQ(token.value(), "issued");
    const auto deadline = std::chrono::steady_clock::now() + test::patience;
    Token next; // its request arrives after the destruction of the first request
    client.requestToken("next", next);
    tokens.nextRequest();
    while (tokens.openRequests(compositor) != 1) {
        ASSERT_LT(std::chrono::steady_clock::now(), deadline);
    }
}

TEST_F(XdgActivationTest, TokenIsEmptyWithoutTheProtocol) {
    Client client;
    client.requestToken("editor", token);
    EXPECT_FALSE(token.isEmpty()); // set before requestToken() returned
    EXPECT_EQ(token.value(), "");
}

TEST_F(XdgActivationTest, TokenIsEmptyIfTheCompositorDoesNotReply) {
    tokens.offerOn(compositor);
    Client client(std::chrono::milliseconds(1));
    client.requestToken("editor", token);
    EXPECT_EQ(token.value(), "");
}

TEST_F(XdgActivationTest, IgnoresATokenThatArrivesAfterTheTimeLimit) {
    tokens.offerOn(compositor);
    Client client(std::chrono::milliseconds(1));
    client.requestToken("editor", token);
    tokens.nextRequest();
    EXPECT_EQ(token.value(), "");
    tokens.reply(compositor, 0, "late");
    Token next;
    client.requestToken("next", next);
    EXPECT_EQ(next.value(), "");
    EXPECT_EQ(token.value(), ""); // also checks that there was only one call
}

TEST_F(XdgActivationTest, TokenIsEmptyIfTheConnectionIsLost) {
    const test::RuntimeFolder other;
    const ScopedEnvironment there{{{"XDG_RUNTIME_DIR", other.path()}}};
    auto ending = std::make_unique<FakeCompositor>(0);
    tokens.offerOn(*ending);
    Client client;
    client.requestToken("editor", token);
    tokens.nextRequest();
    EXPECT_TRUE(token.isEmpty());
    ending.reset();
    EXPECT_EQ(token.value(), "");
    Token next;
    client.requestToken("next", next);
    EXPECT_EQ(next.value(), "");
}

TEST_F(XdgActivationTest, DestructorDiscardsRequests) {
    tokens.offerOn(compositor);
    Client client;
    client.requestToken("editor", token);
    tokens.nextRequest();
    client.end();
    tokens.reply(compositor, 0, "late");
    EXPECT_TRUE(token.isEmpty());
}

TEST_F(XdgActivationTest, RequestsNothingWithoutTheRequiredInterface) {
    tokens.offerOn(compositor);
    Client client(never, permission.name);
    client.requestToken("editor", token);
    EXPECT_EQ(token.value(), "");
    EXPECT_EQ(tokens.openRequests(compositor), 0U);
}

TEST_F(XdgActivationTest, RequestsATokenIfTheRequiredInterfaceIsOffered) {
    tokens.offerOn(compositor);
    FakeActivation::offerInterface(compositor, permission);
    Client client(never, permission.name);
    client.requestToken("editor", token);
    EXPECT_THAT(tokens.nextRequest(), ElementsAre("editor"));
    tokens.reply(compositor, 0, "issued");
    EXPECT_EQ(token.value(), "issued");
}

} // namespace

} // namespace glidemap
