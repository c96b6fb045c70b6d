// A simulated keyboard and mouse. The X server delivers their events to the focused window or to
// the window under the pointer.
//
// Units:   pixels from the top left corner.
// Thread:  one.
// Owner:   a stage. The display outlives it.
// Errors:  a key that the keyboard lacks fails the test.
#pragma once

#include "x_display.h"

#include <cstdint>
#include <map>
#include <string>

namespace glidemap::test {

class Hands {
public:
    explicit Hands(const XDisplay& display);

    // Types the last key of the chord while the keys before it are held: "Return", "Ctrl+Shift+K",
    // "Super+Left".
    void press(const std::string& chord) const;

    // Types letters, digits, spaces and hyphens.
    void type(const std::string& text) const;

    void clickAt(int x, int y) const;
    void clickMiddleOf(const Rectangle& area) const;
    void moveTo(int x, int y) const;

private:
    void change(const std::string& key, bool down) const;
    void send(std::uint8_t type, std::uint8_t detail, int x = 0, int y = 0) const;
    void settle() const;

    const XDisplay& display;
    std::map<std::uint32_t, std::uint8_t> codeOfSymbol;
};

} // namespace glidemap::test
