// The desktop entries that are installed, kept current by the file system's own reports.
//
// Thread:  the desktop thread, to whose context the reports come.
// Owner:   LinuxWorkspace.
// Errors:  none. An entry that cannot be read, or whose program is missing, is not there.
#pragma once

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/windows/desktop_thread.h"

#include <functional>
#include <memory>
#include <vector>

namespace glidemap {

class DesktopEntries {
public:
    // The function is called after the entries have been read anew.
    DesktopEntries(DesktopThread& desktop, std::function<void()> changed);
    DesktopEntries(const DesktopEntries&) = delete;
    DesktopEntries& operator=(const DesktopEntries&) = delete;
    ~DesktopEntries();

    const std::vector<DesktopEntry>& all() const;

private:
    struct State;
    std::unique_ptr<State> state;
};

} // namespace glidemap
