// Describes a user's keyboard, which tests create with uinput.
//
// Thread:  any.
// Errors:  none.
#pragma once

#include "recorded_pad.h"

#include <linux/input.h>

namespace glidemap::test {

inline PadShape ordinaryKeyboard() {
    PadShape shape;
    shape.name = "Ordinary Keyboard";
    shape.bus = BUS_USB;
    for (int key = KEY_ESC; key <= KEY_COMPOSE; ++key) {
        shape.keys.insert(key);
    }
    return shape;
}

} // namespace glidemap::test
