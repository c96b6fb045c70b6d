// Implements Workspace with NSWorkspace.
//
// Thread:  see Workspace. NSWorkspace is called only on the main thread; frontmostApplication()
//          reads a state that the main thread has published.
// Owner:   the program. No thread may use the workspace after its destruction.
// Errors:  none. Invalid URLs are not opened, and errors while opening are ignored.
#pragma once

#include "dispatch/workspace.h"
#include "platform/macos/workspace/frontmost_application.h"

namespace glidemap {

class MacosWorkspace : public Workspace {
public:
    Application frontmostApplication() const override { return frontmost.current(); }
    std::vector<Application> runningApplications() const override;
    std::optional<std::string> urlForApplication(const std::string& bundleID) const override;
    void openApplication(const std::string& url) override;
    void openMissionControl() override;
    void openAccessibilitySettings() override;
    void openURL(const std::string& url) override;

private:
    FrontmostApplication frontmost;
};

} // namespace glidemap
