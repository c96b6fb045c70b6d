// Observes changes of the application's effective appearance. For Objective-C++ only.
//
// Thread:  the main thread, where the system changes it.
// Owner:   the observer; destroy it before the objects that the callback uses.
// Errors:  none; without an application object nothing changes.
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
