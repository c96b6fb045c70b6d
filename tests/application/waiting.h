// Waits for a condition in another process.
//
// Thread:  the test's thread. Events of GLib's default main context are processed meanwhile.
// Errors:  returns false if the condition stays false.
#pragma once

#include <functional>

namespace glidemap::test {

// Evaluates the condition on each accessibility event, and periodically for changes without an
// event, such as files and windows.
bool waitUntil(const std::function<bool()>& condition);

} // namespace glidemap::test
