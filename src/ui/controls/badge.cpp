#include "ui/controls/badge.h"

#include "ui/theme/style/paint.h"

#include <QPainter>

namespace glidemap {

namespace {
constexpr double groundOpacity = 0.15;
}

Badge::Badge(QWidget* parent) : ElidedLabel(TextStyle::caption, Role::blue, parent) {
    setContentsMargins(8, 3, 8, 3);
    setAlignment(Qt::AlignCenter);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void Badge::setColor(Role colorRole) {
    role = colorRole;
    setRole(colorRole);
}

void Badge::paintEvent(QPaintEvent* event) {
    {
        QPainter painter(this);
        const QRectF pill = style::snapped(painter, rect());
        style::fillRounded(painter, pill, pill.height() / 2,
                           Theme::shared().tint(role, groundOpacity));
    }
    ElidedLabel::paintEvent(event);
}

} // namespace glidemap
