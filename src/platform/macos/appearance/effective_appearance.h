// Is told each time the application's effective appearance is another. For Objective-C++ only.
//
// Thread:  the main thread, where the system changes it.
// Owner:   whoever is told; it must go before what the function touches.
// Errors:  none; without an application object nothing ever changes.
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
