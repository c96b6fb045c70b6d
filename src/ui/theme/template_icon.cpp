#include "ui/theme/template_icon.h"

#include "ui/theme/pixmap_icon_engine.h"
#include "ui/theme/symbol.h"
#include "ui/theme/theme.h"

#include <QPainter>
#include <QPixmap>
#include <QStandardPaths>
#include <algorithm>
#include <array>
#include <string>
#include <utility>

namespace glidemap {

namespace {

constexpr std::array sizes{16, 22, 24, 32, 48, 64}; // the sizes that known status bars request

const QColor light(0xf4, 0xf4, 0xf4);
const QColor dark(0x2a, 0x2a, 0x2a);

constexpr double edgeOpacity = 0.55; // visible on any background without being prominent

// Draws the symbol, and behind it the same shape in a contrasting colour, shifted slightly in all
// directions to form an edge.
QPixmap drawn(std::string_view symbol, int size, double strength) {
    const bool isDark = Theme::shared().isDark();
    const int edge = size >= 32 ? 2 : 1;
    const int inner = size - 2 * edge;
    const QPixmap shape = symbolPixmap(symbol, isDark ? light : dark, inner, 1);
    const QPixmap behind = symbolPixmap(symbol, isDark ? dark : light, inner, 1);
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setOpacity(edgeOpacity);
    for (const QPoint offset : {QPoint(0, 1), QPoint(1, 0), QPoint(1, 2), QPoint(2, 1)}) {
        painter.drawPixmap(offset * edge, behind);
    }
    painter.setOpacity(1);
    painter.drawPixmap(edge, edge, shape);
    // Fades the finished icon, so that the lower layer does not show through the upper one.
    if (strength < 1) {
        painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
        painter.fillRect(pixmap.rect(), QColor::fromRgbF(0, 0, 0, static_cast<float>(strength)));
    }
    return pixmap;
}

// Draws in black, because the bar uses only the opacity of each pixel.
QPixmap drawnPlainly(std::string_view symbol, int size, double strength) {
    QPixmap pixmap(size, size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setOpacity(strength);
    painter.drawPixmap(0, 0, symbolPixmap(symbol, Qt::black, size, 1));
    return pixmap;
}

// Programs install their icons in hicolor, to which all icon themes fall back. The file is looked
// up directly, because a search with QIcon::fromTheme() takes longer than opening a window.
bool isInstalled(const QString& name) {
    const QString place = QStringLiteral("icons/hicolor/symbolic/apps/%1.svg").arg(name);
    return !QStandardPaths::locate(QStandardPaths::GenericDataLocation, place).isEmpty();
}

// Draws the icon on request, at the requested size.
class Engine : public PixmapIconEngine {
public:
    using Draw = QPixmap (*)(std::string_view symbol, int size, double strength);

    Engine(std::string_view symbol, QString themeName, double strength, Draw draw)
        : symbol(symbol), themeName(std::move(themeName)), strength(strength), draw(draw) {}

    QIconEngine* clone() const override { return new Engine(*this); }
    QString iconName() override { return themeName; }

    QList<QSize> availableSizes(QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return squares(sizes);
    }

    QSize actualSize(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        return QSize(1, 1) * std::min(size.width(), size.height());
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode /*mode*/, QIcon::State /*state*/) override {
        const int side = std::min(size.width(), size.height());
        // An icon of two pixels would only have room for the edge.
        return side > 2 ? draw(symbol, side, strength) : QPixmap();
    }

private:
    std::string symbol;
    QString themeName;
    double strength;
    Draw draw;
};

QIcon iconOf(std::string_view symbol, const QString& themeName, double strength,
             Engine::Draw draw = drawn) {
    QIcon icon(new Engine(symbol, themeName, strength, draw));
    icon.setIsMask(true);
    return icon;
}

} // namespace

QIcon drawnTemplateIcon(std::string_view symbol, double strength) {
    return iconOf(symbol, {}, strength);
}

QIcon plainTemplateIcon(std::string_view symbol, double strength) {
    return iconOf(symbol, {}, strength, drawnPlainly);
}

QIcon themedTemplateIcon(const char* themeName, std::string_view symbol, double strength) {
    const auto name = QString::fromLatin1(themeName);
    return iconOf(symbol, isInstalled(name) ? name : QString(), strength);
}

} // namespace glidemap
