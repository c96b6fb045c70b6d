// What a test tells the doubles of Core Graphics to answer.
#pragma once

namespace glidemap::doubles {

struct Quartz {
    bool makesEventSources = true;
    int eventsThatCanBeMade = 1'000'000;
};

// Reset by every test's set-up.
Quartz& quartz();

} // namespace glidemap::doubles
