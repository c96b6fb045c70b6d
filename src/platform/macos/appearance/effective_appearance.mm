#include "platform/macos/appearance/effective_appearance.h"

#include <utility>

namespace {

NSString* const key = @"effectiveAppearance";

// The address of this variable distinguishes our observation from an observation by a superclass.
// Its value is not used.
int ownObservation;

} // namespace

@interface GlidemapAppearanceObserver : NSObject {
    const std::function<void()>* changed;
}
- (id)initWithFunction:(const std::function<void()>*)function;
@end

@implementation GlidemapAppearanceObserver
- (id)initWithFunction:(const std::function<void()>*)function {
    self = [super init];
    if (self != nil) {
        changed = function;
    }
    return self;
}
- (void)observeValueForKeyPath:(NSString*)keyPath
                      ofObject:(id)object
                        change:(NSDictionary*)change
                       context:(void*)context {
    if (context == &ownObservation) {
        (*changed)();
    } else {
        [super observeValueForKeyPath:keyPath ofObject:object change:change context:context];
    }
}
@end

namespace glidemap {

EffectiveAppearance::EffectiveAppearance(std::function<void()> function)
    : changed(std::move(function)), application([[NSApplication sharedApplication] retain]),
      observer([[GlidemapAppearanceObserver alloc] initWithFunction:&changed]) {
    [application addObserver:observer
                  forKeyPath:key
                     options:static_cast<NSKeyValueObservingOptions>(0)
                     context:&ownObservation];
}

// AppKit does not retain observers, so the observation must end before the observer is released.
EffectiveAppearance::~EffectiveAppearance() {
    [application removeObserver:observer forKeyPath:key context:&ownObservation];
    [observer release];
    [application release];
}

} // namespace glidemap
