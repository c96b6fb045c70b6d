// Detects held modifiers on X11, and types shortcuts as if they were not held. The server has one
// modifier state for all keyboards, and reports the pressed keys to every client.
//
// While no modifier is held, the uinput keyboard types. Otherwise the server's XTEST keyboard
// releases the modifiers, types the shortcut, and presses the modifiers again. Using one keyboard
// keeps these events in order; events from uinput would reach the server separately and at another
// time.
//
// Pressing a modifier again could leave it stuck: if the user releases the real key at that moment,
// the XTEST keyboard still holds it. Therefore only keys that are still down on real keyboards are
// pressed again. Afterwards, the real keyboards are checked once more. From then on, a release on a
// real keyboard also releases the key on the XTEST keyboard; at the latest, the next shortcut
// releases it.
//
// Thread:  type() on any thread; everything else runs on the desktop thread.
// Owner:   the virtual keyboard.
// Errors:  none.
#pragma once

#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/keyboard/held_modifiers.h"
#include "platform/linux/keyboard/x_key_server.h"

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

namespace glidemap {

class X11HeldModifiers : public HeldModifiers {
public:
    X11HeldModifiers(DesktopThread& desktopThread, std::unique_ptr<XKeyServer> connected);
    ~X11HeldModifiers() override;

    void type(std::vector<KeyChange> changes, std::function<void()> plainly) override;

private:
    bool typeWithoutHeldModifiers(const std::vector<KeyChange>& changes);
    std::vector<std::uint16_t> modifiersHeldByOthers();
    void restore(const std::vector<std::uint16_t>& held);
    void releaseReleasedKeys();
    void releaseKeys(const std::set<std::uint16_t>& codes);
    void catchUp();

    DesktopThread& desktop;
    std::unique_ptr<XKeyServer> server;
    DesktopThread::Watch watch;
    // The keys that are down on the XTEST keyboard because the user holds them.
    std::set<std::uint16_t> putBackKeys;
};

} // namespace glidemap
