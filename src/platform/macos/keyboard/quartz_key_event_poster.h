// Types by events that enter the system where those of the keyboard do.
//
// Each event carries exactly its own flags: what the user holds at the moment does not mix in, and
// no event of a modifier key goes with it.
//
// Thread:  the main thread.
// Owner:   the program makes one for the action runner.
// Errors:  silent. If the system makes any one of the events not, as without permission, none is
//          posted: half a key press would hold the key down.
#pragma once

#include "dispatch/key_event_poster.h"

namespace glidemap {

class QuartzKeyEventPoster : public KeyEventPoster {
public:
    void post(std::span<const KeyEvent> events) override;
};

} // namespace glidemap
