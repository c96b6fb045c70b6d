#include "touchpads.h"

#include "drivers/evdev/device_name.h"

#include <algorithm>
#include <atomic>

namespace glidemap::record {

namespace {

std::atomic<Recorder*> listening = nullptr;

std::int32_t passReport(driver::Device /*device*/, const MTTouch* records, std::int32_t count,
                        double timestamp, std::int32_t /*frame*/) {
    if (Recorder* recorder = listening) {
        recorder->report(records, count, timestamp);
    }
    return 0;
}

void passButton(driver::Device /*device*/, std::int32_t button, bool down, double timestamp) {
    if (Recorder* recorder = listening) {
        recorder->button(button, down, timestamp);
    }
}

} // namespace

template <typename Function>
Function Touchpads::function(const char* name) const {
    return reinterpret_cast<Function>(manager.optionalSymbol(name));
}

Touchpads::Touchpads(const MultitouchDeviceManager& manager) : manager(manager) {
    const auto createList = function<driver::CreateList>(driver::createListSymbol);
    const auto count = function<driver::ListCount>(driver::listCountSymbol);
    const auto valueAt = function<driver::ListValueAtIndex>(driver::listValueAtIndexSymbol);
    const driver::DeviceList list =
        createList != nullptr && count != nullptr && valueAt != nullptr ? createList() : nullptr;
    for (long index = 0; list != nullptr && index < count(list); ++index) {
        if (const void* device = valueAt(list, index); device != nullptr) {
            devices.push_back(const_cast<driver::Device>(device));
        }
    }
}

Touchpads::~Touchpads() {
    const auto removeCallback =
        function<driver::UnregisterContactFrameCallback>(driver::unregisterCallbackSymbol);
    for (driver::Device device : devices) {
        if (removeCallback != nullptr) {
            removeCallback(device, &passReport);
        }
    }
    if (const auto set = function<driver::SetButtonCallback>(driver::setButtonCallbackSymbol)) {
        set(nullptr);
    }
    listening = nullptr;
}

bool Touchpads::areStarted() const {
    const auto& started = manager.presentDevices();
    return std::ranges::find_first_of(started, devices) != started.end();
}

std::int32_t Touchpads::unreadableCount() const {
    const auto unreadable =
        function<driver::UnreadableTouchpadCount>(driver::unreadableTouchpadCountSymbol);
    return unreadable != nullptr ? unreadable() : 0;
}

std::string Touchpads::names() const {
    const auto nameOf = function<driver::DeviceName>(driver::deviceNameSymbol);
    std::string names;
    for (driver::Device device : devices) {
        const char* name = nameOf != nullptr ? nameOf(device) : nullptr;
        if (name != nullptr) {
            names += (names.empty() ? "" : ", ") + std::string(name);
        }
    }
    return names;
}

// A device may have several callbacks. The recorder registers first, so its callback runs before
// the device manager's.
void Touchpads::listen(Recorder& recorder) {
    listening = &recorder;
    const auto addCallback =
        function<driver::RegisterContactFrameCallback>(driver::registerCallbackSymbol);
    for (driver::Device device : devices) {
        if (addCallback != nullptr) {
            addCallback(device, &passReport);
        }
    }
    if (const auto set = function<driver::SetButtonCallback>(driver::setButtonCallbackSymbol)) {
        set(&passButton);
    }
}

} // namespace glidemap::record
