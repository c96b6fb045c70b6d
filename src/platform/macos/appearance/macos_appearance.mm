#include "platform/macos/appearance/macos_appearance.h"

#include "platform/macos/appearance/effective_appearance.h"
#include "platform/macos/workspace/workspace_notice.h"

namespace glidemap {

namespace {

// A high-contrast appearance counts as the light or dark appearance from which it derives.
std::optional<ColorScheme> schemeOf(NSAppearance* appearance) {
    NSArray* const both =
        [NSArray arrayWithObjects:NSAppearanceNameAqua, NSAppearanceNameDarkAqua, nil];
    NSAppearanceName const best = [appearance bestMatchFromAppearancesWithNames:both];
    if ([best isEqualToString:NSAppearanceNameDarkAqua]) {
        return ColorScheme::dark;
    }
    if ([best isEqualToString:NSAppearanceNameAqua]) {
        return ColorScheme::light;
    }
    return std::nullopt;
}

} // namespace

struct MacosAppearance::Following {
    explicit Following(MacosAppearance& to)
        : appearance([&to] { to.readAgain(); }),
          motion(NSWorkspaceAccessibilityDisplayOptionsDidChangeNotification,
                 [&to](NSNotification* /*notice*/) { to.readAgain(); }) {}

    EffectiveAppearance appearance;
    WorkspaceNotice motion;
};

MacosAppearance::MacosAppearance() : following(std::make_unique<Following>(*this)) {
    values = read();
}

MacosAppearance::~MacosAppearance() = default;

MacosAppearance::Values MacosAppearance::read() {
    NSApplication* const application = [NSApplication sharedApplication];
    return {schemeOf([application effectiveAppearance]),
            [[NSWorkspace sharedWorkspace] accessibilityDisplayShouldReduceMotion] != NO};
}

// Compares the values, because the system also sends the observed notifications when other
// properties of the display or the appearance change.
void MacosAppearance::readAgain() {
    const Values now = read();
    if (now == values) {
        return;
    }
    observers.announceWillChange();
    values = now;
    observers.announceDidChange();
}

} // namespace glidemap
