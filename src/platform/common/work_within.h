// A function that each platform wraps around every task of its threads, such as an autorelease
// pool. It must call the task once and return when the task is done.
//
// Thread:  called on each of the threads.
// Errors:  none.
#pragma once

#include <functional>

namespace glidemap {

using WorkWithin = void (*)(const std::function<void()>& work);

// Runs the work directly on platforms without a wrapper.
template <typename Work>
void performWithin(WorkWithin within, const Work& work) {
    if (within != nullptr) {
        within(std::cref(work));
    } else {
        work();
    }
}

} // namespace glidemap
