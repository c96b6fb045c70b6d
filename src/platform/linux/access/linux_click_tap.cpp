#include "platform/linux/access/linux_click_tap.h"

#include <utility>

namespace glidemap {

namespace {

template <typename Function>
Function driverFunction(const MultitouchDeviceManager& manager, const char* name) {
    return reinterpret_cast<Function>(manager.optionalSymbol(name));
}

ClickEventType typeOf(std::int32_t event, std::int32_t button) {
    constexpr std::int32_t left = 0;
    constexpr std::int32_t right = 1;
    switch (event) {
    case driver::clickFilterButtonDown:
        return button == left    ? ClickEventType::leftMouseDown
               : button == right ? ClickEventType::rightMouseDown
                                 : ClickEventType::other;
    case driver::clickFilterButtonUp:
        return button == left    ? ClickEventType::leftMouseUp
               : button == right ? ClickEventType::rightMouseUp
                                 : ClickEventType::other;
    case driver::clickFilterDisabledByTimeout:
        return ClickEventType::tapDisabledByTimeout;
    default:
        return ClickEventType::other;
    }
}

} // namespace

LinuxClickTap::LinuxClickTap(const MultitouchDeviceManager& deviceManager)
    : manager(deviceManager) {}

LinuxClickTap::~LinuxClickTap() {
    remove();
}

bool LinuxClickTap::create(Callback newCallback) {
    remove();
    const auto canFilter =
        driverFunction<driver::CanFilterClicks>(manager, driver::canFilterClicksSymbol);
    const auto set = driverFunction<driver::SetClickFilter>(manager, driver::setClickFilterSymbol);
    const auto turn =
        driverFunction<driver::SwitchClickFilter>(manager, driver::switchClickFilterSymbol);
    if (canFilter == nullptr || set == nullptr || turn == nullptr || !canFilter()) {
        return false;
    }
    callback = std::move(newCallback);
    setFilter = set;
    useSwitch(turn);
    setFilter(&filter, this);
    return true;
}

void LinuxClickTap::setEnabled(bool enabled) {
    want(isEnabled, enabled);
}

void LinuxClickTap::setNeeded(bool needed) {
    want(isNeeded, needed);
}

// Removes the filter before disabling the tap. Otherwise the filter's callback could enable the tap
// again.
void LinuxClickTap::remove() {
    if (setFilter == nullptr) {
        return;
    }
    setFilter(nullptr, nullptr);
    want(isEnabled, false);
    useSwitch(nullptr);
    setFilter = nullptr;
    callback = {};
}

void LinuxClickTap::useSwitch(driver::SwitchClickFilter turn) {
    const std::lock_guard guard(lock);
    switchFilter = turn;
}

// Calls the driver even if the state does not change, because the driver may have switched the
// filter off after a stall.
void LinuxClickTap::want(bool& wish, bool value) {
    std::unique_lock guard(lock);
    wish = value;
    mustNotify = true;
    if (isNotifying || switchFilter == nullptr) {
        return; // a thread that is already calling the driver also sends this change
    }
    isNotifying = true;
    while (std::exchange(mustNotify, false) && switchFilter != nullptr) {
        const bool on = isEnabled && isNeeded;
        const driver::SwitchClickFilter turn = switchFilter;
        guard.unlock();
        turn(on);
        guard.lock();
    }
    isNotifying = false;
}

bool LinuxClickTap::filter(void* tap, driver::Device /*device*/, std::int32_t event,
                           std::int32_t button) {
    const ClickEvent click{typeOf(event, button), button};
    return static_cast<LinuxClickTap*>(tap)->callback(click) == Verdict::drop;
}

} // namespace glidemap
