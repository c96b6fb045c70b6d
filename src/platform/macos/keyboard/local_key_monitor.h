// Takes the key presses that the system hands to the program, before any of its windows sees them.
//
// The system tells a monitor of presses and their repetitions, and of no release. So what belongs
// to a taken press is its repetitions: they are swallowed, too, also when the monitor has been
// stopped meanwhile, or else holding Return a moment too long would press the default button. Only
// the key that was pressed last repeats, so the next press of any key ends that, and goes where it
// would have gone.
//
// Thread:  the main thread, which the system calls on, too.
// Owner:   whoever records a shortcut. It may be destroyed while it tells of a press; the system
//          calls no more once it has gone.
// Errors:  none. Where the system gives no monitor no press is told.
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
    class Monitor; // outlives this by the call that it is in

    const std::shared_ptr<Monitor> monitor;
};

} // namespace glidemap
