#include "doubles/status_item.h"

#include "doubles/journal.h"

#import <AppKit/AppKit.h>

using namespace glidemap::test;

StatusItemScene& glidemap::test::statusItemScene() {
    static StatusItemScene scene;
    return scene;
}

@interface NSImage (DoubleOfDrawing)
- (std::string)doubleText;
@end

@implementation NSImage
+ (instancetype)imageWithSystemSymbolName:(NSString*)name
                 accessibilityDescription:(NSString*)description {
    if (!statusItemScene().symbols.contains([name UTF8String])) {
        return nil;
    }
    NSImage* const made = [[[self alloc] init] autorelease];
    made->symbol = [name retain];
    made->description = [description retain];
    return made;
}
- (void)dealloc {
    [symbol release];
    [description release];
    [super dealloc];
}
- (BOOL)isTemplate {
    return isTemplate;
}
- (void)setTemplate:(BOOL)flag {
    isTemplate = flag;
}
- (std::string)doubleText {
    return std::string([symbol UTF8String]) + ", " + [description UTF8String] +
           (isTemplate ? ", template" : "");
}
@end

@interface NSView (DoubleOfTree)
+ (instancetype)doubleWithChild:(NSView*)child;
@end

@interface NSWindow (DoubleOfTree)
+ (instancetype)doubleWithContent:(NSView*)view;
@end

@implementation NSView
+ (instancetype)doubleWithChild:(NSView*)child {
    NSView* const made = [[[self alloc] init] autorelease];
    made->children =
        [(child != nil ? [NSArray arrayWithObjects:child, nil] : [NSArray array]) retain];
    return made;
}
- (void)dealloc {
    [children release];
    [super dealloc];
}
- (NSArray*)subviews {
    return children;
}
@end

@implementation NSWindow
+ (instancetype)doubleWithContent:(NSView*)view {
    NSWindow* const made = [[[self alloc] init] autorelease];
    made->content = [view retain];
    return made;
}
- (void)dealloc {
    [content release];
    [super dealloc];
}
- (NSView*)contentView {
    return content;
}
@end

@implementation NSStatusBarButton
- (void)setImage:(NSImage*)image {
    note("setImage " + [image doubleText]);
}
- (void)setAppearsDisabled:(BOOL)appearsDisabled {
    note(appearsDisabled ? "setAppearsDisabled YES" : "setAppearsDisabled NO");
}
@end

@implementation NSApplication (DoubleOfWindows)
- (NSArray*)windows {
    NSWindow* const bare = [NSWindow doubleWithContent:nil];
    NSWindow* const settings =
        [NSWindow doubleWithContent:[NSView doubleWithChild:[NSView doubleWithChild:nil]]];
    if (!statusItemScene().hasItem) {
        return [NSArray arrayWithObjects:bare, settings, nil];
    }
    NSView* const button = [NSStatusBarButton doubleWithChild:nil];
    NSWindow* const item = [NSWindow doubleWithContent:[NSView doubleWithChild:button]];
    return [NSArray arrayWithObjects:bare, settings, item, nil];
}
@end
