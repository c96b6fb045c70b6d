#include "ui/controls/badge.h"

#include <QPainter>

namespace glidemap {

namespace {
constexpr double groundOpacity = 0.15;
}

Badge::Badge(QWidget* parent) : ElidedLabel(TextStyle::caption, Role::blue, parent) {
    setContentsMargins(8, 3, 8, 3);
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Fixed);
}

void Badge::setColor(Role colorRole) {
    role = colorRole;
    setRole(colorRole);
}

void Badge::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Theme::shared().color(role, groundOpacity));
    painter.drawRoundedRect(rect(), height() / 2.0, height() / 2.0);
    painter.end();
    ElidedLabel::paintEvent(event);
}

} // namespace glidemap
