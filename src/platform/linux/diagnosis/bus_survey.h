// Which services there are on a D-Bus bus, found out within a time.
//
// A bus that accepts connections and never answers would hold up a caller for as long as it likes,
// and the D-Bus library's own calls for connecting cannot be cancelled at every step. So the
// question is put on a thread that is left behind where the time is over: only for programs that
// end soon.
//
// Thread:  any; waits up to the patience.
// Errors:  values.
#pragma once

#include "platform/linux/session/bus_address.h"

#include <chrono>
#include <set>
#include <string>

namespace glidemap {

struct BusSurvey {
    enum class State { absent, silent, refused, answered };

    State state = State::absent;
    std::set<std::string> running;
    std::set<std::string> startable;
};

// In one word for each state, for people.
const char* nameOf(BusSurvey::State state);

BusSurvey surveyBus(Bus bus, std::chrono::milliseconds patience);

} // namespace glidemap
