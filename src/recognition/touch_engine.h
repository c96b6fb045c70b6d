// The pipeline between the touch driver's thread and the gesture recognizers: converts every
// report, publishes how many fingers are on the pad, moves recognition onto one serial queue, and
// lets no two gestures out within a quarter second.
//
//   driver's thread                          engine's queue                      delayed work
//   contact callback → handleRawFrame ─────▶ process(frame) of each recognizer
//                      count under its lock    └▶ deliver ─▶ onGesture ◀─ deliver ◀─ held-back
//                      single tap
//
// Units:   timestamps in seconds as the driver gives them; the cooldown in seconds of system
// uptime. Thread:  start(), lookForDevices() and stop() on the main thread; touchingCount() on any. onGesture is
// called on the engine's queue or
//          on the thread of delayed work, and is set before start().
// Owner:   the process (`TouchEngine::shared()`); tests and tools make their own with create().
// What the engine hands out
//          holds it weakly and does nothing once it is gone, so it may be destroyed with work still
//          queued.
// Errors:  none; a driver that fails is seen in the device manager.
#pragma once

#include "core/delayed_work.h"
#include "core/gesture_type.h"
#include "core/serial_queue.h"
#include "core/uptime_clock.h"
#include "input/mt_touch.h"
#include "input/multitouch_device_manager.h"
#include "recognition/frame_pool.h"
#include "recognition/gesture_recognizer.h"
#include "recognition/session_recognizer.h"

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace glidemap {

class TouchEngine : public std::enable_shared_from_this<TouchEngine> {
public:
    struct Ports {
        std::shared_ptr<UptimeClock> clock;
        std::shared_ptr<SerialQueue> queue;
        std::shared_ptr<DelayedWork> delayedWork;
        // Outlives the engine. Started and stopped by it.
        MultitouchDeviceManager* deviceManager = nullptr;
    };

    // The name of the queue, for whoever makes the real one.
    static constexpr const char* queueLabel = "com.corvane.glidemap.touch";

    // Minimum spacing of delivered gestures, in seconds.
    static constexpr double fireCooldown = 0.25;

    static std::shared_ptr<TouchEngine> create(Ports ports);

    // Says what the shared instance is made from. Call before the first shared().
    static void configureShared(std::function<Ports()> makePorts);
    static const std::shared_ptr<TouchEngine>& shared();

    // Installs the frame sink, then starts the devices. What touched before an earlier stop is
    // forgotten.
    void start();

    // Starts the devices that have come since, if the engine is started.
    void lookForDevices();

    // Stops the devices, takes the sink away, and waits for the work that is running. Frames and
    // held-back taps that still wait are let go. Not to be called from within onGesture.
    void stop();

    // How many fingers touch in the latest report, also while the queue is busy.
    int touchingCount() const;

    SessionRecognizer& sessionRecognizer() { return *session; }

    // Output.
    std::function<void(GestureType)> onGesture;

private:
    struct ConstructionKey {};

public:
    TouchEngine(ConstructionKey key, Ports ports);

private:
    using Recognizers = std::vector<std::shared_ptr<GestureRecognizer>>;

    void connect();
    void forgetTouches();
    void handleRawFrame(const std::vector<MTTouch>& records, double timestamp);
    void deliver(GestureType gesture);
    bool passesCooldown();

    Ports ports;
    std::shared_ptr<SessionRecognizer> session;
    std::shared_ptr<const Recognizers> recognizers;
    std::shared_ptr<FramePool> frames = std::make_shared<FramePool>();
    mutable std::mutex touchCountLock;
    int _touchingCount = 0;
    std::atomic<double> lastFireTime = 0;
    std::atomic<bool> started =
        false; // frames that come from a driver slower to stop than we are do nothing
};

} // namespace glidemap
