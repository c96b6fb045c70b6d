// Provides the user's appearance settings from the system settings, and follows their changes.
//
// Thread:  the main thread.
// Owner:   the program; create it after the application object. The destructor ends the system's
//          notifications.
// Errors:  none. colorScheme() returns nullopt if the appearance is neither light nor dark.
#pragma once

#include "ui/theme/appearance_settings.h"

#include <memory>

namespace glidemap {

class MacosAppearance : public AppearanceSettings {
public:
    MacosAppearance();
    ~MacosAppearance() override;

    std::optional<ColorScheme> colorScheme() const override { return values.colorScheme; }
    bool reducesMotion() const override { return values.reducesMotion; }
    bool showsSheets() const override { return true; }
    Observable& changes() override { return observers; }

private:
    struct Values {
        std::optional<ColorScheme> colorScheme;
        bool reducesMotion = false;

        friend bool operator==(const Values&, const Values&) = default;
    };
    struct Following;

    static Values read();
    void readAgain();

    Values values;
    Observable observers;
    std::unique_ptr<Following> following; // destroyed first
};

} // namespace glidemap
