// Waits for what a program does in its own time.
//
// Thread:  the test's; what arrives on its default context meanwhile is dealt with.
// Errors:  a condition that never comes true is answered with false.
#pragma once

#include <functional>

namespace glidemap::application {

// Looks again as soon as the accessibility bus tells of a change, and now and then where nothing
// tells: a file, a window.
bool waitUntil(const std::function<bool()>& condition);

} // namespace glidemap::application
