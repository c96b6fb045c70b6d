#include "ui/recorder/toolkit_key_presses.h"

#include "ui/recorder/modifier_mask.h"

#include <QKeyEvent>
#include <utility>

namespace glidemap {

namespace {

constexpr std::uint64_t capsLock = 0x10000;

// The virtual key codes from firstModifierKey to lastModifierKey are Caps Lock, Fn, and the left
// and right Shift, Control, Option and Command keys.
constexpr std::uint16_t firstModifierKey = 54;
constexpr std::uint16_t lastModifierKey = 63;

// Whether the key acts as a modifier. A keyboard layout can turn any key into a modifier.
bool actsAsModifier(int key) {
    switch (key) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_CapsLock:
    case Qt::Key_Mode_switch:
        return true;
    default:
        return false;
    }
}

bool isModifierKey(std::optional<std::uint16_t> keyCode, int key) {
    return (keyCode && *keyCode >= firstModifierKey && *keyCode <= lastModifierKey) ||
           actsAsModifier(key);
}

} // namespace

ToolkitKeyPresses::ToolkitKeyPresses(std::unique_ptr<const HardwareKeys> keys,
                                     std::unique_ptr<DesktopKeys> desktop)
    : keys(std::move(keys)), desktop(std::move(desktop)) {
    monitor.onPress = [this](const QKeyEvent& event) {
        press(event);
    };
    monitor.onModifiers = [this](Qt::KeyboardModifiers held) {
        if (onModifiers) {
            onModifiers(modifierMask(held));
        }
    };
    monitor.onDone = [this] {
        if (onDone) {
            onDone();
        }
    };
}

void ToolkitKeyPresses::start(std::function<void(const Press&)> handler) {
    onPress = std::move(handler);
    monitor.start();
}

void ToolkitKeyPresses::stop() {
    monitor.stop();
}

void ToolkitKeyPresses::abandon() {
    monitor.remove();
    onPress = {};
}

void ToolkitKeyPresses::captureDesktopKeys(QWindow* window) {
    if (desktop == nullptr) {
        return;
    }
    if (window != nullptr) {
        desktop->captureFor(*window);
    } else {
        desktop->giveBack();
    }
}

void ToolkitKeyPresses::press(const QKeyEvent& event) const {
    const HardwareKeys::NativeKey native{.scanCode = event.nativeScanCode(),
                                         .virtualKey = event.nativeVirtualKey(),
                                         .modifiers = event.nativeModifiers()};
    const std::optional<std::uint16_t> keyCode = keys->virtualKeyCode(native);
    if (isModifierKey(keyCode, event.key())) {
        return;
    }
    const std::uint64_t lock = keys->capsLock(native) ? capsLock : 0;
    const auto call = onPress; // the callback may replace onPress while it runs
    call({.keyCode = keyCode, .flags = modifierMask(event.modifiers()) | lock});
}

} // namespace glidemap
