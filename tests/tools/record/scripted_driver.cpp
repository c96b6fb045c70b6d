// A touch driver without a real touchpad. Environment variables set the number of touchpads. On
// each started touchpad, three fingers swipe to the right once, and the button is pressed once.
//
//   GLIDEMAP_SCRIPTED_TOUCHPADS    the number of readable touchpads
//   GLIDEMAP_SCRIPTED_UNREADABLE   the number of further, unreadable touchpads

#include "drivers/evdev/device_name.h"
#include "input/touch_driver.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <mutex>
#include <thread>
#include <vector>

#define GLIDEMAP_EXPORT extern "C" [[gnu::visibility("default")]]

namespace {

using namespace glidemap;

struct ScriptedPad {
    std::vector<driver::ContactCallback> callbacks;
    std::thread hand;
};

std::array<ScriptedPad, 4> pads;
driver::ButtonCallback buttonCallback = nullptr;
std::mutex calling; // a driver calls back on one thread at a time

long numberIn(const char* variable) {
    const char* text = std::getenv(variable);
    return text != nullptr ? std::atol(text) : 0;
}

std::array<MTTouch, 3> fingersAt(float x, std::int32_t state) {
    std::array<MTTouch, 3> fingers{};
    for (std::size_t index = 0; index < fingers.size(); ++index) {
        fingers[index].identifier = static_cast<std::int32_t>(index) + 1;
        fingers[index].state = state;
        fingers[index].normalized.pos = {x + 0.125F * static_cast<float>(index), 0.5F};
    }
    return fingers;
}

void report(ScriptedPad& pad, double time, const std::array<MTTouch, 3>& fingers) {
    for (const auto callback : pad.callbacks) {
        callback(&pad, fingers.data(), 3, time, 0);
    }
}

void swipe(ScriptedPad& pad) {
    const std::lock_guard lock(calling);
    report(pad, 100, fingersAt(0.125F, 3));
    for (int step = 1; step <= 4; ++step) {
        report(pad, 100 + 0.03125 * step,
               fingersAt(0.125F + 0.0625F * static_cast<float>(step), 4));
    }
    report(pad, 100.15625, fingersAt(0.375F, 7));
    if (buttonCallback != nullptr) {
        buttonCallback(&pad, 0, true, 100.1875);
    }
}

} // namespace

GLIDEMAP_EXPORT driver::DeviceList MTDeviceCreateList() {
    return &pads;
}

GLIDEMAP_EXPORT long GlidemapDeviceListCount(driver::DeviceList) {
    return numberIn("GLIDEMAP_SCRIPTED_TOUCHPADS");
}

GLIDEMAP_EXPORT const void* GlidemapDeviceListValueAtIndex(driver::DeviceList, long index) {
    return &pads.at(static_cast<std::size_t>(index));
}

GLIDEMAP_EXPORT std::int32_t GlidemapUnreadableTouchpadCount() {
    return static_cast<std::int32_t>(numberIn("GLIDEMAP_SCRIPTED_UNREADABLE"));
}

GLIDEMAP_EXPORT const char* GlidemapDeviceName(driver::Device) {
    return "Scripted \"Pad\"";
}

GLIDEMAP_EXPORT void MTRegisterContactFrameCallback(driver::Device device,
                                                    driver::ContactCallback callback) {
    static_cast<ScriptedPad*>(device)->callbacks.push_back(callback);
}

GLIDEMAP_EXPORT void MTUnregisterContactFrameCallback(driver::Device device,
                                                      driver::ContactCallback callback) {
    std::erase(static_cast<ScriptedPad*>(device)->callbacks, callback);
}

GLIDEMAP_EXPORT void GlidemapSetButtonCallback(driver::ButtonCallback callback) {
    buttonCallback = callback;
}

GLIDEMAP_EXPORT void MTDeviceStart(driver::Device device, std::int32_t) {
    auto& pad = *static_cast<ScriptedPad*>(device);
    pad.hand = std::thread([&pad] { swipe(pad); });
}

GLIDEMAP_EXPORT void MTDeviceStop(driver::Device device) {
    static_cast<ScriptedPad*>(device)->hand.join();
}
