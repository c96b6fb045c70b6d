// Maps the windows that a desktop reports to applications, and publishes the result.
//
// While the focus moves from one window to another, most desktops briefly report that no window is
// active. The last application stays frontmost until no window has been active for
// `patienceWithNone`.
//
// Thread:  the desktop thread; any thread may read the published state.
// Owner:   LinuxWorkspace, which also owns the published state; that state outlives the follower.
// Errors:  none.
#pragma once

#include "core/snapshot.h"
#include "dispatch/workspace.h"
#include "platform/common/application_table.h"
#include "platform/linux/applications/application_matcher.h"
#include "platform/linux/applications/desktop_entries.h"
#include "platform/linux/applications/process_reader.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <atomic>
#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace glidemap {

// The id of our desktop entry. It also identifies our windows on desktops that do not report the
// process of a window.
inline constexpr const char* ownIdentifier = "org.glidemap.Glidemap";

struct PublishedApplications {
    std::atomic<const Application*> frontmost = ApplicationTable::unknown();
    static_assert(std::atomic<const Application*>::is_always_lock_free);

    Snapshot<std::vector<Application>> running;

    // Installed applications have a table of their own, so that windows without a desktop entry
    // cannot use up its slots.
    ApplicationTable installed = ApplicationTable(16384);
    ApplicationTable others = ApplicationTable(2048);
};

class ApplicationFollower : public WindowListener {
public:
    ApplicationFollower(DesktopThread& desktop, PublishedApplications& to,
                        const ProcessReader& reader, std::chrono::milliseconds patienceWithNone);

    void activeWindowChanged(const std::optional<WindowIdentity>& window) override;
    void windowsChanged(const std::vector<WindowIdentity>& windows) override;

    // Returns a function that selects the windows of the application with this desktop entry file.
    // If the entry requires a terminal, the function also selects the windows of the terminal
    // emulator that was launched from the entry. The function is valid until the next task of the
    // desktop thread, and only while the follower exists.
    WindowChoice windowsOf(const std::string& entryPath);

private:
    using Key = std::tuple<std::string, std::string, std::optional<pid_t>>;

    static Key keyOf(const WindowIdentity& window);

    const Application* applicationOf(const WindowIdentity& window);
    void forgetClosedWindows();
    void matchAgain();
    void publishFrontmost();
    void publishRunning();

    DesktopThread& thread;
    PublishedApplications& published;
    const ProcessReader& processes;
    const std::chrono::milliseconds patience;
    DesktopThread::Watch lasting; // measures the time without an active window
    DesktopEntries entries;
    ApplicationMatcher matcher;
    // A cache. It also contains windows that were closed recently.
    std::map<Key, const Application*> matched;
    std::optional<WindowIdentity> active;
    std::vector<WindowIdentity> open;
};

} // namespace glidemap
