#include "platform/macos/workspace/frontmost_application.h"

#include "platform/macos/workspace/running_application.h"
#include "platform/macos/workspace/workspace_notice.h"

#include <cstddef>
#include <utility>

namespace glidemap {

namespace {

// More than anyone brings forward between two starts of the program.
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

// An application that ends need not be followed by another one, and the workspace may still name it.
// One that runs twice is frontmost still if the other process is.
void FrontmostApplication::applicationEnded(const Application& ended) {
    if (current() != ended) {
        return;
    }
    NSRunningApplication* const now = [[NSWorkspace sharedWorkspace] frontmostApplication];
    publish([now isTerminated] ? Application() : applicationOf(now));
}

// Whoever reads the pointer sees all that it points to.
void FrontmostApplication::publish(Application application) {
    frontmost.store(known.intern(std::move(application)), std::memory_order_release);
}

} // namespace glidemap
