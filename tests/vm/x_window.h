// A window with the keyboard focus that records the events it receives.
//
// Units:   X's own: key codes are the kernel's plus 8; buttons 1 left, 3 right, 4 to 7 the wheel.
// Thread:  one.
// Owner:   a test.
// Errors:  a window that does not get the focus fails the test. On a time-out, a wait returns
//          false.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

struct xcb_connection_t;

namespace glidemap::test {

struct XInput {
    enum class Kind { keyDown, keyUp, buttonDown, buttonUp };
    Kind kind{};
    std::uint8_t detail = 0;
    std::uint16_t modifiers = 0; // modifiers held before this event

    friend bool operator==(const XInput&, const XInput&) = default;
};

std::string describe(const XInput& input);

class XWindow {
public:
    // Covers most of the screen. `className` identifies the window's application to the desktop.
    // Returns when the window has the focus.
    explicit XWindow(const std::string& className);
    XWindow(const XWindow&) = delete;
    XWindow& operator=(const XWindow&) = delete;
    ~XWindow();

    bool hasFocus() const { return focused; }

    // Returns all events in order, except the pointer's motion.
    const std::vector<XInput>& inputs() const { return seen; }
    void forget() { seen.clear(); }

    bool waitUntil(const std::function<bool()>& condition);
    bool waitForInputs(std::size_t count);

    // Returns the pointer's current position.
    std::pair<int, int> pointer() const;

private:
    void create(const std::string& className);
    bool waitForFocus();
    void askForFocus();
    void readEvents();

    xcb_connection_t* connection = nullptr;
    std::uint32_t root = 0;
    std::uint32_t window = 0;
    bool focused = false;
    std::vector<XInput> seen;
};

} // namespace glidemap::test
