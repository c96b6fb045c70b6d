// Colours by role and fonts by text style, for a light and a dark appearance, and the style that
// draws Qt's own controls.
//
// Interface code does not specify colours or font sizes. It specifies a role or a text style,
// queries the theme on each paint, and repaints when the theme changes.
//
// Units:   points, which are device-independent pixels.
// Thread:  the main thread, during the life of the QApplication.
// Owner:   the process (`Theme::shared()`).
// Errors:  none. If the desktop provides no colour scheme, its palette determines whether the
//          appearance is dark. If it provides no motion setting, motion is not reduced.
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
    secondary, // explanations, placeholders and less important texts
    tertiary,  // disabled texts, and edges of buttons, check boxes and switches
    accent,
    onAccent, // text on the accent background
    red,
    orange,
    blue,
    green,
    purple,
    window,    // the window's background
    card,      // a raised background: lists, form groups, popovers, sheets
    field,     // the background of controls: buttons, combo boxes, text fields
    separator, // lines
    hover,     // drawn over the background of an element under the pointer
    pressed,
    selection,    // drawn over the background of the selected row
    accentGround, // areas in the accent colour, with text in `onAccent`
    outline,      // edges of sheets, popovers, text fields and disabled controls
    track,        // the groove of a switch, and the background of a segmented control
    knob,
};

enum class TextStyle {
    title2, // bold
    headline,
    body,
    bodyMedium, // medium weight
    callout,
    caption,
    caption2,
};

class Theme {
public:
    static Theme& shared();

    // Sets the settings that shared() uses; may be null. Must be called before the first shared().
    static void configureShared(std::shared_ptr<AppearanceSettings> settings);

    // Sets our style, palette and body font on the application, and updates them on changes.
    void applyTo(QApplication& application);

    ColorScheme colorScheme() const;
    bool isDark() const { return colorScheme() == ColorScheme::dark; }
    bool reducesMotion() const;

    // Whether translucent windows show the content behind them.
    bool composites() const;

    // Whether the system shows native sheets, so that we provide only their content.
    bool systemShowsSheets() const;

    // Fixes the appearance. With nullopt, the theme follows the desktop again.
    void pin(std::optional<ColorScheme> scheme);
    void pinReducedMotion(std::optional<bool> reduced);
    void pinCompositing(std::optional<bool> composites);
    void pinSystemSheets(std::optional<bool> systemShows);

    QColor color(Role role) const;
    // Returns the role's colour with this opacity, 0..1.
    QColor color(Role role, double opacity) const;
    // Returns a background colour with the role's hue and this opacity.
    QColor tint(Role role, double opacity) const;

    QFont font(TextStyle style) const;

    // Notifies observers when colours, fonts or motion settings change.
    Observable& changes() { return observers; }

private:
    class DesktopWatch;

    explicit Theme(std::shared_ptr<AppearanceSettings> settings);
    ~Theme();
    void refresh();
    void readPalette();
    void readFont();

    std::shared_ptr<AppearanceSettings> settings;
    Subscription toSettings;
    ColorScheme desktopPalette = ColorScheme::light; // derived from the desktop's palette
    QFont desktopFont;
    std::unique_ptr<DesktopWatch> watch;
    bool isApplyingStyle = false;
    std::optional<ColorScheme> pinnedScheme;
    std::optional<bool> pinnedMotion;
    std::optional<bool> pinnedCompositing;
    std::optional<bool> pinnedSheets;
    Observable observers;
};

} // namespace glidemap
