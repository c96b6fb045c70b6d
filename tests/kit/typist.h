// Types into a window of this process as a window system does it: with the codes of a real keyboard's
// keys, and the question about shortcuts before each press.
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

namespace glidemap::kit {

// A key, and what it means to programs.
struct Key {
    std::uint16_t kernelCode = 0; // 0: no keyboard has made it
    int meaning = 0;              // as Qt has it
    QString text = {};
};

class Typist {
public:
    explicit Typist(QWidget& typedInto) : window(typedInto) {}

    // Held from now on, or not.
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

} // namespace glidemap::kit
