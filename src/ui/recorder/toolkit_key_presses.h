// Key presses as Qt reports them, for a platform whose window system has no better source.
//
// A modifier press alone is not reported: the user may hold it for the next key. A layout can make
// any key a modifier.
//
// Thread:  the main thread, within the lifetime of the application object.
// Owner:   the program. It owns the HardwareKeys.
// Errors:  as the port documents.
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
    // Without `desktop` the desktop's own keys are not captured.
    explicit ToolkitKeyPresses(std::unique_ptr<const HardwareKeys> keys,
                               std::unique_ptr<DesktopKeys> desktop = nullptr);

    void start(std::function<void(const Press&)> handler) override;
    void stop() override;
    void abandon() override;
    void captureDesktopKeys(QWindow* window) override;

private:
    void press(const QKeyEvent& event) const;

    const std::unique_ptr<const HardwareKeys> keys;
    const std::unique_ptr<DesktopKeys> desktop;
    std::function<void(const Press&)> onPress;
    KeyMonitor monitor;
};

} // namespace glidemap
