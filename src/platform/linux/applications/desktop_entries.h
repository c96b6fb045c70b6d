// Keeps the list of installed desktop entries current, from file system notifications.
//
// Thread:  the desktop thread, whose context receives the notifications.
// Owner:   LinuxWorkspace.
// Errors:  none. An entry that cannot be read, or whose program is missing, is omitted.
#pragma once

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <functional>
#include <memory>
#include <vector>

namespace glidemap {

class DesktopEntries {
public:
    // `changed` is called each time the entries have been read again.
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
