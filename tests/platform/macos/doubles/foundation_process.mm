#include "doubles/journal.h"

#import <Foundation/NSProcessInfo.h>
#include <gtest/gtest.h>

#include <set>
#include <sstream>

using glidemap::test::note;

namespace {

std::set<id> activities;

} // namespace

@implementation NSProcessInfo
+ (NSProcessInfo*)processInfo {
    return [[[self alloc] init] autorelease];
}
- (id<NSObject>)beginActivityWithOptions:(NSActivityOptions)options reason:(NSString*)reason {
    std::ostringstream line;
    line << "beginActivity " << std::hex << std::showbase
         << static_cast<unsigned long long>(options) << " " << [reason UTF8String];
    note(line.str());
    NSObject* const activity = [[NSObject new] autorelease];
    activities.insert(activity);
    return activity;
}
- (void)endActivity:(id<NSObject>)activity {
    EXPECT_EQ(activities.erase(activity), 1U) << "not an activity";
    note("endActivity");
}
@end
