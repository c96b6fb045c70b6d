// The workspace on Linux, built from the installed desktop entries, the windows of the running
// desktop, and GIO for launching.
//
// Thread:  as the port documents. The desktop thread tracks windows and launches applications;
//          frontmostApplication() reads one atomic pointer.
// Owner:   the program. The desktop thread must outlive it; no thread may read it after its
//          destruction.
// Errors:  none. If no candidate supports the desktop, no application is frontmost and none runs.
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
    // How long the desktop must report no active window before that state is accepted. A window
    // manager needs a few milliseconds to move the focus.
    static constexpr std::chrono::milliseconds usualPatience{100};

    // Panels without a URL handler on the desktop. Called on the main thread; may be empty.
    struct Panels {
        std::function<void()> missionControl = {};
        std::function<bool()> hasMissionControl = {};
        std::function<void()> accessibilitySettings = {};
    };

    // Creates and starts the candidates in order, on the desktop thread, until one supports the
    // desktop. Returns at once; the state is known after the desktop's first report.
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

    // Activates the window of this program that was used last.
    void bringOwnWindowForward();

private:
    struct State;
    DesktopThread& thread;
    Panels panels;
    std::unique_ptr<State> state;
};

} // namespace glidemap
