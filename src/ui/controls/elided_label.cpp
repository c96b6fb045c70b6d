#include "ui/controls/elided_label.h"

#include <QPainter>

namespace glidemap {

QSize ElidedLabel::minimumSizeHint() const {
    return {fontMetrics().horizontalAdvance(QStringLiteral("…")) * 3, QLabel::sizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    painter.drawText(contentsRect(), static_cast<int>(alignment()) | Qt::TextSingleLine, shown);
}

void ElidedLabel::resizeEvent(QResizeEvent* event) {
    const bool isCut = fontMetrics().horizontalAdvance(text()) > contentsRect().width();
    setToolTip(isCut ? text() : QString());
    QLabel::resizeEvent(event);
}

} // namespace glidemap
