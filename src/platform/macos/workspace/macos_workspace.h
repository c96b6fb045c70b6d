// The workspace on macOS: the system's own.
//
// Thread:  as the port says. The system's workspace is asked on the main thread and nowhere else;
//          frontmostApplication() reads what it has told there.
// Owner:   the program makes one. Nobody may read afterwards.
// Errors:  none: what is no URL is not opened, and how an opening ends is not waited for.
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
