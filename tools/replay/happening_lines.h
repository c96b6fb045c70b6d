// What can come out of a run, each as one line without its end.
//
// Errors:  none; bytes that are not UTF-8 are replaced in JSON.
#pragma once

#include "happening.h"

#include <string>

namespace glidemap::replay {

std::string jsonOf(const Happening& happening);

// Only what was recognised, not what became of it.
std::string recognitionJsonOf(const Recognised& recognised);

// For people: a gesture says what it does, so keys and actions have no line of their own, nor has a
// button that the system would see as ever. Empty then.
std::string textOf(const Happening& happening);

// A text as JSON has it.
std::string quoted(const std::string& text);

} // namespace glidemap::replay
