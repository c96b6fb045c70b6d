// Reads and lifts held modifiers on X11. The server has one modifier state for all keyboards and
// reports the pressed keys to every client.
//
// While no modifier is held, the uinput keyboard types. Otherwise the server's XTEST keyboard does
// everything. That keeps lifting, typing and putting back in order: events from uinput would arrive
// on another path, at another time.
//
// Putting back can leave keys stuck: the user may release one at that moment, while the XTEST
// keyboard keeps it down. So only the keys that are still down on real keyboards are put back, and
// that is checked again afterwards. Then each release on a real keyboard also releases the XTEST
// key.
//
// Thread:  type() on any thread; the rest runs on the desktop thread.
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
    std::set<std::uint16_t> putBackKeys; // down on the XTEST keyboard because the user holds them
};

} // namespace glidemap
