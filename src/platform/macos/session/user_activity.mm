#include "platform/macos/session/user_activity.h"

#include "platform/macos/autorelease_pool.h"

#import <Foundation/Foundation.h>
#import <Foundation/NSProcessInfo.h>

namespace glidemap {

struct UserActivity::Token {
    id<NSObject> activity;
};

UserActivity::UserActivity(const char* reason) : token(std::make_unique<Token>()) {
    withinAutoreleasePool([this, reason] {
        token->activity = [[[NSProcessInfo processInfo]
            beginActivityWithOptions:NSActivityUserInitiatedAllowingIdleSystemSleep
                              reason:[NSString stringWithUTF8String:reason]] retain];
    });
}

UserActivity::~UserActivity() {
    withinAutoreleasePool([this] {
        [[NSProcessInfo processInfo] endActivity:token->activity];
        [token->activity release];
    });
}

} // namespace glidemap
