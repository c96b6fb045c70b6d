// A touch engine in virtual time without a driver: the test passes reports to the contact callback.
//
// Thread:  one, the test's.
// Owner:   the test; one at a time, because the callback's sink is global to the process.
#pragma once

#include "input/multitouch_device_manager.h"
#include "input/touch_frame.h"
#include "kit/performance.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/touch_engine.h"

#include <memory>
#include <span>
#include <vector>

namespace glidemap::test {

class EngineStage {
public:
    explicit EngineStage(std::vector<int> boundDoubleTaps = {});
    EngineStage(const EngineStage&) = delete;
    EngineStage& operator=(const EngineStage&) = delete;
    ~EngineStage();

    // Advances time to the frame's timestamp and passes the frame's records to the callback.
    // Recognition waits for run().
    void submit(const TouchFrame& frame);
    void run() { time.runSubmitted(); }
    void play(std::span<const TouchFrame> frames);
    void play(const Script& script);
    // Runs until no work is pending.
    void finish() { time.runRemaining(); }

    // Reports `gesture` at the current time, as the recognizer does.
    void recognise(GestureType gesture) { engine->sessionRecognizer().onGesture(gesture); }

    VirtualTime time;
    MultitouchDeviceManager manager; // has no driver
    std::shared_ptr<TouchEngine> engine;
    std::vector<ReportedGesture> reported; // the gestures that the engine delivered
};

// Passes the frame to the contact callback as a driver does, from a buffer that is overwritten
// afterwards.
void report(const TouchFrame& frame);
void report(std::vector<MTTouch> records, double timestamp);

} // namespace glidemap::test
