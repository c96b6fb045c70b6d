// Formats the events of a run, one line each, without a line terminator.
//
// Errors:  none; bytes that are not UTF-8 are replaced in JSON.
#pragma once

#include "run_event.h"

#include <string>

namespace glidemap::replay {

std::string jsonOf(const RunEvent& event);

// The recognised gesture only, without its routing.
std::string recognitionJsonOf(const Recognised& recognised);

// Human-readable. A gesture's line includes its action, so keys, actions and unswallowed buttons
// have no line of their own: the result is then empty.
std::string textOf(const RunEvent& event);

// A text as a JSON string.
std::string quoted(const std::string& text);

} // namespace glidemap::replay
