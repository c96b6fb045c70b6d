// Keeps modifiers that the user holds out of shortcuts typed on sway.
//
// sway merges all keyboards that have the same layout and the same repeat settings. Merged
// keyboards share one modifier state. Therefore this class gives our keyboard a different repeat
// delay, over sway's socket. sway applies the delay to every keyboard with this name, also to
// keyboards that are created later.
//
// Thread:  type() on any thread; everything else runs on the desktop thread, which never blocks on
//          sway.
// Owner:   the virtual keyboard.
// Errors:  none; without a connection to sway, held modifiers still change a shortcut.
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
    OpenFile socket; // open until sway has replied
    DesktopThread::Watch watch;
};

} // namespace glidemap
