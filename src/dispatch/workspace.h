// Port: the applications of the user's session.
//
// Thread:  frontmostApplication() on any thread, without blocking; the rest on the main thread,
//          without waiting for an application to start.
// Owner:   the program creates one.
// Errors:  none are reported. Unknown values are absent, and a failure to open is ignored.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {

// A field is absent if the application does not report it.
struct Application {
    std::optional<std::string> bundleID; // on Linux the desktop entry's ID without ".desktop"
    std::optional<std::string> name;     // localised

    friend bool operator==(const Application&, const Application&) = default;
};

class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    virtual ~Workspace() = default;

    // Both fields are absent if no application is frontmost or the frontmost application is
    // unknown.
    virtual Application frontmostApplication() const = 0;

    // Returns the running applications that the user can switch to, without duplicates: on Linux,
    // those with a window; on macOS, those that appear in the Dock.
    virtual std::vector<Application> runningApplications() const = 0;

    // Returns the location of the application with this identifier, as a URL.
    virtual std::optional<std::string> urlForApplication(const std::string& bundleID) const = 0;

    // Returns the name of the application's icon in the desktop's theme, or the path of the icon's
    // file. Not supported on all platforms.
    virtual std::optional<std::string> iconOfApplication(const std::string& /*bundleID*/) const {
        return std::nullopt;
    }

    // Launches the application, or activates it if it is running.
    virtual void openApplication(const std::string& url) = 0;

    virtual void openMissionControl() = 0;

    // Returns false if the desktop is known to have no overview. Each call starts a new check in
    // the background, whose result the next call returns.
    virtual bool hasMissionControl() const { return true; }

    // Opens the page of the system settings, or the system's prompt, where the user grants access
    // to this program.
    virtual void openAccessibilitySettings() = 0;

    // Opens the URL with the user's default handler, such as the browser.
    virtual void openURL(const std::string& url) = 0;
};

} // namespace glidemap
