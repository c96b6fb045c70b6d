#include "desktops/private_bus.h"
#include "desktops/silent_socket.h"
#include "kit/patience.h"
#include "platform/linux/desktop/bus_probe.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <vector>

namespace glidemap {
namespace {

constexpr std::chrono::milliseconds briefly{100};

TEST(BusProbeTest, WorkingBusResponds) {
    const test::PrivateBus bus;
    EXPECT_TRUE(busResponds(bus.address(), test::patience)) << bus.address();
    EXPECT_TRUE(busResponds(bus.address() + ";unix:path=/nowhere", test::patience));
}

TEST(BusProbeTest, BusThatOnlyAcceptsConnectionsDoesNotRespond) {
    const test::SilentSocket bus;
    EXPECT_FALSE(busResponds(bus.address(), briefly));
    EXPECT_FALSE(busResponds(bus.address() + ",guid=0123", briefly));
}

TEST(BusProbeTest, BusWithAFullBacklogDoesNotRespond) {
    const test::SilentSocket bus;
    std::vector<int> waiting;
    const std::string path = bus.address().substr(std::string("unix:path=").size());
    sockaddr_un name = {};
    name.sun_family = AF_UNIX;
    path.copy(name.sun_path, sizeof name.sun_path - 1);
    int result = 0;
    while (result == 0) {
        waiting.push_back(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
        result = connect(waiting.back(), reinterpret_cast<const sockaddr*>(&name), sizeof name);
    }
    EXPECT_FALSE(busResponds(bus.address(), briefly));
    for (const int each : waiting) {
        close(each);
    }
}

TEST(BusProbeTest, MissingBusDoesNotRespond) {
    EXPECT_FALSE(busResponds("unix:path=/dev/null", test::patience));
    EXPECT_FALSE(busResponds("unix:path=/nowhere/at/all", test::patience));
    EXPECT_FALSE(busResponds("unix:abstract=glidemap-no-such-bus", test::patience));
}

TEST(BusProbeTest, AssumesThatABusWithAnUnsupportedAddressResponds) {
    for (const char* const address : {"tcp:host=localhost,port=1", "unixexec:path=/bin/true", ""}) {
        EXPECT_TRUE(busResponds(address, briefly)) << address;
    }
}

} // namespace
} // namespace glidemap
