#include "hands.h"

#include "x_reply.h"

#include <gtest/gtest.h>
#include <xcb/xcb.h>
#include <xcb/xtest.h>

#include <cctype>
#include <sstream>
#include <vector>

namespace glidemap::test {

namespace {

// The X keysyms of the keys that have a name in these tests.
const std::map<std::string, std::uint32_t>& namedKeys() {
    static const std::map<std::string, std::uint32_t> names = {
        {"Return", 0xFF0D}, {"Escape", 0xFF1B}, {"Tab", 0xFF09},   {"Space", 0x20},
        {"Delete", 0xFFFF}, {"Left", 0xFF51},   {"Up", 0xFF52},    {"Right", 0xFF53},
        {"Down", 0xFF54},   {"Home", 0xFF50},   {"End", 0xFF57},   {"Shift", 0xFFE1},
        {"Ctrl", 0xFFE3},   {"Alt", 0xFFE9},    {"Super", 0xFFEB}, {"F2", 0xFFBF},
        {"F4", 0xFFC1},     {"Comma", ','}};
    return names;
}

std::uint32_t symbolOf(const std::string& key) {
    if (const auto named = namedKeys().find(key); named != namedKeys().end()) {
        return named->second;
    }
    // The keysym of a letter key is the keysym of the lower-case letter.
    return static_cast<std::uint32_t>(std::tolower(static_cast<unsigned char>(key.front())));
}

std::vector<std::string> keysOf(const std::string& chord) {
    std::vector<std::string> keys;
    std::istringstream stream(chord);
    for (std::string key; std::getline(stream, key, '+');) {
        keys.push_back(key);
    }
    return keys;
}

} // namespace

Hands::Hands(const XDisplay& shown) : display(shown) {
    const xcb_setup_t* setup = xcb_get_setup(display.connection());
    const auto count = static_cast<std::uint8_t>(setup->max_keycode - setup->min_keycode + 1);
    const Reply<xcb_get_keyboard_mapping_reply_t> reply(xcb_get_keyboard_mapping_reply(
        display.connection(),
        xcb_get_keyboard_mapping(display.connection(), setup->min_keycode, count), nullptr));
    if (reply == nullptr) {
        ADD_FAILURE() << "the X server has no keyboard";
        return;
    }
    const xcb_keysym_t* symbols = xcb_get_keyboard_mapping_keysyms(reply.get());
    for (int key = 0; key < count; ++key) {
        codeOfSymbol.try_emplace(symbols[key * reply->keysyms_per_keycode],
                                 static_cast<std::uint8_t>(setup->min_keycode + key));
    }
}

void Hands::send(std::uint8_t type, std::uint8_t detail, int x, int y) const {
    xcb_test_fake_input(display.connection(), type, detail, XCB_CURRENT_TIME, display.root(),
                        static_cast<std::int16_t>(x), static_cast<std::int16_t>(y), 0);
}

// Waits for a reply, which the server sends after it has handled all earlier requests.
void Hands::settle() const {
    const Reply<xcb_get_input_focus_reply_t> reply(xcb_get_input_focus_reply(
        display.connection(), xcb_get_input_focus(display.connection()), nullptr));
    EXPECT_NE(reply, nullptr) << "the X server has disconnected";
}

void Hands::change(const std::string& key, bool down) const {
    const auto code = codeOfSymbol.find(symbolOf(key));
    if (code == codeOfSymbol.end()) {
        ADD_FAILURE() << "the keyboard has no key " << key;
        return;
    }
    send(down ? XCB_KEY_PRESS : XCB_KEY_RELEASE, code->second);
}

void Hands::press(const std::string& chord) const {
    const std::vector<std::string> keys = keysOf(chord);
    for (const std::string& key : keys) {
        change(key, true);
    }
    for (auto key = keys.rbegin(); key != keys.rend(); ++key) {
        change(*key, false);
    }
    settle();
}

void Hands::type(const std::string& text) const {
    for (const char letter : text) {
        if (std::isupper(static_cast<unsigned char>(letter)) != 0) {
            press(std::string("Shift+") + letter);
        } else {
            press(letter == ' ' ? "Space" : std::string(1, letter));
        }
    }
}

void Hands::moveTo(int x, int y) const {
    send(XCB_MOTION_NOTIFY, 0, x, y);
    settle();
}

void Hands::clickAt(int x, int y) const {
    send(XCB_MOTION_NOTIFY, 0, x, y);
    send(XCB_BUTTON_PRESS, XCB_BUTTON_INDEX_1);
    send(XCB_BUTTON_RELEASE, XCB_BUTTON_INDEX_1);
    settle();
}

void Hands::clickMiddleOf(const Rectangle& area) const {
    clickAt(area.x + area.width / 2, area.y + area.height / 2);
}

} // namespace glidemap::test
