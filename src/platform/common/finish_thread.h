// Waits for a thread to end, or, on that thread itself, lets it go on to its end alone.
//
// Thread:  any, the thread that is to end included.
// Owner:   a thread that is let go must own all that it still uses.
#pragma once

#include <thread>

namespace glidemap {

inline void finishThread(std::thread& thread) {
    if (!thread.joinable()) {
        return;
    }
    if (thread.get_id() == std::this_thread::get_id()) {
        thread.detach();
    } else {
        thread.join();
    }
}

} // namespace glidemap
