#include "platform/linux/shell/appearance_values.h"

#include "platform/linux/desktop/glib_owner.h"

#include <glib.h>

namespace glidemap {

namespace {

constexpr const char* common = "org.freedesktop.appearance";
constexpr const char* gnome = "org.gnome.desktop.interface";
constexpr const char* kde = "org.kde.kdeglobals.KDE";

using Value = GlibOwner<GVariant>;

// Removes all variants around a value, because some portals add more than one.
Value unwrapped(GVariant* value) {
    Value inner(g_variant_ref(value));
    while (g_variant_is_of_type(inner.get(), G_VARIANT_TYPE_VARIANT)) {
        inner.reset(g_variant_get_variant(inner.get()));
    }
    return inner;
}

bool isNumber(GVariant* value, guint32 wanted) {
    return g_variant_is_of_type(value, G_VARIANT_TYPE_UINT32) &&
           g_variant_get_uint32(value) == wanted;
}

std::optional<ColorScheme> schemeIn(GVariant* value) {
    if (isNumber(value, 1)) {
        return ColorScheme::dark;
    }
    return isNumber(value, 2) ? std::optional(ColorScheme::light) : std::nullopt;
}

bool isFalse(GVariant* value) {
    return g_variant_is_of_type(value, G_VARIANT_TYPE_BOOLEAN) &&
           g_variant_get_boolean(value) == FALSE;
}

// Also accepts text, because KDE's settings file stores numbers as text.
bool isZero(GVariant* value) {
    if (g_variant_is_of_type(value, G_VARIANT_TYPE_DOUBLE)) {
        return g_variant_get_double(value) == 0;
    }
    if (!g_variant_is_of_type(value, G_VARIANT_TYPE_STRING)) {
        return false;
    }
    const char* const text = g_variant_get_string(value, nullptr);
    char* end = nullptr;
    const double number = g_ascii_strtod(text, &end);
    return end != text && *end == '\0' && number == 0;
}

} // namespace

const std::array<const char*, 4> AppearanceValues::groups{common, gnome, kde, nullptr};

void AppearanceValues::take(std::string_view group, std::string_view key, GVariant* wrapped) {
    const Value held = unwrapped(wrapped);
    GVariant* const value = held.get();
    if (group == common && key == "color-scheme") {
        colorScheme = schemeIn(value);
    } else if (group == common && key == "reduced-motion") {
        reduced = isNumber(value, 1);
    } else if (group == gnome && key == "enable-animations") {
        withoutGnomeAnimations = isFalse(value);
    } else if (group == kde && key == "AnimationDurationFactor") {
        withoutKdeAnimations = isZero(value);
    }
}

Appearance AppearanceValues::appearance() const {
    return {colorScheme, reduced || withoutGnomeAnimations || withoutKdeAnimations};
}

} // namespace glidemap
