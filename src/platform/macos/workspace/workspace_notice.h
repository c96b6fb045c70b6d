// Observes one of the workspace's notifications. For Objective-C++ only.
//
// The workspace posts on the main thread. Without an operation queue the callback runs
// synchronously there, so no call is pending when the observer is destroyed on the same thread.
//
// Thread:  the main thread.
// Owner:   the observer; destroy it before the objects that the callback uses.
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
