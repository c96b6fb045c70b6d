// Controls the fakes of Core Graphics and of the accessibility services, and plays the session's
// events.
#pragma once

#include <ApplicationServices/ApplicationServices.h>

#include <cstdint>

namespace glidemap::test {

struct Quartz {
    bool makesEventSources = true;
    int eventsThatCanBeMade = 1'000'000;
    bool permits = true; // the user has granted access
    bool hasSession = true;
    bool isOnConsole = true;
    bool isLocked = false;
};

// Returns the state of the fakes. The fixture's set-up resets it.
Quartz& quartz();

enum class Passage { passed, dropped, replaced };
// Sends a mouse event to the event tap, releases the event and returns the result.
Passage play(CGEventType type, std::int64_t button);

// Returns the result for a notification, which comes without an event.
Passage playNotice(CGEventType type);

// Calls the event tap's callback with the given user data.
Passage playTo(void* userInfo, CGEventType type, std::int64_t button);

} // namespace glidemap::test
