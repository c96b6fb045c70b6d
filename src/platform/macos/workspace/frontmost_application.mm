#include "platform/macos/workspace/frontmost_application.h"

#include "platform/macos/workspace/running_application.h"
#include "platform/macos/workspace/workspace_notice.h"

#include <cstddef>
#include <utility>

namespace glidemap {

namespace {

// More than a user activates in one run of the program.
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

// The termination may not be followed by an activation, and the workspace may still report the
// application. If another process of the application is frontmost, the application stays frontmost.
void FrontmostApplication::applicationEnded(const Application& ended) {
    if (current() != ended) {
        return;
    }
    NSRunningApplication* const now = [[NSWorkspace sharedWorkspace] frontmostApplication];
    publish([now isTerminated] ? Application() : applicationOf(now));
}

// A release store: a reader of the pointer must see the complete application.
void FrontmostApplication::publish(Application application) {
    frontmost.store(known.intern(std::move(application)), std::memory_order_release);
}

} // namespace glidemap
