#include "ui/theme/style/shadow.h"

#include "ui/theme/style/paint.h"

namespace glidemap::style {

namespace {

constexpr int blur = 17;
constexpr double drop = 5;

} // namespace

// Draws a stack of translucent cards, each slightly smaller than the one before. Their sum fades
// out like a blurred edge.
void drawShadow(QPainter& painter, const QRectF& card, double radius) {
    const int layer = Theme::shared().isDark() ? 8 : 3;
    for (int step = 0; step < blur; ++step) {
        const double reach = blur - step;
        const QRectF shape = card.adjusted(-reach, -reach + drop, reach, reach + drop);
        fillRounded(painter, shape, radius + reach,
                    QColor(0, 0, 0, step < blur / 2 ? layer / 2 : layer));
    }
}

} // namespace glidemap::style
