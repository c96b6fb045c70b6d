// Maps the windows that a desktop reports to applications, and publishes the result.
//
// While the focus moves from one window to the next, most desktops report no active window for a
// moment. The last application stays frontmost until that state has lasted for the patience.
//
// Thread:  the desktop thread; any thread may read the published state.
// Owner:   LinuxWorkspace, which keeps the published state alive longer.
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

// Our desktop entry, and the identifier of our windows on desktops that report no process.
inline constexpr const char* ownIdentifier = "org.glidemap.Glidemap";

struct PublishedApplications {
    std::atomic<const Application*> frontmost = ApplicationTable::unknown();
    static_assert(std::atomic<const Application*>::is_always_lock_free);

    Snapshot<std::vector<Application>> running;

    // A separate table, so that windows without an entry cannot use up the slots of installed
    // applications.
    ApplicationTable installed = ApplicationTable(16384);
    ApplicationTable others = ApplicationTable(2048);
};

class ApplicationFollower : public WindowListener {
public:
    ApplicationFollower(DesktopThread& desktop, PublishedApplications& to,
                        const ProcessReader& reader, std::chrono::milliseconds patienceWithNone);

    void activeWindowChanged(const std::optional<WindowIdentity>& window) override;
    void windowsChanged(const std::vector<WindowIdentity>& windows) override;

    // Chooses the windows of the application with this desktop entry file. A window of a program in
    // a terminal belongs to the terminal; its identity comes from the process that the entry
    // started. The choice is valid while the follower exists, until the thread's next task.
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
    std::map<Key, const Application*> matched; // cache, also of windows closed recently
    std::optional<WindowIdentity> active;
    std::vector<WindowIdentity> open;
};

} // namespace glidemap
