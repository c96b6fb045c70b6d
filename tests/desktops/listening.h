// A window backend as the program has it: made, started and ended on a desktop thread of its own.
//
// Thread:  one.
// Owner:   a test; what is told outlives it.
// Errors:  none; whether it started is there to be seen.
#pragma once

#include "platform/linux/windows/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <optional>
#include <type_traits>

namespace glidemap::desktops {

template <typename Backend>
class Listening {
public:
    // With what the backend takes besides its thread.
    template <typename... Arguments>
    explicit Listening(WindowListener& told, const Arguments&... arguments) {
        thread.call([&] {
            if constexpr (std::is_constructible_v<Backend, DesktopThread&, const Arguments&...>) {
                backend.emplace(thread, arguments...);
            } else {
                backend.emplace(arguments...);
            }
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
    std::optional<Backend> backend;
};

} // namespace glidemap::desktops
