// What the touch engine asks of a recognizer: a place to report gestures to, and one call for each
// frame.
//
// Thread:  process() on the engine's queue only, in the order of the reports; forget() while that
// queue rests. The callback is set
// before the first frame
//          and called on whatever thread the recognizer reports from.
// Owner:   the engine, shared with work that is still on its queue.
#pragma once

#include "core/gesture_type.h"
#include "input/touch_frame.h"

#include <functional>

namespace glidemap {

class GestureRecognizer {
public:
    using GestureCallback = std::function<void(GestureType)>;

    GestureRecognizer() = default;
    GestureRecognizer(const GestureRecognizer&) = delete;
    GestureRecognizer& operator=(const GestureRecognizer&) = delete;
    virtual ~GestureRecognizer() = default;

    virtual void process(const TouchFrame& frame) = 0;

    // Decides nothing about the touches so far: their end was not seen.
    virtual void forget() = 0;

    GestureCallback onGesture;
};

} // namespace glidemap
