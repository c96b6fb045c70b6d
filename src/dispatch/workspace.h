// Port: the applications of the user's session.
//
// Thread:  frontmostApplication() on any thread, without waiting for anyone; the rest on the main
//          thread, and never waiting for an application to start.
// Owner:   the program makes one.
// Errors:  none reach the caller: what is not known is absent, what cannot be opened is not.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace glidemap {

// Either is absent if the application does not report it.
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

    // Both absent while no application is frontmost, or none can be told.
    virtual Application frontmostApplication() const = 0;

    // Those that have windows of their own, each once.
    virtual std::vector<Application> runningApplications() const = 0;

    // Where the application with this identifier is, as a URL.
    virtual std::optional<std::string> urlForApplication(const std::string& bundleID) const = 0;

    // Launches it, or brings it forward if it runs.
    virtual void openApplication(const std::string& url) = 0;

    virtual void openMissionControl() = 0;

    // False where the desktop is known to have no such view. It is looked for again with each call, in
    // the background: what comes of that is what the next call returns.
    virtual bool hasMissionControl() const { return true; }

    // Where the user gives this program access: a page of the system's settings, or the system's question.
    virtual void openAccessibilitySettings() = 0;

    // By the user's own handler, such as the browser.
    virtual void openURL(const std::string& url) = 0;
};

} // namespace glidemap
