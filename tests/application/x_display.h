// An X server without a screen, with a window manager: what a person sits in front of.
//
// Units:   pixels from the top left corner.
// Thread:  one.
// Owner:   a stage. Destroying it ends the server and the window manager.
// Errors:  a server or a window manager that is not ready in time is a failure of the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace glidemap::application {

struct Rectangle {
    int x = 0;
    int y = 0;
    int width = 0;
    int height = 0;

    bool contains(const Rectangle& other) const {
        return x <= other.x && y <= other.y && other.x + other.width <= x + width &&
               other.y + other.height <= y + height;
    }

    friend bool operator==(const Rectangle&, const Rectangle&) = default;
};

// What the window manager knows of a program's window.
struct ManagedWindow {
    std::uint32_t id = 0;
    std::string title;
    std::string className;
    std::uint32_t process = 0;
    Rectangle content;
};

class XDisplay {
public:
    static bool isInstalled();

    // The window manager's command line, and its environment besides the display.
    struct WindowManager {
        std::vector<std::string> words;
        desktops::Environment environment;
    };

    explicit XDisplay(const desktops::RuntimeFolder& folder);
    XDisplay(const desktops::RuntimeFolder& folder, WindowManager manager);
    XDisplay(const XDisplay&) = delete;
    XDisplay& operator=(const XDisplay&) = delete;
    ~XDisplay();

    const std::string& name() const { return _name; } // for DISPLAY
    xcb_connection_t* connection() const { return _connection; }
    std::uint32_t root() const { return _root; }

    // In the order in which they came.
    std::vector<ManagedWindow> windows() const;
    std::optional<ManagedWindow> windowTitled(const std::string& title) const;
    std::optional<std::uint32_t> activeWindow() const;

    // Whether anybody keeps the selection, which is how some services say that they are there.
    bool hasOwner(const std::string& selection) const;

    // Whether any window is shown within another program's one, as status items are.
    bool hasEmbeddedWindow() const;

    // Another program's window, that comes to the front.
    std::uint32_t openWindow(const Rectangle& area) const;

    // As when the session ends under its programs.
    void kill() const { server->kill(); }

    // As a task bar does.
    void activate(const ManagedWindow& window) const;

    void minimize(const ManagedWindow& window) const;

    // The first one is 0.
    void showWorkspace(std::uint32_t number) const;
    std::optional<std::uint32_t> shownWorkspace() const;

    // As the window's close button does.
    void close(const ManagedWindow& window) const;

private:
    std::uint32_t createWindow(const Rectangle& area) const;
    bool waitForWindowManager() const;
    bool embedsBelow(std::uint32_t window) const;
    bool isEmbedded(std::uint32_t window) const;
    std::uint32_t atom(const std::string& text) const;
    std::string property(std::uint32_t window, const char* property) const;
    std::vector<std::uint32_t> numbers(std::uint32_t window, const char* property) const;
    Rectangle contentOf(std::uint32_t window) const;
    void ask(std::uint32_t window, const char* message, std::uint32_t detail) const;

    std::unique_ptr<desktops::Program> server;
    std::unique_ptr<desktops::Program> windowManager;
    std::string _name;
    xcb_connection_t* _connection = nullptr;
    std::uint32_t _root = 0;
};

} // namespace glidemap::application
