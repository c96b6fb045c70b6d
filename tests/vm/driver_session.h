// Runs the evdev driver as the program does, through the device manager. Keeps all reports, so that
// a test can wait for them and examine them.
//
// Units:   as in input/mt_touch.h.
// Thread:  a test's; reports arrive on the driver's thread and are kept under a mutex.
// Owner:   a test; one at a time, because the process has only one frame sink.
// Errors:  a time-out fails the test, and the wait returns false.
#pragma once

#include "input/mt_touch.h"
#include "input/multitouch_device_manager.h"
#include "virtual_pad.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <iosfwd>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace glidemap::test {

struct SeenContact {
    std::int32_t identifier = 0;
    std::int32_t state = 0;
    float x = 0;
    float y = 0;

    bool isTouching() const { return isTouchingState(state); }
    friend bool operator==(const SeenContact&, const SeenContact&) = default;
    friend std::ostream& operator<<(std::ostream& output, const SeenContact& contact);
};

using SeenContacts = std::vector<SeenContact>;

SeenContacts seenContacts(const std::vector<MTTouch>& records);

struct SeenReport {
    driver::Device device = nullptr;
    double timestamp = 0;
    SeenContacts contacts;
};

struct SeenButton {
    driver::Device device = nullptr;
    std::int32_t button = 0;
    bool down = false;
};

class DriverSession {
public:
    struct Seen {
        std::vector<SeenReport> reports;
        std::vector<SeenButton> buttons;

        // Returns the reports of one device, in order.
        std::vector<SeenContacts> reportsOf(driver::Device device) const;
        // Returns the contacts in the device's last report; empty before the first report.
        SeenContacts lastOf(driver::Device device) const;
    };

    // Starts all connected touchpads.
    DriverSession();
    DriverSession(const DriverSession&) = delete;
    DriverSession& operator=(const DriverSession&) = delete;
    ~DriverSession();

    // Stops the touchpads, as the program does on exit.
    void stop() { manager.stop(); }

    bool isRunning() const { return manager.isRunning(); }
    const std::optional<std::string>& loadError() const { return manager.loadError(); }
    std::int32_t unreadableTouchpads() const;
    // Returns the connected touchpads.
    std::vector<driver::Device> devices() const;
    // Returns a function that only the evdev driver exports. If it is missing, returns null and
    // fails the test.
    template <typename Function>
    Function symbol(const char* name) const {
        return reinterpret_cast<Function>(requiredSymbol(name));
    }

    // Returns the ids of the threads that the driver has started.
    const std::vector<int>& threads() const { return driverThreads; }

    // Waits until the driver has reopened a reconnected touchpad and is ready to read its events.
    // Earlier events may be lost.
    bool waitUntilReading(const VirtualPad& pad) const;

    // Waits until the driver has finished all pending work.
    bool waitUntilAsleep() const;

    bool waitUntil(const char* what, const std::function<bool(const Seen&)>& condition);
    Seen seen() const;
    void forget();

    // Waits until the driver has reported all events that were written to the touchpad: clicks the
    // touchpad's marker button and waits for the report of that click. Returns the touchpad's
    // device.
    driver::Device settle(VirtualPad& pad);

    // Plays frames no faster than the driver reads them, so that no event is lost.
    void play(VirtualPad& pad, const std::vector<EventFrame>& frames);

    // Blocks the driver's thread in its callback, from the next report until releaseReports() is
    // called.
    void holdReports();
    // Unblocks the thread, and returns when the thread has read all events that arrived meanwhile.
    bool releaseReports();

private:
    void* requiredSymbol(const char* name) const;
    void clearHold();
    void report(driver::Device device, const std::vector<MTTouch>& records, double timestamp);
    static void buttonCallback(driver::Device device, std::int32_t button, bool down,
                               double timestamp);
    void setButtonCallback(driver::ButtonCallback callback);

    MultitouchDeviceManager manager;
    std::vector<int> driverThreads;
    mutable std::mutex mutex;
    std::condition_variable news;
    Seen everything;
    bool hold = false;
};

} // namespace glidemap::test
