#include "platform/macos/workspace/frontmost_application.h"

#include "platform/macos/workspace/running_application.h"
#include "platform/macos/workspace/workspace_notice.h"

#include <cstddef>
#include <utility>

namespace glidemap {

namespace {

// The table's capacity: more applications than a user activates in one run of the program.
constexpr std::size_t places = 16384;

NSRunningApplication* applicationIn(NSNotification* notice) {
    return [[notice userInfo] objectForKey:NSWorkspaceApplicationKey];
}

} // namespace

FrontmostApplication::FrontmostApplication()
    : known(places),
      activation(std::make_unique<WorkspaceNotice>(
          NSWorkspaceDidActivateApplicationNotification,
          [this](NSNotification* notice) { publish(applicationOf(applicationIn(notice))); })),
      termination(std::make_unique<WorkspaceNotice>(
          NSWorkspaceDidTerminateApplicationNotification, [this](NSNotification* notice) {
              applicationEnded(applicationOf(applicationIn(notice)));
          })) {
    publish(applicationOf([[NSWorkspace sharedWorkspace] frontmostApplication]));
}

FrontmostApplication::~FrontmostApplication() = default;

// Reads the frontmost application again, because the system does not always activate another
// application after a termination. The workspace may still report the terminated application. If
// another process of the terminated application is frontmost, the published value stays the same.
void FrontmostApplication::applicationEnded(const Application& ended) {
    if (current() != ended) {
        return;
    }
    NSRunningApplication* const now = [[NSWorkspace sharedWorkspace] frontmostApplication];
    publish([now isTerminated] ? Application() : applicationOf(now));
}

// A thread that reads the pointer must see the complete application, so the store has release
// semantics.
void FrontmostApplication::publish(Application application) {
    frontmost.store(known.intern(std::move(application)), std::memory_order_release);
}

} // namespace glidemap
