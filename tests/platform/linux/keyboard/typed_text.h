// Formats key changes as text: "+CTRL +T -T -CTRL".
#pragma once

#include "platform/linux/keyboard/key_strokes.h"

#include <linux/input-event-codes.h>

#include <map>
#include <span>
#include <string>

namespace glidemap {

inline std::string typedText(std::span<const KeyChange> changes) {
    static const std::map<int, std::string> names = {
        {KEY_LEFTSHIFT, "SHIFT"},
        {KEY_RIGHTSHIFT, "RIGHTSHIFT"},
        {KEY_LEFTCTRL, "CTRL"},
        {KEY_RIGHTCTRL, "RIGHTCTRL"},
        {KEY_LEFTALT, "ALT"},
        {KEY_RIGHTALT, "RIGHTALT"},
        {KEY_LEFTMETA, "META"},
        {KEY_RIGHTMETA, "RIGHTMETA"},
        {KEY_T, "T"},
        {KEY_Q, "Q"},
        {KEY_CAPSLOCK, "CAPSLOCK"},
    };
    std::string text;
    for (const KeyChange& change : changes) {
        const auto name = names.find(change.kernelCode);
        text += (text.empty() ? "" : " ") + std::string(change.down ? "+" : "-") +
                (name != names.end() ? name->second : std::to_string(change.kernelCode));
    }
    return text;
}

} // namespace glidemap
