// The interfaces between the desktops and the workspace. A backend supports one kind of desktop. It
// reports the desktop's windows and the active window, driven by events and without polling.
//
// Thread:  the desktop thread (see DesktopThread).
// Owner:   the workspace. The listener must outlive the backend.
// Errors:  when a desktop exits, its backend reports that there are no windows.
#pragma once

#include <sys/types.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {

// The properties of a window as reported by the desktop. Unknown properties are empty.
struct WindowIdentity {
    std::string appID;    // Wayland's app id, or the class in WM_CLASS
    std::string instance; // the instance in WM_CLASS
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

    // `window` is nullopt if no window is active.
    virtual void activeWindowChanged(const std::optional<WindowIdentity>& window) = 0;
    virtual void windowsChanged(const std::vector<WindowIdentity>& windows) = 0;
};

// Returns whether to select this window.
using WindowChoice = std::function<bool(const WindowIdentity& window)>;

// Tokens for startup notification and activation, with which a launched program can take the focus.
// Each may be empty.
struct LaunchToken {
    std::string startupID;       // DESKTOP_STARTUP_ID, for X11
    std::string activationToken; // XDG_ACTIVATION_TOKEN, for Wayland
    // Announces the launch to the desktop. Must be called when a process has been started for a
    // program that supports startup notification.
    std::function<void()> begun;
};

// The application to launch, with properties of its desktop entry.
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

    // Returns false if the backend does not support the running desktop. Otherwise the listener is
    // notified of the current state, during the call or soon after, and then of every change.
    virtual bool start(WindowListener& listener) = 0;

    // Activates the most recently used window among the selected ones, on its own workspace, and
    // restores it if it is minimised. If no window is selected or the desktop refuses, calls
    // `otherwise`, immediately or later, but not after the backend's destruction.
    virtual void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) = 0;

    // Requests a launch token for an application that supports startup notification. Calls `then`
    // with the token, immediately or later, but not after the backend's destruction.
    // NOLINTBEGIN(performance-unnecessary-value-param): implementations move `then`
    virtual void requestToken(const LaunchedApplication& /*application*/,
                              std::function<void(const LaunchToken&)> then) {
        then({});
    }
    // NOLINTEND(performance-unnecessary-value-param)
};

using WindowBackendFactory = std::function<std::unique_ptr<WindowBackend>()>;

} // namespace glidemap
