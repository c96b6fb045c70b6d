// Held modifiers on X11, where the server has one state for all keyboards and tells anyone which
// keys are down.
//
// While none is held the virtual keyboard types. Otherwise the server's pretended keyboard (XTEST)
// does all of it, so that lifting, typing and putting back come in this order whatever else is
// going on: what uinput is told reaches the server on another way, at another time.
//
// Putting back is where such things get stuck: the user may let go at that moment, and a pretended
// keyboard that has a key down keeps it down. So what is put back is what real keyboards still
// have down, that is looked at once more afterwards, and then releases are listened to until each
// of those keys has come up, and its pretended double with it.
//
// Thread:  type() on any; the rest happens on the desktop thread.
// Owner:   the virtual keyboard.
// Errors:  where the session is not X11's, or its server cannot do this, there is none to be had.
#pragma once

#include "platform/linux/keyboard/held_modifiers.h"
#include "platform/linux/keyboard/x_key_server.h"
#include "platform/linux/windows/desktop_thread.h"

#include <cstdint>
#include <memory>
#include <set>
#include <vector>

namespace glidemap {

// Null where nobody can tell what is held. The desktop thread outlives the answer.
std::unique_ptr<HeldModifiers> heldModifiersOfThisSession(DesktopThread& desktop);

class X11HeldModifiers : public HeldModifiers {
public:
    X11HeldModifiers(DesktopThread& desktopThread, std::unique_ptr<XKeyServer> connected);
    ~X11HeldModifiers() override;

    void type(std::vector<KeyChange> changes, std::function<void()> plainly) override;

private:
    bool typeAroundHeldOnes(const std::vector<KeyChange>& changes);
    std::vector<std::uint16_t> modifiersHeldByOthers();
    void restore(const std::vector<std::uint16_t>& held);
    void letGoOfReleased();
    void letGo(const std::set<std::uint16_t>& codes);
    void catchUp();

    DesktopThread& desktop;
    std::unique_ptr<XKeyServer> server;
    DesktopThread::Watch watch;
    std::set<std::uint16_t> putBackKeys; // down on the pretended keyboard for the user's sake
};

} // namespace glidemap
