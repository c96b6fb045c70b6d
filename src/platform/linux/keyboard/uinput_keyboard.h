// Types with a uinput keyboard, which works on every desktop and on the console.
//
// A desktop takes a moment to notice a new keyboard and loses keys typed before that. So the
// keyboard is created on startup and not by the first shortcut. Without permission each attempt to
// type retries; the owner may call plugIn() as soon as it is notified of the permission.
//
// Thread:  the main thread; no call blocks.
// Owner:   the program. The destructor releases the keys.
// Errors:  none; without permission nothing is typed.
#pragma once

#include "dispatch/key_event_poster.h"
#include "platform/linux/keyboard/held_modifiers.h"
#include "platform/linux/keyboard/key_device.h"
#include "platform/linux/keyboard/key_strokes.h"

#include <memory>
#include <mutex>

namespace glidemap {

class UinputKeyboard : public KeyEventPoster {
public:
    // `held` may be null if held modifiers cannot be determined.
    explicit UinputKeyboard(std::unique_ptr<HeldModifiers> held = nullptr);
    UinputKeyboard(std::unique_ptr<KeyDevice> keyDevice, std::unique_ptr<HeldModifiers> held);
    ~UinputKeyboard() override;

    // Creates the keyboard unless it exists. Returns false without permission.
    bool plugIn();

    // Releases its keys and removes it. Nothing is typed until the next plugIn().
    void unplug();

    void post(std::span<const KeyEvent> events) override;

private:
    void releaseKeys();
    void type(std::vector<KeyChange> changes);
    void write(std::span<const KeyChange> changes);

    KeyStrokes strokes;
    bool isWanted = true;
    std::mutex deviceLock;
    std::unique_ptr<KeyDevice> device;
    std::unique_ptr<HeldModifiers> heldModifiers;
};

} // namespace glidemap
