// The workspace on Linux: installed desktop entries, the windows of whatever desktop is running,
// and GIO to launch with.
//
// Thread:  as the port says. What is told of windows and what is launched lives on the desktop
//          thread; frontmostApplication() reads one atomic pointer.
// Owner:   the program. The desktop thread must live longer; nobody may read afterwards.
// Errors:  none. Where no candidate knows the desktop, nothing is frontmost and nothing runs.
#pragma once

#include "dispatch/workspace.h"
#include "platform/linux/windows/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace glidemap {

class LinuxWorkspace : public Workspace {
public:
    // How long no window has to be active until it is believed. A window manager takes a few
    // milliseconds from one window to the next.
    static constexpr std::chrono::milliseconds usualPatience{100};

    // What the desktop has no handler for. Called on the main thread; may be empty.
    struct Panels {
        std::function<void()> missionControl = {};
        std::function<bool()> hasMissionControl = {};
        std::function<void()> accessibilitySettings = {};
    };

    // The candidates are made and asked in order, on the desktop thread, until one knows the
    // desktop. Returns at once; how things stand is known as soon as the desktop has told.
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

    // The window of this very program that was used last.
    void bringOwnWindowForward();

private:
    struct State;
    DesktopThread& thread;
    Panels panels;
    std::unique_ptr<State> state;
};

} // namespace glidemap
