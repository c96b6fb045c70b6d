// One run of the whole pipeline in virtual time: records go in at the driver, gestures come out.
//
//   record ─▶ time moves on to it, delayed items due by then run
//          ─▶ replay driver ─▶ contact callback ─▶ engine ─▶ its queue (run at once) ─▶ recognizer
//          ─▶ cooldown ─▶ listener, which also hears what the cooldown dropped
//
// Units:   seconds of the records.
// Thread:  one.
// Owner:   whoever plays the records. One run at a time, because the driver has one callback.
// Errors:  as those of the driver.
#pragma once

#include "core/gesture_type.h"
#include "pace.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/touch_engine.h"
#include "recording/record.h"
#include "replay_driver.h"

#include <functional>
#include <memory>
#include <set>
#include <vector>

namespace glidemap::replay {

struct Recognised {
    double time = 0;
    GestureType gesture{};
    bool delivered = false; // past the cooldown
};

class Run {
public:
    using Listener = std::function<void(const Recognised&)>;

    Run(ReplayDriver& replayDriver, Pace::Speed speed, Listener newListener);
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run();

    void bindDoubleTaps(std::set<int> fingerCounts) { boundDoubleTaps = std::move(fingerCounts); }

    void play(const Record& record);
    void play(double time, const std::vector<MTTouch>& touches);

    void advanceTo(double time);

    // The end of the input: what was held back comes out.
    void finish();

    double now() const { return time.now(); }

private:
    void listen();
    void act(const Report& report);
    void act(const ButtonRecord& button);
    void act(const FrontmostRecord& frontmost);
    void act(const TimeRecord& moment);

    ReplayDriver& driver;
    Pace pace;
    Listener listener;
    VirtualTime time;
    std::shared_ptr<TouchEngine> engine;
    std::set<int> boundDoubleTaps;
    bool wasDelivered = false;
};

} // namespace glidemap::replay
