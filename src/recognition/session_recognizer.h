// Tracks every finger through a session, from the first frame with a touching finger to the next
// frame without one, and classifies the gesture.
//
//   down ──────────────────────────────────────────────────────────────▶ all up
//        long press: at 0.8 s, fingers still down, none landed or lifted
//        hold and tap: whenever a short still tap ends beside a resting finger
//                                       end: circle, edge swipe, corner tap   (one finger)
//                                            tap, pinch or rotation, swipe    (two to five)
//
// Two successive taps with the same number of fingers, from two to four, are a double tap if the
// second one ends at most 0.45 s after the first. The first tap is reported at once, unless an
// enabled binding for the double tap exists when it ends. Then it is reported 0.45 s later, unless
// a double tap or forget() cancels it. After each gesture that it delivers, TouchEngine drops all
// gestures for 0.25 s. So if the first tap was delivered, a double tap within that time is dropped.
//
// Units:   positions normalised 0..1, origin bottom-left; times in seconds of the frames'
//          timestamps, except the delay of a single tap, which is in real time.
// Thread:  the engine's queue only; a delayed tap is reported on the thread of delayed work. Both
//          callbacks are set before the first frame; onGesture must not call process().
// Owner:   TouchEngine, through a shared pointer; delayed taps hold a weak pointer.
// Errors:  none. A finger without a finite position keeps its last finite position; if it never had
//          one, it is ignored. A session with more tracks than hands can make (see TrackList) has
//          no gesture at its end.
#pragma once

#include "core/delayed_work.h"
#include "recognition/gesture_recognizer.h"
#include "recognition/held_tap.h"
#include "recognition/live_index.h"
#include "recognition/track.h"
#include "recognition/track_list.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace glidemap {

class SessionRecognizer : public GestureRecognizer,
                          public std::enable_shared_from_this<SessionRecognizer> {
public:
    static std::shared_ptr<SessionRecognizer> create(std::shared_ptr<DelayedWork> delayedWork);

    void process(const TouchFrame& frame) override;
    bool waitsForFingers() const override;
    void forget() override;

    // Returns whether an enabled binding, in any scope, exists for the double tap with that many
    // fingers. Called on the engine's queue.
    std::function<bool(int fingerCount)> doubleTapBindingExists;

private:
    struct ConstructionKey {};

public:
    SessionRecognizer(ConstructionKey key, std::shared_ptr<DelayedWork> delayedWork);

private:
    struct GroupTap {
        int count = 0;
        double time = 0;
    };

    void readFingers(const TouchFrame& frame);
    void follow(const TouchPoint& finger, double time);
    void endLiveTracks(double time);
    void finalizeSession(double time);
    void resetSession();

    void decideOneFinger(double duration);
    void decideManyFingers(double duration, double time);
    bool isGroupTap(double duration) const;
    void handleGroupTap(int count, double time);
    void holdBackTap(GestureType tap);
    void checkLongPress(double time);
    bool mayBecomeLongPress() const;
    bool allLiveTracksRest(double time) const;
    void checkFixAndTap(std::size_t endedIndex);
    const Track* anchorFor(const Track& tap) const;

    bool classifySwipe(double duration);
    bool classifyEdgeSwipe(const Track& track, double duration);
    bool classifyCornerTap(const Track& track, double duration);
    bool classifyCircle(const Track& track, double duration);
    bool classifyPinchOrRotate(const Track& first, const Track& second);

    bool reportIfAny(std::optional<GestureType> gesture);
    void report(GestureType gesture) const;

    std::shared_ptr<DelayedWork> delayedWork;
    TrackList tracks;
    LiveIndex liveIndex;
    std::optional<double> sessionStart;
    int maxConcurrent = 0;
    bool consumed = false;
    bool longPressFired = false;
    std::optional<GroupTap> lastTap;
    HeldTap pendingSingleTap;

    // Members, so that their memory is reused between frames.
    std::vector<TouchPoint> fingers;
    std::vector<std::int32_t> fingerIds;
    std::vector<LiveIndex::Entry> liftedFingers;
};

} // namespace glidemap
