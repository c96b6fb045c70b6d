#include "ui/theme/theme.h"

#include "ui/theme/glidemap_style.h"
#include "ui/theme/palette.h"
#include "ui/theme/type_scale.h"

#include <QApplication>
#include <QEvent>
#include <utility>

namespace glidemap {

namespace {

std::shared_ptr<AppearanceSettings>& sharedSettings() {
    static std::shared_ptr<AppearanceSettings> settings;
    return settings;
}

} // namespace

// Watches the desktop's palette and font. The QApplication may be destroyed before this object.
class Theme::DesktopWatch : public QObject {
public:
    DesktopWatch(Theme& theme, QApplication& application) : theme(theme) {
        application.installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched != qApp || theme.isApplyingStyle) {
            return false;
        }
        if (event->type() == QEvent::ApplicationPaletteChange) {
            theme.readPalette();
        } else if (event->type() == QEvent::ApplicationFontChange) {
            theme.readFont();
        }
        return false;
    }

private:
    Theme& theme;
};

Theme& Theme::shared() {
    static Theme theme(sharedSettings());
    return theme;
}

void Theme::configureShared(std::shared_ptr<AppearanceSettings> settings) {
    sharedSettings() = std::move(settings);
}

Theme::Theme(std::shared_ptr<AppearanceSettings> settings) : settings(std::move(settings)) {
    if (this->settings != nullptr) {
        toSettings = this->settings->changes().subscribe({}, [this] { refresh(); });
    }
}

Theme::~Theme() = default;

void Theme::applyTo(QApplication& application) {
    desktopFont = interfaceFont(QApplication::font());
    QApplication::setStyle(new GlidemapStyle);
    desktopPalette = desktopSchemeOf(QApplication::palette());
    watch = std::make_unique<DesktopWatch>(*this, application);
    refresh();
}

void Theme::readPalette() {
    desktopPalette = desktopSchemeOf(QApplication::palette());
    refresh();
}

void Theme::readFont() {
    desktopFont = interfaceFont(QApplication::font());
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

bool Theme::composites() const {
    return pinnedCompositing.value_or(settings == nullptr || settings->composites());
}

bool Theme::systemShowsSheets() const {
    return pinnedSheets.value_or(settings != nullptr && settings->showsSheets());
}

void Theme::pin(std::optional<ColorScheme> scheme) {
    pinnedScheme = scheme;
    refresh();
}

void Theme::pinReducedMotion(std::optional<bool> reduced) {
    pinnedMotion = reduced;
    refresh();
}

void Theme::pinCompositing(std::optional<bool> composites) {
    pinnedCompositing = composites;
}

void Theme::pinSystemSheets(std::optional<bool> systemShows) {
    pinnedSheets = systemShows;
}

QColor Theme::color(Role role) const {
    return colorOf(role, colorScheme());
}

QColor Theme::color(Role role, double opacity) const {
    QColor answer = color(role);
    answer.setAlphaF(static_cast<float>(opacity));
    return answer;
}

QColor Theme::tint(Role role, double opacity) const {
    QColor answer = vividColorOf(role, colorScheme());
    answer.setAlphaF(static_cast<float>(opacity));
    return answer;
}

QFont Theme::font(TextStyle style) const {
    return scaledFont(desktopFont, style);
}

void Theme::refresh() {
    observers.announceWillChange();
    if (watch != nullptr && qApp != nullptr) {
        isApplyingStyle = true;
        QApplication::setPalette(paletteOf(colorScheme()));
        QApplication::setFont(font(TextStyle::body));
        isApplyingStyle = false;
    }
    observers.announceDidChange();
}

} // namespace glidemap
