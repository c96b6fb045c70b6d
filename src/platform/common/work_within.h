// What a home has its threads put around each piece of their work, such as a pool for what the
// system leaves behind there. It calls the work once, and is done when that is.
//
// Thread:  called on each of the threads.
// Errors:  none.
#pragma once

#include <functional>

namespace glidemap {

using WorkWithin = void (*)(const std::function<void()>& work);

// Where a home has nothing of that kind the work is called as it is.
template <typename Work>
void performWithin(WorkWithin within, const Work& work) {
    if (within != nullptr) {
        within(std::cref(work));
    } else {
        work();
    }
}

} // namespace glidemap
