// Makes the program an accessory on macOS. Its window comes to the front when the user opens it.
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
