// Tests the library as a program uses it: loads it by path and resolves its symbols.

#include "drivers/evdev/click_filter.h"
#include "drivers/evdev/device_name.h"
#include "drivers/evdev/device_report.h"
#include "input/touch_driver.h"

#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace glidemap::test {
namespace {

class DriverInterface : public testing::Test {
protected:
    template <typename Function>
    Function resolve(const char* name) const {
        return reinterpret_cast<Function>(dlsym(handle, name));
    }

    void* const handle = dlopen(GLIDEMAP_EVDEV_DRIVER, RTLD_NOW | RTLD_LOCAL);
};

TEST_F(DriverInterface, ExportsAllSymbols) {
    ASSERT_NE(handle, nullptr) << dlerror();
    for (const char* name :
         {driver::createListSymbol, driver::registerCallbackSymbol,
          driver::unregisterCallbackSymbol, driver::startSymbol, driver::stopSymbol,
          driver::listCountSymbol, driver::listValueAtIndexSymbol, driver::setButtonCallbackSymbol,
          driver::unreadableTouchpadCountSymbol, driver::deviceNameSymbol,
          driver::reportDevicesSymbol, driver::setClickFilterSymbol,
          driver::switchClickFilterSymbol, driver::canFilterClicksSymbol}) {
        EXPECT_NE(dlsym(handle, name), nullptr) << name;
    }
}

TEST_F(DriverInterface, ListReturnsNullOutsideItsBounds) {
    ASSERT_NE(handle, nullptr) << dlerror();
    const auto count = resolve<driver::ListCount>(driver::listCountSymbol);
    const auto valueAt = resolve<driver::ListValueAtIndex>(driver::listValueAtIndexSymbol);
    const driver::DeviceList list = resolve<driver::CreateList>(driver::createListSymbol)();
    ASSERT_NE(list, nullptr); // without touchpads the list is empty, not null
    ASSERT_GE(count(list), 0);
    for (long index = 0; index < count(list); ++index) {
        EXPECT_NE(valueAt(list, index), nullptr);
    }
    EXPECT_EQ(valueAt(list, count(list)), nullptr);
    EXPECT_EQ(valueAt(list, -1), nullptr);
    EXPECT_EQ(count(nullptr), 0);
    EXPECT_EQ(valueAt(nullptr, 0), nullptr);
}

TEST_F(DriverInterface, NullDeviceIsIgnored) {
    ASSERT_NE(handle, nullptr) << dlerror();
    resolve<driver::RegisterContactFrameCallback>(driver::registerCallbackSymbol)(nullptr, nullptr);
    resolve<driver::Start>(driver::startSymbol)(nullptr, 0);
    resolve<driver::Stop>(driver::stopSymbol)(nullptr);
    resolve<driver::UnregisterContactFrameCallback>(driver::unregisterCallbackSymbol)(nullptr,
                                                                                      nullptr);
    resolve<driver::SetButtonCallback>(driver::setButtonCallbackSymbol)(nullptr);
    EXPECT_GE(resolve<driver::UnreadableTouchpadCount>(driver::unreadableTouchpadCountSymbol)(), 0);
}

TEST_F(DriverInterface, ReportsTheDevicesAndWhetherClonesArePossible) {
    ASSERT_NE(handle, nullptr) << dlerror();
    std::vector<std::string> lines;
    resolve<driver::ReportDevices>(driver::reportDevicesSymbol)(
        [](void* context, const char* line) {
            static_cast<std::vector<std::string>*>(context)->emplace_back(line);
        },
        &lines);
    ASSERT_GE(lines.size(), 2U); // without touchpads, a line says so
    EXPECT_THAT(lines.back(), testing::StartsWith("/dev/uinput, for clones and for typing: "));
}

} // namespace
} // namespace glidemap::test
