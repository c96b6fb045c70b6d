#include "platform/macos/workspace/frontmost_application.h"

#include "platform/macos/workspace/running_application.h"
#include "platform/macos/workspace/workspace_notice.h"

#include <cstddef>
#include <utility>

namespace glidemap {

namespace {

// More than anyone brings forward between two starts of the program.
constexpr std::size_t places = 16384;

NSRunningApplication* activatedIn(NSNotification* notice) {
    return [[notice userInfo] objectForKey:NSWorkspaceApplicationKey];
}

} // namespace

FrontmostApplication::FrontmostApplication()
    : known(places),
      activation(std::make_unique<WorkspaceNotice>(
          NSWorkspaceDidActivateApplicationNotification,
          [this](NSNotification* notice) { publish(applicationOf(activatedIn(notice))); })) {
    publish(applicationOf([[NSWorkspace sharedWorkspace] frontmostApplication]));
}

FrontmostApplication::~FrontmostApplication() = default;

// Whoever reads the pointer sees all that it points to.
void FrontmostApplication::publish(Application application) {
    frontmost.store(known.intern(std::move(application)), std::memory_order_release);
}

} // namespace glidemap
