// What the desktop's settings, as its portal tells them, say about how programs should look.
//
//   org.freedesktop.appearance   color-scheme            1 dark, 2 light, else no preference
//                                reduced-motion          1 reduced; only newer portals tell
//   org.gnome.desktop.interface  enable-animations       false for reduced
//   org.kde.kdeglobals.KDE       AnimationDurationFactor  "0" for none
//
// Thread:  one.
// Errors:  a value of another kind is as good as none.
#pragma once

#include "ui/theme/appearance_settings.h"

#include <array>
#include <optional>
#include <string_view>

using GVariant = struct _GVariant;

namespace glidemap {

struct Appearance {
    std::optional<ColorScheme> colorScheme;
    bool reducesMotion = false;

    bool operator==(const Appearance&) const = default;
};

class AppearanceValues {
public:
    // What is read; for GLib, with a null pointer at the end.
    static const std::array<const char*, 4> groups;

    void take(std::string_view group, std::string_view key, GVariant* value);

    Appearance appearance() const;

private:
    std::optional<ColorScheme> colorScheme;
    // Whoever says so is believed: a portal that knows its own name for it may not know the user's
    // desktop.
    bool reduced = false;
    bool withoutGnomeAnimations = false;
    bool withoutKdeAnimations = false;
};

} // namespace glidemap
