// The key presses as the toolkit tells them, for a home whose window system has no better way.
//
// A modifier alone is not told: it may still be held for the key that is meant, and a layout may
// have made one of any key.
//
// Thread:  the main thread, within the application object's life.
// Owner:   the program; whatever knows the keys goes with it.
// Errors:  as the port has them.
#pragma once

#include "ui/recorder/desktop_keys.h"
#include "ui/recorder/hardware_keys.h"
#include "ui/recorder/key_monitor.h"
#include "ui/recorder/key_presses.h"

#include <functional>
#include <memory>

namespace glidemap {

class ToolkitKeyPresses : public KeyPresses {
public:
    // Without desktop keys the desktop keeps its own.
    explicit ToolkitKeyPresses(std::unique_ptr<const HardwareKeys> hardware,
                               std::unique_ptr<DesktopKeys> desktopKeys = nullptr);

    void start(std::function<void(const Press&)> handler) override;
    void stop() override;
    void abandon() override;
    void borrowDesktopKeys(QWindow* window) override;

private:
    void press(const QKeyEvent& event) const;

    const std::unique_ptr<const HardwareKeys> keys;
    const std::unique_ptr<DesktopKeys> desktop;
    std::function<void(const Press&)> told;
    KeyMonitor monitor;
};

} // namespace glidemap
