#include "ui/controls/elided_label.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <algorithm>

namespace glidemap {

ElidedLabel::ElidedLabel(TextStyle textStyle, Role colorRole, QWidget* parent)
    : StyledLabel(textStyle, colorRole, parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ElidedLabel::withMargins(int textWidth) const {
    const QMargins margins = contentsMargins();
    return {textWidth + margins.left() + margins.right(),
            fontMetrics().height() + margins.top() + margins.bottom()};
}

QSize ElidedLabel::sizeHint() const {
    return withMargins(fontMetrics().horizontalAdvance(text()));
}

// A few letters, so that there is something to guess the rest from.
QSize ElidedLabel::minimumSizeHint() const {
    const int whole = fontMetrics().horizontalAdvance(text());
    return withMargins(std::min(whole, fontMetrics().averageCharWidth() * 4));
}

bool ElidedLabel::isCut() const {
    return fontMetrics().horizontalAdvance(text()) > contentsRect().width();
}

bool ElidedLabel::event(QEvent* event) {
    if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && isCut()) {
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), text(), this);
        return true;
    }
    return StyledLabel::event(event);
}

void ElidedLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const QString shown = fontMetrics().elidedText(text(), Qt::ElideRight, contentsRect().width());
    const auto aligned = QStyle::visualAlignment(layoutDirection(), alignment());
    painter.drawText(contentsRect(), static_cast<int>(aligned) | Qt::TextSingleLine, shown);
}

} // namespace glidemap
