// Observes one kind of notification of the workspace. For Objective-C++ only.
//
// The workspace posts notifications on the main thread. Without an operation queue, the callback
// runs synchronously on that thread, so no call is pending when the observer is destroyed there.
//
// Thread:  the main thread.
// Owner:   the owner of the objects that the callback uses; destroy the observer before them.
// Errors:  none; without a workspace there are no notifications.
#pragma once

#ifdef __OBJC__

#import <AppKit/AppKit.h>

#include <functional>

namespace glidemap {

class WorkspaceNotice {
public:
    WorkspaceNotice(NSNotificationName name, std::function<void(NSNotification*)> function);
    WorkspaceNotice(const WorkspaceNotice&) = delete;
    WorkspaceNotice& operator=(const WorkspaceNotice&) = delete;
    ~WorkspaceNotice();

private:
    const std::function<void(NSNotification*)> notify;
    NSNotificationCenter* center;
    id<NSObject> observer;
};

} // namespace glidemap

#endif
