// Port: how the user wants every program to look, as far as the desktop tells.
//
// Thread:  the main thread; never waits.
// Owner:   the program makes one.
// Errors:  none: what the desktop does not say is absent.
#pragma once

#include "core/observable.h"

#include <optional>

namespace glidemap {

enum class ColorScheme { light, dark };

class AppearanceSettings {
public:
    AppearanceSettings() = default;
    AppearanceSettings(const AppearanceSettings&) = delete;
    AppearanceSettings& operator=(const AppearanceSettings&) = delete;
    virtual ~AppearanceSettings() = default;

    virtual std::optional<ColorScheme> colorScheme() const = 0;

    // Whether things should stand still that need not move.
    virtual bool reducesMotion() const = 0;

    // Whether windows can be translucent and have soft edges. Asked each time one opens; no change
    // of it is announced.
    virtual bool composites() const { return true; }

    // Whether the system itself shows a dialog as a sheet of its window: places and moves it, and sets it off from the window.
    virtual bool showsSheets() const { return false; }

    virtual Observable& changes() = 0;
};

} // namespace glidemap
