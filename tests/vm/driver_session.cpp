#include "driver_session.h"

#include "deadline.h"
#include "platform/linux/touch_driver_platform.h"
#include "process.h"
#include "threads.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <sched.h>

#include <algorithm>
#include <iterator>
#include <ostream>
#include <utility>

namespace glidemap::test {

namespace {

constexpr std::int32_t markerButton = 2; // the marker key's number in the driver

// A global variable, because the button callback has no context.
DriverSession* current = nullptr;

} // namespace

std::ostream& operator<<(std::ostream& output, const SeenContact& contact) {
    return output << contact.identifier << ':' << contact.state << '(' << contact.x << ", "
                  << contact.y << ')';
}

SeenContacts seenContacts(const std::vector<MTTouch>& records) {
    SeenContacts contacts;
    for (const MTTouch& record : records) {
        contacts.push_back(
            {record.identifier, record.state, record.normalized.pos.x, record.normalized.pos.y});
    }
    return contacts;
}

std::vector<SeenContacts> DriverSession::Seen::reportsOf(driver::Device device) const {
    std::vector<SeenContacts> result;
    for (const SeenReport& report : reports) {
        if (report.device == device) {
            result.push_back(report.contacts);
        }
    }
    return result;
}

SeenContacts DriverSession::Seen::lastOf(driver::Device device) const {
    const auto reportsOfDevice = reportsOf(device);
    return reportsOfDevice.empty() ? SeenContacts() : reportsOfDevice.back();
}

DriverSession::DriverSession() : manager(touchDriverPlatformAt(GLIDEMAP_EVDEV_DRIVER)) {
    current = this;
    MultitouchDeviceManager::setFrameSink(
        [this](driver::Device device, const std::vector<MTTouch>& records, double timestamp) {
            report(device, records, timestamp);
        });
    setButtonCallback(&buttonCallback);
    const std::vector<int> before = threadsOfProcess();
    manager.start();
    std::ranges::set_difference(threadsOfProcess(), before, std::back_inserter(driverThreads));
}

DriverSession::~DriverSession() {
    clearHold();
    manager.stop();
    setButtonCallback(nullptr);
    MultitouchDeviceManager::setFrameSink({});
    current = nullptr;
}

void DriverSession::setButtonCallback(driver::ButtonCallback callback) {
    const auto set = symbol<driver::SetButtonCallback>(driver::setButtonCallbackSymbol);
    if (set != nullptr) {
        set(callback);
    }
}

void* DriverSession::requiredSymbol(const char* name) const {
    void* const found = manager.optionalSymbol(name);
    EXPECT_NE(found, nullptr) << "the driver lacks the symbol " << name;
    return found;
}

std::vector<driver::Device> DriverSession::devices() const {
    const driver::DeviceList list = symbol<driver::CreateList>(driver::createListSymbol)();
    const long count = symbol<driver::ListCount>(driver::listCountSymbol)(list);
    const auto at = symbol<driver::ListValueAtIndex>(driver::listValueAtIndexSymbol);
    std::vector<driver::Device> all;
    for (long index = 0; index < count; ++index) {
        all.push_back(const_cast<driver::Device>(at(list, index)));
    }
    return all;
}

std::int32_t DriverSession::unreadableTouchpads() const {
    const auto count = reinterpret_cast<driver::UnreadableTouchpadCount>(
        manager.optionalSymbol(driver::unreadableTouchpadCountSymbol));
    return count != nullptr ? count() : -1;
}

void DriverSession::report(driver::Device device, const std::vector<MTTouch>& records,
                           double timestamp) {
    std::unique_lock lock(mutex);
    everything.reports.push_back({device, timestamp, seenContacts(records)});
    news.notify_all();
    news.wait(lock, [this] { return !hold; });
}

void DriverSession::buttonCallback(driver::Device device, std::int32_t button, bool down,
                                   double /*timestamp*/) {
    const std::lock_guard lock(current->mutex);
    current->everything.buttons.push_back({device, button, down});
    current->news.notify_all();
}

bool DriverSession::waitUntilReading(const VirtualPad& pad) const {
    const Deadline deadline;
    while (!hasOpen("self", pad.node())) {
        if (deadline.passed()) {
            ADD_FAILURE() << "the driver did not open " << pad.node();
            return false;
        }
        sched_yield();
    }
    return waitUntilAsleep();
}

bool DriverSession::waitUntilAsleep() const {
    const Deadline deadline;
    while (!areAsleep(driverThreads)) {
        if (deadline.passed()) {
            ADD_FAILURE() << "a thread of the driver does not sleep";
            return false;
        }
        sched_yield();
    }
    return true;
}

bool DriverSession::waitUntil(const char* what, const std::function<bool(const Seen&)>& condition) {
    const Deadline deadline;
    std::unique_lock lock(mutex);
    const bool happened =
        news.wait_until(lock, deadline.time(), [&] { return condition(everything); });
    if (!happened) {
        ADD_FAILURE() << "timed out waiting for " << what << " (after " << everything.reports.size()
                      << " reports and " << everything.buttons.size() << " button changes)";
    }
    return happened;
}

DriverSession::Seen DriverSession::seen() const {
    const std::lock_guard lock(mutex);
    return everything;
}

void DriverSession::forget() {
    const std::lock_guard lock(mutex);
    everything = {};
}

driver::Device DriverSession::settle(VirtualPad& pad) {
    std::size_t before = 0;
    {
        const std::lock_guard lock(mutex);
        before = everything.buttons.size();
    }
    pad.clickMarker();
    const auto isMarker = [](const SeenButton& button) {
        return button.button == markerButton && !button.down;
    };
    driver::Device device = nullptr;
    waitUntil("the pad's marker button", [&](const Seen& all) {
        const auto marker = std::find_if(all.buttons.begin() + static_cast<std::ptrdiff_t>(before),
                                         all.buttons.end(), isMarker);
        device = marker != all.buttons.end() ? marker->device : nullptr;
        return device != nullptr;
    });
    return device;
}

void DriverSession::play(VirtualPad& pad, const std::vector<EventFrame>& frames) {
    for (const EventFrame& frame : frames) {
        pad.write(frame);
        if (settle(pad) == nullptr) {
            return;
        }
    }
}

void DriverSession::holdReports() {
    const std::lock_guard lock(mutex);
    hold = true;
}

void DriverSession::clearHold() {
    const std::lock_guard lock(mutex);
    hold = false;
    news.notify_all();
}

bool DriverSession::releaseReports() {
    clearHold();
    return waitUntilAsleep();
}

} // namespace glidemap::test
