// Prevents modifiers that the user holds from joining shortcuts that are typed on sway.
//
// sway merges all keyboards with the same layout and the same repeat settings, and the merged
// keyboards share one modifier state. So this class sets a different repeat delay for our keyboard
// through sway's socket. sway applies it to every keyboard that later appears under that name.
//
// Thread:  type() on any thread; the rest runs on the desktop thread, which never waits for sway.
// Owner:   the virtual keyboard.
// Errors:  none; without a connection a held modifier still changes the shortcut.
#pragma once

#include "core/open_file.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/keyboard/held_modifiers.h"

#include <functional>
#include <string>
#include <vector>

namespace glidemap {

class SwayHeldModifiers : public HeldModifiers {
public:
    SwayHeldModifiers(DesktopThread& desktopThread, const std::string& socketPath);
    ~SwayHeldModifiers() override;

    void type(std::vector<KeyChange> changes, std::function<void()> plainly) override;

private:
    void separateKeyboard(const std::string& socketPath);
    void disconnect();

    DesktopThread& desktop;
    OpenFile socket; // open until sway replies
    DesktopThread::Watch watch;
};

} // namespace glidemap
