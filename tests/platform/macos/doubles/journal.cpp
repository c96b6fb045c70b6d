#include "doubles/journal.h"

#include <mutex>
#include <utility>

namespace glidemap::test {

namespace {

std::mutex guard;
std::vector<std::string> lines;

} // namespace

void note(std::string line) {
    const std::lock_guard lock(guard);
    lines.push_back(std::move(line));
}

std::vector<std::string> takeJournal() {
    const std::lock_guard lock(guard);
    return std::exchange(lines, {});
}

} // namespace glidemap::test

void noteInJournal(const char* line) {
    glidemap::test::note(line);
}

// The Objective-C runtime keeps its allocations until the process exits. They are not leaks.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
    return "leak:libobjc.so\n";
}
