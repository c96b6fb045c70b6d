// The touch engine's interface to a recognizer: a callback for gestures and one call for each
// frame.
//
// Thread:  process() on the engine's queue only, in the order of the reports; forget() while that
//          queue is idle. The callback is set before the first frame and runs on the engine's queue
//          or on the thread of delayed work.
// Owner:   the engine.
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

    // Returns true if no gesture can be recognised until a finger lands or lifts. Frames may then
    // be processed late. Called on the engine's queue after process().
    virtual bool waitsForFingers() const { return false; }

    // Discards the current touches without recognising a gesture. Called before reports resume,
    // because the end of these touches may not have been reported.
    virtual void forget() = 0;

    GestureCallback onGesture;
};

} // namespace glidemap
