#include "ui/theme/template_icon.h"

#include "ui/theme/symbol.h"
#include "ui/theme/theme.h"

#include <QPainter>
#include <QPixmap>
#include <array>

namespace glidemap {

namespace {

constexpr std::array sizes{16, 22, 24, 32, 48, 64}; // those that bars ask for

const QColor light(0xf4, 0xf4, 0xf4);
const QColor dark(0x2a, 0x2a, 0x2a);

constexpr double edgeOpacity = 0.55; // seen where it has to be, and not where it has not

// The symbol's own shape in another colour, moved by a little to all sides, behind it.
QPixmap drawn(std::string_view symbol, int size) {
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
    return pixmap;
}

} // namespace

QIcon drawnTemplateIcon(std::string_view symbol) {
    QIcon icon;
    for (const int size : sizes) {
        icon.addPixmap(drawn(symbol, size));
    }
    icon.setIsMask(true);
    return icon;
}

QIcon themedTemplateIcon(const char* themeName, std::string_view symbol) {
    QIcon icon = QIcon::fromTheme(themeName);
    if (icon.isNull()) {
        return drawnTemplateIcon(symbol);
    }
    icon.setIsMask(true);
    return icon;
}

} // namespace glidemap
