// One of the test drivers (test_driver.cpp), loaded through a device manager.
#pragma once

#include "input/multitouch_device_manager.h"
#include "input/touch_driver.h"

#include <string>
#include <vector>

namespace glidemap {

// Returns the location of the library with that name, and the functions that read its device list.
TouchDriverPlatform testDriver(const std::string& name);

// Functions that a loaded test driver offers to tests, in addition to those that the manager calls.
class TestDriverLibrary {
public:
    explicit TestDriverLibrary(const MultitouchDeviceManager& manager);

    // Returns the calls since the last reset, in order.
    std::string calls() const { return readCalls(); }

    // Passes a report to the first registered callback and returns its result, or -1 if no callback
    // is registered.
    int report(const MTTouch* records, int count, double timestamp) const {
        return sendReport(records, count, timestamp);
    }

    // Sets how many of a driver's three devices are attached, until the process exits.
    void attach(int count) const { setAttached(count); }

private:
    const char* (*readCalls)();
    int (*sendReport)(const MTTouch*, int, double);
    void (*setAttached)(int);
};

} // namespace glidemap
