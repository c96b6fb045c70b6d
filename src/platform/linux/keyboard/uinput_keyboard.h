// Types with a uinput keyboard, which works on every desktop and on the console.
//
// The caller posts the press and the release of a key, with the modifiers as flags. KeyStrokes
// converts them to key changes: modifiers down, key down, key up, modifiers up. The device writes
// them with a single call. If the user holds a modifier at that moment, HeldModifiers decides how
// to type, because the modifier could become part of the shortcut. While the keyboard is
// unplugged, because another session is active, nothing is typed.
//
// A desktop needs a moment to detect a new keyboard, and ignores keys that are typed before that.
// Therefore the keyboard is created on startup, not by the first shortcut. If permission is
// missing, each attempt to type tries to create the keyboard again. The owner may also call
// plugIn() when permission is granted.
//
// Thread:  the main thread; no call blocks.
// Owner:   the program. The destructor releases the keys.
// Errors:  none; without permission, nothing is typed.
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
    // `held` may be null if held modifiers cannot be determined in this session.
    explicit UinputKeyboard(std::unique_ptr<HeldModifiers> held = nullptr);
    UinputKeyboard(std::unique_ptr<KeyDevice> keyDevice, std::unique_ptr<HeldModifiers> held);
    ~UinputKeyboard() override;

    // Creates the keyboard if it does not exist. Returns false without permission.
    bool plugIn();

    // Releases the keyboard's keys and removes it. Nothing is typed until the next plugIn().
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
