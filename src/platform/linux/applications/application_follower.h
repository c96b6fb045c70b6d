// Turns what a desktop tells of its windows into applications, and publishes them.
//
// On the way from one window to the next most desktops have none active for a moment. That none is,
// is believed when it has lasted; until then the last application stays frontmost.
//
// Thread:  the desktop thread; what is published may be read on any.
// Owner:   LinuxWorkspace, which keeps what is published alive for longer.
// Errors:  none.
#pragma once

#include "core/snapshot.h"
#include "dispatch/workspace.h"
#include "platform/common/application_table.h"
#include "platform/linux/applications/application_matcher.h"
#include "platform/linux/applications/desktop_entries.h"
#include "platform/linux/applications/process_reader.h"
#include "platform/linux/windows/desktop_thread.h"
#include "platform/linux/windows/window_backend.h"

#include <atomic>
#include <chrono>
#include <map>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace glidemap {

// Our desktop entry, and what our windows call themselves where they name no process.
inline constexpr const char* ownIdentifier = "org.glidemap.Glidemap";

struct PublishedApplications {
    std::atomic<const Application*> frontmost = ApplicationTable::unknown();
    static_assert(std::atomic<const Application*>::is_always_lock_free);

    Snapshot<std::vector<Application>> running;

    // Apart, so that windows without an entry cannot take the installed ones' places.
    ApplicationTable installed = ApplicationTable(16384);
    ApplicationTable others = ApplicationTable(2048);
};

class ApplicationFollower : public WindowListener {
public:
    ApplicationFollower(DesktopThread& desktop, PublishedApplications& to,
                        const ProcessReader& reader, std::chrono::milliseconds patienceWithNone);

    void activeWindowChanged(const std::optional<WindowIdentity>& window) override;
    void windowsChanged(const std::vector<WindowIdentity>& windows) override;

    // Those of the application whose desktop entry is this file. A window of a program in a terminal
    // is the terminal's, and known by the process that was started from the entry. Valid as long as
    // the follower, until the thread's next task.
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
    DesktopThread::Watch lasting; // of no window being active
    DesktopEntries entries;
    ApplicationMatcher matcher;
    std::map<Key, const Application*> matched; // of the windows there are
    std::optional<WindowIdentity> active;
    std::vector<WindowIdentity> open;
};

} // namespace glidemap
