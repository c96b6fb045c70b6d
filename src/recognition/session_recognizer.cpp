#include "recognition/session_recognizer.h"

#include "recognition/circle.h"
#include "recognition/corner_tap.h"
#include "recognition/edge_swipe.h"
#include "recognition/pinch_or_rotate.h"
#include "recognition/swipe.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>
#include <span>
#include <utility>

namespace glidemap {

namespace {

// Seconds and normalised units. A tap may drift less than a long press, because a finger that rests
// longer rolls more.
constexpr double maxTapDuration = 0.3;
constexpr double maxTapDrift = 0.035;
constexpr double doubleTapInterval = 0.45;
constexpr double longPressDuration = 0.8;
constexpr double maxPressDrift = 0.045;
constexpr double maxPinchDuration = 1.5;

// Hold and tap: limits for the tap, for the holding finger, and for the distance between them.
constexpr double maxFixedTapDuration = 0.4;
constexpr double maxFixedTapDrift = 0.04;
constexpr double anchorLead = 0.2;
constexpr double maxAnchorDrift = 0.05;
constexpr double minFixedTapDistance = 0.05;

// The long press for each number of fingers. Every frame looks it up: without this table, searching
// all gestures would take half of the time that is spent on a frame.
constexpr auto longPresses = [] {
    std::array<std::optional<GestureType>, 6> gestures;
    for (std::size_t count = 0; count < gestures.size(); ++count) {
        gestures[count] = gestureFor(GestureCategory::longPress, static_cast<int>(count));
    }
    return gestures;
}();

std::optional<GestureType> longPressOf(std::size_t count) {
    return count < longPresses.size() ? longPresses[count] : std::nullopt;
}

bool isFinite(const TouchPoint& touch) {
    return std::isfinite(touch.x) && std::isfinite(touch.y);
}

// Returns the gesture for a tap at this offset from the holding finger, or nullopt if the fingers
// are too close.
std::optional<GestureType> fixAndTapAt(PadPoint offset) {
    if (std::abs(offset.y) <= std::abs(offset.x)) {
        if (!(std::abs(offset.x) >= minFixedTapDistance)) {
            return std::nullopt;
        }
        return offset.x > 0 ? GestureType::fixAndTapRight : GestureType::fixAndTapLeft;
    }
    if (!(std::abs(offset.y) >= minFixedTapDistance)) {
        return std::nullopt;
    }
    return offset.y > 0 ? GestureType::fixAndTapAbove : GestureType::fixAndTapBelow;
}

} // namespace

std::shared_ptr<SessionRecognizer>
SessionRecognizer::create(std::shared_ptr<DelayedWork> delayedWork) {
    return std::make_shared<SessionRecognizer>(ConstructionKey{}, std::move(delayedWork));
}

SessionRecognizer::SessionRecognizer(ConstructionKey /*key*/,
                                     std::shared_ptr<DelayedWork> delayedWork)
    : delayedWork(std::move(delayedWork)) {}

void SessionRecognizer::process(const TouchFrame& frame) {
    const double time = frame.timestamp;
    readFingers(frame);
    if (fingers.empty()) {
        if (sessionStart) {
            endLiveTracks(time);
            finalizeSession(time);
            resetSession();
        }
        return;
    }
    if (!sessionStart) {
        sessionStart = time;
    }
    maxConcurrent = std::max(maxConcurrent, static_cast<int>(fingers.size()));
    endLiveTracks(time);
    for (const TouchPoint& finger : fingers) {
        follow(finger, time);
    }
    checkLongPress(time);
}

void SessionRecognizer::forget() {
    resetSession();
    lastTap.reset();
    pendingSingleTap.cancel();
}

void SessionRecognizer::readFingers(const TouchFrame& frame) {
    fingers.clear();
    fingerIds.clear();
    for (TouchPoint touch : frame.touches) {
        if (!touch.isTouching) {
            continue;
        }
        if (!isFinite(touch)) {
            const auto live = liveIndex.find(touch.id);
            if (!live) {
                continue;
            }
            const PadPoint last = tracks[*live].lastPos;
            touch.x = last.x;
            touch.y = last.y;
        }
        fingers.push_back(touch);
        fingerIds.push_back(touch.id);
    }
    // Drivers usually report the fingers sorted by id, so this sort is rarely needed.
    if (!std::ranges::is_sorted(fingerIds)) {
        std::ranges::sort(fingerIds);
    }
}

void SessionRecognizer::follow(const TouchPoint& finger, double time) {
    const PadPoint position{finger.x, finger.y};
    if (const LiveIndex::Entry* live = liveIndex.entryOf(finger.id)) {
        tracks[live->track].moveTo(position);
    } else {
        tracks.begin(finger.id, time, position, liveIndex);
    }
}

// Ends the track of every finger that is missing from the frame. Each of these fingers is removed
// from the live fingers and immediately checked for a hold and tap. During this check, the missing
// fingers that come later in the loop still count as live.
void SessionRecognizer::endLiveTracks(double time) {
    liveIndex.collectMissing(fingerIds, liftedFingers);
    for (const LiveIndex::Entry& finger : liftedFingers) {
        tracks.end(finger.track, time);
        liveIndex.remove(finger.id);
        checkFixAndTap(finger.track);
    }
}

void SessionRecognizer::finalizeSession(double time) {
    if (consumed || !sessionStart || tracks.isCrowded()) {
        return;
    }
    const double duration = time - *sessionStart;
    if (maxConcurrent == 1) {
        decideOneFinger(duration);
    } else if (gestureFor(GestureCategory::tap, maxConcurrent)) {
        decideManyFingers(duration, time);
    }
}

void SessionRecognizer::decideOneFinger(double duration) {
    // A finger that lifts and lands again makes two tracks; such a session has no gesture.
    if (tracks.size() != 1) {
        return;
    }
    const Track& track = tracks[0];
    if (!classifyCircle(track, duration) && !classifyEdgeSwipe(track, duration)) {
        classifyCornerTap(track, duration);
    }
}

void SessionRecognizer::decideManyFingers(double duration, double time) {
    if (isGroupTap(duration)) {
        handleGroupTap(maxConcurrent, time);
        return;
    }
    const bool isPair = maxConcurrent == 2 && tracks.size() == 2;
    if (isPair && duration <= maxPinchDuration && classifyPinchOrRotate(tracks[0], tracks[1])) {
        return;
    }
    classifySwipe(duration);
}

bool SessionRecognizer::isGroupTap(double duration) const {
    return duration <= maxTapDuration && std::ranges::all_of(tracks.all(), [](const Track& track) {
               return track.maxDrift <= maxTapDrift;
           });
}

void SessionRecognizer::resetSession() {
    tracks.clear();
    liveIndex.clear();
    sessionStart.reset();
    maxConcurrent = 0;
    consumed = false;
    longPressFired = false;
    // Keeps lastTap and pendingSingleTap, because they span sessions.
}

// Two quick taps with the same number of fingers are a double tap even if it has no binding. The
// only effect of a binding is that the first tap is delayed.
//
//   tap ──┬─ second within 0.45 s ──▶ double tap; a delayed single tap is cancelled
//         └─ otherwise ─┬─ double tap bound ──▶ single tap after 0.45 s
//                       └─ not bound ─────────▶ single tap at once
void SessionRecognizer::handleGroupTap(int count, double time) {
    // Five fingers have no double tap.
    const auto doubleTap = gestureFor(GestureCategory::doubleTap, count);
    if (doubleTap && lastTap && lastTap->count == count &&
        time - lastTap->time <= doubleTapInterval) {
        pendingSingleTap.cancel();
        lastTap.reset();
        report(*doubleTap);
        return;
    }
    lastTap = GroupTap{count, time};
    const auto tap = gestureFor(GestureCategory::tap, count);
    if (!tap) {
        return;
    }
    if (doubleTap && doubleTapBindingExists && doubleTapBindingExists(count)) {
        holdBackTap(*tap);
    } else {
        report(*tap);
    }
}

void SessionRecognizer::holdBackTap(GestureType tap) {
    auto item = std::make_shared<WorkItem>([weakly = weak_from_this(), tap] {
        if (const auto recognizer = weakly.lock()) {
            recognizer->report(tap);
            recognizer->pendingSingleTap.clear();
        }
    });
    pendingSingleTap.hold(item);
    delayedWork->schedule(std::move(item), doubleTapInterval);
}

void SessionRecognizer::checkLongPress(double time) {
    if (!mayBecomeLongPress() || !allLiveTracksRest(time)) {
        return;
    }
    consumed = true;
    longPressFired = true;
    report(*longPressOf(liveIndex.size()));
}

// A long press requires that every finger that has landed in this session is still on the pad.
bool SessionRecognizer::mayBecomeLongPress() const {
    if (longPressFired || consumed) {
        return false;
    }
    const auto count = static_cast<int>(liveIndex.size());
    return maxConcurrent == count && !tracks.isCrowded() && tracks.size() == liveIndex.size() &&
           longPressOf(liveIndex.size()).has_value();
}

// While fingers neither land nor lift, the only possible gesture is a long press, which requires
// that no finger has drifted too far.
bool SessionRecognizer::waitsForFingers() const {
    return !mayBecomeLongPress() ||
           std::ranges::any_of(liveIndex.all(), [&](const LiveIndex::Entry& finger) {
               return tracks[finger.track].maxDrift > maxPressDrift;
           });
}

bool SessionRecognizer::allLiveTracksRest(double time) const {
    return std::ranges::all_of(liveIndex.all(), [&](const LiveIndex::Entry& finger) {
        const Track& track = tracks[finger.track];
        return time - track.startTime >= longPressDuration && track.maxDrift <= maxPressDrift;
    });
}

// Called when a finger lifts: reports a short, still tap beside a resting finger. Ignores
// `consumed`, because every further tap is reported as long as the resting finger stays down.
void SessionRecognizer::checkFixAndTap(std::size_t endedIndex) {
    const Track& tap = tracks[endedIndex];
    if (!(tap.endTime - tap.startTime <= maxFixedTapDuration) ||
        !(tap.maxDrift <= maxFixedTapDrift)) {
        return;
    }
    const Track* anchor = anchorFor(tap);
    if (anchor == nullptr) {
        return;
    }
    if (const auto gesture = fixAndTapAt(tap.startPos - anchor->lastPos)) {
        consumed = true;
        report(*gesture);
    }
}

const Track* SessionRecognizer::anchorFor(const Track& tap) const {
    for (const LiveIndex::Entry& finger : liveIndex.all()) {
        const Track& track = tracks[finger.track];
        if (track.startTime <= tap.startTime - anchorLead && track.maxDrift <= maxAnchorDrift) {
            return &track;
        }
    }
    return nullptr;
}

bool SessionRecognizer::classifySwipe(double duration) {
    return reportIfAny(swipeOf(tracks.all(), maxConcurrent, duration));
}

bool SessionRecognizer::classifyEdgeSwipe(const Track& track, double duration) {
    return reportIfAny(edgeSwipeOf(track, duration));
}

bool SessionRecognizer::classifyCornerTap(const Track& track, double duration) {
    return reportIfAny(cornerTapOf(track, duration));
}

bool SessionRecognizer::classifyCircle(const Track& track, double duration) {
    return reportIfAny(circleOf(track.points, duration));
}

bool SessionRecognizer::classifyPinchOrRotate(const Track& first, const Track& second) {
    return reportIfAny(pinchOrRotateOf(first, second));
}

bool SessionRecognizer::reportIfAny(std::optional<GestureType> gesture) {
    if (gesture) {
        report(*gesture);
    }
    return gesture.has_value();
}

void SessionRecognizer::report(GestureType gesture) const {
    if (onGesture) {
        onGesture(gesture);
    }
}

} // namespace glidemap
