// Receives the program's key presses before its windows do, and swallows some of them.
//
// The system reports presses and auto-repeats to a monitor, but no releases. The auto-repeats of a
// swallowed press are swallowed, too, even after stop(). Otherwise a Return that is held too long
// would press the default button. Only the key pressed last repeats, so the next press of any key
// ends the swallowing, and is delivered normally.
//
// Units:   virtual key codes, and AppKit's device-independent modifier flags.
// Thread:  the main thread, for calls and for callbacks.
// Owner:   the shortcut recorder. The callback may destroy the monitor; the system makes no calls
//          after its destruction.
// Errors:  none. If the system creates no monitor, no press is reported.
#pragma once

#include "ui/recorder/key_presses.h"

#include <memory>

namespace glidemap {

class LocalKeyMonitor : public KeyPresses {
public:
    LocalKeyMonitor();
    ~LocalKeyMonitor() override;

    void start(std::function<void(const Press&)> handler) override;
    void stop() override;
    void abandon() override;

private:
    class Monitor; // may outlive this object until its current call returns

    const std::shared_ptr<Monitor> monitor;
};

} // namespace glidemap
