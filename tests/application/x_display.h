// An X server that draws to memory (Xvfb), with a window manager.
//
// Units:   pixels from the top left corner.
// Thread:  one.
// Owner:   a stage. Destruction ends the server and the window manager.
// Errors:  a server or window manager that does not start in time fails the test.
#pragma once

#include "desktops/program.h"
#include "desktops/runtime_folder.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

struct xcb_connection_t;

namespace glidemap::test {

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

// A client window in the window manager's list.
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

    // The window manager's command line and environment, without DISPLAY.
    struct WindowManager {
        std::vector<std::string> words;
        Environment environment;
    };

    explicit XDisplay(const RuntimeFolder& folder);
    XDisplay(const RuntimeFolder& folder, WindowManager manager);
    XDisplay(const XDisplay&) = delete;
    XDisplay& operator=(const XDisplay&) = delete;
    ~XDisplay();

    const std::string& name() const { return _name; } // the value of DISPLAY
    xcb_connection_t* connection() const { return _connection; }
    std::uint32_t root() const { return _root; }

    // Returns the windows in the order in which they first appeared.
    std::vector<ManagedWindow> windows() const;
    std::optional<ManagedWindow> windowTitled(const std::string& title) const;
    std::optional<std::uint32_t> activeWindow() const;

    // Returns whether the selection has an owner. Some services announce themselves by owning a
    // selection.
    bool hasOwner(const std::string& selection) const;

    // Returns whether a window is embedded in another program's window, as a status item is.
    bool hasEmbeddedWindow() const;

    // Opens a window that does not belong to Glidemap, in front of all other windows.
    std::uint32_t openWindow(const Rectangle& area) const;

    // Simulates the end of the session.
    void kill() const { server->kill(); }

    // Returns whether all windows are visible, except minimised windows and windows on other
    // workspaces. Some window managers list a window before they show it, and focus it only when
    // they show it.
    bool showsAllWindows() const;

    // Activates the window as a task bar does.
    void activate(const ManagedWindow& window) const;

    void minimize(const ManagedWindow& window) const;

    // Workspaces are numbered from 0.
    void showWorkspace(std::uint32_t number) const;
    std::optional<std::uint32_t> shownWorkspace() const;

    // Closes the window as its close button does.
    void close(const ManagedWindow& window) const;

private:
    std::uint32_t createWindow(const Rectangle& area) const;
    bool waitForWindowManager() const;
    bool embedsBelow(std::uint32_t window) const;
    bool isEmbedded(std::uint32_t window) const;
    bool isViewable(std::uint32_t window) const;
    bool isMinimized(std::uint32_t window) const;
    bool isOnAnotherWorkspace(std::uint32_t window) const;
    std::uint32_t atom(const std::string& text) const;
    std::string property(std::uint32_t window, const char* property) const;
    std::vector<std::uint32_t> numbers(std::uint32_t window, const char* property) const;
    Rectangle contentOf(std::uint32_t window) const;
    void ask(std::uint32_t window, const char* message, std::uint32_t detail,
             std::uint32_t time = 0) const;
    std::uint32_t currentTime() const;

    std::unique_ptr<Program> server;
    std::unique_ptr<Program> windowManager;
    std::string _name;
    xcb_connection_t* _connection = nullptr;
    std::uint32_t _root = 0;
};

} // namespace glidemap::test
