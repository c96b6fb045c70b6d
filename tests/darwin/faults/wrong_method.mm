// expected: cannot initialize a parameter of type 'NSURL
#import <AppKit/AppKit.h>

void open(NSString* text) {
    [[NSWorkspace sharedWorkspace] openURL:text];
}
