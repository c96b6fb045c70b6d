// Captures key presses from Qt's events, for platforms whose window system offers no better source.
//
// The press of a modifier alone is not reported, because the user may hold it for the next key.
// This includes keys that the keyboard layout turns into modifiers.
//
// Thread:  the main thread, within the lifetime of the application object.
// Owner:   the program. This object owns the HardwareKeys.
// Errors:  see KeyPresses.
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
    // Without `desktop`, the keys that the desktop reserves for itself are not captured.
    explicit ToolkitKeyPresses(std::unique_ptr<const HardwareKeys> keys,
                               std::unique_ptr<DesktopKeys> desktop = nullptr);

    void start(std::function<void(const Press&)> handler) override;
    void stop() override;
    void abandon() override;
    bool holdsKeys() const override { return monitor.holdsKeys(); }
    void captureDesktopKeys(QWindow* window) override;

private:
    void press(const QKeyEvent& event) const;

    const std::unique_ptr<const HardwareKeys> keys;
    const std::unique_ptr<DesktopKeys> desktop;
    std::function<void(const Press&)> onPress;
    KeyMonitor monitor;
};

} // namespace glidemap
