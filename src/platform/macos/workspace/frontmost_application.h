// Tracks the frontmost application with the workspace's notifications about activated and
// terminated applications.
//
// Thread:  created and destroyed on the main thread, which receives the notifications. current()
//          may be called on any thread: it reads one pointer and does not block.
// Owner:   the workspace. No thread may call current() after its destruction.
// Errors:  none. A property that the system does not report is nullopt.
#pragma once

#include "dispatch/workspace.h"
#include "platform/common/application_table.h"

#include <atomic>
#include <memory>

namespace glidemap {

class WorkspaceNotice;

class FrontmostApplication {
public:
    FrontmostApplication();
    FrontmostApplication(const FrontmostApplication&) = delete;
    FrontmostApplication& operator=(const FrontmostApplication&) = delete;
    ~FrontmostApplication();

    Application current() const { return *frontmost.load(std::memory_order_acquire); }

private:
    void publish(Application application);
    void applicationEnded(const Application& ended);

    ApplicationTable known;
    std::atomic<const Application*> frontmost = ApplicationTable::unknown();
    static_assert(std::atomic<const Application*>::is_always_lock_free);
    std::unique_ptr<WorkspaceNotice> activation; // destroyed before the members above
    std::unique_ptr<WorkspaceNotice> termination;
};

} // namespace glidemap
