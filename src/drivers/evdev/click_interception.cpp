#include "drivers/evdev/click_interception.h"

#include <utility>

namespace glidemap {

ClickInterception::ClickInterception(WatchdogTime& time, std::function<void()> wake,
                                     MakeCloneWatch makeCloneWatch)
    : time(time), wakeReader(std::move(wake)), makeWatch(std::move(makeCloneWatch)),
      dog(time, wakeReader) {}

void ClickInterception::setFilter(driver::FilterClick newFilter, void* newContext) {
    filter = newFilter;
    context = newContext;
    hasChanged = true;
    wakeReader();
}

void ClickInterception::switchOn(bool on) {
    isOn = on;
    attempts += on ? 1 : 0;
    hasChanged = true;
    wakeReader();
}

bool ClickInterception::drops(driver::Device device, std::int32_t button, bool down) {
    const std::int32_t event = down ? driver::clickFilterButtonDown : driver::clickFilterButtonUp;
    return isWanted() && filter(context, device, event, button);
}

bool ClickInterception::beginIntroduction() {
    if (introductions >= maxIntroductions) {
        isAwaited = true;
        return false;
    }
    ++introductions;
    if (watch == nullptr) {
        watch = makeWatch();
    }
    return true;
}

void ClickInterception::endIntroduction() {
    --introductions;
    if (introductions == 0) {
        watch.reset();
    }
    if (std::exchange(isAwaited, false)) {
        hasChanged = true;
        wakeReader();
    }
}

bool ClickInterception::noticeStall() {
    const auto device = dog.takeStall();
    if (!device.has_value()) {
        return false;
    }
    isOn = false;
    if (filter != nullptr) {
        filter(context, *device, driver::clickFilterDisabledByTimeout, 0);
    }
    return true;
}

} // namespace glidemap
