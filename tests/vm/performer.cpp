#include "performer.h"

#include "choreography/performance.h"
#include "ordinary_pad.h"
#include "real_time.h"

#include <linux/input.h>

#include <algorithm>
#include <cmath>
#include <map>

namespace glidemap::test {

namespace {

std::int32_t padX(const MTTouch& touch) {
    return static_cast<std::int32_t>(std::lround(touch.normalized.pos.x * ordinaryWidth));
}

std::int32_t padY(const MTTouch& touch) {
    return static_cast<std::int32_t>(std::lround((1 - touch.normalized.pos.y) * ordinaryHeight));
}

bool isTouching(const MTTouch& touch) {
    return touch.state == static_cast<std::int32_t>(MTTouchState::makeTouch) ||
           touch.state == static_cast<std::int32_t>(MTTouchState::touching);
}

// Assigns a slot to each finger, like a touchpad.
class Slots {
public:
    EventFrame frame(const std::vector<MTTouch>& touches) {
        EventFrame events;
        liftThoseWhoLeft(touches, events);
        for (const MTTouch& touch : touches) {
            if (isTouching(touch)) {
                put(touch, events);
            }
        }
        count(events);
        return events;
    }

private:
    void liftThoseWhoLeft(const std::vector<MTTouch>& touches, EventFrame& events) {
        std::erase_if(fingers, [&](const auto& finger) {
            const bool stays = std::ranges::any_of(touches, [&](const MTTouch& touch) {
                return touch.identifier == finger.first && isTouching(touch);
            });
            if (!stays) {
                append(events, fingerUp(finger.second));
            }
            return !stays;
        });
    }

    void put(const MTTouch& touch, EventFrame& events) {
        const auto known = fingers.find(touch.identifier);
        if (known != fingers.end()) {
            append(events, fingerMove(known->second, padX(touch), padY(touch)));
            return;
        }
        const std::int32_t slot = freeSlot();
        fingers.emplace(touch.identifier, slot);
        append(events, fingerDown(slot, nextTrackingId++, padX(touch), padY(touch)));
    }

    std::int32_t freeSlot() const {
        std::int32_t slot = 0;
        while (std::ranges::any_of(fingers, [&](const auto& f) { return f.second == slot; })) {
            ++slot;
        }
        return slot;
    }

    void count(EventFrame& events) {
        if (fingers.size() == counted) {
            return;
        }
        for (std::size_t tool = 1; tool <= ordinarySlots; ++tool) {
            events.push_back({EV_KEY, fingerTool(tool), fingers.size() == tool ? 1 : 0});
        }
        events.push_back({EV_KEY, BTN_TOUCH, fingers.empty() ? 0 : 1});
        counted = fingers.size();
    }

    static void append(EventFrame& events, const EventFrame& more) {
        events.insert(events.end(), more.begin(), more.end());
    }

    std::map<std::int32_t, std::int32_t> fingers; // maps identifiers to slots
    std::size_t counted = 0;
    std::int32_t nextTrackingId = 1000;
};

} // namespace

void performOn(VirtualPad& pad, GestureType gesture, std::uint64_t seed) {
    const Punctual hand;
    const double begin = monotonicNow();
    Slots slots;
    for (const TimedReport& report : perform(gesture, seed)) {
        letTimePassUntil(begin + report.time);
        pad.write(slots.frame(report.touches));
    }
}

} // namespace glidemap::test
