#include "replay_driver.h"

#include "platform/linux/touch_driver_platform.h"

namespace glidemap::replay {

// Ignores the driver that the environment names, because reports can only be pushed into our own
// replay driver.
ReplayDriver::ReplayDriver() : manager(touchDriverPlatformAt(touchDriverPath("replay"))) {
    const auto enablePushing = reinterpret_cast<driver::EnablePushing>(
        manager.optionalSymbol(driver::enablePushingSymbol));
    const auto push = reinterpret_cast<driver::Push>(manager.optionalSymbol(driver::pushSymbol));
    if (enablePushing != nullptr && push != nullptr) {
        enablePushing();
        pushReport = push;
        // Start once, so that a driver error is reported before the first record.
        manager.start();
        manager.stop();
    }
}

std::optional<std::string> ReplayDriver::error() const {
    if (manager.loadError()) {
        return manager.loadError();
    }
    return pushReport == nullptr ? std::optional<std::string>("it does not accept reports")
                                 : std::nullopt;
}

} // namespace glidemap::replay
