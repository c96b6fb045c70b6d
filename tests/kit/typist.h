// Types into a window of this process as a window system does: with the key codes of a real
// keyboard, and with the shortcut override event before each press.
//
// Units:   the kernel's key codes; native modifiers as X and Wayland number them.
// Thread:  the main thread.
// Owner:   a test; the window outlives it.
// Errors:  none.
#pragma once

#include <QString>
#include <Qt>
#include <cstdint>

class QWidget;

namespace glidemap::test {

// A key and its meaning to programs.
struct Key {
    std::uint16_t kernelCode = 0; // 0 if the event does not come from a keyboard
    int meaning = 0;              // the Qt key
    QString text = {};
};

class Typist {
public:
    explicit Typist(QWidget& typedInto) : window(typedInto) {}

    // The modifiers that are held.
    Qt::KeyboardModifiers modifiers;
    std::uint32_t nativeModifiers = 0;

    void press(const Key& key) { send(key, true, false); }
    void repeat(const Key& key);
    void release(const Key& key) { send(key, false, false); }
    void type(const Key& key);

private:
    void send(const Key& key, bool down, bool isRepetition);

    QWidget& window;
};

} // namespace glidemap::test
