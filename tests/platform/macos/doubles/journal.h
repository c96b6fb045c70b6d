// Records the calls to the system, in order, as lines of text.
//
// Thread:  any.
#pragma once

#include <string>
#include <vector>

namespace glidemap::test {

void note(std::string line);

// Returns all lines and clears the journal.
std::vector<std::string> takeJournal();

} // namespace glidemap::test

// Adds a line to the journal, for a library that the test loads.
extern "C" __attribute__((visibility("default"))) void noteInJournal(const char* line);
