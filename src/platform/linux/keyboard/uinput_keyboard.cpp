#include "platform/linux/keyboard/uinput_keyboard.h"

#include "core/log.h"
#include "platform/linux/keyboard/uinput_key_device.h"

#include <utility>

namespace glidemap {

UinputKeyboard::UinputKeyboard(std::unique_ptr<HeldModifiers> held)
    : UinputKeyboard(std::make_unique<UinputKeyDevice>(), std::move(held)) {}

UinputKeyboard::UinputKeyboard(std::unique_ptr<KeyDevice> keyDevice,
                               std::unique_ptr<HeldModifiers> held)
    : device(std::move(keyDevice)), heldModifiers(std::move(held)) {
    plugIn();
}

UinputKeyboard::~UinputKeyboard() {
    heldModifiers.reset(); // completes all requested typing
    releaseKeys();
}

bool UinputKeyboard::plugIn() {
    isWanted = true;
    const std::lock_guard guard(deviceLock);
    return device->plugIn();
}

void UinputKeyboard::unplug() {
    isWanted = false;
    releaseKeys();
    const std::lock_guard guard(deviceLock);
    device->unplug();
}

void UinputKeyboard::releaseKeys() {
    if (const std::vector<KeyChange> changes = strokes.releaseAll(); !changes.empty()) {
        write(changes);
    }
}

void UinputKeyboard::post(std::span<const KeyEvent> events) {
    if (!isWanted || !plugIn()) {
        logLine("actions", isWanted ? "dropped: no virtual keyboard can be created"
                                    : "dropped: another session is in front");
        return;
    }
    if (std::vector<KeyChange> changes = strokes.changesFor(events); !changes.empty()) {
        type(std::move(changes));
    }
}

void UinputKeyboard::type(std::vector<KeyChange> changes) {
    if (heldModifiers == nullptr) {
        write(changes);
        return;
    }
    heldModifiers->type(changes, [this, changes] { write(changes); });
}

void UinputKeyboard::write(std::span<const KeyChange> changes) {
    const std::lock_guard guard(deviceLock);
    device->write(changes);
}

} // namespace glidemap
