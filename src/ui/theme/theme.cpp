#include "ui/theme/theme.h"

#include <QApplication>
#include <QPalette>
#include <QStyleFactory>
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
        return {0xff6b6b70, 0xffa1a1a8};
    case Role::tertiary:
        return {0xff9a9aa0, 0xff74747b};
    case Role::accent:
        return {0xff3566e8, 0xff6b93ff};
    case Role::onAccent:
        return {0xffffffff, 0xff0d1220};
    case Role::red:
        return {0xffd32f2f, 0xffff6b63};
    case Role::orange:
        return {0xffb85c00, 0xffffa43d};
    case Role::blue:
        return {0xff1f6fd6, 0xff5aa9ff};
    case Role::green:
        return {0xff1e7f3c, 0xff4fc974};
    case Role::purple:
        return {0xff8438c4, 0xffc58bff};
    case Role::window:
        return {0xfff5f5f7, 0xff1e1e21};
    case Role::card:
        return {0xffffffff, 0xff29292d};
    case Role::field:
        return {0xffffffff, 0xff3a3a3f};
    case Role::separator:
        return {0xffdcdce0, 0xff3d3d42};
    case Role::hover:
        return {0x0a000000, 0x0dffffff};
    case Role::pressed:
        return {0x18000000, 0x1effffff};
    case Role::selection:
        return {0x1f3566e8, 0x336b93ff};
    }
    return {};
}

std::shared_ptr<AppearanceSettings>& sharedSettings() {
    static std::shared_ptr<AppearanceSettings> settings;
    return settings;
}

QPalette paletteOf(const Theme& theme) {
    QPalette palette;
    palette.setColor(QPalette::Window, theme.color(Role::window));
    palette.setColor(QPalette::WindowText, theme.color(Role::primary));
    palette.setColor(QPalette::Base, theme.color(Role::card));
    palette.setColor(QPalette::AlternateBase, theme.color(Role::window));
    palette.setColor(QPalette::Text, theme.color(Role::primary));
    palette.setColor(QPalette::Button, theme.color(Role::field));
    palette.setColor(QPalette::ButtonText, theme.color(Role::primary));
    palette.setColor(QPalette::BrightText, theme.color(Role::onAccent));
    palette.setColor(QPalette::PlaceholderText, theme.color(Role::tertiary));
    palette.setColor(QPalette::Highlight, theme.color(Role::accent));
    palette.setColor(QPalette::HighlightedText, theme.color(Role::onAccent));
    palette.setColor(QPalette::ToolTipBase, theme.color(Role::card));
    palette.setColor(QPalette::ToolTipText, theme.color(Role::primary));
    palette.setColor(QPalette::Link, theme.color(Role::accent));
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Disabled, role, theme.color(Role::tertiary));
    }
    return palette;
}

} // namespace

Theme& Theme::shared() {
    static Theme theme(sharedSettings());
    return theme;
}

void Theme::configureShared(std::shared_ptr<AppearanceSettings> settings) {
    sharedSettings() = std::move(settings);
}

Theme::Theme(std::shared_ptr<AppearanceSettings> asked) : settings(std::move(asked)) {
    if (settings != nullptr) {
        toSettings = settings->changes().subscribe({}, [this] { refresh(); });
    }
}

void Theme::applyTo(QApplication& application) {
    const bool isDarkDesktop = QApplication::palette().color(QPalette::Window).lightness() < 128;
    desktopPalette = isDarkDesktop ? ColorScheme::dark : ColorScheme::light;
    desktopFont = QApplication::font();
    dressed = &application;
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    refresh();
}

ColorScheme Theme::colorScheme() const {
    if (pinnedScheme.has_value()) {
        return *pinnedScheme;
    }
    const auto asked = settings != nullptr ? settings->colorScheme() : std::nullopt;
    return asked.value_or(desktopPalette);
}

bool Theme::reducesMotion() const {
    return pinnedMotion.value_or(settings != nullptr && settings->reducesMotion());
}

void Theme::pin(std::optional<ColorScheme> scheme) {
    pinnedScheme = scheme;
    refresh();
}

void Theme::pinReducedMotion(std::optional<bool> reduced) {
    pinnedMotion = reduced;
    refresh();
}

QColor Theme::color(Role role) const {
    const Pair colors = colorsOf(role);
    return QColor::fromRgba(isDark() ? colors.dark : colors.light);
}

QColor Theme::color(Role role, double opacity) const {
    QColor answer = color(role);
    answer.setAlphaF(static_cast<float>(opacity));
    return answer;
}

QFont Theme::font(TextStyle style) const {
    QFont font = desktopFont;
    const auto make = [&font](int pixels, QFont::Weight weight) {
        font.setPixelSize(pixels);
        font.setWeight(weight);
        return font;
    };
    switch (style) {
    case TextStyle::title2:
        return make(19, QFont::Bold);
    case TextStyle::headline:
        return make(14, QFont::DemiBold);
    case TextStyle::body:
        return make(14, QFont::Normal);
    case TextStyle::bodyMedium:
        return make(14, QFont::Medium);
    case TextStyle::callout:
        return make(13, QFont::Normal);
    case TextStyle::caption:
        return make(12, QFont::Normal);
    case TextStyle::caption2:
        return make(11, QFont::Normal);
    }
    return font;
}

void Theme::refresh() {
    observers.announceWillChange();
    if (dressed != nullptr) {
        QApplication::setPalette(paletteOf(*this));
        QApplication::setFont(font(TextStyle::body));
    }
    observers.announceDidChange();
}

} // namespace glidemap
