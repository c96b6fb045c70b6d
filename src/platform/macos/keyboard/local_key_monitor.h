// Receives the program's key presses before the program's windows do, and swallows them between
// start() and stop().
//
// The auto-repeats of a swallowed press are swallowed, too, even after stop(). Otherwise a Return
// that is held too long would press the default button. Only the key that was pressed last repeats.
// So after stop(), the next press of any key is delivered normally, and no more auto-repeats are
// swallowed. The monitor does not receive releases.
//
// Units:   virtual key codes, and AppKit's device-independent modifier flags.
// Thread:  the main thread, for calls and for callbacks.
// Owner:   the shortcut recorder. The callback may destroy the monitor. After the monitor's
//          destruction, the callback is not called any more.
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
