// Converts settings from the desktop portal to the program's appearance.
//
//   org.freedesktop.appearance   color-scheme            1 dark, 2 light, else no preference
//                                reduced-motion          1 reduced; only in newer portals
//   org.gnome.desktop.interface  enable-animations       false: reduced
//   org.kde.kdeglobals.KDE       AnimationDurationFactor  "0": no animation
//
// Thread:  one.
// Errors:  none; a value of an unexpected type is ignored.
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
    // The groups to read, as a null-terminated array for GLib.
    static const std::array<const char*, 4> groups;

    void take(std::string_view group, std::string_view key, GVariant* value);

    Appearance appearance() const;

private:
    std::optional<ColorScheme> colorScheme;
    // Motion is reduced if any of these is true. No source takes precedence, because the portal's
    // reduced-motion does not always reflect the desktop's own key.
    bool reduced = false;
    bool withoutGnomeAnimations = false;
    bool withoutKdeAnimations = false;
};

} // namespace glidemap
