// Port: the applications of the user's session.
//
// Thread:  frontmostApplication() on any thread, without blocking; the rest on the main thread,
//          without waiting for an application to start.
// Owner:   the program creates one.
// Errors:  none reach the caller: unknown values are absent, and opening fails silently.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {

// Each is absent if the application does not report it.
struct Application {
    std::optional<std::string> bundleID; // on Linux the desktop entry's id without ".desktop"
    std::optional<std::string> name;     // localised

    friend bool operator==(const Application&, const Application&) = default;
};

class Workspace {
public:
    Workspace() = default;
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;
    virtual ~Workspace() = default;

    // Both are absent while no application is frontmost or the frontmost one is unknown.
    virtual Application frontmostApplication() const = 0;

    // Every application with windows of its own, listed once.
    virtual std::vector<Application> runningApplications() const = 0;

    // Returns the location of the application with this identifier, as a URL.
    virtual std::optional<std::string> urlForApplication(const std::string& bundleID) const = 0;

    // The name of the application's icon in the desktop's theme, or the path of the icon's file.
    // Not every platform can report it.
    virtual std::optional<std::string> iconOfApplication(const std::string& /*bundleID*/) const {
        return std::nullopt;
    }

    // Launches it, or brings it forward if it runs.
    virtual void openApplication(const std::string& url) = 0;

    virtual void openMissionControl() = 0;

    // Returns false if the desktop is known to have no such view. Each call checks again in the
    // background; the next call returns the result.
    virtual bool hasMissionControl() const { return true; }

    // Opens the place where the user grants this program access: a page of the system settings, or the
    // system's permission prompt.
    virtual void openAccessibilitySettings() = 0;

    // Opens the URL with the user's default handler, such as the browser.
    virtual void openURL(const std::string& url) = 0;
};

} // namespace glidemap
