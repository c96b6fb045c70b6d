// What a test tells the doubles of Core Graphics and of the accessibility services to answer, and
// the session's events as it plays them.
#pragma once

#include <ApplicationServices/ApplicationServices.h>

#include <cstdint>

namespace glidemap::doubles {

struct Quartz {
    bool makesEventSources = true;
    int eventsThatCanBeMade = 1'000'000;
    bool permits = true; // the user has let the program in
};

// Reset by every test's set-up.
Quartz& quartz();

// What the one event tap there is makes of a mouse event; what the test owns is released by it.
enum class Passage { passed, dropped, replaced };
Passage play(CGEventType type, std::int64_t button);

// The same of a notice, which comes without an event.
Passage playNotice(CGEventType type);

// The callback itself, with whatever user data the test likes.
Passage playTo(void* userInfo, CGEventType type, std::int64_t button);

} // namespace glidemap::doubles
