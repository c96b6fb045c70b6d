// Finds out whether the desktop blends windows, so that windows may be translucent.
//
// Thread:  any for the function, one for RecentCompositing. Blocks for one round trip to the X
//          server, well below a millisecond.
// Errors:  none; returns true if the server cannot be reached, because no window is shown then.
#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace glidemap {

// Wayland always composites. On X11 a running compositing manager decides.
bool desktopComposites();

// Caches the result for a short time: several menus are created in a row, and compositing managers
// rarely start or stop in between.
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
