#include "drivers/evdev/pad_interception.h"

#include "core/log.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

namespace glidemap {

namespace {

// More events than any touchpad's frame contains.
constexpr std::size_t largeFrame = 256;

constexpr auto filteredButtons = std::to_array<std::uint16_t>({BTN_LEFT, BTN_RIGHT});

bool isFilteredButton(const InputEvent& event) {
    return event.type == EV_KEY && (event.code == BTN_LEFT || event.code == BTN_RIGHT);
}

// Returns the filter's number of the button: 0 left, 1 right.
std::int32_t numberOf(std::uint16_t button) {
    return button - BTN_LEFT;
}

} // namespace

PadInterception::PadInterception(driver::Device device, OpenPad& pad, ClickInterception& clicks)
    : device(device), pad(pad), clicks(clicks), source(pad.description().slotCount) {
    frame.reserve(largeFrame);
}

PadInterception::~PadInterception() {
    end();
}

void PadInterception::add(const InputEvent& event) {
    const bool mayBeForwarded = isForwarding() || releasedAt.has_value();
    if (mayBeForwarded && event.type != EV_SYN && !repeatsButton(event) &&
        !needsMissingSlot(event)) {
        frame.push_back(event);
    }
    source.apply(event);
}

// Returns whether the event reports a button state that the touchpad already has. The filter is
// called only for changes.
bool PadInterception::repeatsButton(const InputEvent& event) const {
    return isFilteredButton(event) && source.isPressed(event.code) == (event.value != 0);
}

// Returns whether the event selects a slot that the touchpad lacks, or belongs to such a slot. The
// clone lacks that slot, too: its current slot would stay the same, and the events of the missing
// slot would change the wrong contact.
bool PadInterception::needsMissingSlot(const InputEvent& event) const {
    if (event.type != EV_ABS) {
        return false;
    }
    return event.code == ABS_MT_SLOT
               ? !source.hasSlot(event.value)
               : PadState::isSlotAxis(event.code) && !source.hasSlot(source.slot());
}

void PadInterception::endFrame(double time) {
    if (releasedAt.has_value() && time >= *releasedAt) {
        releasedAt.reset();
    } else if (releasedAt.has_value() && !source.isNeutral()) {
        grabAgain(time);
        releasedAt.reset();
    }
    if (stillGrabsPad()) {
        const bool wasSeenByOthers = time < *grabbedAt;
        if (!wasSeenByOthers) {
            forwardFrame(time);
        } else if (!source.isNeutral()) {
            ungrabPad();
        }
        clicks.watchdog().progress();
    }
    frame.clear();
    slotBefore = source.slot();
}

void PadInterception::forwardFrame(double time) {
    filterButtons();
    if (!stillGrabsPad() || writer->forward(frame, slotBefore, source, time)) {
        return;
    }
    if (stillGrabsPad()) {
        abandonClone("the touchpad's clone cannot be written");
    }
}

// Called for a touch that began before the ungrab took effect. Other programs did not receive its
// beginning, so they would ignore the rest of it. Grabs the touchpad again, so that the clone
// forwards the touch.
void PadInterception::grabAgain(double time) {
    if (writer.has_value() && (isForwarding() || grab(GrabMoment::duringTouch))) {
        grabbedAt = time;
        leaveAt.reset();
    }
}

// If the press of a button was forwarded, its release is forwarded even if the filter drops the
// release. Otherwise the clone's button would stay down.
void PadInterception::filterButtons() {
    std::array heldByClone{writer->isPressed(BTN_LEFT), writer->isPressed(BTN_RIGHT)};
    std::erase_if(frame, [&](const InputEvent& event) {
        if (!isFilteredButton(event) || !isForwarding()) {
            return false;
        }
        const bool down = event.value != 0;
        bool& cloneHolds = heldByClone[event.code - BTN_LEFT];
        const bool drop = clicks.drops(device, numberOf(event.code), down) && (down || !cloneHolds);
        cloneHolds = down && !drop;
        return drop;
    });
}

// Returns whether the touchpad is still grabbed. Call this before writing, because the watchdog may
// have released the touchpad.
bool PadInterception::stillGrabsPad() {
    if (!isForwarding()) {
        return false;
    }
    if (clicks.watchdog().holds(pad)) {
        return true;
    }
    grabbedAt.reset();
    dropClone();
    clicks.noticeStall();
    return false;
}

void PadInterception::settle() {
    stillGrabsPad();
    if (ended || !pad.hasButtons()) {
        return;
    }
    const bool wanted = clicks.isWanted() && !clicks.watchdog().isPaused();
    if (wanted) {
        prepareClone();
    }
    if (!wanted && writer.has_value() && (!isForwarding() || source.isNeutral())) {
        leave();
    } else if (wanted && writer.has_value() && !isIntroducing() && !isForwarding() &&
               source.isNeutral()) {
        grab(GrabMoment::betweenTouches);
    }
    clicks.watchdog().progress();
}

std::optional<PadInterception::Moment> PadInterception::nextLook() const {
    if (leaveAt.has_value()) {
        return leaveAt;
    }
    return isIntroducing() ? std::optional(introduction->nextLook()) : std::nullopt;
}

void PadInterception::prepareClone() {
    leaveAt.reset();
    if (!writer.has_value()) {
        makeClone();
    }
    if (isIntroducing()) {
        introduceClone();
    }
}

// The first attempt after the filter is switched on does not wait until the touchpad is neutral, so
// that programs can open the clone in the meantime.
void PadInterception::makeClone() {
    const bool mayRetry = source.isNeutral() && clicks.now() >= retryAt;
    if (failedAttempt == clicks.attempt() && !mayRetry) {
        return;
    }
    if (failedAttempt != clicks.attempt()) {
        pause = firstPause;
    }
    if (!clicks.beginIntroduction()) {
        return;
    }
    introduction.emplace(clicks.now());
    if (auto clone = pad.makeClone(); clone != nullptr) {
        writer.emplace(std::move(clone), source.slotCount());
    } else {
        abandonClone("the touchpad cannot be cloned");
    }
}

void PadInterception::introduceClone() {
    const CloneStanding standing = clicks.cloneWatch()->standing(writer->clone());
    switch (introduction->look(standing, clicks.now())) {
    case CloneIntroduction::State::waiting:
        break;
    case CloneIntroduction::State::ready:
        introduction.reset();
        clicks.endIntroduction();
        pause = firstPause;
        reason = nullptr;
        break;
    case CloneIntroduction::State::failed:
        abandonClone(introduction->obstacle());
        break;
    }
}

void PadInterception::abandonClone(const char* obstacle) {
    giveBack();
    logLine("touchpads", "not grabbed, ", obstacle, ": ", pad.description().name);
    reason = obstacle;
    failedAttempt = clicks.attempt();
    retryAt = clicks.now() + pause;
    pause = std::min(2 * pause, maxPause);
}

void PadInterception::dropClone() {
    if (isIntroducing()) {
        introduction.reset();
        clicks.endIntroduction();
    }
    writer.reset();
    leaveAt.reset();
    releasedAt.reset();
}

// After an interruption, the next event causes another attempt.
bool PadInterception::grab(GrabMoment moment) {
    bool isRefused = false;
    const bool isHeld = clicks.watchdog().hold({device, &pad, &writer->clone()}, [&] {
        if (moment == GrabMoment::duringTouch) {
            grabbedAt = pad.grab();
            isRefused = !isForwarding();
        } else {
            const GrabResult result = pad.grabBetweenTouches();
            isRefused = result.outcome == GrabResult::Outcome::refused;
            if (result.outcome == GrabResult::Outcome::grabbed) {
                grabbedAt = result.time;
            }
        }
        return isForwarding();
    });
    if (isHeld) {
        reason = nullptr;
        logLine("touchpads", "grabbed ", pad.description().name);
    } else if (isRefused) {
        reason = "another program has grabbed the touchpad";
        logLine("touchpads", "not grabbed, ", reason, ": ", pad.description().name);
    }
    return isHeld;
}

// Calls `release`, which returns whether it released the touchpad, unless the watchdog has already
// released it.
void PadInterception::ungrab(const std::function<bool()>& release) {
    clicks.watchdog().release(pad, [&] {
        if (!release()) {
            return false;
        }
        grabbedAt.reset();
        logLine("touchpads", "given back ", pad.description().name);
        return true;
    });
}

void PadInterception::ungrabPad() {
    ungrab([&] {
        pad.ungrab();
        return true;
    });
    grabbedAt.reset();
}

// Keeps the clone for a while, so that programs can read its last events, and so that it can be
// used again if the filter is switched on.
void PadInterception::leave() {
    ungrab([&] {
        releasedAt = pad.ungrabBetweenTouches();
        return releasedAt.has_value();
    });
    if (isForwarding()) {
        return; // a touch has begun and must be forwarded until it ends
    }
    if (!leaveAt.has_value()) {
        leaveAt = clicks.now() + cloneRetention;
    } else if (clicks.now() >= *leaveAt) {
        dropClone();
    }
}

void PadInterception::giveBack() {
    if (writer.has_value()) {
        writer->releaseAll();
    }
    ungrabPad();
    dropClone();
}

void PadInterception::end() {
    ended = true;
    giveBack();
}

void PadInterception::disconnect() {
    for (const std::uint16_t button : filteredButtons) {
        if (stillGrabsPad() && source.isPressed(button)) {
            clicks.drops(device, numberOf(button), false);
        }
    }
    end();
}

} // namespace glidemap
