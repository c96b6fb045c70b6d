// Implements Workspace on Linux. Combines the installed desktop entries with the windows that the
// desktop reports, and launches applications.
//
// Thread:  see Workspace. The desktop thread tracks windows and launches applications;
//          frontmostApplication() reads one atomic pointer.
// Owner:   the program. The desktop thread must outlive the workspace; no thread may use the
//          workspace after its destruction.
// Errors:  none. If no window backend supports the desktop, no application is frontmost or running.
#pragma once

#include "dispatch/workspace.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace glidemap {

class LinuxWorkspace : public Workspace {
public:
    // How long the desktop must report that no window is active before the workspace reports that
    // no application is frontmost. Window managers need a few milliseconds to move the focus.
    static constexpr std::chrono::milliseconds usualPatience{100};

    // Functions for parts of the desktop that have no URL. They are called on the main thread and
    // may be empty.
    struct Panels {
        std::function<void()> missionControl = {};
        std::function<bool()> hasMissionControl = {};
        std::function<void()> accessibilitySettings = {};
    };

    // On the desktop thread, creates and starts the candidates in order until one supports the
    // desktop. The constructor does not block. The frontmost and running applications are known
    // after the desktop's first report.
    LinuxWorkspace(DesktopThread& desktop, std::vector<WindowBackendFactory> candidates,
                   Panels ownPanels, std::chrono::milliseconds patienceWithNone = usualPatience);
    ~LinuxWorkspace() override;

    Application frontmostApplication() const override;
    std::vector<Application> runningApplications() const override;
    std::optional<std::string> urlForApplication(const std::string& bundleID) const override;
    std::optional<std::string> iconOfApplication(const std::string& bundleID) const override;
    void openApplication(const std::string& url) override;
    void openMissionControl() override;
    bool hasMissionControl() const override;
    void openAccessibilitySettings() override;
    void openURL(const std::string& url) override;

    // Activates the most recently used window of this program.
    void bringOwnWindowForward();

private:
    struct State;
    DesktopThread& thread;
    Panels panels;
    std::unique_ptr<State> state;
};

} // namespace glidemap
