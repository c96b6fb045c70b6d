#include "platform/macos/workspace/workspace_notice.h"

#include <utility>

namespace glidemap {

// Uses the workspace's own notification center, because the default center does not receive these
// notifications.
WorkspaceNotice::WorkspaceNotice(NSNotificationName name,
                                 std::function<void(NSNotification*)> function)
    : notify(std::move(function)),
      center([[[NSWorkspace sharedWorkspace] notificationCenter] retain]),
      observer([[center addObserverForName:name
                                    object:nil
                                     queue:nil
                                usingBlock:^(NSNotification* notice) {
                                  notify(notice);
                                }] retain]) {}

WorkspaceNotice::~WorkspaceNotice() {
    if (observer != nil) {
        [center removeObserver:observer];
    }
    [observer release];
    [center release];
}

} // namespace glidemap
