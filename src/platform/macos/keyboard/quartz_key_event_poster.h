// Posts key events at the point where the events of the hardware keyboard enter the system.
//
// Each event has exactly the requested modifier flags: modifiers that the user holds are not added,
// and no events of modifier keys are sent.
//
// Units:   virtual key codes, and the flags of Core Graphics.
// Thread:  the main thread.
// Owner:   the program creates one for the action runner.
// Errors:  none. If the system cannot create one of the events, for example without permission, no
//          event is posted, because a press without its release would leave the key down.
#pragma once

#include "dispatch/key_event_poster.h"

namespace glidemap {

class QuartzKeyEventPoster : public KeyEventPoster {
public:
    void post(std::span<const KeyEvent> events) override;
};

} // namespace glidemap
