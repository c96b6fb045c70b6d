// Colours by role and fonts by style, for a light and a dark appearance, and the style in which Qt's
// own controls are drawn.
//
// Nothing in the interface names a colour or a font size; it names a role or a style, asks each time
// it draws, and draws again when the theme changes.
//
// Units:   points, which are device-independent pixels.
// Thread:  the main thread, while there is a QApplication.
// Owner:   the process (`Theme::shared()`).
// Errors:  none. What the desktop does not say is read off its palette, else light, with motion.
#pragma once

#include "core/observable.h"
#include "ui/theme/appearance_settings.h"

#include <QColor>
#include <QFont>
#include <memory>
#include <optional>

class QApplication;

namespace glidemap {

enum class Role {
    primary,   // text and drawings
    secondary, // what explains or is less important
    tertiary,  // placeholders, hints of what is off
    accent,
    onAccent, // text on the accent ground
    red,
    orange,
    blue,
    green,
    purple,
    window,    // the ground that everything stands on
    card,      // a raised ground: the list, a group of a form, popovers, sheets
    field,     // the ground of what can be changed: buttons, pickers, text fields
    separator, // lines
    hover,     // laid over the ground beneath the pointer
    pressed,
    selection,    // laid over the ground of the selected row
    accentGround, // what is filled with the accent colour and bears `onAccent`
    outline,      // the edge of what can be changed
    track,        // the ground in which a knob or a chosen segment slides
    knob,
};

enum class TextStyle {
    title2, // bold
    headline,
    body,
    bodyMedium, // of medium weight
    callout,
    caption,
    caption2,
};

class Theme {
public:
    static Theme& shared();

    // Where the shared one asks. Call before the first use of shared(); may be null.
    static void configureShared(std::shared_ptr<AppearanceSettings> settings);

    // Gives the application our style, palette and body font, and keeps them current.
    void applyTo(QApplication& application);

    ColorScheme colorScheme() const;
    bool isDark() const { return colorScheme() == ColorScheme::dark; }
    bool reducesMotion() const;

    // Whether what lies behind a window shows through where the window is translucent.
    bool composites() const;

    // Whether the system shows sheets, and we only fill them.
    bool systemShowsSheets() const;

    // Pins the appearance, whatever the desktop says; with nothing the desktop's holds again.
    void pin(std::optional<ColorScheme> scheme);
    void pinReducedMotion(std::optional<bool> reduced);
    void pinCompositing(std::optional<bool> composites);
    void pinSystemSheets(std::optional<bool> systemShows);

    QColor color(Role role) const;
    // The same colour with this opacity, 0..1.
    QColor color(Role role, double opacity) const;
    // For a ground that shows the role's hue, with this opacity.
    QColor tint(Role role, double opacity) const;

    QFont font(TextStyle style) const;

    // Of colours, fonts and motion.
    Observable& changes() { return observers; }

private:
    class DesktopWatch;

    explicit Theme(std::shared_ptr<AppearanceSettings> asked);
    ~Theme();
    void refresh();
    void readPalette();
    void readFont();

    std::shared_ptr<AppearanceSettings> settings;
    Subscription toSettings;
    ColorScheme desktopPalette = ColorScheme::light; // what the desktop's own palette amounts to
    QFont desktopFont;
    std::unique_ptr<DesktopWatch> watch;
    bool isDressing = false;
    std::optional<ColorScheme> pinnedScheme;
    std::optional<bool> pinnedMotion;
    std::optional<bool> pinnedCompositing;
    std::optional<bool> pinnedSheets;
    Observable observers;
};

} // namespace glidemap
