// Is told of one of the workspace's notices for as long as it lives. For Objective-C++ only.
//
// The workspace posts on the main thread, and without a queue in between the one who is told is
// called there and then. So nothing is under way when it goes, which happens on the same thread.
//
// Thread:  the main thread.
// Owner:   whoever is told; it must go before what the function touches.
// Errors:  none; without a workspace there are no notices.
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
    const std::function<void(NSNotification*)> tell;
    NSNotificationCenter* center;
    id<NSObject> observer;
};

} // namespace glidemap

#endif
