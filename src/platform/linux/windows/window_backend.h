// Ports between the desktops and the workspace: a backend knows one kind of desktop and tells which
// windows there are and which one is active, as it happens; it never asks on a timer.
//
// Thread:  everything here runs on the desktop thread (see DesktopThread).
// Owner:   the workspace owns the backend, and listens to it until it is destroyed.
// Errors:  a desktop that goes away is told as no windows.
#pragma once

#include <sys/types.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {

// What a desktop says about a window. Empty where it says nothing.
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

    // None while no window is active.
    virtual void activeWindowChanged(const std::optional<WindowIdentity>& window) = 0;
    virtual void windowsChanged(const std::vector<WindowIdentity>& windows) = 0;
};

// Whether a window is one of those that are meant.
using WindowChoice = std::function<bool(const WindowIdentity& window)>;

// What lets a program that is launched have the focus, although another has it. Each may be empty.
struct LaunchProof {
    std::string startupID;       // DESKTOP_STARTUP_ID, as on X11
    std::string activationToken; // XDG_ACTIVATION_TOKEN, as on Wayland
    std::function<void()> begun; // to be called as soon as the program runs
};

// As its desktop entry describes it.
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

    // False if this desktop is not of the backend's kind. On true the listener has heard, or hears
    // soon, how things stand now, and then every change.
    virtual bool start(WindowListener& listener) = 0;

    // Gives the focus to the chosen window that was used last: restored if it is minimised, on the
    // workspace that it is on. `otherwise` is called, now or later, if no window is chosen or the
    // desktop has refused; never after the backend has gone.
    virtual void bringForward(const WindowChoice& isChosen, std::function<void()> otherwise) = 0;

    // For an application that says that it takes notice of it. Calls `then`, now or later, with what the desktop has for it;
    // never after the backend has gone.
    virtual void prove(const LaunchedApplication& /*application*/,
                       std::function<void(const LaunchProof&)> then) {
        then({});
    }
};

using WindowBackendFactory = std::function<std::unique_ptr<WindowBackend>()>;

} // namespace glidemap
