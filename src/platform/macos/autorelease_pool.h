// Releases autoreleased objects. The main loop drains a pool in each iteration; other threads, and
// code that runs before that loop, need this pool.
//
// Thread:  any.
// Errors:  none; exceptions of the work propagate to the caller.
#pragma once

#include <functional>

namespace glidemap {

// Runs the work and releases its autoreleased objects before it returns.
void withinAutoreleasePool(const std::function<void()>& work);

} // namespace glidemap
