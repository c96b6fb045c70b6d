// The program's workspace on a desktop under test, with waits for its reports.
//
// Thread:  the test's.
// Owner:   a test. The process's environment selects the desktop.
// Errors:  a report that does not arrive in time fails the test, and names the caller's line.
#pragma once

#include "platform/linux/applications/linux_workspace.h"
#include "platform/linux/desktop/desktop_thread.h"
#include "platform/linux/windows/desktop_backends.h"
#include "waiting.h"

#include <gtest/gtest.h>

#include <set>
#include <source_location>
#include <string>

namespace glidemap::test {

class SeenWorkspace {
public:
    using Names = std::set<std::string>;

    // Also returns "none" while the desktop's background has the focus: Xfce focuses the background
    // if the program that draws it starts late.
    std::string frontmost() const {
        const std::string application = workspace.frontmostApplication().bundleID.value_or("none");
        return application == "Xfdesktop" ? "none" : application;
    }

    Names running() const {
        Names names;
        for (const Application& each : workspace.runningApplications()) {
            names.insert(each.bundleID.value_or("-"));
        }
        return names;
    }

    void
    expectFrontmost(const std::string& application,
                    const std::source_location& caller = std::source_location::current()) const {
        const testing::ScopedTrace trace(caller.file_name(), static_cast<int>(caller.line()), "");
        EXPECT_TRUE(waitUntil([&] { return frontmost() == application; }))
            << application << " is not frontmost, but " << frontmost();
    }

    void expectRunning(const Names& applications,
                       const std::source_location& caller = std::source_location::current()) const {
        const testing::ScopedTrace trace(caller.file_name(), static_cast<int>(caller.line()), "");
        EXPECT_TRUE(waitUntil([&] { return running() == applications; }))
            << testing::PrintToString(running()) << " run, and not "
            << testing::PrintToString(applications);
    }

    Workspace& port() { return workspace; }

private:
    DesktopThread thread;
    LinuxWorkspace workspace{thread, desktopBackends(thread), {}};
};

} // namespace glidemap::test
