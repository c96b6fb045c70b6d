// Lists the services on a D-Bus bus, within a time limit.
//
// A stuck bus accepts connections but never replies, and the D-Bus library cannot cancel every step
// of connecting. Therefore a separate thread runs the query. After the time limit, this thread is
// abandoned, so only programs that exit soon may use the survey.
//
// Thread:  any; blocks at most for the time limit, `patience`.
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

const char* nameOf(BusSurvey::State state);

BusSurvey surveyBus(Bus bus, std::chrono::milliseconds patience);

} // namespace glidemap
