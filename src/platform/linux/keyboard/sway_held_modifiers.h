// On sway, prevents modifiers that the user holds from changing typed shortcuts.
//
// sway merges all keyboards that have the same keymap and the same repeat settings. Merged
// keyboards share one modifier state. Therefore this class uses sway's socket to give our keyboard
// a slightly different keymap. sway applies this keymap to every keyboard with our keyboard's name,
// also if it is created later, until sway reloads its configuration. After a reload, sway reports
// that our keyboard's keymap has changed, and this class repeats its command.
//
// Thread:  type() on any thread; everything else runs on the desktop thread, which never blocks on
//          sway.
// Owner:   the virtual keyboard.
// Errors:  none; without a connection to sway, held modifiers still change a shortcut.
#pragma once

#include "core/open_file.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/keyboard/held_modifiers.h"

#include <cstdint>
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
    void connect(const std::string& socketPath);
    bool send(std::uint32_t type, const std::string& payload);
    bool separateKeyboard();
    void read();
    bool takeMessages();
    void disconnect();

    DesktopThread& desktop;
    OpenFile socket;
    std::string received; // the start of a message that has not arrived completely
    DesktopThread::Watch watch;
    DesktopThread::Watch repetition;
};

} // namespace glidemap
