#include "platform/linux/keyboard/x11_held_modifiers.h"

#include "platform/linux/keyboard/lifted_typing.h"

#include <array>
#include <utility>

namespace glidemap {

X11HeldModifiers::X11HeldModifiers(DesktopThread& desktopThread,
                                   std::unique_ptr<XKeyServer> connected)
    : desktop(desktopThread), server(std::move(connected)) {
    desktop.submit([this] { watch = desktop.watch(server->descriptor(), [this] { catchUp(); }); });
}

X11HeldModifiers::~X11HeldModifiers() {
    desktop.call([this] {
        releaseKeys(std::exchange(putBackKeys, {}));
        watch = {};
        server.reset();
    });
}

void X11HeldModifiers::type(std::vector<KeyChange> changes, std::function<void()> plainly) {
    desktop.submit([this, changes = std::move(changes), plainly = std::move(plainly)] {
        if (!typeWithoutHeldModifiers(changes)) {
            plainly();
        }
        catchUp();
    });
}

bool X11HeldModifiers::typeWithoutHeldModifiers(const std::vector<KeyChange>& changes) {
    if (!areBalanced(changes) || !server->canType(changes)) {
        return false;
    }
    const std::vector<std::uint16_t> held = modifiersHeldByOthers();
    // The server's merged state drops a key as soon as the user releases it, even if the XTEST
    // keyboard still holds it. Pressing the key there again would then have no effect, and the
    // shortcut would lose it. The notification of the release may still be on its way.
    if (!putBackKeys.empty()) {
        releaseReleasedKeys();
    }
    if (held.empty()) {
        return false;
    }
    server->type(typedWithout(held, changes));
    for (const std::uint16_t code : held) {
        putBackKeys.erase(code);
    }
    restore(held);
    return true;
}

// Excludes keys that are down only on our own keyboard, which may still be typing the previous
// shortcut.
std::vector<std::uint16_t> X11HeldModifiers::modifiersHeldByOthers() {
    std::vector<std::uint16_t> held = server->modifiersDown();
    if (!held.empty()) {
        const XKeyServer::KeysDown down = server->keysDown();
        std::erase_if(held, [&](std::uint16_t code) {
            return down.ours.contains(code) && !down.users.contains(code);
        });
    }
    return held;
}

void X11HeldModifiers::restore(const std::vector<std::uint16_t>& held) {
    server->listenToReleases(true); // before checking the keys, so that no release is missed
    const std::set<std::uint16_t> down = server->keysDown().users;
    std::vector<std::uint16_t> still;
    for (const std::uint16_t code : held) {
        if (down.contains(code)) {
            still.push_back(code);
        }
    }
    if (!still.empty()) {
        server->type(putBack(still));
        putBackKeys.insert(still.begin(), still.end());
    }
    releaseReleasedKeys();
}

// Releases, on the XTEST keyboard, the keys that the user has released on the real keyboards.
void X11HeldModifiers::releaseReleasedKeys() {
    const std::set<std::uint16_t> down = server->keysDown().users;
    std::set<std::uint16_t> released;
    for (const std::uint16_t code : putBackKeys) {
        if (!down.contains(code)) {
            released.insert(code);
        }
    }
    releaseKeys(released);
    std::erase_if(putBackKeys, [&](std::uint16_t code) { return released.contains(code); });
    if (putBackKeys.empty()) {
        server->listenToReleases(false);
    }
}

void X11HeldModifiers::releaseKeys(const std::set<std::uint16_t>& codes) {
    for (const std::uint16_t code : codes) {
        const std::array<KeyChange, 1> up{{{code, false}}};
        server->type(up);
    }
}

// Processes pending events, including those that xcb queued while it waited for a reply. For these,
// the socket does not become readable.
void X11HeldModifiers::catchUp() {
    while (server->discardEvents()) {
        if (!putBackKeys.empty()) {
            releaseReleasedKeys();
        }
    }
    if (!server->isAlive()) {
        watch = {};
    }
}

} // namespace glidemap
