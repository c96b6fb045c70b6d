// A driver without touchpads that has a click filter and records its calls. As in the real driver,
// the reader holds a lock while it calls the filter, and switching waits for that lock. The build
// compiles a complete driver and several incomplete variants.
#include "drivers/evdev/click_filter.h"

#include <condition_variable>
#include <mutex>
#include <string>

#define EXPORTED extern "C" __attribute__((visibility("default")))

namespace {

using namespace glidemap::driver;

std::recursive_mutex reading;
FilterClick filter = nullptr;
void* filterContext = nullptr;

std::mutex notes;
std::condition_variable noted;
std::string calls;
// Counts calls of GlidemapSwitchClickFilter since the last reset, including unfinished ones.
int switching = 0;
std::string copy;

void note(const std::string& call) {
    const std::lock_guard guard(notes);
    calls += (calls.empty() ? "" : "; ") + call;
}

} // namespace

#ifndef WITHOUT_CAN_FILTER
EXPORTED bool GlidemapCanFilterClicks() {
#ifdef CANNOT_FILTER
    return false;
#else
    return true;
#endif
}
#endif

#ifndef WITHOUT_SET
EXPORTED void GlidemapSetClickFilter(FilterClick newFilter, void* context) {
    const std::lock_guard guard(reading);
    note(newFilter != nullptr ? "set" : "take away");
    filter = newFilter;
    filterContext = context;
}
#endif

#ifndef WITHOUT_SWITCH
EXPORTED void GlidemapSwitchClickFilter(bool on) {
    {
        const std::lock_guard guard(notes);
        ++switching;
    }
    noted.notify_all();
    const std::lock_guard guard(reading);
    note(on ? "on" : "off");
}
#endif

// Functions for the tests.

EXPORTED const char* TestDriverCalls() {
    const std::lock_guard guard(notes);
    copy = calls;
    return copy.c_str();
}

EXPORTED void TestDriverReset() {
    const std::lock_guard guard(notes);
    calls.clear();
    switching = 0;
}

// Acts as the reader. Returns 1 if the filter drops the button change, 0 if not, or -1 without a
// filter.
EXPORTED int TestDriverClick(int event, int button) {
    const std::lock_guard guard(reading);
    return filter == nullptr ? -1 : static_cast<int>(filter(filterContext, nullptr, event, button));
}

EXPORTED void TestDriverWaitForSwitchCalls(int count) {
    std::unique_lock guard(notes);
    noted.wait(guard, [&] { return switching >= count; });
}
