// Knows at any moment which application is frontmost, because the workspace says so each time
// another one is, or the frontmost one has ended.
//
// Thread:  made and destroyed on the main thread, where the workspace speaks; current() on any
//          thread: it reads one pointer and waits for nobody.
// Owner:   the workspace. Nobody may read afterwards.
// Errors:  none; what the system does not tell is absent.
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
    std::unique_ptr<WorkspaceNotice> activation; // the notices go first
    std::unique_ptr<WorkspaceNotice> termination;
};

} // namespace glidemap
