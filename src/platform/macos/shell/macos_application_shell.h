// Implements ApplicationShell for macOS. The program is an accessory and has no Dock icon, so it
// activates itself when the user opens its window. While gestures are on, the system must not slow
// it down.
//
// Thread:  the main thread, while the application object exists.
// Owner:   the program.
// Errors:  none; see ApplicationShell.
#pragma once

#include "app/application_shell.h"
#include "platform/macos/session/user_activity.h"

#include <optional>

namespace glidemap {

class MacosApplicationShell : public ApplicationShell {
public:
    void becomeAccessory() override;
    void activate(QWidget& window) override;
    void setGesturesOn(bool areOn) override;
    void terminate() override;

private:
    std::optional<UserActivity> activity; // exists while gestures are on
};

} // namespace glidemap
