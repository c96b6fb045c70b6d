// A touch engine in virtual time, without a driver: reports go into the contact callback by hand.
//
// Thread:  one, the test's.
// Owner:   the test; one at a time, because the callback's sink is one for the process.
#pragma once

#include "input/multitouch_device_manager.h"
#include "input/touch_frame.h"
#include "kit/performance.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/touch_engine.h"

#include <memory>
#include <span>
#include <vector>

namespace glidemap::kit {

class EngineStage {
public:
    explicit EngineStage(std::vector<int> boundDoubleTaps = {});
    EngineStage(const EngineStage&) = delete;
    EngineStage& operator=(const EngineStage&) = delete;
    ~EngineStage();

    // Moves time to the frame's and hands its records to the callback; recognition waits for run().
    void submit(const TouchFrame& frame);
    void run() { time.runSubmitted(); }
    void play(std::span<const TouchFrame> frames);
    void play(const Script& script);
    // Until nothing more can come.
    void finish() { time.runRemaining(); }

    // Says `gesture` as the recognizer would, at the present moment.
    void recognise(GestureType gesture) { engine->sessionRecognizer().onGesture(gesture); }

    VirtualTime time;
    MultitouchDeviceManager manager; // has found no driver
    std::shared_ptr<TouchEngine> engine;
    std::vector<Heard> heard; // what left the engine
};

// The frame pushed into the contact callback as a driver does it, from a buffer that is scribbled
// over afterwards.
void report(const TouchFrame& frame);
void report(std::vector<MTTouch> records, double timestamp);

} // namespace glidemap::kit
