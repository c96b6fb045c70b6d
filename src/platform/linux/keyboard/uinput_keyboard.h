// Types by a keyboard of the kernel's, which every desktop and the console listen to.
//
// A desktop takes a moment to notice a new keyboard, and what is typed before that is lost: the
// keyboard is plugged in at the start, and not by the first shortcut. Where that is not permitted
// yet, each later attempt to type tries again, and so may whoever hears of the permission first.
//
// Thread:  one, the main thread; it is never kept waiting.
// Owner:   the program. Before the keyboard goes, its keys come up.
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
    // `held` may be null: nobody can tell.
    explicit UinputKeyboard(std::unique_ptr<HeldModifiers> held = nullptr);
    UinputKeyboard(std::unique_ptr<KeyDevice> keyDevice, std::unique_ptr<HeldModifiers> held);
    ~UinputKeyboard() override;

    // Plugs the keyboard in if it is not yet. False without permission.
    bool plugIn();

    // Lets go of its keys and takes it away. Nothing is typed until it is plugged in again.
    void unplug();

    void post(std::span<const KeyEvent> events) override;

private:
    void letGo();
    void type(std::vector<KeyChange> changes);
    void write(std::span<const KeyChange> changes);

    KeyStrokes strokes;
    bool isWanted = true;
    std::mutex deviceLock;
    std::unique_ptr<KeyDevice> device;
    std::unique_ptr<HeldModifiers> heldModifiers;
};

} // namespace glidemap
