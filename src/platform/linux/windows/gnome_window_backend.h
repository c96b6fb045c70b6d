// The windows of GNOME Shell, as our extension in it tells them (packaging/gnome-shell): there is
// no other way to learn them. Without it, and while the screen is locked, which ends it for so long,
// there are none.
//
// Thread:  constructed, started and destroyed on the desktop thread.
// Owner:   the workspace.
// Errors:  what does not look like the extension's message is not heard. Only the shell is: the
//          object is looked for under its name.
#pragma once

#include "platform/linux/windows/window_backend.h"

#include <memory>

namespace glidemap {

class GnomeWindowBackend final : public WindowBackend {
public:
    GnomeWindowBackend();
    ~GnomeWindowBackend() override;

    // True also if the session is GNOME's and the shell, or the extension, still has to come.
    bool start(WindowListener& listener) override;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap
