// Calls a function when the application's effective appearance changes. For Objective-C++ only.
//
// Thread:  the main thread, on which the system changes the appearance.
// Owner:   the owner of the objects that the callback uses; destroy this object before them.
// Errors:  none.
#pragma once

#ifdef __OBJC__

#import <AppKit/AppKit.h>

#include <functional>

@class GlidemapAppearanceObserver;

namespace glidemap {

class EffectiveAppearance {
public:
    explicit EffectiveAppearance(std::function<void()> function);
    EffectiveAppearance(const EffectiveAppearance&) = delete;
    EffectiveAppearance& operator=(const EffectiveAppearance&) = delete;
    ~EffectiveAppearance();

private:
    const std::function<void()> changed;
    NSApplication* application;
    GlidemapAppearanceObserver* observer;
};

} // namespace glidemap

#endif
