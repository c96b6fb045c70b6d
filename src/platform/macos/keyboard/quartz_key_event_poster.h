// Types with events that enter the system at the same point as those of the keyboard.
//
// Each event carries only its own flags: held modifiers are not added, and no event of a modifier
// key is sent.
//
// Units:   virtual key codes, and the flags of Core Graphics.
// Thread:  the main thread.
// Owner:   the program creates one for the action runner.
// Errors:  none. If the system cannot create one of the events, for example without permission,
//          none is posted: half a key press would leave the key down.
#pragma once

#include "dispatch/key_event_poster.h"

namespace glidemap {

class QuartzKeyEventPoster : public KeyEventPoster {
public:
    void post(std::span<const KeyEvent> events) override;
};

} // namespace glidemap
