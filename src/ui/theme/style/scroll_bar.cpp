#include "ui/theme/style/scroll_bar.h"

#include "ui/theme/style/paint.h"

#include <QStyleOption>
#include <algorithm>

namespace glidemap::style {

namespace {

constexpr double atRest = 6;
constexpr double underPointer = 8;
constexpr double edgeGap = 2;

} // namespace

void drawScrollBar(QPainter& painter, const QStyleOptionSlider& option, const QRect& handle) {
    if (option.maximum <= option.minimum) {
        return;
    }
    const bool isActive = option.state.testFlag(QStyle::State_MouseOver) ||
                          option.state.testFlag(QStyle::State_Sunken);
    const double thickness = isActive ? underPointer : atRest;
    QRectF shape = handle;
    if (option.orientation == Qt::Vertical) {
        shape = QRectF(shape.right() - edgeGap - thickness, shape.top() + edgeGap, thickness,
                       shape.height() - 2 * edgeGap);
    } else {
        shape = QRectF(shape.left() + edgeGap, shape.bottom() - edgeGap - thickness,
                       shape.width() - 2 * edgeGap, thickness);
    }
    fillRounded(painter, shape, thickness / 2, color(Role::primary, isActive ? 0.45 : 0.28));
}

QRect scrollBarPart(const QStyleOptionSlider& option, QStyle::SubControl part) {
    const bool isVertical = option.orientation == Qt::Vertical;
    const int length = isVertical ? option.rect.height() : option.rect.width();
    const qint64 range = qint64(option.maximum) - option.minimum;
    qint64 handle = length;
    if (range > 0) {
        handle = qint64(length) * option.pageStep / (range + option.pageStep);
        handle = std::clamp<qint64>(handle, std::min(scrollBarMinHandle, length), length);
    }
    const int size = static_cast<int>(handle);
    const int start = QStyle::sliderPositionFromValue(
        option.minimum, option.maximum, option.sliderPosition, length - size, option.upsideDown);
    const auto along = [&](int from, int extent) {
        return isVertical ? QRect(0, from, option.rect.width(), extent)
                          : QRect(from, 0, extent, option.rect.height());
    };
    switch (part) {
    case QStyle::SC_ScrollBarSlider:
        return along(start, size);
    case QStyle::SC_ScrollBarGroove:
        return along(0, length);
    case QStyle::SC_ScrollBarSubPage:
        return along(0, start);
    case QStyle::SC_ScrollBarAddPage:
        return along(start + size, length - start - size);
    default:
        return {};
    }
}

} // namespace glidemap::style
