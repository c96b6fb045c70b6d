#include "ui/controls/symbol_label.h"

#include "ui/theme/symbol.h"

#include <QPainter>

namespace glidemap {

SymbolLabel::SymbolLabel(std::string_view symbol, Role role, int points, QWidget* parent)
    : QWidget(parent), symbol(symbol), role(role), points(points) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    toTheme = Theme::shared().changes().subscribe({}, [this] { update(); });
}

QSize SymbolLabel::sizeHint() const {
    return {points, points};
}

void SymbolLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    drawSymbol(painter, rect(), symbol, Theme::shared().color(role));
}

} // namespace glidemap
