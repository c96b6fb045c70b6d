#include "input/multitouch_device_manager.h"
#include "platform/linux/touch_driver_platform.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <string>

namespace glidemap {
namespace {

constexpr const char* variable = "GLIDEMAP_TOUCH_DRIVER";

class TouchDriverPlatformTest : public testing::Test {
protected:
    ~TouchDriverPlatformTest() override { unsetenv(variable); }
};

// The tests are in a folder next to bin, so they find the drivers as the programs do.
TEST_F(TouchDriverPlatformTest, UsesTheInstalledEvdevDriverByDefault) {
    unsetenv(variable);
    const std::string path = touchDriverPlatform().libraryPath;
    EXPECT_THAT(path, testing::EndsWith("/lib/glidemap/libglidemap-evdev.so"));
    EXPECT_TRUE(std::filesystem::exists(path)) << path;
}

TEST_F(TouchDriverPlatformTest, EnvironmentVariableSelectsAnotherDriver) {
    setenv(variable, REPLAY_DRIVER, 1);
    EXPECT_EQ(touchDriverPlatform().libraryPath, REPLAY_DRIVER);
}

TEST_F(TouchDriverPlatformTest, EmptyEnvironmentVariableSelectsTheDefaultDriver) {
    setenv(variable, "", 1);
    EXPECT_THAT(touchDriverPlatform().libraryPath, testing::EndsWith("libglidemap-evdev.so"));
}

TEST_F(TouchDriverPlatformTest, LoadsTheSelectedDriverAndReadsItsDeviceList) {
    setenv(variable, REPLAY_DRIVER, 1);
    unsetenv("GLIDEMAP_RECORDING");
    MultitouchDeviceManager manager(touchDriverPlatform());
    ASSERT_EQ(manager.loadError(), std::nullopt);
    manager.start(); // the driver has no recording, so the list is empty
    EXPECT_EQ(manager.loadError(), "未找到多点触摸设备");
}

TEST_F(TouchDriverPlatformTest, ReportsALoadErrorForAMissingDriver) {
    setenv(variable, "/no/such/driver.so", 1);
    const MultitouchDeviceManager manager(touchDriverPlatform());
    ASSERT_TRUE(manager.loadError().has_value());
    EXPECT_THAT(*manager.loadError(),
                testing::StartsWith("无法加载 MultitouchSupport.framework: /no/such/driver.so"));
}

} // namespace
} // namespace glidemap
