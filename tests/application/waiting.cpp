#include "waiting.h"

#include <glib.h>

#include <chrono>

namespace glidemap::test {

namespace {

using Clock = std::chrono::steady_clock;

// The timeout is long enough for a busy machine: only a failing test reaches it.
constexpr std::chrono::seconds patience{120};

constexpr guint lookAgainAfter = 15; // milliseconds

gboolean lookAgain(gpointer late) {
    *static_cast<bool*>(late) = true;
    return G_SOURCE_REMOVE;
}

// Waits for an event, at most for lookAgainAfter, and processes all pending events.
void takeNews() {
    bool late = false;
    const guint timer = g_timeout_add(lookAgainAfter, lookAgain, &late);
    g_main_context_iteration(nullptr, TRUE);
    while (g_main_context_iteration(nullptr, FALSE) != FALSE) {
    }
    if (!late) {
        g_source_remove(timer);
    }
}

} // namespace

bool waitUntil(const std::function<bool()>& condition) {
    const auto deadline = Clock::now() + patience;
    while (!condition()) {
        if (Clock::now() > deadline) {
            return false;
        }
        takeNews();
    }
    return true;
}

} // namespace glidemap::test
