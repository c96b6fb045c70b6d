#include "platform/linux/keyboard/evdev_hardware_keys.h"
#include "platform/linux/keyboard/key_codes.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

namespace glidemap {

namespace {

using NativeKey = HardwareKeys::NativeKey;

TEST(EvdevHardwareKeys, MapsEveryKeyThatCanBeTyped) {
    const EvdevHardwareKeys keys;
    for (const KeyCodePair& pair : keyCodePairs()) {
        const NativeKey native{.scanCode = pair.kernelCode + 8U};
        EXPECT_EQ(keys.virtualKeyCode(native), pair.keyCode) << "kernel code " << pair.kernelCode;
    }
}

TEST(EvdevHardwareKeys, MapsKeysByScanCodeOnly) {
    struct Row {
        const char* what;
        NativeKey key;
        std::optional<std::uint16_t> keyCode;
    };
    const Row rows[] = {
        {"Escape, as an X server numbers it", {.scanCode = 9}, 53},
        {"the key where A is", {.scanCode = 38}, 0},
        {"the same key in a layout where it is Q", {.scanCode = 38, .virtualKey = 'q'}, 0},
        {"a key without a counterpart", {.scanCode = KEY_PLAYPAUSE + 8}, std::nullopt},
        {"an event without a key", {.scanCode = 0, .virtualKey = 'a'}, std::nullopt},
        {"just below the kernel's first code", {.scanCode = 7}, std::nullopt},
        {"the kernel's reserved code", {.scanCode = 8}, std::nullopt},
        {"just past the kernel's last code", {.scanCode = KEY_CNT + 8}, std::nullopt},
        {"the code of A with extra high bits", {.scanCode = 0x10000 + 38}, std::nullopt},
        {"the maximum number", {.scanCode = UINT32_MAX}, std::nullopt},
    };
    const EvdevHardwareKeys keys;
    for (const Row& row : rows) {
        EXPECT_EQ(keys.virtualKeyCode(row.key), row.keyCode) << row.what;
    }
}

TEST(EvdevHardwareKeys, DetectsCapsLockByTheLockModifierOnly) {
    const EvdevHardwareKeys keys;
    for (unsigned bit = 0; bit < 32; ++bit) {
        const NativeKey key{.scanCode = 9, .modifiers = 1U << bit};
        EXPECT_EQ(keys.capsLock(key), bit == 1) << "bit " << bit;
    }
    EXPECT_FALSE(keys.capsLock({.scanCode = 66}));
    EXPECT_TRUE(keys.capsLock({.scanCode = 9, .modifiers = 0x2 | 0x10})); // with Num Lock
}

} // namespace

} // namespace glidemap
