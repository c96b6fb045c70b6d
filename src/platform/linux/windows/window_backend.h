// Ports between the desktops and the workspace. A backend supports one kind of desktop and reports
// its windows and the active one, on events and without polling.
//
// Thread:  everything here runs on the desktop thread (see DesktopThread).
// Owner:   the workspace owns the backend, and listens to it until it destroys it.
// Errors:  a desktop that exits is reported as no windows.
#pragma once

#include <sys/types.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {

// The properties that a desktop reports for a window. Unknown ones are empty.
struct WindowIdentity {
    std::string appID;    // Wayland's app id, or the class of WM_CLASS
    std::string instance; // the instance of WM_CLASS
    std::string title;
    std::optional<pid_t> process;

    friend bool operator==(const WindowIdentity&, const WindowIdentity&) = default;
};

class WindowListener {
public:
    WindowListener() = default;
    WindowListener(const WindowListener&) = delete;
    WindowListener& operator=(const WindowListener&) = delete;
    virtual ~WindowListener() = default;

    // Nullopt if no window is active.
    virtual void activeWindowChanged(const std::optional<WindowIdentity>& window) = 0;
    virtual void windowsChanged(const std::vector<WindowIdentity>& windows) = 0;
};

// Whether to choose this window.
using WindowChoice = std::function<bool(const WindowIdentity& window)>;

// Startup and activation tokens that let a launched program take the focus. Each may be empty.
struct LaunchToken {
    std::string startupID;       // DESKTOP_STARTUP_ID on X11
    std::string activationToken; // XDG_ACTIVATION_TOKEN on Wayland
    std::function<void()> begun; // call when the program runs
};

// The application as its desktop entry describes it.
struct LaunchedApplication {
    std::string identifier; // without ".desktop"
    std::string name;
    std::string windowClass; // StartupWMClass
};

class WindowBackend {
public:
    WindowBackend() = default;
    WindowBackend(const WindowBackend&) = delete;
    WindowBackend& operator=(const WindowBackend&) = delete;
    virtual ~WindowBackend() = default;

    // Returns false if this desktop is of another kind. Otherwise the listener receives the current
    // state during the call or soon after, and then every change.
    virtual bool start(WindowListener& listener) = 0;

    // Activates the chosen window that was used last: restores it if it is minimised, on its own
    // workspace. Calls `otherwise`, now or later, if no window is chosen or the desktop refuses;
    // never after the backend's destruction.
    virtual void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) = 0;

    // Gets a proof for an application that supports startup notification. Calls `then`, now or
    // later, with the desktop's proof; never after the backend's destruction.
    virtual void requestToken(const LaunchedApplication& /*application*/,
                              std::function<void(const LaunchToken&)> then) {
        then({});
    }
};

using WindowBackendFactory = std::function<std::unique_ptr<WindowBackend>()>;

} // namespace glidemap
