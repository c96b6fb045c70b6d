// The symbols of the replay driver (see input/touch_driver.h).
#include "drivers/replay/playing_device.h"
#include "drivers/replay/replay_device.h"
#include "input/touch_driver.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace {

using namespace glidemap;
using replay::ReplayDevice;

using List = std::vector<std::unique_ptr<ReplayDevice>>;

// A device without a recording. The program passes the device's reports and their timestamps to
// GlidemapReplayPush(), which calls the contact callback on the caller's thread.
class PushedDevice : public ReplayDevice {
public:
    void start() override {
        const Gate gate = closeGate();
        started = true;
    }

    void stop() override {
        const Gate gate = closeGate();
        started = false;
    }

    // Does nothing while the device is stopped.
    void push(const MTTouch* records, std::int32_t count, double timestamp) {
        const Gate gate = closeGate();
        if (started) {
            report(records, count, timestamp);
        }
    }

private:
    bool started = false;
};

// Lists and devices are never destroyed, so they stay valid even while the process exits.
std::vector<std::unique_ptr<List>>& lists() {
    static auto& instance = *new std::vector<std::unique_ptr<List>>();
    return instance;
}

bool pushingEnabled = false;

std::atomic<PushedDevice*> pushedDevice = nullptr; // the device in the newest list

std::unique_ptr<ReplayDevice> makeDevice() {
    if (!pushingEnabled) {
        return replay::deviceFromEnvironment();
    }
    auto device = std::make_unique<PushedDevice>();
    pushedDevice = device.get();
    return device;
}

bool isPlayed(const List& list) {
    return std::ranges::any_of(list, [](const auto& device) { return device->isRegistered(); });
}

ReplayDevice* replayDevice(driver::Device device) {
    return static_cast<ReplayDevice*>(device);
}

} // namespace

#define GLIDEMAP_EXPORT extern "C" [[gnu::visibility("default")]]

// Returns the newest list again while its device is in use. Otherwise a program that looks for new
// devices during the playback would start a second playback.
GLIDEMAP_EXPORT driver::DeviceList MTDeviceCreateList() {
    if (!lists().empty() && isPlayed(*lists().back())) {
        return lists().back().get();
    }
    auto list = std::make_unique<List>();
    if (auto device = makeDevice()) {
        list->push_back(std::move(device));
    }
    return lists().emplace_back(std::move(list)).get();
}

GLIDEMAP_EXPORT long GlidemapDeviceListCount(driver::DeviceList list) {
    return list != nullptr ? static_cast<long>(static_cast<const List*>(list)->size()) : 0;
}

GLIDEMAP_EXPORT const void* GlidemapDeviceListValueAtIndex(driver::DeviceList list, long index) {
    if (index < 0 || index >= GlidemapDeviceListCount(list)) {
        return nullptr;
    }
    return (*static_cast<const List*>(list))[static_cast<std::size_t>(index)].get();
}

GLIDEMAP_EXPORT void MTRegisterContactFrameCallback(driver::Device device,
                                                    driver::ContactCallback callback) {
    replayDevice(device)->registerCallback(callback);
}

GLIDEMAP_EXPORT void MTUnregisterContactFrameCallback(driver::Device device,
                                                      driver::ContactCallback callback) {
    replayDevice(device)->unregisterCallback(callback);
}

GLIDEMAP_EXPORT void MTDeviceStart(driver::Device device, std::int32_t /*mode*/) {
    replayDevice(device)->start();
}

GLIDEMAP_EXPORT void MTDeviceStop(driver::Device device) {
    replayDevice(device)->stop();
}

GLIDEMAP_EXPORT void GlidemapSetButtonCallback(driver::ButtonCallback callback) {
    ReplayDevice::setButtonCallback(callback);
}

GLIDEMAP_EXPORT void GlidemapReplayEnablePushing() {
    pushingEnabled = true;
}

GLIDEMAP_EXPORT void GlidemapReplayPush(const MTTouch* records, std::int32_t count,
                                        double timestamp) {
    if (PushedDevice* device = pushedDevice) {
        device->push(records, count, timestamp);
    }
}
