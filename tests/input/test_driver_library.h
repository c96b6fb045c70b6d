// One of the test drivers (see test_driver.cpp), loaded through a device manager.
#pragma once

#include "input/multitouch_device_manager.h"
#include "input/touch_driver.h"

#include <string>
#include <vector>

namespace glidemap {

// How the device list of a test driver is read, and where the library of that name is.
TouchDriverPlatform testDriver(const std::string& name);

// What the test says to a loaded test driver, beside what the manager says to it.
class TestDriverLibrary {
public:
    explicit TestDriverLibrary(const MultitouchDeviceManager& manager);

    // What was asked of it since, in order.
    std::string calls() const { return readCalls(); }

    // The answer of the first device's callback, -1 where none is registered.
    int report(const MTTouch* records, int count, double timestamp) const {
        return sendReport(records, count, timestamp);
    }

    // So many of a driver's three devices are there from now on, until the process ends.
    void attach(int count) const { setAttached(count); }

private:
    const char* (*readCalls)();
    int (*sendReport)(const MTTouch*, int, double);
    void (*setAttached)(int);
};

} // namespace glidemap
