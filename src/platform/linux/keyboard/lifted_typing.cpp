#include "platform/linux/keyboard/lifted_typing.h"

#include <linux/input-event-codes.h>

#include <algorithm>
#include <set>

namespace glidemap {

namespace {

bool isHeld(std::span<const std::uint16_t> held, std::initializer_list<std::uint16_t> any) {
    return std::ranges::find_first_of(held, any) != held.end();
}

void tapControlFor(std::span<const std::uint16_t> held, std::vector<KeyChange>& changes) {
    const bool meansSomethingAlone =
        isHeld(held, {KEY_LEFTALT, KEY_RIGHTALT, KEY_LEFTMETA, KEY_RIGHTMETA});
    if (meansSomethingAlone && !isHeld(held, {KEY_LEFTCTRL, KEY_RIGHTCTRL})) {
        changes.push_back({KEY_LEFTCTRL, true});
        changes.push_back({KEY_LEFTCTRL, false});
    }
}

} // namespace

bool areBalanced(std::span<const KeyChange> changes) {
    std::set<std::uint16_t> down;
    for (const KeyChange& change : changes) {
        const bool isNew =
            change.down ? down.insert(change.kernelCode).second : down.erase(change.kernelCode) > 0;
        if (!isNew) {
            return false;
        }
    }
    return down.empty();
}

std::vector<KeyChange> typedWithout(std::span<const std::uint16_t> held,
                                    std::span<const KeyChange> changes) {
    std::vector<KeyChange> all;
    tapControlFor(held, all);
    for (const std::uint16_t code : held) {
        all.push_back({code, false});
    }
    all.insert(all.end(), changes.begin(), changes.end());
    return all;
}

std::vector<KeyChange> putBack(std::span<const std::uint16_t> held) {
    std::vector<KeyChange> all;
    for (const std::uint16_t code : held) {
        all.push_back({code, true});
    }
    tapControlFor(held, all);
    return all;
}

} // namespace glidemap
