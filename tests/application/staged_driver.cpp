// A driver for the end-to-end tests. It wraps the replay driver, but reads reports from the pipe
// named by GLIDEMAP_STAGED_FINGERS instead of a file, so that tests decide when to make a gesture.
//
// Thread:  a separate thread reads the pipe and delivers its reports until the process exits.
// Errors:  without the replay driver there is no device.
#include "input/touch_driver.h"
#include "recording/recording_reader.h"

#include <dlfcn.h>

#include <cstdint>
#include <cstdlib>
#include <thread>
#include <variant>

namespace {

using namespace glidemap;

void* replayDriver() {
    static void* const handle = dlopen(GLIDEMAP_REPLAY_DRIVER, RTLD_NOW | RTLD_LOCAL);
    return handle;
}

template <typename Function>
Function function(const char* symbol) {
    return reinterpret_cast<Function>(dlsym(replayDriver(), symbol));
}

void play(const char* pipe) {
    const auto push = function<driver::Push>(driver::pushSymbol);
    const auto reader = openRecordingFile(pipe, pipe);
    for (Record record; reader->next(record);) {
        if (auto* report = std::get_if<Report>(&record)) {
            for (MTTouch& touch : report->touches) {
                touch.timestamp = report->time;
            }
            push(report->touches.data(), static_cast<std::int32_t>(report->touches.size()),
                 report->time);
        }
    }
}

} // namespace

#define GLIDEMAP_EXPORT extern "C" [[gnu::visibility("default")]]

GLIDEMAP_EXPORT driver::DeviceList MTDeviceCreateList() {
    const char* const pipe = std::getenv("GLIDEMAP_STAGED_FINGERS");
    if (replayDriver() == nullptr || pipe == nullptr) {
        return nullptr;
    }
    function<driver::EnablePushing>(driver::enablePushingSymbol)();
    std::thread(play, pipe).detach();
    return function<driver::CreateList>(driver::createListSymbol)();
}

GLIDEMAP_EXPORT long GlidemapDeviceListCount(driver::DeviceList list) {
    return function<driver::ListCount>(driver::listCountSymbol)(list);
}

GLIDEMAP_EXPORT const void* GlidemapDeviceListValueAtIndex(driver::DeviceList list, long index) {
    return function<driver::ListValueAtIndex>(driver::listValueAtIndexSymbol)(list, index);
}

GLIDEMAP_EXPORT void MTRegisterContactFrameCallback(driver::Device device,
                                                    driver::ContactCallback callback) {
    function<driver::RegisterContactFrameCallback>(driver::registerCallbackSymbol)(device,
                                                                                   callback);
}

GLIDEMAP_EXPORT void MTUnregisterContactFrameCallback(driver::Device device,
                                                      driver::ContactCallback callback) {
    function<driver::UnregisterContactFrameCallback>(driver::unregisterCallbackSymbol)(device,
                                                                                       callback);
}

GLIDEMAP_EXPORT void MTDeviceStart(driver::Device device, std::int32_t mode) {
    function<driver::Start>(driver::startSymbol)(device, mode);
}

GLIDEMAP_EXPORT void MTDeviceStop(driver::Device device) {
    function<driver::Stop>(driver::stopSymbol)(device);
}
