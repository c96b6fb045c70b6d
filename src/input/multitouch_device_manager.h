// Calls the touch driver: loads it by path, registers with its devices on start and on request, and
// copies each report to one sink.
//
// Thread:  construction, start(), lookForDevices() and stop() on the main thread;
//          contactCallback on the driver's thread.
// Owner:   the process (`MultitouchDeviceManager::shared()`); tests and tools create their
//          own, one at a time, because all instances share the sink.
// Errors:  never fatal. The text of loadError() is in Simplified Chinese, regardless of the
//          language of the interface. After a failure, start() starts nothing.
#pragma once

#include "core/observable.h"
#include "input/mt_touch.h"
#include "input/touch_driver.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {

// The differences between platforms: the driver's location and how its device list is read.
struct TouchDriverPlatform {
    struct ListAccess {
        driver::ListCount count = nullptr;
        driver::ListValueAtIndex valueAtIndex = nullptr;
    };

    std::string libraryPath;
    // Resolves the functions of ListAccess in the loaded driver. `handle` is the handle that
    // dlopen() returned for the driver.
    std::function<ListAccess(void* handle)> listAccess;
};

class MultitouchDeviceManager {
public:
    // The sink takes ownership of `records`.
    using FrameSink =
        std::function<void(driver::Device device, std::vector<MTTouch> records, double timestamp)>;

    explicit MultitouchDeviceManager(const TouchDriverPlatform& platform);
    MultitouchDeviceManager(const MultitouchDeviceManager&) = delete;
    MultitouchDeviceManager& operator=(const MultitouchDeviceManager&) = delete;

    // Sets the platform of the shared instance. Must be called before the first shared().
    static void configureShared(TouchDriverPlatform platform);
    static MultitouchDeviceManager& shared();

    // Replaces the sink for all reports; an empty sink drops them. A report that is being delivered
    // during the call may still reach the previous sink.
    static void setFrameSink(FrameSink sink);

    // The callback registered with every device. Always returns 0.
    static std::int32_t contactCallback(driver::Device device, const MTTouch* records,
                                        std::int32_t count, double timestamp, std::int32_t frame);

    // Registers with every present device and starts it. Devices that are attached later need
    // lookForDevices().
    void start();

    // Registers with new devices and starts them, but only between start() and stop(). If a device
    // is found, clears the error "no device found". After any other error, starts no device.
    void lookForDevices();

    // Stops every device and unregisters from it, as far as the driver supports this.
    void stop();

    bool isRunning() const { return running; }

    // The devices found by start() and lookForDevices().
    const std::vector<driver::Device>& presentDevices() const { return devices; }

    const std::optional<std::string>& loadError() const { return _loadError; }

    // Notifies after each lookForDevices(), regardless of the result.
    Observable& changes() const { return observers; }

    // Returns a function that only some drivers export, or null. Used by platform code and by the
    // tools.
    void* optionalSymbol(const char* name) const;

private:
    void resolveSymbols();
    bool canStart() const;
    void startNewDevices();
    std::vector<driver::Device> listedDevices();
    void run(driver::Device device);

    void* handle = nullptr; // never closed: the driver's threads may run until the process exits
    driver::CreateList createList = nullptr;
    driver::RegisterContactFrameCallback registerCallback = nullptr;
    driver::UnregisterContactFrameCallback unregisterCallback = nullptr;
    driver::Start startDevice = nullptr;
    driver::Stop stopDevice = nullptr;
    TouchDriverPlatform::ListAccess listAccess;
    driver::DeviceList deviceList = nullptr; // keeps the devices valid
    std::vector<driver::Device> devices;
    bool running = false;
    bool isRequested = false; // between start() and stop()
    std::optional<std::string> _loadError;
    mutable Observable observers;
};

} // namespace glidemap
