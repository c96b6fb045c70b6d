#include "kit/in_environment.h"
#include "kit/temporary_folder.h"
#include "platform/linux/desktop/bus_address.h"

#include <gtest/gtest.h>

namespace glidemap {
namespace {

using test::InEnvironment;

TEST(BusAddressTest, ReturnsTheSystemAndSessionBusAddressesFromTheEnvironment) {
    const InEnvironment system("DBUS_SYSTEM_BUS_ADDRESS", "unix:path=/of/the/system");
    const InEnvironment session("DBUS_SESSION_BUS_ADDRESS", "unix:path=/of/the/session");
    EXPECT_EQ(busAddress(Bus::system), "unix:path=/of/the/system");
    EXPECT_EQ(busAddress(Bus::session), "unix:path=/of/the/session");
}

TEST(BusAddressTest, FindsTheSessionBusInTheRuntimeFolder) {
    const test::TemporaryFolder runtime;
    const auto socket = runtime.write("bus", "");
    const InEnvironment folder("XDG_RUNTIME_DIR", runtime.path().c_str());
    for (const char* const address : {static_cast<const char*>(nullptr), ""}) {
        const InEnvironment session("DBUS_SESSION_BUS_ADDRESS", address);
        EXPECT_EQ(busAddress(Bus::session), "unix:path=" + socket.string());
    }
}

TEST(BusAddressTest, ReturnsNulloptIfTheSessionBusIsMissing) {
    const test::TemporaryFolder runtime;
    const InEnvironment session("DBUS_SESSION_BUS_ADDRESS", nullptr);
    for (const char* const folder : {runtime.path().c_str(), static_cast<const char*>(nullptr)}) {
        const InEnvironment place("XDG_RUNTIME_DIR", folder);
        EXPECT_EQ(busAddress(Bus::session), std::nullopt);
    }
}

} // namespace
} // namespace glidemap
