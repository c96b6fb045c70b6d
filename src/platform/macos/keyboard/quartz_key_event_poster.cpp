#include "platform/macos/keyboard/quartz_key_event_poster.h"

#include "platform/macos/core_foundation.h"

#include <ApplicationServices/ApplicationServices.h>

#include <algorithm>
#include <cstddef>
#include <vector>

namespace glidemap {

namespace {

using OwnedEvents = std::vector<Owned<CGEventRef>>;

OwnedEvents createAll(std::span<const KeyEvent> events, CGEventSourceRef source) {
    OwnedEvents created;
    created.reserve(events.size());
    for (const KeyEvent& event : events) {
        created.emplace_back(CGEventCreateKeyboardEvent(source, event.keyCode, event.down));
    }
    return created;
}

} // namespace

void QuartzKeyEventPoster::post(std::span<const KeyEvent> events) {
    const Owned<CGEventSourceRef> source(CGEventSourceCreate(kCGEventSourceStateHIDSystemState));
    if (!source) {
        return;
    }
    const OwnedEvents created = createAll(events, source.get());
    if (!std::all_of(created.begin(), created.end(), [](const auto& event) { return !!event; })) {
        return;
    }
    for (std::size_t index = 0; index < events.size(); ++index) {
        CGEventSetFlags(created[index].get(), events[index].flags);
    }
    for (const auto& event : created) {
        CGEventPost(kCGHIDEventTap, event.get());
    }
}

} // namespace glidemap
