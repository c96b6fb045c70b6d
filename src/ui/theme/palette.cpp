#include "ui/theme/palette.h"

#include <array>
#include <utility>

namespace glidemap {

namespace {

struct Pair {
    QRgb light;
    QRgb dark;
};

Pair colorsOf(Role role) {
    switch (role) {
    case Role::primary:
        return {0xff1d1d1f, 0xfff2f2f4};
    case Role::secondary:
        return {0xff62626a, 0xffa9a9b1};
    case Role::tertiary:
        return {0xff87878f, 0xff83838c};
    case Role::accent:
        return {0xff2f62e0, 0xff7da0ff};
    case Role::onAccent:
        return {0xffffffff, 0xffffffff};
    case Role::red:
        return {0xffc92a2a, 0xffff7a72};
    case Role::orange:
        return {0xffad5300, 0xffffa43d};
    case Role::blue:
        return {0xff1558b3, 0xff66b0ff};
    case Role::green:
        return {0xff1a7537, 0xff4fc974};
    case Role::purple:
        return {0xff7c30bd, 0xffcb97ff};
    case Role::window:
        return {0xfff4f4f6, 0xff1d1d20};
    case Role::card:
        return {0xffffffff, 0xff28282c};
    case Role::field:
        return {0xffffffff, 0xff3a3a40};
    case Role::separator:
        return {0xffdfdfe4, 0xff3b3b41};
    case Role::hover:
        return {0x0a000000, 0x0dffffff};
    case Role::pressed:
        return {0x18000000, 0x1effffff};
    case Role::selection:
        return {0x1f2f62e0, 0x337da0ff};
    case Role::accentGround:
        return {0xff2f62e0, 0xff3b6cec};
    case Role::outline:
        return {0xffcbcbd2, 0xff55555d};
    case Role::track:
        return {0xffe3e3e8, 0xff3a3a40};
    case Role::knob:
        return {0xffffffff, 0xfff4f4f6};
    }
    return {};
}

Pair vividColorsOf(Role role) {
    switch (role) {
    case Role::red:
        return {0xffff3b30, 0xffff5f57};
    case Role::orange:
        return {0xffff9500, 0xffff9f0a};
    case Role::blue:
        return {0xff0a74ff, 0xff3d9bff};
    case Role::green:
        return {0xff28b34b, 0xff3ecf68};
    case Role::purple:
        return {0xffa63de8, 0xffbf7bff};
    default:
        return colorsOf(role);
    }
}

QColor chosen(Pair colors, ColorScheme scheme) {
    return QColor::fromRgba(scheme == ColorScheme::dark ? colors.dark : colors.light);
}

} // namespace

QColor colorOf(Role role, ColorScheme scheme) {
    return chosen(colorsOf(role), scheme);
}

QColor vividColorOf(Role role, ColorScheme scheme) {
    return chosen(vividColorsOf(role), scheme);
}

QPalette paletteOf(ColorScheme scheme) {
    constexpr auto roles = std::to_array<std::pair<QPalette::ColorRole, Role>>({
        {QPalette::Window, Role::window},
        {QPalette::WindowText, Role::primary},
        {QPalette::Base, Role::card},
        {QPalette::Text, Role::primary},
        {QPalette::Button, Role::field},
        {QPalette::ButtonText, Role::primary},
        {QPalette::BrightText, Role::onAccent},
        {QPalette::PlaceholderText, Role::secondary},
        {QPalette::Highlight, Role::accentGround},
        {QPalette::HighlightedText, Role::onAccent},
        {QPalette::ToolTipBase, Role::card},
        {QPalette::ToolTipText, Role::primary},
        {QPalette::Link, Role::accent},
        {QPalette::LinkVisited, Role::purple},
        {QPalette::Mid, Role::separator},
    });
    QPalette palette;
    for (const auto& [drawn, role] : roles) {
        palette.setColor(drawn, colorOf(role, scheme));
    }
    for (const auto text : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, text, colorOf(Role::tertiary, scheme));
    }
    return palette;
}

ColorScheme desktopSchemeOf(const QPalette& palette) {
    const bool isDark = palette.color(QPalette::AlternateBase).lightness() < 128;
    return isDark ? ColorScheme::dark : ColorScheme::light;
}

} // namespace glidemap
