#include "ui/controls/separator.h"

#include <QPainter>

namespace glidemap {

Separator::Separator(QWidget* parent) : QWidget(parent) {
    setFixedHeight(1);
    toTheme = Theme::shared().changes().subscribe({}, [this] { update(); });
}

void Separator::paintEvent(QPaintEvent* /*event*/) {
    QPainter(this).fillRect(rect(), Theme::shared().color(Role::separator));
}

} // namespace glidemap
