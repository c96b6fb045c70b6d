// The only code that talks to the touch driver: loads it by path, subscribes to every device it has
// at start or when it is asked to look again, and passes each report, copied, to one sink.
//
// Thread:  construction, start(), lookForDevices() and stop() on the main thread; contactCallback on the driver's
// own. Owner:   the process (`MultitouchDeviceManager::shared()`); tests and tools make their own,
// one at a time, because
//          the sink is shared by all.
// Errors:  kept as text in loadError(), in Simplified Chinese in both interface languages, and
// never fatal. After a
//          failure start() does nothing.
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

// What differs from one home to the other: where the driver is and how its device list is read.
struct TouchDriverPlatform {
    struct ListAccess {
        driver::ListCount count = nullptr;
        driver::ListValueAtIndex valueAtIndex = nullptr;
    };

    std::string libraryPath;
    // Finds the two functions; `handle` is the opened driver.
    std::function<ListAccess(void* handle)> listAccess;
};

class MultitouchDeviceManager {
public:
    // `records` is the sink's to keep.
    using FrameSink =
        std::function<void(driver::Device device, std::vector<MTTouch> records, double timestamp)>;

    explicit MultitouchDeviceManager(const TouchDriverPlatform& platform);
    MultitouchDeviceManager(const MultitouchDeviceManager&) = delete;
    MultitouchDeviceManager& operator=(const MultitouchDeviceManager&) = delete;

    // Says what the shared instance is made from. Call before the first shared().
    static void configureShared(TouchDriverPlatform platform);
    static MultitouchDeviceManager& shared();

    // Replaces the sink of every report; an empty one drops them. Safe while a report is under way:
    // that one still goes where it was going.
    static void setFrameSink(FrameSink sink);

    // The function registered with every device. Always answers 0.
    static std::int32_t contactCallback(driver::Device device, const MTTouch* records,
                                        std::int32_t count, double timestamp, std::int32_t frame);

    // Registers and starts every device that is present now. Those attached later are not picked up
    // before lookForDevices().
    void start();

    // Between start() and stop(): registers and starts the devices that are not yet. The error that
    // no device was found is taken back when one is; after any other this does nothing.
    void lookForDevices();

    // Stops and unregisters every device, as far as the driver can.
    void stop();

    bool isRunning() const { return running; }

    // Those that were present at start() or found since.
    const std::vector<driver::Device>& presentDevices() const { return devices; }

    const std::optional<std::string>& loadError() const { return _loadError; }

    // Announced after each look for devices, whatever it found.
    Observable& changes() const { return observers; }

    // A function that only some drivers have, or null. Kept for the platform's own use.
    void* optionalSymbol(const char* name) const;

private:
    void resolveSymbols();
    bool canStart() const;
    void startNewDevices();
    std::vector<driver::Device> listedDevices();
    void run(driver::Device device);

    void* handle =
        nullptr; // never closed: the driver's threads may outlive any moment we could choose
    driver::CreateList createList = nullptr;
    driver::RegisterContactFrameCallback registerCallback = nullptr;
    driver::UnregisterContactFrameCallback unregisterCallback = nullptr;
    driver::Start startDevice = nullptr;
    driver::Stop stopDevice = nullptr;
    TouchDriverPlatform::ListAccess listAccess;
    driver::DeviceList deviceList = nullptr; // kept so that the devices stay valid
    std::vector<driver::Device> devices;
    bool running = false;
    bool isWanted = false; // between start() and stop()
    std::optional<std::string> _loadError;
    mutable Observable observers;
};

} // namespace glidemap
