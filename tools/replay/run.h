// Runs the whole pipeline in virtual time: passes records to the driver and reports gestures and
// actions.
//
//   record ─▶ time advances to it, delayed items due by then run
//          ─▶ replay driver ─▶ contact callback ─▶ engine ─▶ its queue (run immediately) ─▶ recognizer
//          ─▶ cooldown ─▶ desktop ─▶ its main queue (run afterwards) ─▶ actions
//
// The listener is notified of each gesture, including gestures that the cooldown drops, then of the
// gesture's actions; and of each button change, with the click gesture that consumed it.
//
// Units:   seconds of the records.
// Thread:  one.
// Owner:   the code that plays the records. One run at a time, because the driver has one callback.
// Errors:  those of the driver.
#pragma once

#include "desk.h"
#include "platform/virtual/virtual_time.h"
#include "recognition/touch_engine.h"
#include "recording/record.h"
#include "replay_driver.h"
#include "run_event.h"

#include <chrono>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace glidemap::replay {

// The playback speed of a recording: as fast as possible, or as recorded.
class Pace {
public:
    enum class Speed { asFastAsPossible, realTime };

    explicit Pace(Speed speed) : speed(speed) {}

    // Waits until this time of the recording. Returns immediately on the first call, and for a time
    // before the previous one, because a recording may go backwards.
    void waitUntil(double time);

    bool isRealTime() const { return speed == Speed::realTime; }

private:
    using Clock = std::chrono::steady_clock;

    struct Anchor {
        Clock::time_point moment;
        double time = 0;
    };

    Speed speed;
    std::optional<Anchor> last;
};

class Run {
public:
    Run(ReplayDriver& driver, Pace::Speed speed, BindingList bindings, Listener listener);
    Run(const Run&) = delete;
    Run& operator=(const Run&) = delete;
    ~Run();

    // Treats these double taps as bound, in addition to those in the bindings.
    void bindDoubleTaps(std::set<int> fingerCounts) { boundDoubleTaps = std::move(fingerCounts); }

    void play(const Record& record);
    void play(double time, const std::vector<MTTouch>& touches);

    void advanceTo(double time);

    // Call this at the end of the input. All taps that are still delayed then fire.
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
    SimulatedDesktop desktop;
    std::set<int> boundDoubleTaps;
};

} // namespace glidemap::replay
