// The backend as the program has it, on a desktop thread of its own.
//
// Thread:  one.
// Owner:   a test.
// Errors:  none.
#pragma once

#include "platform/linux/windows/desktop_thread.h"
#include "platform/linux/windows/wlr_window_backend.h"

#include <chrono>
#include <optional>

namespace glidemap {

class Listening {
public:
    explicit Listening(WindowListener& told,
                       std::chrono::milliseconds patience = WlrWindowBackend::usualPatience) {
        thread.call([&] {
            backend.emplace(thread, patience);
            started = backend->start(told);
        });
    }

    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;
    ~Listening() { end(); }

    void end() {
        thread.call([&] { backend.reset(); });
    }

    // Waits until the thread has done what there was to do.
    void settle() {
        thread.call([] {});
    }

    bool started = false;

private:
    DesktopThread thread;
    std::optional<WlrWindowBackend> backend;
};

} // namespace glidemap
