// Determines whether the desktop blends windows, so that windows can be translucent.
//
// Thread:  desktopComposites() on any thread; RecentCompositing on one thread. On X11, blocks while
//          it connects to the X server and queries it, for less than a millisecond.
// Errors:  none; returns true if the server cannot be reached, because no window is visible then.
#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace glidemap {

// Wayland compositors always blend. On X11, this depends on whether a compositing manager is
// running.
bool desktopComposites();

// Caches the result for a short time, because several menus may be created in a row. Compositing
// managers rarely start or exit during this time.
class RecentCompositing {
public:
    using Clock = std::chrono::steady_clock;

    static constexpr std::chrono::seconds recently{1};

    explicit RecentCompositing(std::function<bool()> ask = desktopComposites,
                               std::function<Clock::time_point()> now = Clock::now);

    bool composites();

private:
    const std::function<bool()> ask;
    const std::function<Clock::time_point()> now;
    std::optional<Clock::time_point> askedAt;
    bool answer = true;
};

} // namespace glidemap
