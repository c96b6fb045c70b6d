#include "drivers/evdev/pad_interception.h"

#include "core/log.h"

#include <array>
#include <cstddef>
#include <utility>

namespace glidemap {

namespace {

// More than any touchpad says at once.
constexpr std::size_t largeFrame = 256;

constexpr auto filteredButtons = std::to_array<std::uint16_t>({BTN_LEFT, BTN_RIGHT});

bool isFilteredButton(const InputEvent& event) {
    return event.type == EV_KEY && (event.code == BTN_LEFT || event.code == BTN_RIGHT);
}

// As the filter numbers them: 0 left, 1 right.
std::int32_t numberOf(std::uint16_t button) {
    return button - BTN_LEFT;
}

} // namespace

PadInterception::PadInterception(driver::Device itsDevice, OpenPad& itsPad,
                                 ClickInterception& allClicks)
    : device(itsDevice), pad(itsPad), clicks(allClicks), source(pad.description().slotCount) {
    frame.reserve(largeFrame);
}

PadInterception::~PadInterception() {
    end();
}

// A button that is told to be as it is has not changed, and nobody is asked about it.
void PadInterception::add(const InputEvent& event) {
    const bool says = event.type != EV_SYN && !(isFilteredButton(event) &&
                                                source.isPressed(event.code) == (event.value != 0));
    if (says && isForwarding()) {
        frame.push_back(event);
    }
    source.apply(event);
}

void PadInterception::endFrame(double time) {
    if (stillHoldsPad()) {
        const bool everybodySawIt = time < *grabbedAt;
        if (!everybodySawIt) {
            forwardFrame(time);
        } else if (!source.isNeutral()) {
            letPadGo();
        }
        clicks.watchdog().progress();
    }
    frame.clear();
    slotBefore = source.slot();
}

void PadInterception::forwardFrame(double time) {
    judgeButtons();
    if (!stillHoldsPad() || writer->forward(frame, slotBefore, source, time)) {
        return;
    }
    if (stillHoldsPad()) {
        logLine("touchpads", "cannot write to the clone of ", pad.description().name);
        giveBack();
        failedAttempt = clicks.attempt();
    }
}

// A release that the clone needs is never dropped, whatever the filter makes of it: nobody is left
// with a button that stays down.
void PadInterception::judgeButtons() {
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

// Asked before anything is written: the watchdog may have given the touchpad back meanwhile.
bool PadInterception::stillHoldsPad() {
    if (!isForwarding()) {
        return false;
    }
    if (clicks.watchdog().holds(pad)) {
        return true;
    }
    grabbedAt.reset();
    writer.reset();
    clicks.noticeStall();
    return false;
}

void PadInterception::settle() {
    stillHoldsPad();
    if (ended || !pad.hasButtons()) {
        return;
    }
    const bool wanted = clicks.isWanted();
    if (wanted && !writer.has_value()) {
        makeClone();
    }
    if (!source.isNeutral()) {
        return;
    }
    if (!wanted) {
        giveBack();
    } else if (writer.has_value() && !isForwarding()) {
        take();
    }
}

// Before the touchpad is neutral, so that the system has had time to get to know the clone when it
// matters.
void PadInterception::makeClone() {
    if (failedAttempt == clicks.attempt()) {
        return;
    }
    if (auto clone = pad.makeClone(); clone != nullptr) {
        writer.emplace(std::move(clone), source.slotCount());
    } else {
        logLine("touchpads", "not grabbed, no clone of it can be made: ", pad.description().name);
        failedAttempt = clicks.attempt();
    }
}

void PadInterception::take() {
    grabbedAt = pad.grab();
    logLine("touchpads", isForwarding() ? "grabbed " : "not grabbed, another program has it: ",
            pad.description().name);
    if (isForwarding() && !clicks.watchdog().hold({device, &pad, &writer->clone()})) {
        letPadGo();
    }
}

void PadInterception::letPadGo() {
    if (isForwarding()) {
        clicks.watchdog().release(pad);
        pad.ungrab();
        logLine("touchpads", "given back ", pad.description().name);
        grabbedAt.reset();
    }
}

void PadInterception::giveBack() {
    if (writer.has_value()) {
        writer->releaseAll();
    }
    letPadGo();
    writer.reset();
}

void PadInterception::end() {
    ended = true;
    giveBack();
}

void PadInterception::lose() {
    for (const std::uint16_t button : filteredButtons) {
        if (stillHoldsPad() && source.isPressed(button)) {
            clicks.drops(device, numberOf(button), false);
        }
    }
    end();
}

} // namespace glidemap
