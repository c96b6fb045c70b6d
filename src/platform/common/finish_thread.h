// Joins a thread, or detaches it if the caller runs on that thread.
//
// Thread:  any, including `thread` itself.
// Owner:   a detached thread must own everything that it still uses.
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
