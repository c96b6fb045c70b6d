// Port: filters the stream of mouse-button events and may consume some.
//
// Units:   button numbers: 0 left, 1 right.
// Thread:  create(), setEnabled(), setNeeded() and remove() on the main thread; setEnabled() also
//          from within the callback. The callback runs on one thread at a time: the main thread or
//          the touchpads' reader. It is not called after remove() has returned.
// Owner:   the program creates one for the click monitor.
// Errors:  create() returns false.
#pragma once

#include <cstdint>
#include <functional>

namespace glidemap {

enum class ClickEventType {
    leftMouseDown,
    leftMouseUp,
    rightMouseDown,
    rightMouseUp,
    tapDisabledByTimeout, // the callback took too long; events pass until the tap is enabled again
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

    // Returns false if the permission is missing. Whether a new tap is enabled depends on the
    // system, so call setEnabled() next.
    virtual bool create(Callback callback) = 0;
    virtual void setEnabled(bool enabled) = 0;
    virtual void remove() = 0;

    // Sets whether any click could be consumed. If none could, a tap whose mere presence slows down
    // the system may pause; other taps ignore the call.
    virtual void setNeeded(bool needed) = 0;
};

} // namespace glidemap
