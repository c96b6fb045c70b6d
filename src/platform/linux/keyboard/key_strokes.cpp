#include "platform/linux/keyboard/key_strokes.h"

#include "platform/linux/keyboard/key_codes.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <array>

namespace glidemap {

namespace {

struct Modifier {
    std::uint64_t flag = 0;
    std::uint16_t left = 0;
    std::uint16_t right = 0;
};

constexpr auto allModifiers = std::to_array<Modifier>({
    {0x20000, KEY_LEFTSHIFT, KEY_RIGHTSHIFT},
    {0x40000, KEY_LEFTCTRL, KEY_RIGHTCTRL},
    {0x80000, KEY_LEFTALT, KEY_RIGHTALT},
    {0x100000, KEY_LEFTMETA, KEY_RIGHTMETA},
});

bool contains(std::span<const std::uint16_t> codes, std::uint16_t code) {
    return std::ranges::find(codes, code) != codes.end();
}

std::vector<std::uint16_t> modifiersFor(std::uint16_t key, std::uint64_t flags) {
    std::vector<std::uint16_t> wanted;
    for (const Modifier& modifier : allModifiers) {
        const bool isKeyItself = key == modifier.left || key == modifier.right;
        if ((flags & modifier.flag) != 0 && !isKeyItself) {
            wanted.push_back(modifier.left);
        }
    }
    return wanted;
}

bool allExist(std::span<const KeyEvent> events) {
    return std::ranges::all_of(
        events, [](const KeyEvent& event) { return kernelCodeOf(event.keyCode).has_value(); });
}

} // namespace

std::vector<KeyChange> KeyStrokes::changesFor(std::span<const KeyEvent> events) {
    std::vector<KeyChange> changes;
    if (!allExist(events)) {
        return changes;
    }
    for (const KeyEvent& event : events) {
        const std::uint16_t kernelCode = *kernelCodeOf(event.keyCode);
        if (event.down) {
            press(kernelCode, event.flags, changes);
        } else {
            release(kernelCode, changes);
        }
    }
    return changes;
}

std::vector<KeyChange> KeyStrokes::releaseAll() {
    std::vector<KeyChange> changes;
    while (!keys.empty()) {
        release(keys.back(), changes);
    }
    return changes;
}

void KeyStrokes::press(std::uint16_t kernelCode, std::uint64_t flags,
                       std::vector<KeyChange>& changes) {
    if (contains(keys, kernelCode)) {
        return;
    }
    setModifiers(modifiersFor(kernelCode, flags), changes);
    keys.push_back(kernelCode);
    changes.push_back({kernelCode, true});
}

// Keeps the modifiers of the last press down until all keys are up, because releasing a modifier
// while a key is down would change the meaning of that key.
void KeyStrokes::release(std::uint16_t kernelCode, std::vector<KeyChange>& changes) {
    if (std::erase(keys, kernelCode) == 0) {
        return;
    }
    changes.push_back({kernelCode, false});
    if (keys.empty()) {
        setModifiers({}, changes);
    }
}

void KeyStrokes::setModifiers(std::span<const std::uint16_t> wanted,
                              std::vector<KeyChange>& changes) {
    // NOLINTNEXTLINE(modernize-loop-convert): Clang 14 does not compile reversed views
    for (auto each = modifiers.rbegin(); each != modifiers.rend(); ++each) {
        if (!contains(wanted, *each)) {
            changes.push_back({*each, false});
        }
    }
    std::erase_if(modifiers, [&](std::uint16_t code) { return !contains(wanted, code); });
    for (const std::uint16_t code : wanted) {
        if (!contains(modifiers, code) && !contains(keys, code)) {
            modifiers.push_back(code);
            changes.push_back({code, true});
        }
    }
}

} // namespace glidemap
