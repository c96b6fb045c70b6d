// The driver's C interface: the touch driver's five symbols, two symbols that read its device list,
// and optional symbols. See input/touch_driver.h, click_filter.h, device_name.h and
// device_report.h.
//
// The first call that needs the driver creates it. The driver and its lists are never destroyed,
// because the interface has no function to release them, and the driver's thread may outlive the
// program's static objects.

#include "drivers/evdev/click_filter.h"
#include "drivers/evdev/device_name.h"
#include "drivers/evdev/device_report.h"
#include "drivers/evdev/stop_signals.h"
#include "drivers/evdev/touchpad_driver.h"
#include "drivers/evdev/udev_directory.h"
#include "drivers/evdev/udev_report.h"
#include "drivers/evdev/uinput_clone.h"
#include "input/touch_driver.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <string>
#include <utility>
#include <vector>

#define GLIDEMAP_EXPORT extern "C" [[gnu::visibility("default")]]

namespace {

using namespace glidemap;

using List = std::vector<driver::Device>;

TouchpadDriver& touchpads() {
    static auto* driver = new TouchpadDriver(std::make_unique<UdevDirectory>());
    return *driver;
}

// Reuses an earlier list of the same devices, because lists are never freed and the program
// requests one whenever a device appears.
driver::DeviceList keep(std::unique_ptr<const List> list) {
    static std::mutex mutex;
    static auto* lists = new std::vector<std::unique_ptr<const List>>;
    const std::lock_guard lock(mutex);
    const auto known =
        std::ranges::find_if(*lists, [&list](const auto& earlier) { return *earlier == *list; });
    if (known != lists->end()) {
        return known->get();
    }
    lists->push_back(std::move(list));
    return lists->back().get();
}

// Calls the function and ignores its exceptions, because no exception may leave a C interface.
// Allocating memory or starting a thread can throw.
template <typename Function>
void withoutExceptions(Function function) noexcept {
    try {
        function();
    } catch (...) {
    }
}

} // namespace

GLIDEMAP_EXPORT driver::DeviceList MTDeviceCreateList() {
    driver::DeviceList result = nullptr;
    withoutExceptions(
        [&result] { result = keep(std::make_unique<const List>(touchpads().createList())); });
    return result;
}

GLIDEMAP_EXPORT long GlidemapDeviceListCount(driver::DeviceList list) {
    return list != nullptr ? static_cast<long>(static_cast<const List*>(list)->size()) : 0;
}

GLIDEMAP_EXPORT const void* GlidemapDeviceListValueAtIndex(driver::DeviceList list, long index) {
    const bool exists = index >= 0 && index < GlidemapDeviceListCount(list);
    return exists ? (*static_cast<const List*>(list))[static_cast<std::size_t>(index)] : nullptr;
}

GLIDEMAP_EXPORT std::int32_t GlidemapUnreadableTouchpadCount() {
    return touchpads().unreadableCount();
}

GLIDEMAP_EXPORT const char* GlidemapDeviceName(driver::Device device) {
    return touchpads().name(device);
}

GLIDEMAP_EXPORT void GlidemapReportDevices(driver::ReportLine report, void* context) {
    withoutExceptions([&] {
        for (const std::string& line : reportOfDevices()) {
            report(context, line.c_str());
        }
    });
}

GLIDEMAP_EXPORT void MTRegisterContactFrameCallback(driver::Device device,
                                                    driver::ContactCallback callback) {
    withoutExceptions([&] { touchpads().addCallback(device, callback); });
}

GLIDEMAP_EXPORT void MTUnregisterContactFrameCallback(driver::Device device,
                                                      driver::ContactCallback callback) {
    withoutExceptions([&] { touchpads().removeCallback(device, callback); });
}

GLIDEMAP_EXPORT void GlidemapSetButtonCallback(driver::ButtonCallback callback) {
    withoutExceptions([&] { touchpads().setButtonCallback(callback); });
}

GLIDEMAP_EXPORT void GlidemapSetClickFilter(driver::FilterClick filter, void* context) {
    withoutExceptions([&] { touchpads().setClickFilter(filter, context); });
}

GLIDEMAP_EXPORT void GlidemapSwitchClickFilter(bool on) {
    withoutExceptions([&] {
        if (on) {
            watchStopSignals([] { touchpads().pause(); }, [] { touchpads().resume(); });
        }
        touchpads().switchClickFilter(on);
    });
}

GLIDEMAP_EXPORT const char* GlidemapClickFilterObstacle(driver::Device device) {
    return touchpads().filterObstacle(device);
}

GLIDEMAP_EXPORT bool GlidemapCanFilterClicks() {
    return UinputClone::isPossible();
}

GLIDEMAP_EXPORT void MTDeviceStart(driver::Device device, std::int32_t /*mode*/) {
    withoutExceptions([&] { touchpads().start(device); });
}

GLIDEMAP_EXPORT void MTDeviceStop(driver::Device device) {
    withoutExceptions([&] { touchpads().stop(device); });
}
