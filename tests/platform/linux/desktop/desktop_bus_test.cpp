#include "desktops/private_bus.h"
#include "platform/linux/desktop/desktop_bus.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {
namespace {

const BusObject busDaemon{"org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus"};

GlibOwner<GVariant> parsed(const char* text) {
    return GlibOwner<GVariant>(g_variant_parse(nullptr, text, nullptr, nullptr, nullptr));
}

TEST(BusReplyTest, ReadsABooleanEitherDirectlyOrInAVariant) {
    struct Row {
        const char* reply;
        std::optional<bool> value;
    };
    const Row rows[] = {
        {"(true,)", true},      {"(false,)", false},
        {"(<true>,)", true},    {"(<false>,)", false},
        {"(1,)", std::nullopt}, {"(<'true'>,)", std::nullopt},
        {"()", std::nullopt},   {"(true, true)", std::nullopt},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(booleanIn(parsed(row.reply).get()), row.value) << row.reply;
    }
    EXPECT_EQ(booleanIn(nullptr), std::nullopt);
}

TEST(BusReplyTest, ReadsVariantsAndWordListsOnlyFromRepliesOfTheMatchingType) {
    EXPECT_STREQ(g_variant_get_string(variantIn(parsed("(<'43.9'>,)").get()).get(), nullptr),
                 "43.9");
    EXPECT_EQ(variantIn(parsed("('43.9',)").get()), nullptr);
    EXPECT_EQ(variantIn(nullptr), nullptr);
    using Words = std::vector<std::string>;
    EXPECT_EQ(wordsIn(parsed("(['a', 'b'],)").get()), (Words{"a", "b"}));
    EXPECT_EQ(wordsIn(parsed("(@as [],)").get()), Words());
    EXPECT_EQ(wordsIn(parsed("('a',)").get()), std::nullopt);
    EXPECT_EQ(wordsIn(nullptr), std::nullopt);
}

TEST(DesktopBusTest, WaitReturnsTheReplyOrTheError) {
    const test::PrivateBus daemon;
    const auto bus = DesktopBus::open(daemon.address());
    ASSERT_NE(bus, nullptr);
    const auto reply = bus->wait({busDaemon, "ListNames"}, nullptr);
    EXPECT_EQ(reply.error, nullptr);
    EXPECT_FALSE(wordsIn(reply.values.get()).value_or(std::vector<std::string>()).empty());
    const auto unknown = bus->wait({busDaemon, "NoSuchMethod"}, nullptr);
    ASSERT_NE(unknown.error, nullptr);
    EXPECT_EQ(unknown.values, nullptr);
    EXPECT_TRUE(isUnknownOnTheBus(*unknown.error));
    EXPECT_EQ(DesktopBus::open("unix:path=/nowhere"), nullptr);
}

TEST(DesktopBusTest, OpenReportsNullIfCancelledOrIfTheBusIsUnreachable) {
    const test::PrivateBus daemon;
    DesktopThread thread;
    const GlibOwner<GCancellable> cancelled(g_cancellable_new());
    g_cancellable_cancel(cancelled.get());
    std::promise<bool> cancelledOpens;
    std::promise<bool> unreachableOpens;
    std::promise<bool> opens;
    thread.submit([&] {
        const auto report = [](std::promise<bool>& promise) {
            return [&promise](std::unique_ptr<DesktopBus> bus) {
                promise.set_value(bus != nullptr);
            };
        };
        DesktopBus::open(daemon.address(), cancelled.get(), report(cancelledOpens));
        DesktopBus::open("unix:path=/nowhere", nullptr, report(unreachableOpens));
        DesktopBus::open(daemon.address(), nullptr, report(opens));
    });
    EXPECT_FALSE(cancelledOpens.get_future().get());
    EXPECT_FALSE(unreachableOpens.get_future().get());
    EXPECT_TRUE(opens.get_future().get());
}

// One connection serves an object, and another calls it.
TEST(DesktopBusTest, ServedObjectReceivesTheSenderAndTheArguments) {
    const test::PrivateBus daemon;
    DesktopThread thread;
    std::unique_ptr<DesktopBus> server;
    std::promise<std::string> received;
    thread.call([&] {
        server = DesktopBus::open(daemon.address());
        server->serve("/org/glidemap/Example", R"(<node>
            <interface name="org.glidemap.Example">
                <method name="Report"><arg type="s" direction="in"/></method>
            </interface>
        </node>)",
                      [&](const std::string& sender, GVariant* arguments) {
                          const char* text = nullptr;
                          g_variant_get(arguments, "(&s)", &text);
                          received.set_value(sender + " " + text);
                      });
    });
    const auto client = DesktopBus::open(daemon.address());
    const BusObject example{server->uniqueName(), "/org/glidemap/Example", "org.glidemap.Example"};
    EXPECT_EQ(client->wait({example, "Report"}, g_variant_new("(s)", "text")).error, nullptr);
    EXPECT_EQ(received.get_future().get(), client->uniqueName() + " text");
    thread.call([&] { server.reset(); });
    EXPECT_NE(client->wait({example, "Report"}, g_variant_new("(s)", "late")).error, nullptr);
}

TEST(DesktopBusTest, PendingCallMakesNoCallbackAfterTheBusIsDestroyed) {
    const test::PrivateBus daemon;
    DesktopThread thread;
    const auto called = std::make_shared<bool>(false);
    std::promise<void> released;
    thread.call([&] {
        auto bus = DesktopBus::open(daemon.address());
        const std::shared_ptr<void> atTheEnd(nullptr, [&released](void*) { released.set_value(); });
        bus->call(
            busDaemon, "ListNames", nullptr,
            [called, atTheEnd](GVariant* /*values*/, const GError* /*error*/) { *called = true; });
    });
    released.get_future().wait();
    EXPECT_FALSE(*called);
}

} // namespace
} // namespace glidemap
