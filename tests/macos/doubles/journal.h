// What the system was asked for, in order, as lines of text.
//
// Thread:  any.
#pragma once

#include <string>
#include <vector>

namespace glidemap::doubles {

void note(std::string line);

// All lines so far; the journal is empty after it.
std::vector<std::string> takeJournal();

} // namespace glidemap::doubles

// The same for a library that the test loads.
extern "C" __attribute__((visibility("default"))) void noteInJournal(const char* line);
