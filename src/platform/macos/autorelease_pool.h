// Runs code in an autorelease pool. The main loop drains its own pool in each iteration. Other
// threads, and code that runs before the main loop, need this one.
//
// Thread:  any.
// Errors:  none; exceptions thrown by the work propagate to the caller.
#pragma once

#include <functional>

namespace glidemap {

// Runs the work, and releases its autoreleased objects before returning.
void withinAutoreleasePool(const std::function<void()>& work);

} // namespace glidemap
