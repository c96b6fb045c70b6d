// Port: the user's appearance settings, as far as the desktop provides them.
//
// Thread:  the main thread; never blocks.
// Owner:   the program creates one.
// Errors:  none. If the desktop does not provide a colour scheme, colorScheme() returns nullopt.
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

    // Whether the user prefers reduced motion.
    virtual bool reducesMotion() const = 0;

    // Whether windows can be translucent. Queried for each new window; there is no notification
    // when this changes.
    virtual bool composites() const { return true; }

    // Whether the system shows native sheets: it positions and animates them, and separates them
    // visually from the window.
    virtual bool showsSheets() const { return false; }

    virtual Observable& changes() = 0;
};

} // namespace glidemap
