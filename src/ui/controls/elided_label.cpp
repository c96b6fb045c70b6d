#include "ui/controls/elided_label.h"

#include <QEvent>
#include <QHelpEvent>
#include <QPainter>
#include <QStyle>
#include <QToolTip>
#include <QtMath>
#include <algorithm>

namespace glidemap {

namespace {

// Rounds the width of the text up, so that the last letter is never elided.
int wholeWidth(const StyledLabel& label) {
    return qCeil(label.lineSize().width());
}

} // namespace

ElidedLabel::ElidedLabel(TextStyle style, Role role, QWidget* parent)
    : StyledLabel(style, role, parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QSize ElidedLabel::withMargins(int textWidth) const {
    const QMargins margins = contentsMargins();
    // A fallback font, for example for Chinese, may need more height than the label's font.
    const int lineHeight = std::max(fontMetrics().height(), qCeil(lineSize().height()));
    return {textWidth + margins.left() + margins.right(),
            lineHeight + margins.top() + margins.bottom()};
}

QSize ElidedLabel::sizeHint() const {
    return withMargins(wholeWidth(*this));
}

// Leaves room for a few letters, so that an elided text is recognisable as text.
QSize ElidedLabel::minimumSizeHint() const {
    return withMargins(std::min(wholeWidth(*this), fontMetrics().averageCharWidth() * 4));
}

bool ElidedLabel::isCut() const {
    return wholeWidth(*this) > contentsRect().width();
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
