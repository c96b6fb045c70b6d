// A function that wraps every task on the platform's threads, for example in an autorelease pool.
// The function must call the task once, and return when the task is done.
//
// Thread:  called on each of these threads.
// Errors:  none.
#pragma once

#include <functional>

namespace glidemap {

using WorkWithin = void (*)(const std::function<void()>& work);

// Runs the work inside the wrapper, or directly if `within` is null.
template <typename Work>
void performWithin(WorkWithin within, const Work& work) {
    if (within != nullptr) {
        within(std::cref(work));
    } else {
        work();
    }
}

} // namespace glidemap
