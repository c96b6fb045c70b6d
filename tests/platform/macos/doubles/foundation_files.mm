#include "doubles/files.h"
#include "doubles/journal.h"

#import <Foundation/Foundation.h>

namespace glidemap::test {

Files& files() {
    static Files settings;
    return settings;
}

namespace {

NSBundle* theBundle;
NSFileManager* theManager;

NSString* stringOf(const std::string& text) {
    return [NSString stringWithUTF8String:text.c_str()];
}

} // namespace

void closeFiles() {
    [theBundle release];
    theBundle = nil;
    [theManager release];
    theManager = nil;
}

} // namespace glidemap::test

using namespace glidemap::test;

@implementation NSBundle
+ (NSBundle*)mainBundle {
    if (theBundle == nil) {
        theBundle = [[NSBundle alloc] init];
    }
    return theBundle;
}
- (NSString*)executablePath {
    return files().program ? stringOf(*files().program) : nil;
}
- (NSDictionary*)infoDictionary {
    NSString* const key = @"CFBundleShortVersionString";
    switch (files().information) {
    case Files::Information::none:
        return nil;
    case Files::Information::empty:
        return [NSDictionary dictionary];
    case Files::Information::version:
        return [NSDictionary dictionaryWithObject:stringOf(files().version) forKey:key];
    case Files::Information::manifestWithoutTextVersion:
        return [NSDictionary dictionaryWithObject:[NSArray array] forKey:key];
    }
}
@end

@implementation NSFileManager
+ (NSFileManager*)defaultManager {
    if (theManager == nil) {
        theManager = [[NSFileManager alloc] init];
    }
    return theManager;
}
- (NSArray*)URLsForDirectory:(NSSearchPathDirectory)directory
                   inDomains:(NSSearchPathDomainMask)domainMask {
    note("URLsForDirectory " + std::to_string(directory) + " " + std::to_string(domainMask));
    std::vector<NSURL*> all;
    for (const std::string& path : files().applicationSupport) {
        all.push_back([NSURL fileURLWithPath:stringOf(path) isDirectory:YES]);
    }
    return [NSArray arrayWithObjects:all.data() count:all.size()];
}
@end
