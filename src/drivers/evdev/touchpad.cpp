#include "drivers/evdev/touchpad.h"

#include "core/log.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace glidemap {

namespace {

// The kernel's event timestamps use this clock.
double monotonicNow() {
    return std::chrono::duration<double>(std::chrono::steady_clock::now().time_since_epoch())
        .count();
}

} // namespace

bool Touchpad::isOpenAt(const std::string& otherNode) const {
    return connection != nullptr && connection->node == otherNode;
}

std::optional<ClickInterception::Moment> Touchpad::nextLook() const {
    return connection != nullptr ? connection->interception.nextLook() : std::nullopt;
}

bool Touchpad::isForwardedAndTouched() const {
    return connection != nullptr && connection->interception.isTouched();
}

void Touchpad::addCallback(driver::ContactCallback callback) {
    if (callback != nullptr && std::ranges::find(callbacks, callback) == callbacks.end()) {
        callbacks.push_back(callback);
    }
}

void Touchpad::removeCallback(driver::ContactCallback callback) {
    std::erase(callbacks, callback);
}

void Touchpad::start() {
    started = true;
    broken = false;
}

void Touchpad::connect(std::unique_ptr<PadConnection> newConnection) {
    connection = std::move(newConnection);
}

std::unique_ptr<PadConnection> Touchpad::stop() {
    started = false;
    if (connection != nullptr) {
        connection->interception.end();
    }
    return std::move(connection);
}

// A callback may stop this touchpad and even start it again. In both cases the connection changes,
// and reading ends.
void Touchpad::read(const driver::ButtonCallback& buttonCallback) {
    PadConnection* const reading = connection.get();
    reading->isFirstRead = false;
    InputEvent event;
    while (connection.get() == reading) {
        const OpenPad::Read result = reading->pad->next(event);
        if (result == OpenPad::Read::nothing) {
            reading->interception.settle();
            return;
        }
        if (result != OpenPad::Read::event) {
            broken = result == OpenPad::Read::broken;
            disconnect(broken ? "cannot be read any more" : "unplugged", buttonCallback);
            return;
        }
        reading->interception.add(event);
        if (const PadFrame* frame = reading->assembler.handle(event); frame != nullptr) {
            report(*frame, buttonCallback);
            reading->interception.endFrame(event.time);
        }
    }
}

void Touchpad::revoke(const driver::ButtonCallback& buttonCallback) {
    disconnect("given back, this user may not read it any more", buttonCallback);
}

// Ends the touch with an empty report, because the driver will not see the fingers lift.
void Touchpad::disconnect(const char* reason, const driver::ButtonCallback& buttonCallback) {
    const std::unique_ptr<PadConnection> lost = std::move(connection);
    logLine("touchpads", lost->node, ", ", _identity.name, ": ", reason);
    report(lost->assembler.release(monotonicNow()), buttonCallback);
    lost->interception.disconnect();
}

void Touchpad::report(const PadFrame& frame, const driver::ButtonCallback& buttonCallback) {
    const auto count = static_cast<std::int32_t>(frame.contacts.size());
    const MTTouch* records = count > 0 ? frame.contacts.data() : nullptr;
    for (std::size_t index = 0; frame.contactsChanged && started && index < callbacks.size();
         ++index) {
        callbacks[index](this, records, count, frame.timestamp, frame.number);
    }
    for (const ButtonChange& change : frame.buttons) {
        if (started && buttonCallback != nullptr) {
            buttonCallback(this, change.button, change.down, frame.timestamp);
        }
    }
}

} // namespace glidemap
