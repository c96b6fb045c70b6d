// Runs code in an autorelease pool. The main loop has its own pool, which it drains in each
// iteration. Other threads, and code that runs before the main loop, must use this function.
//
// Thread:  any.
// Errors:  none; exceptions thrown by the work propagate to the caller.
#pragma once

#include <functional>

namespace glidemap {

// Runs the work, and releases its autoreleased objects before returning.
void withinAutoreleasePool(const std::function<void()>& work);

} // namespace glidemap
