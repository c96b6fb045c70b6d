// Lists the services on a D-Bus bus, within a time limit.
//
// A stuck bus accepts connections and never replies, and the D-Bus library cannot cancel every step
// of connecting. So a separate thread runs the query and is abandoned after the time limit. Use
// this only in programs that exit soon.
//
// Thread:  any; waits up to the patience.
// Errors:  reported as values.
#pragma once

#include "platform/linux/desktop/bus_address.h"

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

// One word for each state, for the user.
const char* nameOf(BusSurvey::State state);

BusSurvey surveyBus(Bus bus, std::chrono::milliseconds patience);

} // namespace glidemap
