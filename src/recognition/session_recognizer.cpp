#include "recognition/session_recognizer.h"

#include "recognition/circle.h"
#include "recognition/corner_tap.h"
#include "recognition/edge_swipe.h"
#include "recognition/pinch_or_rotate.h"
#include "recognition/swipe.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

namespace glidemap {

namespace {

// Seconds and normalised units. A tap leaves more room to drift than a corner tap and less than a
// long press: the longer a finger rests, the more it rolls.
constexpr double longestTap = 0.3;
constexpr double farthestTapDrift = 0.035;
constexpr double doubleTapInterval = 0.45;
constexpr double longPressDuration = 0.8;
constexpr double farthestPressDrift = 0.045;
constexpr double longestPinch = 1.5;

// Hold and tap: the tap, the finger that holds, and how far apart they are.
constexpr double longestFixedTap = 0.4;
constexpr double farthestFixedTapDrift = 0.04;
constexpr double anchorLead = 0.2;
constexpr double farthestAnchorDrift = 0.05;
constexpr double nearestFixedTap = 0.05;

bool isFinite(const TouchPoint& touch) {
    return std::isfinite(touch.x) && std::isfinite(touch.y);
}

// Where a tap lies as seen from the finger that holds; none where it is too near to tell.
std::optional<GestureType> fixAndTapTowards(PadPoint offset) {
    if (std::abs(offset.y) <= std::abs(offset.x)) {
        if (!(std::abs(offset.x) >= nearestFixedTap)) {
            return std::nullopt;
        }
        return offset.x > 0 ? GestureType::fixAndTapRight : GestureType::fixAndTapLeft;
    }
    if (!(std::abs(offset.y) >= nearestFixedTap)) {
        return std::nullopt;
    }
    return offset.y > 0 ? GestureType::fixAndTapAbove : GestureType::fixAndTapBelow;
}

} // namespace

std::shared_ptr<SessionRecognizer>
SessionRecognizer::create(std::shared_ptr<DelayedWork> delayedWork) {
    return std::make_shared<SessionRecognizer>(ConstructionKey{}, std::move(delayedWork));
}

SessionRecognizer::SessionRecognizer(ConstructionKey /*key*/, std::shared_ptr<DelayedWork> work)
    : delayedWork(std::move(work)) {}

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
    // Drivers report a hand in the same order every time, mostly that of the ids.
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

// Ends the track of every finger that is not among the frame's. A finger is no longer live when its
// own end is checked, while those that end with it still are.
void SessionRecognizer::endLiveTracks(double time) {
    liveIndex.collectMissing(fingerIds, gone);
    for (const LiveIndex::Entry& finger : gone) {
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
    // A finger that was lifted and put down again makes two tracks, and means nothing.
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
    if (isPair && duration <= longestPinch && classifyPinchOrRotate(tracks[0], tracks[1])) {
        return;
    }
    classifySwipe(duration);
}

bool SessionRecognizer::isGroupTap(double duration) const {
    return duration <= longestTap && std::ranges::all_of(tracks.all(), [](const Track& track) {
               return track.maxDrift <= farthestTapDrift;
           });
}

void SessionRecognizer::resetSession() {
    tracks.clear();
    liveIndex.clear();
    sessionStart.reset();
    maxConcurrent = 0;
    consumed = false;
    longPressFired = false;
    // lastTap and pendingSingleTap span sessions.
}

// Two quick taps always make a double tap, whether it is bound or not; whether it is bound decides
// only if the first is held back.
//
//   tap ──┬─ second within 0.45 s ──▶ double tap; a single one held back is cancelled
//         └─ otherwise ─┬─ double tap bound ──▶ single tap after 0.45 s
//                       └─ not bound ─────────▶ single tap at once
void SessionRecognizer::handleGroupTap(int count, double time) {
    const auto doubleTap = gestureFor(GestureCategory::doubleTap, count); // five fingers have none
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
    if (longPressFired || consumed) {
        return;
    }
    const auto count = static_cast<int>(liveIndex.size());
    // No finger has come or gone since the session began.
    const bool unchanged =
        maxConcurrent == count && !tracks.isCrowded() && tracks.size() == liveIndex.size();
    const auto longPress = gestureFor(GestureCategory::longPress, count);
    if (!longPress || !unchanged || !allLiveTracksRest(time)) {
        return;
    }
    consumed = true;
    longPressFired = true;
    report(*longPress);
}

bool SessionRecognizer::allLiveTracksRest(double time) const {
    return std::ranges::all_of(liveIndex.all(), [&](const LiveIndex::Entry& finger) {
        const Track& track = tracks[finger.track];
        return time - track.startTime >= longPressDuration && track.maxDrift <= farthestPressDrift;
    });
}

// A short still tap beside a resting finger, at the moment the tapping finger leaves. Every further
// tap reports again while the other finger stays down, so this looks at no flag.
void SessionRecognizer::checkFixAndTap(std::size_t endedIndex) {
    const Track& tap = tracks[endedIndex];
    if (!(tap.endTime - tap.startTime <= longestFixedTap) ||
        !(tap.maxDrift <= farthestFixedTapDrift)) {
        return;
    }
    const Track* anchor = anchorFor(tap);
    if (anchor == nullptr) {
        return;
    }
    if (const auto gesture = fixAndTapTowards(tap.startPos - anchor->lastPos)) {
        consumed = true;
        report(*gesture);
    }
}

const Track* SessionRecognizer::anchorFor(const Track& tap) const {
    for (const LiveIndex::Entry& finger : liveIndex.all()) {
        const Track& track = tracks[finger.track];
        if (track.startTime <= tap.startTime - anchorLead &&
            track.maxDrift <= farthestAnchorDrift) {
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
