// The pipeline between the touch driver's thread and the gesture recognizers. It converts each
// report, publishes the number of touching fingers, runs recognition on one serial queue, and
// delivers at most one gesture per quarter second.
//
//   driver's thread                          engine's queue                      delayed work
//   contact callback → handleRawFrame ─────▶ process(frame) of each recognizer
//                      publish finger count    └▶ deliver ─▶ onGesture ◀─ deliver ◀─ waiting tap
//
// Most gestures are recognised when a finger lifts. While no gesture is possible until a finger
// lands or lifts, frames are deferred: they do not wake the queue, and the queue processes them in
// order before the next frame that is not deferred.
//
// Units:   timestamps in seconds as the driver reports them; the cooldown in seconds of
//          system uptime.
// Thread:  start(), lookForDevices() and stop() on the main thread; touchingCount() on any.
//          onGesture is called on the engine's queue or on the thread of delayed work, and is set
//          before start().
// Owner:   the process (`TouchEngine::shared()`); tests and tools create their own with
//          create(). The engine's callbacks hold it weakly and do nothing after its destruction, so
//          it may be destroyed while work is queued.
// Errors:  none; the device manager reports the errors of a driver.
#pragma once

#include "core/delayed_work.h"
#include "core/gesture_type.h"
#include "core/serial_queue.h"
#include "core/uptime_clock.h"
#include "input/mt_touch.h"
#include "input/multitouch_device_manager.h"
#include "recognition/finger_changes.h"
#include "recognition/frame_pool.h"
#include "recognition/gesture_recognizer.h"
#include "recognition/session_recognizer.h"

#include <atomic>
#include <cstdint>
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
        // Must outlive the engine, which starts and stops it.
        MultitouchDeviceManager* deviceManager = nullptr;
    };

    // The queue's name, for the platform code that creates the real queue.
    static constexpr const char* queueLabel = "com.corvane.glidemap.touch";

    // Minimum interval between delivered gestures, in seconds.
    static constexpr double fireCooldown = 0.25;

    static std::shared_ptr<TouchEngine> create(Ports ports);

    // Sets the factory for the shared instance's ports. Must be called before the first shared().
    static void configureShared(std::function<Ports()> makePorts);
    static const std::shared_ptr<TouchEngine>& shared();

    // Discards the touches from before the last stop(), installs the frame sink and starts the
    // devices.
    void start();

    // Starts newly attached devices if the engine is running.
    void lookForDevices();

    // Stops the devices, removes the sink and waits for running work. Discards queued frames and
    // waiting taps. Must not be called from within onGesture.
    void stop();

    // Returns the number of fingers in the latest report, even while the queue is busy.
    int touchingCount() const;

    SessionRecognizer& sessionRecognizer() { return *session; }

    // Receives the recognised gestures, at most one per `fireCooldown`.
    std::function<void(GestureType)> onGesture;

private:
    struct ConstructionKey {};

public:
    TouchEngine(ConstructionKey key, Ports ports);

private:
    using Recognizers = std::vector<std::shared_ptr<GestureRecognizer>>;

    static constexpr std::uint64_t noChange = ~std::uint64_t{0};

    void connect();
    void forgetTouches();
    void handleRawFrame(const std::vector<MTTouch>& records, double timestamp);
    void process(const TouchFrame& frame, std::uint64_t change);
    void deliver(GestureType gesture);
    bool passesCooldown();

    Ports ports;
    std::shared_ptr<SessionRecognizer> session;
    std::shared_ptr<const Recognizers> recognizers;
    std::shared_ptr<FramePool> frames = std::make_shared<FramePool>();
    mutable std::mutex touchCountLock;
    int _touchingCount = 0;
    FingerChanges fingerChanges; // guarded by touchCountLock, like _touchingCount
    // While all recognizers wait for the next finger change: the number of changes so far.
    // Otherwise noChange.
    std::atomic<std::uint64_t> awaitedChange = noChange;
    std::atomic<double> lastFireTime = 0;
    bool hasStarted = false;
    std::atomic<bool> started = false; // frames that arrive after stop() are ignored
};

} // namespace glidemap
