// The program on a Mac's desktop: an accessory, whose window comes before those of all others when
// the user asks for it.
//
// Thread:  the main thread, within the application object's life.
// Owner:   the program.
// Errors:  none; see the port.
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
    std::optional<UserActivity> activity; // while gestures are on
};

} // namespace glidemap
