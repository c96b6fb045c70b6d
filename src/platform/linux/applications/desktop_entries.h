// The list of installed desktop entries. File system notifications keep it up to date.
//
// Thread:  the desktop thread, whose context receives the notifications.
// Owner:   LinuxWorkspace.
// Errors:  none. An entry is omitted if it cannot be read or its program is missing.
#pragma once

#include "platform/linux/applications/desktop_entry.h"
#include "platform/linux/desktop/desktop_thread.h"

#include <functional>
#include <memory>
#include <vector>

namespace glidemap {

class DesktopEntries {
public:
    // `changed` is called whenever the entries have been read again.
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
