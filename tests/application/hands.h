// Simulated keyboard and mouse: real presses, which the X server delivers to the window with the
// focus or under the pointer.
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

namespace glidemap::application {

class Hands {
public:
    explicit Hands(const XDisplay& display);

    // One key, after the modifiers that are held meanwhile: "Return", "Ctrl+Shift+K", "Super+Left".
    void press(const std::string& chord) const;

    // Letters, digits, spaces and hyphens.
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

} // namespace glidemap::application
