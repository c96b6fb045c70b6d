// A pool for what the system's objects leave behind. The main loop has one for each of its turns;
// every other thread, and whatever comes before that loop, keeps all of it until it ends.
//
// Thread:  any.
// Errors:  none; what the work throws goes on to the caller.
#pragma once

#include <functional>

namespace glidemap {

// What the work has left is released before this returns.
void withinAutoreleasePool(const std::function<void()>& work);

} // namespace glidemap
