// The evdev driver at work, as the program uses it: through the device manager, with everything
// that it reports kept for a test to look at and to wait for.
//
// Units:   as in input/mt_touch.h.
// Thread:  a test's; reports arrive on the driver's and are kept under a mutex.
// Owner:   a test; one at a time, because the device manager's sink is one for the process.
// Errors:  what did not come in time is a failure of the test, and the wait answers false.
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

namespace glidemap::vm {

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

        // The reports of one device, in order.
        std::vector<SeenContacts> reportsOf(driver::Device device) const;
        // What the last report of the device says; nothing before the first one.
        SeenContacts lastOf(driver::Device device) const;
    };

    // Takes the touchpads that are there now and starts them.
    DriverSession();
    DriverSession(const DriverSession&) = delete;
    DriverSession& operator=(const DriverSession&) = delete;
    ~DriverSession();

    // Stops the touchpads, as the program does at its end.
    void stop() { manager.stop(); }

    bool isRunning() const { return manager.isRunning(); }
    const std::optional<std::string>& loadError() const { return manager.loadError(); }
    std::int32_t unreadableTouchpads() const;
    // The touchpads that are there.
    std::vector<driver::Device> devices() const;
    // A function that only this driver has; null, and a failure of the test, without it.
    template <typename Function>
    Function symbol(const char* name) const {
        return reinterpret_cast<Function>(requiredSymbol(name));
    }

    // The kernel's numbers of the threads that the driver has started.
    const std::vector<int>& threads() const { return driverThreads; }

    // Waits until the driver has opened a pad that returned, which it does on its own thread, and
    // waits for it to speak; before that, what the pad says may be lost.
    bool waitUntilReading(const VirtualPad& pad) const;

    // Waits until the driver has dealt with everything there is for it to do.
    bool waitUntilAsleep() const;

    bool waitUntil(const char* what, const std::function<bool(const Seen&)>& condition);
    Seen seen() const;
    void forget();

    // Waits until the driver has reported everything that was written to the pad so far: clicks the
    // pad's marker button and waits to hear of it. Answers the pad's device.
    driver::Device settle(VirtualPad& pad);

    // Plays frames at the speed at which the driver takes them, so that none are lost.
    void play(VirtualPad& pad, const std::vector<EventFrame>& frames);

    // Keeps the driver's thread inside its callback from the next report on, until it is let go.
    void holdReports();
    // Returns when the thread has read everything that came meanwhile.
    bool releaseReports();

private:
    void* requiredSymbol(const char* name) const;
    void letGo();
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

} // namespace glidemap::vm
