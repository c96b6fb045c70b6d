// Owns all touchpads and the thread that reads them.
//
//   caller                                 reader thread (while a touchpad is started)
//   createList  ─ finds the touchpads      sleeps until a touchpad has events, a missing one may
//   start, stop ─ wakes the reader ──────▶ have returned, or it is woken
//                                          └▶ contact callback, button callback, click filter,
//                                             then the touchpad's clone is written
//
// While a touchpad is missing, the reader also watches for its return. While a clone is new, and
// for a second after its last use, the reader also wakes for that clone.
//
// Thread:  any; the public functions may be called from within a callback. On other threads, all
//          except pause() and resume() wait for a callback that is running on the reader's thread,
//          so that no callback starts after stop() has returned. start() and stop() must not
//          overlap on two threads.
// Owner:   the process.
// Errors:  a touchpad that this user may not read is not in the list. If a started touchpad cannot
//          be opened, the driver waits for it.
#pragma once

#include "core/open_file.h"
#include "drivers/evdev/click_filter.h"
#include "drivers/evdev/click_interception.h"
#include "drivers/evdev/pad_directory.h"
#include "drivers/evdev/touchpad.h"
#include "drivers/evdev/watchdog_time.h"
#include "input/touch_driver.h"

#include <poll.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <thread>
#include <vector>

namespace glidemap {

class TouchpadDriver {
public:
    explicit TouchpadDriver(std::unique_ptr<PadDirectory> directory,
                            WatchdogTime& time = steadyWatchdogTime());
    TouchpadDriver(const TouchpadDriver&) = delete;
    TouchpadDriver& operator=(const TouchpadDriver&) = delete;

    // Stops every touchpad. Must not be called from within a callback.
    ~TouchpadDriver();

    // Returns the connected touchpads that this user may read. A touchpad has the same handle in
    // every list. If a started touchpad is not readable any more, the driver releases it and waits
    // for it.
    std::vector<driver::Device> createList();
    std::int32_t unreadableCount() const;

    // Returns null if the device does not exist.
    const char* name(driver::Device device) const;

    // Returns the reason why the touchpad's clicks are not filtered although the filter is on, or
    // null if no such reason exists.
    const char* filterObstacle(driver::Device device) const;

    void addCallback(driver::Device device, driver::ContactCallback callback);
    void removeCallback(driver::Device device, driver::ContactCallback callback);
    void setButtonCallback(driver::ButtonCallback callback);
    void setClickFilter(driver::FilterClick filter, void* context);
    void switchClickFilter(bool on);
    // Call this before the process is stopped. Releases all touchpads immediately, even if another
    // thread hangs. If a touchpad was released, the filter is switched off when the process
    // continues, as after a stall. The filter's function may switch it on again.
    void pause();
    void resume();
    void start(driver::Device device);
    void stop(driver::Device device);

private:
    // Recursive, because the reader holds the lock while it reports, and a callback may call the
    // driver.
    using Lock = std::unique_lock<std::recursive_mutex>;

    Touchpad* find(driver::Device device) const;
    Touchpad& recordFor(const PadCandidate& candidate, const std::vector<driver::Device>& taken);
    void updateAccess(const PadCandidate& candidate);
    bool isOpen(const std::string& node) const;
    bool anyStarted() const;
    void connect(Touchpad& touchpad);
    bool connectAt(Touchpad& touchpad, const PadCandidate& candidate);

    void launchReader();
    void wakeReader() const;
    bool anyForwardedIsTouched() const;
    std::optional<ClickInterception::Moment> nextLook() const;
    void runReader();
    void waitForWork();
    void processEvents();
    void withdrawUnreadable();
    void readReady();
    template <typename Condition>
    void readIf(Condition condition);
    void readFresh();
    void readConnected();
    void readDue();
    void read(Touchpad& touchpad);
    void updateWatch();
    void reconnect();
    void collectDescriptors();
    void addDescriptor(int descriptor, Touchpad* touchpad);

    const std::unique_ptr<PadDirectory> directory;
    const OpenFile wakeUp;

    mutable std::recursive_mutex mutex;
    ClickInterception clicks; // declared before the touchpads, because they use it
    std::vector<std::unique_ptr<Touchpad>> touchpads;
    std::int32_t unreadable = 0;
    driver::ButtonCallback buttonCallback = nullptr;
    std::vector<std::unique_ptr<PadConnection>> closedConnections; // closed on the reader's thread
    std::thread reader;
    bool readerRuns = false;
    bool needsScan = false; // a touchpad may have returned, or a newly opened one is still unread
    bool clonesChanged = false;

    // Used on the reader's thread only.
    std::unique_ptr<ReturnWatch> returnWatch;
    std::vector<pollfd> descriptors;
    // Parallel to `descriptors`; null for descriptors that do not belong to a touchpad.
    std::vector<Touchpad*> polled;
    std::size_t firstOfClones = 0; // index of the clone watch's first descriptor
    std::optional<ClickInterception::Moment> wakeAt;
};

} // namespace glidemap
