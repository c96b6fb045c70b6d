#include "ui/theme/type_scale.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QScreen>
#include <QStringList>
#include <algorithm>
#include <array>

namespace glidemap {

namespace {

struct Step {
    double size;
    QFont::Weight weight;
};

constexpr double bodySize = 14;

Step stepOf(TextStyle style) {
    switch (style) {
    case TextStyle::title2:
        return {19, QFont::Bold};
    case TextStyle::headline:
        return {bodySize, QFont::DemiBold};
    case TextStyle::body:
        return {bodySize, QFont::Normal};
    case TextStyle::bodyMedium:
        return {bodySize, QFont::Medium};
    case TextStyle::callout:
        return {13, QFont::Normal};
    case TextStyle::caption:
        return {12, QFont::Normal};
    case TextStyle::caption2:
        return {11, QFont::Normal};
    }
    return {bodySize, QFont::Normal};
}

// Whether the family is a placeholder that Qt reports if the user has not chosen a font.
bool namesNoFamily(const QString& family) {
    const std::array names = {"", "Sans", "Sans Serif", "Sans-Serif", "Helvetica", "System-ui"};
    return std::any_of(names.begin(), names.end(), [&family](const char* name) {
        return family.compare(QLatin1String(name), Qt::CaseInsensitive) == 0;
    });
}

void addInstalled(QStringList& families, const QString& family) {
    if (!families.contains(family) && QFontDatabase::hasFamily(family)) {
        families.append(family);
    }
}

// Does not use QFontInfo, which would load the font in a size that is not drawn.
double pixelSizeOf(const QFont& font) {
    if (font.pixelSize() > 0) {
        return font.pixelSize();
    }
    constexpr double pointsInInch = 72;
    return font.pointSizeF() * QGuiApplication::primaryScreen()->logicalDotsPerInchY() /
           pointsInInch;
}

} // namespace

QFont interfaceFont(const QFont& desktop) {
    QStringList families;
    if (!namesNoFamily(desktop.family())) {
        families.append(desktop.families());
    }
    addInstalled(families, QStringLiteral("Inter"));
    addInstalled(families, QStringLiteral("Noto Sans"));
    addInstalled(families, QStringLiteral("Noto Sans CJK SC"));
    QFont font = desktop;
    if (!families.isEmpty()) {
        font.setFamilies(families);
    }
    return font;
}

QFont scaledFont(const QFont& base, TextStyle style) {
    const Step step = stepOf(style);
    const double enlargement = std::max(1.0, pixelSizeOf(base) / bodySize);
    QFont font = base;
    font.setPixelSize(qRound(step.size * enlargement));
    font.setWeight(step.weight);
    font.setStyleName({}); // a style name would override the weight
    if (style == TextStyle::title2) {
        font.setLetterSpacing(QFont::PercentageSpacing, 98.5);
    }
    return font;
}

} // namespace glidemap
