// Port: stands in the stream of mouse-button events and may take some out.
//
// Units:   button numbers: 0 left, 1 right.
// Thread:  create(), setEnabled() and remove() on the main thread; setEnabled() from within the
//          callback, too. The callback is called on one thread at a time: the main thread, or the
//          touchpads' reader. None comes once remove() has returned.
// Owner:   the program makes one for the click monitor.
// Errors:  as answers.
#pragma once

#include <cstdint>
#include <functional>

namespace glidemap {

enum class ClickEventType {
    leftMouseDown,
    leftMouseUp,
    rightMouseDown,
    rightMouseUp,
    tapDisabledByTimeout, // the callback took too long; events pass until the tap is enabled
    tapDisabledByUserInput,
    other,
};

struct ClickEvent {
    ClickEventType type = ClickEventType::other;
    std::int64_t button = 0;

    friend bool operator==(const ClickEvent&, const ClickEvent&) = default;
};

class ClickTap {
public:
    enum class Verdict { pass, drop };
    using Callback = std::function<Verdict(const ClickEvent&)>;

    ClickTap() = default;
    ClickTap(const ClickTap&) = delete;
    ClickTap& operator=(const ClickTap&) = delete;
    virtual ~ClickTap() = default;

    // False without permission. A tap starts disabled.
    virtual bool create(Callback callback) = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual void remove() = 0;

    // Says whether any click could be taken out at all. A tap that costs the system something while
    // it only watches may rest as long as none could; one that costs nothing ignores it.
    virtual void setNeeded(bool needed) = 0;
};

} // namespace glidemap
