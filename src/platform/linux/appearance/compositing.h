// Whether the desktop blends windows: only then can one be translucent and have soft edges.
//
// Thread:  any, RecentCompositing one; asks the X server and waits for its answer, well below a
//          millisecond.
// Errors:  a server that cannot be reached has no windows to blend: true.
#pragma once

#include <chrono>
#include <functional>
#include <optional>

namespace glidemap {

// Wayland always blends. An X server does where a program says that it composes the screen.
bool desktopComposites();

// Asks at most once in a while: menus are made several at a time, and a program that composes the
// screen does not come and go in between.
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
