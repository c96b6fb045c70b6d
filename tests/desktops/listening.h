// Runs a window backend as the program does: creates, starts and destroys it on its own desktop
// thread.
//
// Thread:  one.
// Owner:   a test; the listener outlives it.
// Errors:  none; the test checks whether the backend has started.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <optional>
#include <type_traits>

namespace glidemap::test {

template <typename Backend>
class Listening {
public:
    // `arguments` are passed to the backend's constructor, after the thread if the constructor
    // takes one.
    template <typename... Arguments>
    explicit Listening(WindowListener& reported, const Arguments&... arguments) {
        thread.call([&] {
            if constexpr (std::is_constructible_v<Backend, DesktopThread&, const Arguments&...>) {
                backend.emplace(thread, arguments...);
            } else {
                backend.emplace(arguments...);
            }
            started = backend->start(reported);
        });
    }

    Listening(const Listening&) = delete;
    Listening& operator=(const Listening&) = delete;
    ~Listening() { end(); }

    void end() {
        thread.call([&] { backend.reset(); });
    }

    // Runs the function with the backend on the backend's thread.
    template <typename Work>
    void use(const Work& work) {
        thread.call([&] { work(*backend); });
    }

    // Waits until the thread has run all pending tasks.
    void settle() {
        thread.call([] {});
    }

    bool started = false;

private:
    DesktopThread thread;
    std::optional<Backend> backend;
};

} // namespace glidemap::test
